#!/usr/bin/env bash
# scripts/fuzz.sh [INPUTS]: builds the fuzzers and gives each that many inputs (default 10000), as many at once as there
# are cores. An input that breaks something is kept in build-fuzz/found/. Inputs that reach new code are kept in
# build-fuzz/corpus/, so that a long run goes on where the last one ended.
set -euo pipefail
cd "$(dirname "$0")/.."
export inputs=${1:-10000}

# Freed memory that is kept to catch late uses of it is not to be taken for growth.
export ASAN_OPTIONS=quarantine_size_mb=16

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz >build-fuzz/build.log || { cat build-fuzz/build.log && exit 1; }

run() {
    name=$1
    mkdir -p "build-fuzz/corpus/$name" "build-fuzz/found/$name"
    dictionary=()
    [ -f "fuzz/$name.dict" ] && dictionary=(-dict="fuzz/$name.dict")
    if ! "build-fuzz/fuzz_$name" -runs="$inputs" -timeout=60 -rss_limit_mb=400 -max_len=4096 \
        -print_final_stats=1 -artifact_prefix="build-fuzz/found/$name/" "${dictionary[@]}" \
        "build-fuzz/corpus/$name" "fuzz/seeds/$name" >"build-fuzz/$name.log" 2>&1; then
        tail -n 60 "build-fuzz/$name.log"
        echo "fuzz: $name found a fault; its input is in build-fuzz/found/$name"
        return 1
    fi
    awk -v name="$name" '/^stat::number_of_executed_units/ { inputs = $2 } /^stat::peak_rss_mb/ { rss = $2 }
        END { printf "fuzz: %-8s %9d inputs, peak memory %d MB\n", name, inputs, rss }' "build-fuzz/$name.log"
}
export -f run
printf '%s\n' reader profile codec block csv json merge | xargs -P "$(nproc)" -I{} bash -c 'run {}'
