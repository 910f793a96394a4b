# For scripts that leave pictures of the panel: source it from the project's folder.

# Waits until the panel's process has nothing left to do, which on a busy machine takes a while.
at_rest() {
    for _ in $(seq 1000); do
        grep -qs '^[0-9]* (.*) R ' "/proc/$host/task/"*/stat || return 0
        sleep 0.05
    done
}

# Saves a picture of the display, or with QUORVI_PICTURE_OF=window of the panel's window without its frame, once it has
# stopped changing: picture FILE.
picture() {
    local before='' now shown=root
    [ "${QUORVI_PICTURE_OF:-}" != window ] || shown=$window
    for _ in $(seq 100); do
        at_rest # what has not been drawn yet does not change either
        import -window "$shown" "$1"
        now=$(convert "$1" rgb:- | md5sum)
        if [ "$now" = "$before" ]; then
            echo "$1"
            return 0
        fi
        before=$now
        sleep 0.1
    done
    echo "The display does not come to rest." >&2
    return 1
}

# Gives the panel a home folder of its own, $home, without settings, and a system bus of its own: the system's service for
# real mice, or who stands in for it, is there. Both end with the script. Sets $preferences to the settings' folder.
own_home() {
    home=$(mktemp -d)
    trap 'kill "$system" 2>/dev/null || true; rm -rf "$home"' EXIT
    { read -r DBUS_SYSTEM_BUS_ADDRESS && read -r system; } < <(dbus-daemon --session --fork --print-address=1 --print-pid=1)
    export DBUS_SYSTEM_BUS_ADDRESS
    export HOME=$home XDG_RUNTIME_DIR=$home/runtime
    unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_STATE_HOME
    preferences=$home/Library/Preferences
    mkdir -p "$preferences"
    mkdir -m 700 "$XDG_RUNTIME_DIR"
}

# The windows of the panel's process that are shown.
panel_windows() { xdotool search --onlyvisible --pid "$host" 2>/dev/null || true; } # fails if one goes meanwhile

# Starts the host and waits for its window and the panel's first list of devices: open_panel HOST...
# Sets $host to the process and $window to its window.
open_panel() {
    "$@" &
    host=$!
    trap 'kill "$host" 2>/dev/null || true' EXIT
    for _ in $(seq 1000); do
        window=$(panel_windows | tail -n 1)
        [ -z "$window" ] || break
        sleep 0.1
    done
    # The panel has its first list when the helper, which the panel has launched, answers others too.
    timeout 60 bash -c 'until "${QUORVICTL:-build/bin/quorvictl}" devices >/dev/null 2>&1; do sleep 0.1; done'
    xdotool windowactivate --sync "$window"
}

close_panel() {
    kill "$host"
    wait "$host" || [ $? -eq 143 ] # a host of others does not mind how it is ended
    trap - EXIT
}
