#!/usr/bin/env bash
# ./bench.sh [--peers | --counts]: builds and measures, and prints the table of what users feel beside bare Qt windows and,
# where they are installed, beside other programs. --peers installs those (Gnumeric, LibreOffice Calc).
# The allocations that follow do not move with the machine's load. Neither do the instructions of --counts, which prints
# nothing else; scripts/check-counts.py compares them with those of bench/counts.txt.
set -euo pipefail
cd "$(dirname "$0")"

scripts/setup.sh test
if [ "${1:-}" = --peers ]; then
    sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends gnumeric libreoffice-calc
fi
cmake --preset release
cmake --build --preset release --target bench_speed bench_bare bench_tool bench_counts make_document
if [ "${1:-}" = --counts ]; then
    exec scripts/counts.sh
fi
build/bench_speed 2>/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen HOME=$work XDG_CONFIG_HOME=$work XDG_DATA_HOME=$work

# allocations MODE FILE: those of a process
allocations() {
    valgrind --tool=memcheck --undef-value-errors=no --leak-check=no build/bench_speed "$@" 2>&1 |
        sed -n 's/.*total heap usage: \([0-9,]*\) allocs.*/\1/p' | tr -d ,
}

build/make_document 1 "$work/small.inv"
build/make_document 32767 "$work/large.inv"
printf '\nAllocations for 32,767 rows:'
for mode in count-read count-open; do
    printf ' %s %d' "${mode#count-}" \
        $(($(allocations "$mode" "$work/large.inv") - $(allocations "$mode" "$work/small.inv")))
done
printf '.\n'
