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
    { echo "SKIP: pulseaudio could not start"; exit 77; }
pactl set-default-sink speaker
pactl set-default-source microphone

# The words with a moment of silence on each side, as a speaker holds the key around them.
flite -voice slt -t "What is the time" -o "$work/words.wav"
sox "$work/words.wav" "$work/time.wav" pad 0.3 0.3

"$quorl" >"$work/log" 2>&1 &
pid=$!
wait_window '^Quorl$' 30 >/dev/null || fail "the program showed no window"
# The greeting's setting is the last one start-up writes; by then the commands are listened for.
wait_setting Greeting 30 || fail "the program did not finish starting"

xdotool keydown Scroll_Lock
# Listening has begun once the program records from the microphone.
for _ in $(seq 1 20); do
    [ -n "$(pactl list short source-outputs)" ] && break
    sleep 0.25
done
[ -n "$(pactl list short source-outputs)" ] || fail "the listening key opened no microphone"
paplay -d voice "$work/time.wav"
# paplay returns when the sound server has played the file; its last half second may still be
# in the recording stream's buffer, so the key is held that much longer.
sleep 0.5
xdotool keyup Scroll_Lock

for _ in $(seq 1 40); do
    grep -q 'speak.*The time now is' "$work/log" && { echo "the spoken command was obeyed"; exit 0; }
    sleep 0.5
done
fail "no time sentence after the spoken command"
