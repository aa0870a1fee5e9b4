#!/usr/bin/env bash
# windows-qt.sh [STAGE...]: builds the part of Qt 6.4.2 that Tabrix needs for Windows, from Debian's source packages, with
# Debian's MinGW-w64. More than half an hour on two processors. The result is where scripts/windows.sh looks for it.
# Stages: sources base svg help_library; without one, all of them. TABRIX_QT_WORK keeps what is built on the way.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/tabrix
prefix=${TABRIX_QT_WINDOWS:-$cache/qt-windows}
work=${TABRIX_QT_WORK:-$cache/qt-windows-build}
mirror=${TABRIX_DEBIAN_MIRROR:-http://deb.debian.org/debian}
mkdir -p "$work"

"$root/scripts/setup.sh" windows
for tool in dpkg-source perl tclsh make; do
    command -v "$tool" >/dev/null || { echo "windows-qt: $tool is missing (Debian: dpkg-dev perl tcl make)" >&2; exit 1; }
done

sources() {
    cd "$work"
    mkdir -p apt/lists/partial apt/archives/partial
    echo "deb-src $mirror bookworm main" >apt/sources.list
    local apt=(apt-get -q -o Dir::Etc::SourceList="$work/apt/sources.list" -o Dir::Etc::SourceParts=-
        -o Dir::State::Lists="$work/apt/lists" -o Dir::Cache::Archives="$work/apt/archives" -o APT::Sandbox::User=root)
    "${apt[@]}" update
    for package in qt6-base qt6-svg qt6-tools sqlite3; do
        rm -rf "${package:?}"
        mkdir "$package"
        (cd "$package" && "${apt[@]}" source --download-only "$package" && dpkg-source -x ./*.dsc tree)
    done

    # Debian's Qt comes without the SQLite that belongs to it.
    mkdir -p sqlite qt6-base/tree/src/3rdparty/sqlite
    (cd sqlite && ../sqlite3/tree/configure --disable-tcl --quiet && make --silent sqlite3.c)
    cp sqlite/sqlite3.c sqlite/sqlite3.h qt6-base/tree/src/3rdparty/sqlite

    # Of the tools the library for help files alone: the programs are run on this machine, which has them.
    cat >qt6-tools/tree/src/CMakeLists.txt <<'END'
qt_feature_evaluate_features("${CMAKE_CURRENT_SOURCE_DIR}/../configure.cmake")
add_subdirectory(assistant/help)
END
}

# make_module NAME OPTION...: configures, builds and installs a module.
make_module() {
    local name=$1
    shift
    cmake -S "$work/$name/tree" -B "$work/build-$name" -G Ninja \
        --toolchain "$root/cmake/mingw-w64-x86_64.cmake" \
        -D TABRIX_QT_WINDOWS="$prefix" -D CMAKE_INSTALL_PREFIX="$prefix" -D CMAKE_BUILD_TYPE=Release \
        -D QT_HOST_PATH=/usr -D BUILD_SHARED_LIBS=ON \
        -D QT_BUILD_EXAMPLES=OFF -D QT_BUILD_TESTS=OFF -D QT_BUILD_BENCHMARKS=OFF "$@"
    cmake --build "$work/build-$name"
    cmake --install "$work/build-$name" --strip
}

# Tablets need a header that Debian has taken out. Of bundled and system libraries the bundled ones, so that none of this
# machine's is taken.
base() {
    local off=(dbus icu concurrent xml vulkan direct2d schannel brotli gssapi zstd tabletevent tuiotouch pkg_config
        sql_odbc sql_mysql sql_psql system_sqlite system_zlib system_png system_jpeg system_freetype system_harfbuzz
        system_pcre2 system_doubleconversion)
    off=("${off[@]/#/-DFEATURE_}")
    off=("${off[@]/%/=OFF}")
    make_module qt6-base -D QT_QMAKE_TARGET_MKSPEC=win32-g++ -D INPUT_opengl=no -D INPUT_openssl=no \
        -D FEATURE_sql_sqlite=ON "${off[@]}"
}

svg() { make_module qt6-svg; }

help_library() {
    make_module qt6-tools -D FEATURE_assistant=ON -D FEATURE_designer=OFF -D FEATURE_linguist=OFF -D FEATURE_clang=OFF
}

[ $# -gt 0 ] || set -- sources base svg help_library
for stage in "$@"; do
    echo "== windows-qt: $stage"
    "$stage"
done
echo "Qt for Windows is in $prefix"
