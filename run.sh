#!/usr/bin/env bash
# ./run.sh [FILE]: installs what is missing, builds, and opens FILE or the sample. Without a display the program starts
# under a virtual one, and a screenshot is saved.
set -euo pipefail
file=$(realpath -- "${1:-$(dirname "$0")/examples/XT200.INV}")
cd "$(dirname "$0")"

scripts/setup.sh run
cmake --preset release -D TABRIX_TESTS=OFF -D TABRIX_BENCH=OFF -B build-run
cmake --build build-run
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build-run/tabrix "$file"
fi
picture=${TABRIX_SCREENSHOT:-$PWD/build-run/screenshot.png}
scripts/screenshot.sh "$picture" build-run/tabrix "$file"
echo "There is no display: the program ran under a virtual one. Screenshot: $picture"
