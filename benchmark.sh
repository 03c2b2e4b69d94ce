#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the benchmarks and runs them with the arguments given.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-packages.sh build run
cmake --preset release
cmake --build --preset release --target hearthmark_benchmarks
exec build/release/benchmarks/hearthmark_benchmarks "$@"
