#!/usr/bin/env bash
# A second start while Quorl runs shows "Quorl is already running!", exits with status 0, and
# leaves the first instance and the settings file alone.
# Usage: second_instance.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
trap 'finish "${first:-}" "${second:-}"' EXIT
printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\n' >"$settings"

"$quorl" >"$work/log1" 2>&1 &
first=$!
wait_window '^Quorl$' 30 >/dev/null || fail "the first instance showed no window"
# The greeting's setting is the last one start-up writes.
wait_setting Greeting 30 || fail "the first instance did not finish starting"
before=$(sha256sum "$settings")

windows() { xdotool search --onlyvisible --name '^Quorl$' 2>/dev/null | sort || true; }
known=$(windows)
"$quorl" >"$work/log2" 2>&1 &
second=$!
box=""
for _ in $(seq 1 40); do
    box=$(comm -13 <(echo "$known") <(windows) | head -n1)
    [ -n "$box" ] && break
    sleep 0.5
done
[ -n "$box" ] || fail "the second start showed no box"
# Return presses the box's OK button.
focus "$box"
xdotool key Return
status=0
wait "$second" || status=$?
second=""
[ "$status" -eq 0 ] || fail "the second start exited with status $status"
kill -0 "$first" || fail "the first instance is gone"
[ "$(sha256sum "$settings")" = "$before" ] || fail "the settings file changed"
echo "second start refused, first instance untouched"
