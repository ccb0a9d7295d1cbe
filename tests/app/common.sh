# Shared by the end-to-end scripts: fresh XDG folders for one run of the program, and helpers
# to find its windows. Source it after `set -euo pipefail`.
work=$(mktemp -d)
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_CONFIG_HOME/Kestrane" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset PULSE_SERVER QT_QPA_PLATFORM
settings=$XDG_CONFIG_HOME/Kestrane/Quorl.conf

fail() { echo "FAIL: $*" >&2; echo "--- program log" >&2; cat "$work"/log* >&2 || true; exit 1; }

# Waits up to $2 seconds for a visible window whose title matches $1 and prints its id.
wait_window() {
    local deadline=$((SECONDS + $2)) id
    while [ $SECONDS -lt $deadline ]; do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n1 || true)
        [ -n "$id" ] && { echo "$id"; return 0; }
        sleep 0.3
    done
    return 1
}

# Waits up to $2 seconds for the setting $1 to appear in the settings file.
wait_setting() {
    local deadline=$((SECONDS + $2))
    while [ $SECONDS -lt $deadline ]; do
        grep -q "^$1=" "$settings" 2>/dev/null && return 0
        sleep 0.3
    done
    return 1
}

# Gives a window the keyboard focus, for keystrokes that follow. The pause lets the toolkit take
# the focus event after the X server has moved the focus; nothing outside the program shows it.
focus() {
    xdotool windowfocus --sync "$1" 2>/dev/null || xdotool windowfocus "$1"
    sleep 0.3
}
