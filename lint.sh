#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing and checks form and substance of the C++, QML and shell sources. Every
# check runs, and one finding makes the whole fail. What clang-tidy has found clean before is passed over.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-packages.sh build run lint
cmake --preset release
# Sources include, and QML refers to, what the build generates.
cmake --build --preset release

sources_named() {
    find . \( -path ./build -o -path ./.git -o -path ./.cache \) -prune -o -type f \( "$@" \) -print0
}

failed=()
check() {
    echo "== $1"
    "$2" || failed+=("$1")
}

check_format() {
    sources_named -name '*.h' -o -name '*.cpp' | xargs -0 clang-format --dry-run --Werror
}

# Headers are checked with the sources that include them.
check_cpp() {
    .ci/clang_tidy.py build/release
}

check_qml() {
    cmake --build --preset release --target all_qmllint -- -k 0
}

check_shell() {
    sources_named -name '*.sh' -o -name '*.bash' -o -path ./.ci/run | xargs -0 shellcheck
}

check "Format (clang-format)" check_format
check "Shell (shellcheck)" check_shell
check "QML (qmllint)" check_qml
check "C++ (clang-tidy)" check_cpp

if [ "${#failed[@]}" -gt 0 ]; then
    printf 'Faults were found: %s\n' "${failed[@]}" >&2
    exit 1
fi
echo "No faults were found."
