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
# Each test program has the settings and folders of its user to itself, so that two can run at a time. One more waits
# meanwhile: the first program starts Wine's own, which would keep a test's output open for ever.
test_stage() {
    exec 9> >(exec scripts/wine.sh cmd >/dev/null 2>&1)
    ctest --preset windows
    exec 9>&-
}
package_stage() { scripts/package-windows.sh; }
check_stage() { scripts/check-windows.sh; }

[ $# -gt 0 ] || set -- build test package
for stage in "$@"; do
    printf '\n== windows: %s\n' "$stage"
    "${stage}_stage"
done
