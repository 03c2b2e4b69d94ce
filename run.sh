#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds Hearthmark and starts it with the arguments given. Without a
# display the program runs on a virtual screen until a picture of its window is taken.
set -euo pipefail
cd "$(dirname "$0")"

program=build/release/hearthmark
screenshot=build/release/screenshot.png

build() {
    packaging/install-packages.sh build run "$@"
    cmake --preset release
    cmake --build --preset release --target hearthmark hearthmarkctl hearthmark_packaging
}

fail() {
    echo "$1" >&2
    exit 1
}

# Usage: within SECONDS COMMAND...   Repeats the command until it succeeds or the time is over.
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.2
    done
}

start_screen() {
    # Xvfb chooses a free display itself and tells its number.
    exec 3< <(exec Xvfb -displayfd 1 -screen 0 1280x800x24 -nolisten tcp -noreset 2>"$log")
    started+=($!)
    local number
    read -r -t 30 -u 3 number || fail "The virtual screen did not start: $(cat "$log")"
    export DISPLAY=":$number"
    openbox --sm-disable >>"$log" 2>&1 &
    started+=($!)
}

has_ended() { ! kill -0 "$1" 2>/dev/null; }

stop_all() {
    # Newest first: each still has the screen it draws on while it ends.
    for ((i = ${#started[@]} - 1; i >= 0; --i)); do
        kill "${started[i]}" 2>/dev/null || true
        within 10 has_ended "${started[i]}" || kill -KILL "${started[i]}"
    done
    rm -f "$log"
}

# Ends the waiting also where no window can come any more.
has_window_or_ended() {
    window="$(xdotool search --onlyvisible --pid "$pid" 2>/dev/null | head -n 1)" || true
    [ -n "$window" ] || has_ended "$pid"
}

# A window is mapped before it is painted, and until then has one colour.
is_painted() {
    import -window "$window" "$screenshot" && [ "$(identify -format '%k' "$screenshot")" -gt 1 ]
}

run_on_virtual_screen() {
    started=()
    log="$(mktemp)"
    trap stop_all EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    start_screen

    # Without a bus of the session none is to be made up: the library would leave a daemon behind.
    export DBUS_SESSION_BUS_ADDRESS="${DBUS_SESSION_BUS_ADDRESS:-disabled:}" QT_QPA_PLATFORM=xcb
    "$program" "$@" &
    pid=$!
    started+=("$pid")
    within 30 has_window_or_ended || fail "The program showed no window within 30 seconds."
    [ -n "$window" ] || fail "The program ended before it showed a window."
    within 10 is_painted || fail "The window of the program stayed empty."
    echo "Picture of the window: $PWD/$screenshot"

    kill -TERM "$pid"
    within 10 has_ended "$pid" || fail "The program did not end when asked to."
    wait "$pid" || fail "The program ended with status $?."
}

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    build
    exec "$program" "$@"
fi
echo "There is no display here, so the program will run on a virtual screen and its picture is taken."
build screen
run_on_virtual_screen "$@"
