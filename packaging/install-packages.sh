#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: install-packages.sh SECTION...
# Installs the packages of these sections of debian-packages.txt that are missing. Asks for root only
# if one is missing. On systems that are not of Debian's kind it says what is needed, and fails only
# where not even a build can be tried.
set -euo pipefail

list="$(dirname "$0")/debian-packages.txt"

packages_of() {
    awk -v section="[$1]" '/^\[/ { inside = $0 == section } inside && /^[a-z0-9]/' "$list"
}

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}\n' "$1" 2>/dev/null | sort -u)" = installed ]
}

if ! command -v apt-get >/dev/null; then
    system=$(sed -n 's/^PRETTY_NAME=//p' /etc/os-release 2>/dev/null | tr -d '"') || true
    echo "${system:-This system} has no apt-get, so nothing is installed: Hearthmark needs CMake, Ninja," \
        "a C++20 compiler, Qt 6.4 or newer with its private headers, SQLiteCpp, Boost, ICU, libsodium," \
        "libcanberra, XCB, nlohmann-json, RapidJSON, GoogleTest and Google Benchmark, of which $list has Debian's names." >&2
    for tool in cmake ninja c++; do
        command -v "$tool" >/dev/null || exit 1
    done
    exit 0
fi

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
if ! "${apt[@]}" install --yes --no-install-recommends "${missing[@]}"; then
    echo "Not all could be installed. These are packages of Debian 12 and 13; other releases may lack some." >&2
    exit 1
fi
