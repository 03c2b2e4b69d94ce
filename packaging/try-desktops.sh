#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: try-desktops.sh [DIRECTORY [OPTION]...]
# Runs the program on sway, GNOME Shell and Plasma, none of which needs a screen, natively and through
# XWayland, at each scale. Puts pictures and a table of what was seen into the directory, by default
# build/desktops, and all pictures into sheets. The options of try_desktops.py choose some of it.
# Installs the desktops: for a machine that may have them. Not a part of the tests: all of it takes half an
# hour, and whether a picture is right is for a person to say.
set -euo pipefail
cd "$(dirname "$0")/.."
directory="${1:-build/desktops}"
options=("${@:2}")

# Desktops refuse root.
person=()
if [ "$(id -u)" -eq 0 ]; then
    person=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
    if ! "${person[@]}" test -r packaging/try_desktops.py; then
        echo "Nobody but root may read this folder, and desktops refuse root." >&2
        exit 1
    fi
fi

packaging/install-packages.sh build run screen test desktops
cmake --preset release
cmake --build --preset release --target hearthmark hearthmark_packaging
mkdir -p "$directory"
rm -f "$directory"/*.png "$directory"/sheet-*.jpg "$directory"/table.txt

if [ "$(id -u)" -eq 0 ]; then
    # What raises the compositor's priority cannot be had in most containers.
    setcap -r "$(command -v kwin_wayland)" 2>/dev/null || true
    chown nobody "$directory"
fi
"${person[@]}" python3 -B packaging/try_desktops.py build/release/hearthmark "$directory" "${options[@]}"
# Each made small as it is read: all at their size would need gigabytes.
montage -label '%t' "$directory/*.png[480x300]" -geometry +4+4 -tile 8x16 "$directory/sheet-%d.jpg"
echo "All that was seen: $directory/table.txt. All pictures at a glance: $directory/sheet-*.jpg"
