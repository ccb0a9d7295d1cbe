# Shared by the end-to-end scripts: fresh XDG folders for one run of the program, and helpers
# to find its windows. Source it after `set -euo pipefail`.
work=$(mktemp -d)
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_CONFIG_HOME/Kestrane" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset PULSE_SERVER QT_QPA_PLATFORM
settings=$XDG_CONFIG_HOME/Kestrane/Quorl.conf

# A tray host in the bottom right corner, as most desktops have one; without a tray the program
# stops at start-up to say so. Set NO_TRAY_HOST=1 before sourcing to go without.
start_tray_host() {
    trayer --edge bottom --align right --widthtype pixel --width 48 --heighttype pixel --height 48 \
        --expand false --SetDockType false --SetPartialStrut false >"$work/trayer.log" 2>&1 &
    tray_host=$!
    # trayer shows no sign of having taken the tray; the program looks for one as it starts.
    sleep 1
}
[ "${NO_TRAY_HOST:-0}" = 1 ] || start_tray_host

# For the EXIT trap: ends the given processes and the tray host, waits until they have gone
# (an ended program still writes its settings), and removes the run's folders.
finish() {
    kill "$@" "${tray_host:-}" 2>/dev/null || true
    wait || true
    rm -rf "$work"
}

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

# Waits up to $2 seconds until no visible window's title matches $1.
wait_gone() {
    local deadline=$((SECONDS + $2))
    while [ $SECONDS -lt $deadline ]; do
        xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
        sleep 0.3
    done
    return 1
}

# Waits up to $2 seconds for the pattern $1 in the file $3.
wait_grep() {
    local deadline=$((SECONDS + $2))
    while [ $SECONDS -lt $deadline ]; do
        grep -q "$1" "$3" 2>/dev/null && return 0
        sleep 0.3
    done
    return 1
}

# Waits up to $2 seconds for the setting $1 to appear in the settings file.
wait_setting() { wait_grep "^$1=" "$2" "$settings"; }

# Gives a window the keyboard focus, for keystrokes that follow. The pause lets the toolkit take
# the focus event after the X server has moved the focus; nothing outside the program shows it.
focus() {
    xdotool windowfocus --sync "$1" 2>/dev/null || xdotool windowfocus "$1"
    sleep 0.3
}
