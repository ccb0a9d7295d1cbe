#!/usr/bin/env bash
# End to end through the real program: a private sound server whose microphone hears what is
# played into it, the listening key held while "What is the time" is played, and the character
# must then speak the time sentence.
# Usage: voice_command.sh <path to quorl>   (run under xvfb-run)
set -euo pipefail
quorl=$1
. "$(dirname "$0")/common.sh"
export QT_LOGGING_RULES="agent.speech.debug=true"
trap 'pulseaudio --kill 2>/dev/null || true; finish "${pid:-}"' EXIT
printf '[General]\nCharacter=lumo.acs\nSplash=0\nTimeGreeting=0\n' >"$settings"

# The character speaks into "speaker"; the microphone hears only what is played into "voice".
pulseaudio --daemonize=yes --exit-idle-time=-1 -n \
    --load="module-null-sink sink_name=speaker" --load="module-null-sink sink_name=voice" \
    --load=module-native-protocol-unix \
    --load="module-remap-source master=voice.monitor source_name=microphone" ||
    { echo "SKIP: pulseaudio could not start"; exit 0; }
pactl set-default-sink speaker
pactl set-default-source microphone

flite -voice slt -t "What is the time" -o "$work/time.wav"

"$quorl" >"$work/log" 2>&1 &
pid=$!
wait_window '^Quorl$' 30 >/dev/null || fail "the program showed no window"
sleep 4

xdotool keydown Scroll_Lock
sleep 0.5
paplay -d voice "$work/time.wav"
sleep 0.5
xdotool keyup Scroll_Lock

for _ in $(seq 1 40); do
    grep -q 'speak.*The time now is' "$work/log" && { echo "the spoken command was obeyed"; exit 0; }
    sleep 0.5
done
fail "no time sentence after the spoken command"
