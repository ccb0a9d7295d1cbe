#!/usr/bin/env bash
# A second start while Quorl runs shows "Quorl is already running!", exits with status 0, and
# leaves the first instance and the settings file alone.
# Usage: second_instance.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
work=$(mktemp -d)
trap 'kill "${first:-}" "${second:-}" 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_CONFIG_HOME/Kestrane" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset PULSE_SERVER QT_QPA_PLATFORM
settings=$XDG_CONFIG_HOME/Kestrane/Quorl.conf
printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\n' >"$settings"

fail() { echo "FAIL: $*" >&2; cat "$work"/log* >&2 || true; exit 1; }

"$quorl" >"$work/log1" 2>&1 &
first=$!
for _ in $(seq 1 60); do
    xdotool search --onlyvisible --name '^Quorl$' >/dev/null 2>&1 && break
    sleep 0.5
done
sleep 2
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
xdotool windowfocus --sync "$box" 2>/dev/null || xdotool windowfocus "$box"
sleep 0.3
xdotool key Return
status=0
wait "$second" || status=$?
second=""
[ "$status" -eq 0 ] || fail "the second start exited with status $status"
kill -0 "$first" || fail "the first instance is gone"
[ "$(sha256sum "$settings")" = "$before" ] || fail "the settings file changed"
echo "second start refused, first instance untouched"
