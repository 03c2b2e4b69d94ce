#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing and checks form and substance of the C++, QML and shell sources. Every
# check runs, and one finding makes the whole fail. With LINT_SINCE, a commit, clang-tidy looks only at
# what changed since, unless its own configuration did.
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

# What changed, and for a header that did its source, else one that includes it: findings in a header
# come with any of them.
changed_cpp() {
    local header source
    git diff -z --name-only --diff-filter=d "$LINT_SINCE" -- '*.cpp'
    git ls-files -zo --exclude-standard -- '*.cpp'
    git diff -z --name-only --diff-filter=d "$LINT_SINCE" -- '*.h' |
        while IFS= read -rd '' header; do
            source="${header%.h}.cpp"
            [ -e "$source" ] || source=$(includer_of "$header")
            [ -z "$source" ] || printf '%s\0' "$source"
        done
}

includer_of() {
    git grep -lF -e "#include \"$1\"" -e "#include \"${1#tests/}\"" -- '*.cpp' | sed -n 1p || true
}

cpp_to_check() {
    if [ -n "${LINT_SINCE:-}" ] && git diff --quiet "$LINT_SINCE" -- .clang-tidy; then
        changed_cpp | sort -zu
    else
        sources_named -name '*.cpp'
    fi
}

# Headers are checked with the sources that include them. The count of suppressed findings in system
# headers, which each process writes, is no news.
check_cpp() {
    cpp_to_check |
        xargs -0 -r -n 1 -P "$(nproc)" clang-tidy --quiet -p build/release \
            2> >(grep -v -E '^[0-9]+ warnings?( and [0-9]+ errors?)? generated\.$' >&2)
}

check_qml() {
    cmake --build --preset release --target all_qmllint -- -k 0
}

check_shell() {
    sources_named -name '*.sh' -o -path ./.ci/run | xargs -0 shellcheck
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
