#!/usr/bin/env bash
# check-package.sh [BUILD|FOLDER]: makes the Debian packages of a built folder (default: build), or takes those in FOLDER,
# looks at them with Debian's checker, installs them into an empty root and opens a file from there as a double click does.
# With debug symbols among them, a debugger has to name the functions and lines of the installed programs.
set -euo pipefail
cd "$(dirname "$0")/.."
given=${1:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "package: $*" >&2; exit 1; }

packages=$given
if [ -e "$given/CMakeCache.txt" ]; then
    packages=$work/packages
    scripts/package.sh "$given" "$packages" >"$work/package.log" 2>&1 || { cat "$work/package.log"; exit 1; }
fi
package=$(echo "$packages"/tabrix_*.deb)
symbols=$(find "$packages" -name 'tabrix-dbgsym_*.deb')
if ! lintian --allow-root --pedantic --fail-on error,warning,pedantic,override "$package" ${symbols:+"$symbols"} \
    >"$work/lintian.log" || [ -s "$work/lintian.log" ]; then
    cat "$work/lintian.log"
    fail "Debian's checker has something to say"
fi
for library in libqt6widgets6 libqt6help6 libqt6svg6 libqt6sql6-sqlite libxlsxwriter4; do
    dpkg-deb --field "$package" Depends | grep -w "$library" >/dev/null || fail "$library is missing from its dependencies"
done

desktop-file-validate packaging/tabrix.desktop
xmllint --noout packaging/*.xml

# Without its dependencies: those of this machine serve.
root=$work/root
mkdir -p "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/info"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(unshare --map-root-user)
"${as_root[@]}" dpkg --root="$root" --force-depends --force-script-chrootless --log="$work/dpkg.log" \
    -i "$package" ${symbols:+"$symbols"} >"$work/install.log" 2>&1 || { cat "$work/install.log"; exit 1; }
for size in 16 22 24 32 48 64 128 256; do
    icon=$root/usr/share/icons/hicolor/${size}x$size/apps/tabrix.png
    [ "$(identify -format %wx%h "$icon")" = "${size}x$size" ] || fail "no icon of $size pixels"
done
for page in man/{,ja/}man1/{tabrix,tabrix-tool}.1.gz man/man1/tabrix-print.1.gz bash-completion/completions/tabrix-tool; do
    [ -s "$root/usr/share/$page" ] || fail "$page is missing"
done
appstreamcli validate --no-net "$root"/usr/share/metainfo/*.xml
gunzip -c "$root/usr/share/doc/tabrix/changelog.gz" >"$work/changelog"
[ "$(dpkg-parsechangelog -l "$work/changelog" -S Version)" = "$(dpkg-deb --field "$package" Version)" ] || fail "the change log is another version's"
update-mime-database "$root/usr/share/mime"
update-desktop-database "$root/usr/share/applications"

export HOME=$work/home XDG_DATA_DIRS=$root/usr/share XDG_CONFIG_HOME=$work/home/.config PATH=$root/usr/bin:$PATH
mkdir -p "$HOME"
tabrix-tool check --severity error examples/three-rows.inv || fail "the command-line tool does not check a sample"
tabrix-tool convert examples/three-rows.inv "$HOME/a.xlsx" || fail "the command-line tool does not write a workbook"
env -u DISPLAY tabrix-tool print examples/three-rows.inv -o "$HOME/a.pdf" || fail "the command-line tool does not print"
if [ -n "$symbols" ]; then
    for program in tabrix tabrix-tool tabrix-print; do
        QT_QPA_PLATFORM=offscreen gdb -batch -iex "set debug-file-directory $root/usr/lib/debug" -ex 'break main' -ex run -ex bt \
            "$root/usr/lib/tabrix/$program" >"$work/gdb.log" 2>&1 || true
        grep -q '^#0 .*main (.*) at .*main.cpp:[0-9]' "$work/gdb.log" || { cat "$work/gdb.log"; fail "no symbols of $program"; }
    done
fi
for name in a.inv 'with space.INE'; do
    cp examples/three-rows.inv "$HOME/$name"
    kind=$(gio info -a standard::content-type "$HOME/$name" | sed -n 's/.*content-type: //p')
    [ "$kind" = application/x-tabrix-parameters ] || fail "$name is taken for $kind"
    # shellcheck disable=SC2016
    xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash -c '
        gio open "$HOME/$0"
        for _ in $(seq 600); do
            sleep 0.1
            pid=$(pgrep -nfx "tabrix $HOME/$0") || continue
            grep -qsF "$0" "$XDG_CONFIG_HOME/Tabrix/Tabrix.conf" && break
        done
        [ -n "$pid" ] || exit 1
        window=$(timeout 60 xdotool search --sync --onlyvisible --pid "$pid" | tail -1)
        xdotool windowfocus "$window" key F1
        timeout 60 xdotool search --sync --onlyvisible --name "Tabrix.*[Hh]elp|[Gg]uide" >/dev/null
        found=$?
        [ "$(readlink "/proc/$pid/exe")" = "$1" ] || found=1
        kill "$pid"
        exit $found
    ' "$name" "$(realpath "$root/usr/bin/tabrix")" || fail "$name was not opened with its help by a double click"
done
echo "package: installed, opens files, finds its help"
