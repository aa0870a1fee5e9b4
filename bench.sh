#!/usr/bin/env bash
# ./bench.sh [--peers]: builds and measures, and prints the table of what users feel beside bare Qt windows and, where
# they are installed, beside other programs. --peers installs those (Gnumeric, LibreOffice Calc).
# The counts that follow do not move with the machine's load; they need valgrind.
set -euo pipefail
cd "$(dirname "$0")"

scripts/setup.sh
if [ "${1:-}" = --peers ]; then
    sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends gnumeric libreoffice-calc
fi
cmake --preset release
cmake --build --preset release --target bench_speed bench_bare bench_tool make_document
build/bench_speed 2>/dev/null
echo
build/bench_tool 2>/dev/null

if ! command -v valgrind >/dev/null; then
    echo "Counts: skipped, valgrind is not installed"
    exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen HOME=$work XDG_CONFIG_HOME=$work XDG_DATA_HOME=$work

# count MODE FILE: the instructions and allocations of a process
count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null build/bench_speed "$@" 2>&1 | sed -n 's/.*Collected : //p'
    valgrind --tool=memcheck --undef-value-errors=no --leak-check=no build/bench_speed "$@" 2>&1 |
        sed -n 's/.*total heap usage: \([0-9,]*\) allocs.*/\1/p' | tr -d ,
}

build/make_document 1 "$work/small.inv"
build/make_document 32767 "$work/large.inv"
printf '\n| 32,767 rows | instructions | allocations |\n|---|---|---|\n'
for mode in count-read count-open; do
    mapfile -t before < <(count "$mode" "$work/small.inv")
    mapfile -t after < <(count "$mode" "$work/large.inv")
    printf '| %s | %d | %d |\n' "${mode#count-}" $((after[0] - before[0])) $((after[1] - before[1]))
done
