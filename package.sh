#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds Debian's package and checks it. Arguments go to cmake, as
# -DHEARTHMARK_UPDATE_FEED=... One finding makes the whole fail.
set -euo pipefail
cd "$(dirname "$0")"

if ! command -v apt-get >/dev/null; then
    echo "This makes a package for Debian. Elsewhere, ./run.sh builds, and" \
        "sudo cmake --install build/release installs what it has built." >&2
    exit 1
fi
packaging/install-packages.sh build run package
# The same sources give the same package. In an archive each file has the time of the commit.
commit_time() { git log -1 --format=%ct 2>/dev/null || stat --format=%Y CHANGELOG.md; }
SOURCE_DATE_EPOCH="${SOURCE_DATE_EPOCH:-$(commit_time)}"
export SOURCE_DATE_EPOCH
cmake --preset release "$@"
cmake --build --preset release --target hearthmark hearthmarkctl hearthmark_packaging
(cd build/release && umask 022 && cpack -D CPACK_OUTPUT_FILE_PREFIX="$PWD")

version=$(sed -n 's/^set(CPACK_PACKAGE_VERSION "\(.*\)")$/\1/p' build/release/CPackConfig.cmake)
package=build/release/hearthmark_${version}_$(dpkg --print-architecture).deb
content=$(mktemp --directory)
trap 'rm -rf "$content"' EXIT
dpkg-deb --extract "$package" "$content"

failed=()
check() {
    echo "== $1"
    "$2" || failed+=("$1")
}

check_package() {
    lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$package"
}

check_desktop_entry() {
    desktop-file-validate "$content"/usr/share/applications/*.desktop
}

check_metainfo() {
    appstreamcli validate --no-net "$content"/usr/share/metainfo/*.xml
}

# Usage: is_hardened WHAT PATTERN COMMAND...   Says whether the command's output has the pattern.
is_hardened() {
    local what=$1 pattern=$2
    shift 2
    if "$@" | grep -E -e "$pattern" >/dev/null; then
        echo "yes: $what"
    else
        echo "no: $what"
        return 1
    fi
}

# Usage: check_program PROGRAM OBJECT   The object file is one of those that it is made of.
check_program() {
    local program=$content/usr/bin/$1 object=$2 faults=0
    is_hardened "stripped" ' stripped' file "$program" || faults=1
    is_hardened "position independent" 'Type: +DYN' readelf -h "$program" || faults=1
    is_hardened "relocations read-only" 'GNU_RELRO' readelf -lW "$program" || faults=1
    is_hardened "bound at the start" 'FLAGS_1.* NOW' readelf -dW "$program" || faults=1
    is_hardened "no executable stack" 'GNU_STACK.* RW ' readelf -lW "$program" || faults=1
    is_hardened "stack protector" '__stack_chk_fail' readelf -W --dyn-syms "$program" || faults=1
    # It may call none that the compiler cannot check itself.
    is_hardened "compiled with fortified functions" '-D_FORTIFY_SOURCE=2' \
        grep -F " $object " build/release/compile_commands.json || faults=1
    return "$faults"
}

check_programs() {
    local faults=0
    check_program hearthmark app/CMakeFiles/hearthmark_main.dir/main.cpp.o || faults=1
    check_program hearthmarkctl ctl/CMakeFiles/hearthmarkctl.dir/main.cpp.o || faults=1
    return "$faults"
}

check "Package (lintian)" check_package
check "Desktop entry (desktop-file-validate)" check_desktop_entry
check "Metainfo (appstreamcli)" check_metainfo
check "Hardening (readelf)" check_programs

if [ "${#failed[@]}" -gt 0 ]; then
    printf 'Faults were found: %s\n' "${failed[@]}" >&2
    exit 1
fi
echo "The package is made. To install it: sudo apt install ./$package"
