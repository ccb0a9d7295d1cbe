#!/usr/bin/env bash
# The tray icon on a real tray host (trayer, whose panel in the bottom right corner holds the
# icon at 1257,977, 22x46): a double click hides the main window and the next shows it again;
# a single click does nothing. Without any tray the program says so in a box before the window
# shows.
# Usage: tray.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
NO_TRAY_HOST=1
. "$(dirname "$0")/common.sh"
trap 'finish "${pid:-}"' EXIT
unset DBUS_SESSION_BUS_ADDRESS
printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\nX=600\nY=600\n' >"$settings"

visible_windows() { xdotool search --onlyvisible --name '^Quorl$' 2>/dev/null | wc -l; }

# Waits up to $2 seconds until $1 windows named Quorl are visible.
wait_count() {
    local deadline=$((SECONDS + $2))
    while [ $SECONDS -lt $deadline ]; do
        [ "$(visible_windows)" -eq "$1" ] && return 0
        sleep 0.3
    done
    return 1
}

"$quorl" >"$work/log1" 2>&1 &
pid=$!
box=$(wait_window '^Quorl$' 30) || fail "no box about the missing tray"
# Time for a main window to show if it wrongly did; after the answer below it must.
sleep 1
[ "$(visible_windows)" -eq 1 ] || fail "the main window showed before the box was answered"
focus "$box"
xdotool key Return
wait_count 1 10 && [ "$(xdotool search --onlyvisible --name '^Quorl$')" != "$box" ] ||
    fail "the main window did not follow the box"
kill -TERM "$pid"
wait "$pid" || true

start_tray_host
"$quorl" >"$work/log2" 2>&1 &
pid=$!
wait_window '^Quorl$' 30 >/dev/null || fail "no main window beside the tray"
# The icon is embedded by the tray host after the window shows, with nothing to wait on.
sleep 2
double_click_icon() { xdotool mousemove 1268 1000 click --repeat 2 --delay 100 1; }
xdotool mousemove 1268 1000 click 1
# Past the double-click time: a single click must change nothing, and the double click below
# must hide the window.
sleep 1
[ "$(visible_windows)" -eq 1 ] || fail "a single click changed the window"
double_click_icon
wait_count 0 10 || fail "a double click on the icon did not hide the window"
double_click_icon
wait_count 1 10 || fail "a second double click did not bring the window back"
echo "the tray icon hides and shows the window; without a tray the user is told"
