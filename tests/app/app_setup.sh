#!/usr/bin/env bash
# End to end on an X server: the application window opened from the main menu by keys, an
# entry typed in whose command writes a marker file, the window closed; then the entry's
# caption picked from the character's popup menu must run that command.
# Usage: app_setup.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
trap 'finish "${pid:-}"' EXIT
# What the program keeps in the temporary folder goes with the work folder.
export TMPDIR=$work/tmp
mkdir -p "$TMPDIR"
printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\nShow=1\nX=200\nY=200\n' >"$settings"
marker=$work/marker
printf '#!/bin/sh\ntouch "%s"\n' "$marker" >"$work/mark.sh"
chmod +x "$work/mark.sh"

windows() { xdotool search --onlyvisible --class quorl 2>/dev/null | wc -l; }

"$quorl" >"$work/log" 2>&1 &
pid=$!
main=$(wait_window '^Quorl$' 30) || fail "the program showed no window"
focus "$main"
xdotool key alt+u a
setup=$(wait_window '^Quorl Application Setup$' 15) || fail "the menu opened no application window"
focus "$setup"
# The focus starts in the list; the title, voice and path boxes follow it.
xdotool key Tab
xdotool type --delay 20 "&Marker"
xdotool key Tab
xdotool type --delay 20 "Make a marker"
xdotool key Tab
xdotool type --delay 20 "$work/mark.sh"
xdotool key alt+a alt+c
for _ in $(seq 1 50); do
    [ -s "$XDG_DATA_HOME/Kestrane/Quorl/Apps.cfg" ] && break
    sleep 0.3
done
[ -s "$XDG_DATA_HOME/Kestrane/Quorl/Apps.cfg" ] || fail "Close wrote no Apps.cfg"

# The character stands at (200, 200); a right click on its pixels opens its popup menu. The
# title's access key M is the only one in that menu, so the key picks exactly this entry; a key
# that comes before the menu holds the keyboard is lost harmlessly, and the pick is tried again.
popup() {
    local before spot
    before=$(windows)
    for spot in "260 260" "250 280" "280 250" "240 240" "300 300" "230 300"; do
        xdotool mousemove $spot click 3
        for _ in 1 2 3 4 5; do
            [ "$(windows)" -gt "$before" ] && return 0
            sleep 0.2
        done
    done
    return 1
}
for _ in 1 2 3; do
    popup || fail "no popup menu at the character"
    # The menu is a window of its own; a key sent before it maps is lost.
    sleep 0.5
    xdotool key m
    for _ in $(seq 1 20); do
        [ -e "$marker" ] && { echo "the popup pick ran the application"; exit 0; }
        sleep 0.3
    done
    xdotool key Escape
done
fail "the popup pick did not run the application"
