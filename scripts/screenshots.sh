#!/usr/bin/env bash
# Makes the README's screenshots of the bundled character under a virtual X server:
# the rest pose, speaking with the balloon up, and the popup menu.
# Usage: scripts/screenshots.sh <path to quorl> <output folder>
set -euo pipefail
if [ -z "${DISPLAY:-}" ]; then exec xvfb-run -a -s "-screen 0 800x600x24 -wr" "$0" "$@"; fi
quorl=$1 out=$2
work=$(mktemp -d)
trap 'kill "${pid:-}" 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_CONFIG_HOME/Kestrane" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR" "$out"
chmod 700 "$XDG_RUNTIME_DIR"
cat >"$XDG_CONFIG_HOME/Kestrane/Quorl.conf" <<CONF
[General]
Character=lumo.acs
X=60
Y=40
Splash=0
StartMinimized=0
IdleAnimations=0
CONF
"$quorl" >"$work/log" 2>&1 &
pid=$!
shot() { import -window root -crop "$1" +repage "$out/$2"; }
sleep 3
shot 360x260+0+0 speaking.png
sleep 14
shot 260x200+0+0 rest-pose.png
xdotool mousemove 124 104 click 3
sleep 1
shot 380x330+0+0 popup-menu.png
echo "screenshots written to $out"
