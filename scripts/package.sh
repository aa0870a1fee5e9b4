#!/usr/bin/env bash
# package.sh BUILD FOLDER: makes Debian packages of a built folder, in FOLDER: tabrix, and tabrix-dbgsym with its debug
# symbols if it was built with any (preset "package"). Of the same commit they are the same bytes.
set -euo pipefail
build=$(realpath "$1")
mkdir -p "$2"
folder=$(realpath "$2")
cd "$(dirname "$0")/.."
debian=$PWD/packaging/debian
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
architecture=$(dpkg --print-architecture)
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022

root=$work/tabrix
symbols=$work/tabrix-dbgsym
cmake --install "$build" --prefix "$root/usr" >"$work/install.log" || { cat "$work/install.log"; exit 1; }

maintainer=$(sed -n 's/^Maintainer: //p' "$debian/control")
documents=$root/usr/share/doc/tabrix
install -m 644 "$debian/copyright" "$documents/copyright"
install -D -m 644 "$debian/lintian-overrides" "$root/usr/share/lintian/overrides/tabrix"
awk -v maintainer="$maintainer" -v date="$(LC_ALL=C date -u -d "@$SOURCE_DATE_EPOCH" '+%a, %d %b %Y %H:%M:%S +0000')" \
    -f "$debian/changelog.awk" CHANGELOG.md | gzip -9n >"$documents/changelog.gz"
find "$root/usr/share/man" -name '*.1' -exec gzip -9n {} +

# What is needed to understand a program's stack goes to a file named by the program's build ID; debuggers look there.
mapfile -t programs < <(find "$root/usr/lib" -type f -exec sh -c 'head -c 4 "$1" | grep -q ELF' sh {} \; -print | sort)
ids=
for program in "${programs[@]}"; do
    if readelf --section-headers --wide "$program" | grep -F ' .debug_info ' >/dev/null; then
        id=$(readelf --notes "$program" | sed -n 's/.*Build ID: //p')
        file=$symbols/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug
        mkdir -p "${file%/*}"
        objcopy --only-keep-debug --compress-debug-sections "$program" "$file"
        chmod 644 "$file"
        ids+=" $id"
    fi
    strip --strip-unneeded --remove-section=.comment --remove-section=.note "$program"
    case $program in *.so) chmod 644 "$program" ;; esac
done

# make_package ROOT FIELDS: writes what Debian wants to know of a package, and the package
make_package() {
    local name=${1##*/} fields=$2
    chmod -R u+rwX,go+rX,go-w "$1"
    mkdir -p "$1/DEBIAN"
    printf 'Package: %s\nVersion: %s\nArchitecture: %s\nMaintainer: %s\nInstalled-Size: %s\n%s\n' "$name" "$version" \
        "$architecture" "$maintainer" "$(du -k -s --apparent-size --exclude=DEBIAN "$1" | cut -f1)" "$fields" >"$1/DEBIAN/control"
    (cd "$1" && find usr -type f -print0 | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
    find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
    # One thread: how many there are would show in the bytes.
    dpkg-deb --root-owner-group -Zxz --threads-max=1 --build "$1" "$folder/${name}_${version}_$architecture.deb"
}

mkdir -p "$work/shlibdeps" "$root/DEBIAN" # which tells that this is a package's root
ln -s "$debian" "$work/shlibdeps/debian"
libraries=$(cd "$work/shlibdeps" && dpkg-shlibdeps -O "${programs[@]/#/-e}" | sed 's/^shlibs:Depends=//')
# The fields of the package's own paragraph; section and priority are those of the source.
fields=$(sed -n '/^Section:\|^Priority:/p' "$debian/control"
    sed -n '/^Package:/,$p' "$debian/control" | sed "1,2d; s/\${shlibs:Depends}/$libraries/")
make_package "$root" "$fields"

[ -n "$ids" ] || exit 0
mkdir -p "$symbols/usr/share/doc"
ln -s tabrix "$symbols/usr/share/doc/tabrix-dbgsym"
make_package "$symbols" "Section: debug
Priority: optional
Depends: tabrix (= $version)
Auto-Built-Package: debug-symbols
Build-Ids:$ids
Description: debug symbols for tabrix"
