#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the benchmarks and runs them. With arguments, which go to Google
# Benchmark, those of the window are left out.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-packages.sh build run
cmake --preset release
cmake --build --preset release --target hearthmark_benchmarks hearthmark_ui_benchmarks
build/release/benchmarks/hearthmark_benchmarks "$@"
if [ $# -eq 0 ]; then
    # No screen: what the window draws costs the same without one.
    QT_QPA_PLATFORM=offscreen build/release/benchmarks/hearthmark_ui_benchmarks
fi
