#!/usr/bin/env bash
# End to end on an X server: the options dialog is opened from the main window's menu and used
# with the keyboard alone; the greeting becomes "Time Only" with a closing text, OK stores it,
# and the next start greets with the word, the time and the closing text, and no date.
# Usage: options_greeting.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
trap 'finish "${pid:-}"' EXIT
export QT_LOGGING_RULES="agent.speech.debug=true"
printf '[General]\nCharacter=lumo.acs\nSplash=0\n' >"$settings"

"$quorl" >"$work/log1" 2>&1 &
pid=$!
main=$(wait_window '^Quorl$' 30) || fail "the program showed no window"
focus "$main"
xdotool key alt+f
# The menu is a window of its own; a key sent before it maps is lost.
sleep 0.5
xdotool key o
options=$(wait_window '^Options$' 15) || fail "File > Options opened no dialog"
focus "$options"
# The StartUp tab, its first greeting button, the next one ("Time Only"), then the closing
# text box after the group; Return is OK. A mnemonic presses its button for a moment, so the
# keys are spaced.
xdotool key --delay 300 alt+u alt+t Down Tab
xdotool type --delay 30 "Have a nice day"
xdotool key Return
wait_grep '^Greeting=1$' 15 "$settings" || fail "Greeting was not stored as 1"
wait_grep '^GreetingText=Have a nice day$' 15 "$settings" || fail "GreetingText was not stored"
wait_gone '^Options$' 15 || fail "the dialog stayed open after OK"
kill "$pid"; wait "$pid" 2>/dev/null || true

"$quorl" >"$work/log2" 2>&1 &
pid=$!
wait_grep 'speak.*Have a nice day' 60 "$work/log2" || fail "the greeting did not end"
awk '/speak/' "$work/log2" >"$work/spoken"
word=$(grep -nE 'Good (Morning|Afternoon|Evening)' "$work/spoken" | head -n1 | cut -d: -f1)
time=$(grep -n 'The time now is' "$work/spoken" | head -n1 | cut -d: -f1)
closing=$(grep -n 'Have a nice day' "$work/spoken" | head -n1 | cut -d: -f1)
[ -n "$word" ] && [ -n "$time" ] && [ "$word" -lt "$time" ] && [ "$time" -lt "$closing" ] ||
    fail "the greeting was not word, time, closing text in that order"
if grep -q 'Today is' "$work/spoken"; then fail "the greeting told the date"; fi
echo "the greeting set in the options dialog was heard at the next start"
