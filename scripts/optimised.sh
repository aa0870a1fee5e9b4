#!/usr/bin/env bash
# optimised.sh: builds the editor in build-optimised, across source files and by a profile of what users wait for, and compares
# its instructions with those of the release build. Packages are built without the profile: no two runs write the same one,
# and they are to be the same bytes wherever they are built.
set -euo pipefail
cd "$(dirname "$0")/.."

# build WHAT TARGET...: with the profile written or used
build() {
    cmake --preset optimised -D TABRIX_PROFILE="$1"
    cmake --build --preset optimised --target "${@:2}"
}

build write bench_counts bench_print
find build-optimised -name '*.gcda' -delete
export QT_QPA_PLATFORM=offscreen
build-optimised/bench_counts
build-optimised/bench_print --benchmark_filter=/100
build use tabrix bench_counts bench_speed make_document
scripts/check-counts.py build-optimised
