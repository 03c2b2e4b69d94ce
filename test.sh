#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds everything and runs the tests. Arguments go to ctest.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-packages.sh build run screen test
cmake --preset release
cmake --build --preset release
# The tests bring their own screen and bus; what a bare machine lacks besides is an encoding.
export LANG="${LANG:-C.UTF-8}"
exec ctest --preset release -j2 "$@" </dev/null
