#!/usr/bin/env bash
# End to end on an X server: the real program, its main window hidden, starts with a Notes.cfg
# written byte by byte as the old program wrote it, holding a Once reminder for the next
# minute. Within that minute "Reminder Window" must come up with the focus, show that note,
# and the character must say the reminder text and the note's text.
# Usage: reminder.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
trap 'finish "${pid:-}"' EXIT
export QT_LOGGING_RULES="agent.speech.debug=true;quorl.notes.debug=true"
printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\nStartMinimized=0\n%s\n' \
    'ShowIfHidden=1' 'ReadNote=1' 'ReminderText=You have a reminder' >"$settings"

# The first tick comes a minute after start-up; start early enough in a minute that it falls
# in the next one.
while [ "$(date +%-S)" -ge 40 ]; do sleep 1; done
due=$(date -d '+1 minute' '+%Y %-m %-d %-H %-M')
read -r year month day hour minute <<<"$due"

le16() { printf "\\\\x%02x\\\\x%02x" $(($1 & 255)) $(($1 >> 8 & 255)); }
notes=$XDG_DATA_HOME/Kestrane/Quorl/Notes.cfg
mkdir -p "$(dirname "$notes")"
{
    printf '%-50s%-500s' "Weekly call" "Not today"
    printf "$(le16 1)$(le16 2)$(le16 $(((($(date +%w) + 3) % 7))))$(le16 0)$(le16 0)"
    printf "$(le16 0)$(le16 0)$(le16 0)"
    printf '%-50s%-500s' "Dentist" $'Bring the card\r\nand the letter'
    # Remind, Kind (Once), Every (month - 1), Day, Year, HourIndex, MinuteIndex, AmPm
    printf "$(le16 1)$(le16 0)$(le16 $((month - 1)))$(le16 "$day")$(le16 "$year")"
    printf "$(le16 $(((hour + 11) % 12)))$(le16 "$minute")$(le16 $((hour >= 12)))"
} >"$notes"
[ "$(stat -c %s "$notes")" = 1132 ] || fail "Notes.cfg is not two records"

"$quorl" >"$work/log" 2>&1 &
pid=$!
window=$(wait_window '^Reminder Window$' 95) || fail "no reminder window"
[ "$(date +%-M)" = "$minute" ] || fail "the reminder came outside its minute"
focused=$(xdotool getwindowfocus)
[ "$focused" = "$window" ] || fail "the reminder window has not the focus ($focused, $window)"

grep -q 'reminder 2 "Dentist" "Bring the card\\r\\nand the letter"' "$work/log" ||
    fail "the window does not show the note"
for _ in $(seq 1 40); do
    grep -q 'speak.*and the letter' "$work/log" && break
    sleep 0.5
done
awk '/speak/' "$work/log" >"$work/spoken"
said=$(grep -n 'You have a reminder' "$work/spoken" | head -n1 | cut -d: -f1)
note=$(grep -n 'Bring the card' "$work/spoken" | head -n1 | cut -d: -f1)
[ -n "$said" ] && [ -n "$note" ] && [ "$said" -lt "$note" ] ||
    fail "the character did not say the reminder text and then the note"
if grep -q 'Not today' "$work/log"; then fail "the weekly note of another day came up"; fi
echo "the reminder came up in its minute and was spoken"
