#!/usr/bin/env bash
# check-package.sh [BUILD]: makes the Debian package of a built folder (default: build), installs it into an empty root
# and opens a file from there as a double click does.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "package: $*" >&2; exit 1; }

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/packages" >"$work/cpack.log" || { cat "$work/cpack.log"; exit 1; }
package=$(echo "$work"/packages/*.deb)
for library in libqt6widgets6 libqt6help6 libqt6svg6 libqt6sql6-sqlite libxlsxwriter4; do
    dpkg-deb --field "$package" Depends | grep -qw "$library" || fail "$library is missing from its dependencies"
done

desktop-file-validate packaging/tabrix.desktop
xmllint --noout packaging/*.xml
appstreamcli validate --no-net packaging/org.tabrix.Tabrix.metainfo.xml

# Without its dependencies: those of this machine serve.
root=$work/root
mkdir -p "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/info"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(unshare --map-root-user)
"${as_root[@]}" dpkg --root="$root" --force-depends --force-script-chrootless --log="$work/dpkg.log" -i "$package" \
    >"$work/install.log" 2>&1 || { cat "$work/install.log"; exit 1; }
for size in 16 22 24 32 48 64 128 256; do
    icon=$root/usr/share/icons/hicolor/${size}x$size/apps/tabrix.png
    [ "$(identify -format %wx%h "$icon")" = "${size}x$size" ] || fail "no icon of $size pixels"
done
for page in man/man1/tabrix.1 man/man1/tabrix-tool.1 man/ja/man1/tabrix-tool.1 bash-completion/completions/tabrix-tool; do
    [ -s "$root/usr/share/$page" ] || fail "$page is missing"
done
update-mime-database "$root/usr/share/mime"
update-desktop-database "$root/usr/share/applications"

export HOME=$work/home XDG_DATA_DIRS=$root/usr/share XDG_CONFIG_HOME=$work/home/.config PATH=$root/usr/bin:$PATH
mkdir -p "$HOME"
tabrix-tool check --severity error examples/three-rows.inv || fail "the command-line tool does not check a sample"
tabrix-tool convert examples/three-rows.inv "$HOME/a.xlsx" || fail "the command-line tool does not write a workbook"
env -u DISPLAY tabrix-tool print examples/three-rows.inv -o "$HOME/a.pdf" || fail "the command-line tool does not print"
for name in a.inv 'with space.INE'; do
    cp examples/three-rows.inv "$HOME/$name"
    kind=$(gio info -a standard::content-type "$HOME/$name" | sed -n 's/.*content-type: //p')
    [ "$kind" = application/x-tabrix-parameters ] || fail "$name is taken for $kind"
    # shellcheck disable=SC2016
    xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash -c '
        gio open "$HOME/$0"
        for _ in $(seq 100); do
            sleep 0.1
            pid=$(pgrep -f "^[^ ]*tabrix.*${0##* }") || continue
            grep -qsF "$0" "$XDG_CONFIG_HOME/Tabrix/Tabrix.conf" && break
        done
        window=$(xdotool search --sync --onlyvisible --pid "$pid" | tail -1)
        xdotool windowfocus "$window" key F1
        timeout 10 xdotool search --sync --onlyvisible --name "Tabrix.*[Hh]elp|[Gg]uide" >/dev/null
        found=$?
        [ "$(readlink "/proc/$pid/exe")" = "$1" ] || found=1
        kill "$pid"
        exit $found
    ' "$name" "$(realpath "$root/usr/bin/tabrix")" || fail "$name was not opened with its help by a double click"
done
echo "package: installed, opens files, finds its help"
