#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the benchmarks and runs them: single operations, the window, and whole
# programs beside each other, which takes half an hour. With arguments, which go to Google Benchmark, only
# single operations are measured.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-packages.sh build run screen test benchmark
cmake --preset release
cmake --build --preset release --target hearthmark hearthmarkctl hearthmark_benchmarks \
    hearthmark_ui_benchmarks bare_timer bare_window ten_year_store
build/release/benchmarks/hearthmark_benchmarks "$@"
if [ $# -eq 0 ]; then
    # No screen: what the window draws costs the same without one.
    QT_QPA_PLATFORM=offscreen build/release/benchmarks/hearthmark_ui_benchmarks
    PYTHONPATH=tests/desktop /usr/bin/python3 -W ignore benchmarks/process/whole_process.py \
        build/release/hearthmark build/release/benchmarks
    PYTHONPATH=tests/desktop /usr/bin/python3 -W ignore benchmarks/process/following.py \
        build/release/hearthmark build/release/hearthmarkctl
fi
