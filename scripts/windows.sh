#!/usr/bin/env bash
# windows.sh [STAGE...]: builds Tabrix for Windows on Debian 12, tests it under Wine, and makes a ZIP and a set-up of it in
# build-windows/packages. Stages: build test package; check, which installs the set-up and uses it, only if named. Qt for
# Windows is looked for in TABRIX_QT_WINDOWS, or else in ~/.cache/tabrix/qt-windows.
set -euo pipefail
cd "$(dirname "$0")/.."

export TABRIX_QT_WINDOWS=${TABRIX_QT_WINDOWS:-${XDG_CACHE_HOME:-$HOME/.cache}/tabrix/qt-windows}
if [ ! -e "$TABRIX_QT_WINDOWS/lib/cmake/Qt6/Qt6Config.cmake" ]; then
    cat >&2 <<END
windows: there is no Qt for Windows in $TABRIX_QT_WINDOWS.
Set TABRIX_QT_WINDOWS to the folder of a Qt 6.4.2 that was built with MinGW-w64 (POSIX threads), or make one with
scripts/windows-qt.sh; that takes more than half an hour.
END
    exit 3
fi
scripts/setup.sh windows

build_stage() { cmake --preset windows; cmake --build --preset windows; }
# Each test program has the settings and folders of its user to itself, so that two can run at a time. The first program
# starts Wine's own ones, which keep its output open as long as they run: a test whose output is read to its end would never
# be done. So one without output goes first, and another waits meanwhile, so that Wine's need not start again.
test_stage() {
    local answer name
    scripts/wine.sh rundll32 user32.dll,GetDesktopWindow </dev/null >/dev/null 2>&1
    coproc WAITING { exec scripts/wine.sh cmd 2>/dev/null; }
    echo 'echo Wine is up' >&"${WAITING[1]}"
    until [[ ${answer:-} == *'Wine is up'* ]]; do
        read -r -t 120 -u "${WAITING[0]}" answer || { echo "windows: Wine does not start" >&2; exit 1; }
    done
    if [ -w /dev/shm ]; then # thousands of saves that each wait for a disk take minutes
        for name in TEMP TMP; do
            scripts/wine.sh reg add 'HKCU\Environment' /v "$name" /d 'Z:\dev\shm' /f >/dev/null 2>&1
        done
    fi
    ctest --preset windows
    echo exit >&"${WAITING[1]}"
    wait "$WAITING_PID"
}
package_stage() { scripts/package-windows.sh; }
check_stage() { scripts/check-windows.sh; }

[ $# -gt 0 ] || set -- build test package
for stage in "$@"; do
    printf '\n== windows: %s\n' "$stage"
    "${stage}_stage"
done
