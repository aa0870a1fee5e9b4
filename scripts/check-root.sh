#!/usr/bin/env bash
# check-root.sh PACKAGE|ARCHIVE [PICTURE]: tries a Debian package or a portable archive in FRESH_ROOT: the tool, and the
# editor without a display and with one, of which a picture is saved. scripts/fresh-root.sh starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -n "${TABRIX_CHECK_DISPLAY:-}" ] || exec env TABRIX_CHECK_DISPLAY=1 xvfb-run -a -s "-screen 0 1280x800x24 -noreset" "$0" "$@"
given=$1
picture=${2:-$(mktemp --suffix=.png)}
system=$(sed -n 's/^PRETTY_NAME="\(.*\)"/\1/p' "$FRESH_ROOT/etc/os-release")
fail() { echo "root: $given on $system: $*" >&2; exit 1; }
in_root() {
    local start=()
    [ "$BASHPID" = $$ ] || start=(exec) # what runs beside this is the process that $! names
    "${start[@]}" chroot "$FRESH_ROOT" env -i HOME=/root LANG=C.UTF-8 PATH="$programs:/usr/sbin:/usr/bin:/sbin:/bin" "$@"
}

programs=/usr/bin
install() {
    if ! { in_root apt-get update -q && in_root DEBIAN_FRONTEND=noninteractive apt-get install -q -y "$@"; } \
        >"$FRESH_ROOT/tmp/log" 2>&1; then
        cat "$FRESH_ROOT/tmp/log"
        fail "$* cannot be installed"
    fi
}
case $given in
*.deb)
    cp "$given" "$FRESH_ROOT/tmp"
    install "/tmp/${given##*/}"
    ;;
*)
    tar -C "$FRESH_ROOT/opt" -xzf "$given"
    folder=${given##*/}
    programs=/opt/${folder%.tar.gz}/bin
    install --no-install-recommends fontconfig-config fonts-dejavu-core fonts-ipafont-gothic # each desktop has fonts
    [ -z "$(find "$FRESH_ROOT/usr" -name 'libQt*')" ] || fail "there is a Qt already"
    ;;
esac
cp examples/XT200.INV "$FRESH_ROOT/root"

in_root tabrix-tool check --severity error /root/XT200.INV || fail "the tool does not check"
in_root tabrix-tool convert /root/XT200.INV /root/a.xlsx || fail "the tool does not write a workbook"
in_root tabrix-tool print /root/XT200.INV -o /root/a.pdf || fail "the tool does not print"
pdftotext "$FRESH_ROOT/root/a.pdf" - | grep -F 'Machine' >/dev/null || fail "there are no texts in the print-out"

settings=$FRESH_ROOT/root/.config/Tabrix/Tabrix.conf
until_opened() {
    for _ in $(seq 300); do
        sleep 0.2
        kill -0 "$editor" 2>/dev/null || fail "the editor ended"
        grep -qs XT200 "$settings" && return
    done
    fail "the editor does not open a file"
}
end_editor() {
    kill "$editor"
    wait "$editor" 2>/dev/null || true
    editor=
    rm -rf "$FRESH_ROOT/root/.config"
}
in_root QT_QPA_PLATFORM=offscreen tabrix /root/XT200.INV &
editor=$!
until_opened
end_editor

cp "$XAUTHORITY" "$FRESH_ROOT/root/.Xauthority"
in_root DISPLAY="$DISPLAY" XAUTHORITY=/root/.Xauthority ${TABRIX_CHECK_LANGUAGE:+LC_ALL="$TABRIX_CHECK_LANGUAGE"} tabrix /root/XT200.INV &
editor=$!
until_opened
windows() { xdotool search --onlyvisible --pid "$editor" 2>/dev/null || true; }
# until_windows COUNT: waits until the editor shows that many
until_windows() {
    for _ in $(seq 300); do
        [ "$(windows | wc -l)" -lt "$1" ] || return 0
        sleep 0.2
    done
    fail "the editor does not show $1 windows"
}
until_windows 1
sleep 2
import -window root "$picture"
xdotool windowfocus "$(windows | tail -1)" key F1
until_windows 2 # the guide, which SQLite opens
end_editor
echo "root: ${given##*/} runs on $system; picture: $picture"
