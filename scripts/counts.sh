#!/usr/bin/env bash
# counts.sh [BUILD]: prints how many instructions a built folder (default: build, the release build) takes for what users
# wait for, a line each: number, tab, name.
# The figures are the same on every x86-64 machine with the same packages, busy or not: fonts, locale, seeds, and what
# the processor is believed to be able to do are given here.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}

work=$(mktemp -d /tmp/tabrix-counts-XXXXXX)
trap 'rm -rf "$work"' EXIT
mkdir "$work"/{fonts,cache,home}
cp /usr/share/fonts/truetype/dejavu/DejaVuSans{,-Bold,Mono}.ttf "$work/fonts/"
cat >"$work/fonts.conf" <<END
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><dir>$work/fonts</dir><cachedir>$work/cache</cachedir></fontconfig>
END

settings=(
    PATH=/usr/bin:/bin LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0
    HOME="$work/home" XDG_CONFIG_HOME="$work/home" XDG_DATA_HOME="$work/home" XDG_CACHE_HOME="$work/home"
    XDG_RUNTIME_DIR="$work/home" XDG_DATA_DIRS="$work" FONTCONFIG_FILE="$work/fonts.conf"
    # The C library and Qt choose by what the processor can do; these are the roads that all processors can take.
    GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX512F,-AVX512VL,-AVX512BW,-AVX2,-AVX,-BMI1,-BMI2,-ERMS,-FSRM,-RTM,-LZCNT,-MOVBE
    QT_NO_CPU_FEATURE="avx avx2 bmi bmi2 f16c movbe rdrnd rdseed aes sha lzcnt fma"
)
# Painting divides long lines by the number of processors, so there is one.
cpu=$(taskset -cp $$ | sed 's/.*: \([0-9]*\).*/\1/')

# run COMMAND...: with those settings and nothing of the user's; what it says goes to the log
run() {
    env -i "${settings[@]}" taskset -c "$cpu" "$@" >/dev/null 2>"$work/log" || {
        cat "$work/log" >&2
        return 1
    }
}

# countProcess NAME PROGRAM ARGUMENT...: from its start to its exit
countProcess() {
    run valgrind --tool=callgrind --callgrind-out-file=/dev/null "${@:2}"
    printf '%s\t%s\n' "$(sed -n 's/.*Collected : //p' "$work/log")" "$1"
}

"$build"/make_document 32767 "$work/large.inv"
run "$build"/bench_speed frame # once before, for the fonts' cache
countProcess 'start to the first painted frame' "$build"/bench_speed frame
countProcess 'start to the painted window of a file' "$build"/bench_speed open "$work/large.inv"

# It has each part's figures written to a file, by number.
run valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$work/part" "$build"/bench_counts
for ((part = 1; ; ++part)); do
    [ -e "$work/part.$part" ] || break
    name=$(sed -n 's/^desc: Trigger: Client Request: //p' "$work/part.$part")
    printf '%s\t%s\n' "$(sed -n 's/^totals: //p' "$work/part.$part")" "$name"
done
