#!/usr/bin/env bash
# portable.sh BUILD FOLDER: makes an archive of a built folder in FOLDER that runs from wherever it is unpacked, without Qt
# being installed: Debian 12, or a later system. Qt and all other libraries are those of this machine; only the C and C++
# libraries are the system's. Of the same commit, with the same packages, it is the same bytes.
set -euo pipefail
build=$(realpath "$1")
mkdir -p "$2"
folder=$(realpath "$2")
cd "$(dirname "$0")/.."
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022

name=tabrix-$version-linux-$(uname -m)
root=$work/$name
cmake --install "$build" --prefix "$root" --strip >"$work/install.log" || { cat "$work/install.log"; exit 1; }

# Plug-ins, found by qt.conf
qt=$(qtpaths6 --query QT_INSTALL_PLUGINS 2>/dev/null || qmake6 -query QT_INSTALL_PLUGINS)
translations=$(qtpaths6 --query QT_INSTALL_TRANSLATIONS 2>/dev/null || qmake6 -query QT_INSTALL_TRANSLATIONS)
for plugin in platforms/libq{xcb,offscreen} platforminputcontexts/lib{compose,ibus}platforminputcontextplugin \
    imageformats/libqsvg iconengines/libqsvgicon printsupport/libcupsprintersupport sqldrivers/libqsqlite; do
    install -D -m 644 -t "$root/lib/plugins/${plugin%/*}" "$qt/$plugin.so"
    echo "$qt/$plugin.so" >>"$work/taken"
done
install -D -m 644 -t "$root/lib/translations" "$translations"/{qtbase,qt_help}_ja.qm
printf '%s\n' "$translations"/{qtbase,qt_help}_ja.qm >>"$work/taken"
printf '[Paths]\nPrefix = ..\nPlugins = plugins\nTranslations = translations\n' >"$root/lib/tabrix/qt.conf"

# The libraries that all of these need. A path in the programs themselves holds for what the libraries and plug-ins load, too.
mkdir -p "$root/lib/libraries"
system='^(ld-linux.*|lib(c|m|dl|rt|pthread|resolv|util|stdc\+\+|gcc_s|nss_.*|anl))\.so'
find "$root/lib" -type f \( -name '*.so' -o -perm -u+x \) -print0 | xargs -0 ldd | awk '$2 == "=>" && $3 ~ /^\// { print $1, $3 }' |
    sort -u | while read -r file path; do
    [[ $file =~ $system ]] && continue
    install -m 644 "$path" "$root/lib/libraries/$file"
    realpath "$path" >>"$work/taken"
done
for program in "$root"/lib/tabrix/tabrix{,-tool,-print}; do
    patchelf --force-rpath --set-rpath "\$ORIGIN/../libraries" "$program"
done

# What is in it, and on what terms
mkdir -p "$root/licenses/common"
sort -u "$work/taken" | while read -r file; do
    dpkg-query --search "$file" 2>/dev/null || dpkg-query --search "${file#/usr}"
done | sed 's/: .*//' | sort -u >"$work/packages"
while read -r package; do
    cp "/usr/share/doc/${package%:*}/copyright" "$root/licenses/${package%:*}"
done <"$work/packages"
cp -L /usr/share/common-licenses/{Apache-2.0,Artistic,BSD,CC0-1.0,GFDL-1.2,GFDL-1.3,GPL-1,GPL-2,GPL-3,LGPL-2,LGPL-2.1,LGPL-3,MPL-1.1,MPL-2.0} \
    "$root/licenses/common"
cp packaging/debian/copyright "$root/licenses/tabrix"
sed "s/@VERSION@/$version/" packaging/portable/README.txt >"$root/README.txt"
{
    echo "Packages of $(sed -n 's/^PRETTY_NAME=//p' /etc/os-release) that libraries, plug-ins and translations are from"
    echo "(package, version, source package and its version):"
    echo
    # shellcheck disable=SC2016
    xargs dpkg-query -W -f='${Package} ${Version} ${source:Package} ${source:Version}\n' <"$work/packages"
    printf '\nFiles:\n\n'
    (cd "$root" && find . -type f -o -type l | sed 's/^..//' | LC_ALL=C sort)
} >"$root/CONTENTS.txt"

chmod -R u+rwX,go+rX,go-w "$root"
tar -C "$work" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner --format=gnu -c "$name" |
    gzip -9n >"$folder/$name.tar.gz"
echo "$folder/$name.tar.gz: $(du -h "$folder/$name.tar.gz" | cut -f1), unpacked $(du -sh "$root" | cut -f1)"
