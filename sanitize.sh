#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the test programs with the address, leak and undefined-behaviour
# sanitizers and runs them, all but those that need a desktop. Then each fuzzer goes on for
# FUZZ_SECONDS, 30 if nothing is said, from its kept corpus; an input that it fails on lies in
# build/asan.
set -euo pipefail
cd "$(dirname "$0")"

suites=(base objectstore livedata store services presentation export ctl ui platform)
fuzzers=(store_file_fuzzer everything_fuzzer update_feed_fuzzer)

packaging/install-packages.sh build run sanitize
cmake --preset asan
cmake --build --preset asan --target "${suites[@]/%/_tests}" hearthmark_previews "${fuzzers[@]}"

export LANG="${LANG:-C.UTF-8}"
export LSAN_OPTIONS="suppressions=$PWD/tests/leaks.txt:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1
# Cutting the power is a question for the files, not for the memory, and each cut is ten times as slow.
export HEARTHMARK_POWER_CUTS="${HEARTHMARK_POWER_CUTS:-200}"

failed=()
for suite in "${suites[@]}"; do
    echo "== $suite"
    "build/asan/tests/${suite}_tests" --gtest_brief=1 </dev/null || failed+=("$suite")
done
echo "== previews"
build/asan/previews/hearthmark_previews build/asan/previews/drawn </dev/null || failed+=(previews)

# Beside each other, with the files in memory and shallow stacks, of which they make very many.
export TMPDIR=/dev/shm ASAN_OPTIONS=malloc_context_size=4
running=()
for fuzzer in "${fuzzers[@]}"; do
    found="build/asan/corpus/$fuzzer"
    mkdir -p "$found"
    "build/asan/tests/$fuzzer" -max_total_time="${FUZZ_SECONDS:-30}" -max_len=2000 -verbosity=0 \
        -print_final_stats=1 -artifact_prefix="build/asan/$fuzzer-" \
        "$found" "tests/fuzz/corpus/$fuzzer" >"$found.log" 2>&1 &
    running+=($!)
done
for index in "${!fuzzers[@]}"; do
    log="build/asan/corpus/${fuzzers[$index]}.log"
    echo "== ${fuzzers[$index]}"
    if wait "${running[$index]}"; then
        tail -n 5 "$log"
    else
        failed+=("${fuzzers[$index]}")
        cat "$log"
    fi
done

if [ "${#failed[@]}" -gt 0 ]; then
    printf 'Faults were found: %s\n' "${failed[@]}" >&2
    exit 1
fi
echo "No faults were found."
