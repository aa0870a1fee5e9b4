#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests without a display.
set -euo pipefail
cd "$(dirname "$0")"

scripts/setup.sh test
cmake --preset release
cmake --build --preset release
ctest --preset release
