#!/usr/bin/env bash
# `kill -TERM` ends the real program as a task manager would: with "Save Settings on Exit"
# checked the window values and the character's new place are in the settings file afterwards;
# unchecked only SaveSettings "False" is written. Either way the program leaves nothing in its
# temporary folder.
# Usage: closing.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
trap 'finish "${pid:-}"' EXIT
export TMPDIR=$work/tmp

value() { sed -n "s/^$1=//p" "$settings"; }

# Fraction of pixels in a square of the screen that differ from the root window's black.
coverage() {
    import -window root "$work/screen.png"
    convert "$work/screen.png" -crop "$3x$3+$1+$2" -colorspace Gray -threshold 1% \
        -format '%[fx:mean]' info:
}

run_and_terminate() {
    local save=$1
    rm -rf "$TMPDIR"
    mkdir -p "$TMPDIR"
    printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\nX=100\nY=600\n' >"$settings"
    printf 'WinX=1500\nWinY=1500\nSaveSettings=%s\n' "$save" >>"$settings"
    "$quorl" >"$work/log-$save" 2>&1 &
    pid=$!
    window=$(wait_window '^Quorl$' 30) || fail "no main window"
    xdotool windowmove "$window" 300 200
    for _ in $(seq 1 30); do
        [ "$(coverage 100 600 128)" != "0" ] && break
        sleep 0.5
    done
    [ "$(coverage 100 600 128)" != "0" ] || fail "the character is not at its stored place"
    # Drag the character 300 pixels right and 200 up.
    xdotool mousemove 160 660 mousedown 1 mousemove 260 600 mousemove 360 530 mousemove 460 460
    sleep 0.5
    xdotool mouseup 1
    [ "$(coverage 400 400 128)" != "0" ] || fail "the character did not follow the drag"
    sed -i '/^Pitch=/d' "$settings"
    kill -TERM "$pid"
    local status=0
    wait "$pid" || status=$?
    pid=""
    [ "$status" -eq 0 ] || fail "the program ended with status $status"
    [ -z "$(ls -A "$TMPDIR")" ] || fail "left behind in the temporary folder: $(ls -A "$TMPDIR")"
}

run_and_terminate True
[ "$(value SaveSettings)" = True ] || fail "SaveSettings is not True"
x=$(value X)
y=$(value Y)
[ "$x" -ge 350 ] && [ "$x" -le 450 ] && [ "$y" -ge 350 ] && [ "$y" -le 450 ] ||
    fail "the character's new place was not saved (X=$x Y=$y)"
[ "$(value WinX)" != 1500 ] || fail "the window's place was not saved"
[ -n "$(value Pitch)" ] || fail "the voice was not saved"

run_and_terminate False
[ "$(value SaveSettings)" = False ] || fail "SaveSettings is not False"
[ "$(value X)" = 100 ] && [ "$(value Y)" = 600 ] || fail "the character's place was saved"
[ -z "$(value Pitch)" ] || fail "the voice was saved"
echo "kill -TERM saved as the mark said and left nothing behind"
