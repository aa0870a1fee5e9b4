#!/usr/bin/env bash
# Runs clang-tidy over the program's sources. Needs a configured and built build folder (default: build).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
git ls-files -z {app,check,desktop,dialogs,document,editor,grid,help,print,resources,runtime,storage,tool}/'*.cpp' |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy -p "$build" --quiet
echo "tidy: nothing found"
