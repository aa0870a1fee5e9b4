#!/usr/bin/env bash
# check-windows.sh [BUILD]: installs the set-up in BUILD/packages (default: build-windows) silently under Wine, as a new
# user, opens the examples from there as a double click does, edits and saves, and removes the program again.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -n "${TABRIX_CHECK_DISPLAY:-}" ] || exec env TABRIX_CHECK_DISPLAY=1 xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$0" "$@"

setup=$(realpath "${1:-build-windows}"/packages/*-setup.exe)
work=$(mktemp -d)
export WINEPREFIX=$work/prefix
# Nothing but what is installed is to be found.
export TABRIX_WINE_PLAIN=1
wine() { scripts/wine.sh "$@"; }
# Only Wine's server of this folder, and what it serves.
cleanup() { wineserver -k 2>/dev/null || true; rm -rf "$work"; }
trap cleanup EXIT
fail() { echo "windows: $*" >&2; exit 1; }
# value KEY NAME: a text of the registry; NAME "" is the key's own.
value() {
    local which=(/v "$2")
    [ -n "$2" ] || which=(/ve)
    wine reg query "$1" "${which[@]}" 2>/dev/null | tr -d '\r' | sed -n 's/^ .*REG_SZ *//p'
}
# until_true COMMAND...: waits for at most a minute.
until_true() {
    for _ in $(seq 60); do
        "$@" && return
        sleep 1
    done
    return 1
}

wine "$setup" /S
folder=$(value 'HKCU\Software\Tabrix\Set-up' Folder)
[ -n "$folder" ] || fail "the set-up has installed nothing"
installed=$WINEPREFIX/dosdevices/c:/${folder#C:\\}
installed=${installed//\\//}
[ -e "$installed/tabrix.exe" ] || fail "there is no program in $folder"
[ "$(value 'HKCU\Software\Classes\.inv' '')" = Tabrix.Parameters ] || fail ".inv does not belong to the program"
[ "$(value 'HKCU\Software\Classes\.ine' '')" = Tabrix.Parameters ] || fail ".ine does not belong to the program"

documents=$WINEPREFIX/drive_c/users/documents
mkdir -p "$documents"
cp examples/*.[iI][nN][vVeE] "$documents"
cp examples/three-rows.inv "$documents/with space.ine"
wine "$folder\\tabrix-tool.exe" check --severity error 'C:\users\documents\three-rows.inv' ||
    fail "the command-line tool does not check a sample"

recent() { [ "$(value 'HKCU\Software\Tabrix\Tabrix\Recent Files' RecentFile1)" = "$1" ]; }
changed() { ! cmp -s "$1" "$2"; }
for file in "$documents"/*; do
    name="C:\\users\\documents\\$(basename "$file")"
    cp "$file" "$work/before"
    wine start "$name" # what a double click does
    until_true recent "$name" || fail "a double click does not open $name"
    window=$(xdotool search --sync --onlyvisible --name 'Parameter File Editer' | tail -1)
    xdotool windowfocus --sync "$window"
    xdotool key --delay 100 ctrl+Home Right F2 ctrl+a
    xdotool type --delay 50 Edited
    xdotool key --delay 100 Return ctrl+s
    until_true changed "$file" "$work/before" || fail "$name is not saved"
    # One line has another name, and all other bytes are as they were.
    diff --text "$work/before" "$file" >"$work/diff" || true
    { [ "$(grep -ac '^[<>]' "$work/diff")" = 2 ] && grep -aq '^> .*,Edited,' "$work/diff"; } ||
        fail "the edit is not all that has changed in $name: $(head -c 600 "$work/diff")"
    xdotool key --delay 100 alt+F4
    sleep 2
done

wine "$folder\\uninstall.exe" /CurrentUser /S
gone() { [ ! -e "$installed" ]; }
until_true gone || fail "files of the program are left in $folder"
[ -z "$(value 'HKCU\Software\Classes\.inv' '')" ] || fail ".inv still belongs to the program"
[ -e "$documents/three-rows.inv" ] || fail "a document is gone"
[ -n "$(value 'HKCU\Software\Tabrix\Tabrix\Recent Files' RecentFile1)" ] || fail "the settings are gone"
[ -n "$(find "$WINEPREFIX/drive_c/users" -path '*Tabrix/backups/*' -type f)" ] || fail "the backups are gone"
echo "windows: installed, opened by a double click, edited, saved, removed"
