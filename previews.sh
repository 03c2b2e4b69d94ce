#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: previews.sh [--accept] [DIRECTORY]
# Installs what is missing, builds the previews and draws them to a directory, by default
# build/previews. With --accept the pictures stored for the tests and the README's are renewed.
set -euo pipefail
cd "$(dirname "$0")"

accept=false
if [ "${1:-}" = --accept ]; then
    accept=true
    shift
fi
directory="${1:-build/previews}"

packaging/install-packages.sh build run
cmake --preset release
cmake --build --preset release --target hearthmark_previews
build/release/previews/hearthmark_previews "$directory"
echo "All pictures at a glance: $directory/contact-sheet.png"

if "$accept"; then
    for stored in tests/previews/*.png; do
        cp "$directory/${stored##*/}" "$stored"
    done
    cp "$directory/home-running.png" docs/window.png
fi
