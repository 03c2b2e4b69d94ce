#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: check-install.sh PACKAGE NEWER_PACKAGE [PICTURE]
# To be run as root in a root of Debian that is thrown away afterwards, as debootstrap makes one:
# installs the package, has a person use the program as the desktop starts it, upgrades it while it runs,
# removes and purges it, and looks after each step whether the person's store is whole. PICTURE is
# where the window is to be drawn to.
set -euo pipefail

if [ $# -lt 2 ]; then
    sed -n '3,7s/^# //p' "$0" >&2
    exit 2
fi
package=$(realpath "$1") newer=$(realpath "$2") picture=${3:-}
person=hearthmark-check id=org.hearthmark.Hearthmark
export DEBIAN_FRONTEND=noninteractive
apt=(apt-get --quiet --yes --option Dpkg::Use-Pty=0)

fail() {
    echo "FAILED: $1" >&2
    exit 1
}

# Usage: within SECONDS COMMAND...   Repeats the command until it succeeds.
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || fail "in vain: $*"
        sleep 0.2
    done
}

as_person() { "${session[@]}" "$@"; }

has_window() { as_person xdotool search --onlyvisible --name '^Hearthmark$'; }
is_running() { pgrep -u "$person" -x hearthmark; }
is_gone() { ! is_running; }
query() { as_person sqlite3 "$home/.local/share/Hearthmark/Hearthmark.sqlite" "$@"; }

# Usage: step TEXT [ROWS]   Says that it went well, once the store is whole and has the rows.
step() {
    [ "$(query 'PRAGMA integrity_check')" = ok ] || fail "$1: the store is damaged"
    [ $# -lt 2 ] || [ "$(query .dump)" = "$2" ] || fail "$1: the store has changed"
    echo "ok: $1"
}

"${apt[@]}" update
"${apt[@]}" install --no-install-recommends dbus-daemon imagemagick openbox procps sqlite3 xdotool xvfb
"${apt[@]}" install "$package"
home=$(mktemp --directory)
useradd --home-dir "$home" "$person"
chown "$person" "$home"
session=(setpriv --reuid "$person" --regid "$person" --init-groups env --chdir="$home"
    HOME="$home" XDG_RUNTIME_DIR="$home" DISPLAY=:97 LANG=C.UTF-8 DBUS_SESSION_BUS_ADDRESS="unix:path=$home/bus")
started=()
trap 'kill "${started[@]}" 2>/dev/null || true; rm -rf "$home"' EXIT
"${session[@]}" Xvfb :97 -screen 0 1200x800x24 -nolisten tcp -noreset 2>/dev/null &
started+=($!)
"${session[@]}" dbus-daemon --session --address="unix:path=$home/bus" --nofork --nopidfile 2>/dev/null &
started+=($!)
within 20 test -S "$home/bus"
within 20 as_person xdotool getmouselocation
"${session[@]}" openbox &
started+=($!)

as_person gio launch "/usr/share/applications/$id.desktop"
within 30 has_window
sleep 2
as_person xdotool key ctrl+n sleep 1 type Letters
as_person xdotool key ctrl+Return sleep 1 key Return sleep 1 key ctrl+1 sleep 2
[ "$(query 'SELECT name, maxDuration, state FROM Task t JOIN Interval i ON i.task = t.pk
    JOIN RawIntervalState s ON s.interval = i.pk')" = "Letters|1800.0|1" ] || fail "no focus runs on the task"
as_person hearthmarkctl status | grep -q '^[0-9]*/30:00 Letters$' || fail "the command line does not see the focus"
if [ -n "$picture" ]; then
    as_person import -window root "png:-" >"$picture"
fi
step "the desktop entry started it, and a focus runs on a new task"

process=$(is_running)
"${apt[@]}" install "$newer"
sleep 3
[ "$(is_running)" = "$process" ] || fail "the running program did not outlive the upgrade"
as_person hearthmark || fail "the newer program did not reach the running one"
step "it runs on through the upgrade to $(dpkg-query --show --showformat '${Version}' hearthmark)"

as_person gapplication action "$id" quit
within 10 is_gone
rows=$(query .dump)
step "it quit" "$rows"

as_person dbus-send --session --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus \
    org.freedesktop.DBus.StartServiceByName "string:$id" uint32:0 >/dev/null
sleep 3
! has_window || fail "a start by the bus alone shows a window"
as_person gdbus call --session --dest "$id" --object-path /org/hearthmark/Hearthmark \
    --method org.freedesktop.Application.Activate '{}' >/dev/null
within 10 has_window
as_person gapplication action "$id" quit
within 10 is_gone
step "started by the bus it waited with its window until it was asked for"

rows=$(query .dump)
"${apt[@]}" remove hearthmark
step "removed" "$rows"
"${apt[@]}" install "$newer"
"${apt[@]}" purge hearthmark
step "purged" "$rows"
left=$(find /usr /etc /var -iname '*hearthmark*' -not -path '/var/cache/apt/*')
[ -z "$left" ] || fail "left behind: $left"
