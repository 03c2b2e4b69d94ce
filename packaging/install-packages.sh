#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: install-packages.sh SECTION...
# Installs the packages of these sections of debian-packages.txt that are missing. Asks for root only
# if one is missing.
set -euo pipefail

list="$(dirname "$0")/debian-packages.txt"

packages_of() {
    awk -v section="[$1]" '/^\[/ { inside = $0 == section } inside && /^[a-z0-9]/' "$list"
}

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}\n' "$1" 2>/dev/null | sort -u)" = installed ]
}

missing=()
for section in "$@"; do
    packages="$(packages_of "$section")"
    if [ -z "$packages" ]; then
        echo "There is no section [$section] in $list." >&2
        exit 1
    fi
    for package in $packages; do
        is_installed "$package" || missing+=("$package")
    done
done
if [ "${#missing[@]}" -eq 0 ]; then
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Packages are missing, and installing them needs root or sudo. As root, run:" >&2
        echo "    apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing what is missing: ${missing[*]}"
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet --option Dpkg::Use-Pty=0)
# A foreign source that cannot be reached must not stop what Debian itself can provide.
"${apt[@]}" update || echo "The package lists could not all be renewed; trying with those at hand." >&2
"${apt[@]}" install --yes --no-install-recommends "${missing[@]}"
