#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a program that was built for Windows under Wine. It has settings and folders of its
# own (WINEPREFIX, by default in the cache folder) and finds the libraries of Qt for Windows and of the compiler, unless
# TABRIX_WINE_PLAIN is set.
set -euo pipefail

cache=${XDG_CACHE_HOME:-$HOME/.cache}/tabrix
qt=${TABRIX_QT_WINDOWS:-$cache/qt-windows}
export WINEPREFIX=${WINEPREFIX:-$cache/wine}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=winemenubuilder.exe=d # it would write menu entries into the user's own folders

wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine)

# Wine keeps variables of Qt for itself but for those with this name in front.
for name in $(compgen -e QT_); do
    export "WINE$name=${!name}"
done

# The offscreen platform knows no fonts but those of one folder. Its first family stands in for those that are missing: it
# is to have letters of all kinds and a bold face.
fonts=$cache/test-fonts
if [ ! -d "$fonts" ]; then
    mkdir -p "$fonts.$$"
    dejavu=/usr/share/fonts/truetype/dejavu/DejaVu
    ln -s "$dejavu"{Sans,SansMono,Serif}.ttf "$dejavu"{Sans,SansMono,Serif}-*.ttf \
        /usr/share/fonts/opentype/ipafont-gothic/*.ttf "$fonts.$$"
    mv -T "$fonts.$$" "$fonts" 2>/dev/null || rm -rf "$fonts.$$"
fi
export WINEQT_QPA_FONTDIR=${WINEQT_QPA_FONTDIR:-Z:$fonts}

if [ -z "${TABRIX_WINE_PLAIN:-}" ]; then
    compiler=$(dirname "$(x86_64-w64-mingw32-gcc-posix -print-libgcc-file-name)")
    for folder in "$qt/bin" "$compiler" /usr/x86_64-w64-mingw32/lib; do
        WINEPATH=${WINEPATH:+$WINEPATH;}Z:${folder//\//\\}
    done
    export WINEPATH
fi

if [ ! -e "$WINEPREFIX/system.reg" ]; then # two programs that start at once make it once
    mkdir -p "$WINEPREFIX"
    flock "$WINEPREFIX" "$wine" wineboot --init </dev/null >/dev/null 2>&1
    # Wine's own fonts, which stand in for those of Windows, are not found where Debian puts them.
    ln -sf /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts" 2>/dev/null || true
fi
exec "$wine" "$@"
