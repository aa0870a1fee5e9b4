#!/usr/bin/env bash
# package-windows.sh [BUILD]: makes the ZIP and the set-up of what scripts/windows.sh has built (default: build-windows), in
# BUILD/packages.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build-windows}")
qt=${TABRIX_QT_WINDOWS:-${XDG_CACHE_HOME:-$HOME/.cache}/tabrix/qt-windows}
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
name=tabrix-$version-windows-x86_64
folder=$build/packages/$name

rm -rf "$build/packages"
mkdir -p "$folder"
cmake --install "$build" --prefix "$folder" --strip >/dev/null

# What the programs load: libraries, Qt's plugins, the compiler's libraries, Qt's own Japanese texts.
for library in Core Gui Widgets PrintSupport Svg Help Sql Network; do
    cp "$qt/bin/Qt6$library.dll" "$folder"
done
for plugin in platforms/qwindows styles/qwindowsvistastyle imageformats/qsvg iconengines/qsvgicon sqldrivers/qsqlite; do
    mkdir -p "$folder/plugins/${plugin%/*}"
    cp "$qt/plugins/$plugin.dll" "$folder/plugins/${plugin%/*}"
done
compiler=$(dirname "$(x86_64-w64-mingw32-gcc-posix -print-libgcc-file-name)")
cp "$compiler"/{libgcc_s_seh-1,libstdc++-6}.dll /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll "$folder"
mkdir -p "$folder/translations"
cp /usr/share/qt6/translations/{qtbase,qt_help}_ja.qm "$folder/translations"
printf '[Paths]\nPrefix = .\n' >"$folder/qt.conf"
x86_64-w64-mingw32-strip "$folder"/*.dll "$folder"/plugins/*/*.dll

(cd "$build/packages" && zip -qr9 "$name.zip" "$name")
# What the set-up removes again: its own files, and folders only if nothing else is in them.
# shellcheck disable=SC1003,SC2016
(cd "$folder" && find . -type f -printf 'Delete "$INSTDIR\\%P"\n' | tr / '\\' >"$build/packages/files.nsh"
    find . -mindepth 1 -depth -type d -printf 'RMDir "$INSTDIR\\%P"\n' | tr / '\\' >>"$build/packages/files.nsh")
makensis -V2 -NOCD -INPUTCHARSET UTF8 -DVERSION="$version" -DFOLDER="$folder" -DREMOVE="$build/packages/files.nsh" \
    -DICON="$build/install/tabrix.ico" -DOUTPUT="$build/packages/$name-setup.exe" packaging/windows/setup.nsi
rm "$build/packages/files.nsh"
ls -l "$build/packages"/*.zip "$build/packages"/*.exe
