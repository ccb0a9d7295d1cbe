#!/usr/bin/env bash
# End to end on an X server: the real program on fresh XDG folders. The first run answers the
# first-run box and the file dialog through their own widgets (keystrokes), picks the bundled
# character, and checks the screen, the settings file and what reached the speech engine. A
# second run with the same folders must show no first-run box and place the character where
# it was saved.
# Usage: first_run.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
trap 'finish "${pid:-}"' EXIT
export QT_LOGGING_RULES="agent.speech.debug=true"

# Fraction of pixels in a square of the screen that differ from the root window's black.
coverage() {
    import -window root "$work/screen.png"
    convert "$work/screen.png" -crop "$3x$3+$1+$2" -colorspace Gray -threshold 1% \
        -format '%[fx:mean]' info:
}

"$quorl" >"$work/log1" 2>&1 &
pid=$!

box=$(wait_window "Please select a character" 30) || fail "no first-run box"
focus "$box"
xdotool key Return
dialog=$(wait_window "Open Character" 15) || fail "no file dialog"
focus "$dialog"
xdotool type --delay 30 "lumo.acs"
xdotool key Return
wait_setting Character 20 || fail "Character was not stored"
# Each sentence reaches the speech engine when the character's queue comes to it.
for _ in $(seq 1 60); do
    grep -q 'speak.*Today is' "$work/log1" && break
    sleep 0.5
done

grep -q "^Character=$XDG_DATA_HOME/Kestrane/Quorl/lumo.acs$" "$settings" ||
    fail "Character is not the full path of the bundled character"
for key in X Y; do grep -q "^$key=0$" "$settings" || fail "$key is not 0"; done
for key in Pitch Speed Volume; do grep -q "^$key=[0-9]" "$settings" || fail "$key missing"; done
for pair in "TimeCmd=What is the time" "DateCmd=What is the date" "ShutCmd=Shut Down" \
    "NotesCmd=Notes" "ClipCmd=Clip Board" "RestartCmd=Restart Windows" \
    EnTime=1 EnDate=1 EnReadClip=1 EnNotes=1 EnRestart=1 Shutdown=1; do
    grep -qi "^$pair$" "$settings" || fail "setting $pair missing"
done

awk '/speak/' "$work/log1" >"$work/spoken"
grep -qE 'Good (Morning|Afternoon|Evening)' "$work/spoken" || fail "no greeting word spoken"
word=$(grep -nE 'Good (Morning|Afternoon|Evening)' "$work/spoken" | head -n1 | cut -d: -f1)
time=$(grep -n 'The time now is' "$work/spoken" | head -n1 | cut -d: -f1)
date=$(grep -n 'Today is' "$work/spoken" | head -n1 | cut -d: -f1)
[ -n "$time" ] && [ -n "$date" ] && [ "$word" -lt "$time" ] && [ "$time" -lt "$date" ] ||
    fail "the greeting was not word, time, date in that order"

[ "$(coverage 0 0 128)" != "0" ] || fail "no character pixels at the top left corner"
inside=$(coverage 24 24 80)
awk -v c="$inside" 'BEGIN { exit !(c > 0.3) }' || fail "the character covers too little ($inside)"
# Far from the character and the main window the screen shows the bare root window.
[ "$(coverage 1100 900 100)" = "0" ] || fail "the screen is covered where nothing should be"

kill "$pid"; wait "$pid" 2>/dev/null || true

# Second start with a saved position.
sed -i -e 's/^X=.*/X=100/' -e 's/^Y=.*/Y=600/' "$settings"
"$quorl" >"$work/log2" 2>&1 &
pid=$!
for _ in $(seq 1 30); do
    [ "$(coverage 100 600 128)" != "0" ] && break
    sleep 1
done
[ "$(coverage 100 600 128)" != "0" ] || fail "the character is not where it was saved"
if wait_window "Please select a character" 1 >/dev/null; then fail "first-run box on the second start"; fi
[ "$(coverage 0 0 100)" = "0" ] || fail "the character is still at the top left corner"
echo "first run and second start passed"
