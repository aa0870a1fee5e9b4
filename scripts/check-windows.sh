#!/usr/bin/env bash
# check-windows.sh [BUILD [en|ja...]]: installs the set-up in BUILD/packages (default: build-windows) silently under Wine, as a new
# English user for himself and as a new Japanese one for all users, opens the examples from there as a double click does,
# edits and saves, prints and shows the help, and removes the program again.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -n "${TABRIX_CHECK_DISPLAY:-}" ] || exec env TABRIX_CHECK_DISPLAY=1 xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$0" "$@"

setup=$(realpath "${1:-build-windows}"/packages/*-setup.exe)
work=$(mktemp -d)
export LC_ALL=C.UTF-8 # for titles of windows
# Nothing but what is installed is to be found, and no printer.
export TABRIX_WINE_PLAIN=1 CUPS_SERVER=/nonexistent
wine() { LC_ALL=$locale scripts/wine.sh "$@"; }
# Only Wine's server of this folder, and what it serves.
end_wine() { [ -z "${WINEPREFIX:-}" ] || wineserver -k 2>/dev/null || true; }
cleanup() {
    end_wine
    rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "windows: ${language:-}: $*" >&2; exit 1; }
# value KEY NAME: a text of the registry; NAME "" is the key's own.
value() {
    local which=(/v "$2")
    [ -n "$2" ] || which=(/ve)
    wine reg query "$1" "${which[@]}" 2>/dev/null | tr -d '\r' | LC_ALL=C sed -n 's/^ .*REG_SZ *//p'
}
# until_true COMMAND...: waits for at most a minute.
until_true() {
    for _ in $(seq 60); do
        "$@" && return
        sleep 1
    done
    return 1
}
# window NAME: waits for a window whose title holds that, and tells its number.
window() { timeout 60 xdotool search --sync --onlyvisible --name "$1" | tail -1; }

# become_user LANGUAGE: a new user, with folders and settings of his own.
become_user() {
    end_wine
    language=$1
    export WINEPREFIX=$work/$language
    if [ "$language" = ja ]; then
        mkdir -p "$work/locales"
        localedef -i ja_JP -f UTF-8 "$work/locales/ja_JP.UTF-8"
        export LOCPATH=$work/locales
        locale=ja_JP.UTF-8
        frame='ﾊﾟﾗﾒｰﾀﾌｧｲﾙ編集'
        help='Tabrix ヘルプ'
        hive=HKLM
        mode=/AllUsers
    else
        locale=C.UTF-8
        frame='Parameter File Editer'
        help='Tabrix Help'
        hive=HKCU
        mode=/CurrentUser
    fi
    documents=$WINEPREFIX/drive_c/users/documents
}

install_program() {
    wine "$setup" "$mode" /S
    folder=$(value "$hive\\Software\\Tabrix\\Set-up" Folder)
    [ -n "$folder" ] || fail "the set-up has installed nothing"
    installed=$WINEPREFIX/dosdevices/c:/${folder#C:\\}
    installed=${installed//\\//}
    [ -e "$installed/tabrix.exe" ] || fail "there is no program in $folder"
    [ "$(value "$hive\\Software\\Classes\\.inv" '')" = Tabrix.Parameters ] || fail ".inv does not belong to the program"
    [ "$(value "$hive\\Software\\Classes\\.ine" '')" = Tabrix.Parameters ] || fail ".ine does not belong to the program"
    # What a user has of his own there is the system's as well on Windows; Wine 8 does not do that.
    [ "$hive" = HKLM ] || wine reg copy 'HKCU\Software\Classes' 'HKLM\Software\Classes' /s /f >/dev/null
    mkdir -p "$documents"
    cp examples/*.[iI][nN][vVeE] "$documents"
    cp examples/three-rows.inv "$documents/with space.ine"
}

use_tool() {
    wine "$folder\\tabrix-tool.exe" check --severity error 'C:\users\documents\three-rows.inv' ||
        fail "the command-line tool does not check a sample"
    wine "$folder\\tabrix-tool.exe" print -o 'C:\users\documents\printed.pdf' 'C:\users\documents\three-rows.inv' ||
        fail "the command-line tool does not print a sample"
    look_at_print_out
}
# look_at_print_out: at what was printed, which is gone then.
look_at_print_out() {
    pdftotext "$documents/printed.pdf" - | grep 'Buzzer control' >/dev/null || fail "the print-out lacks the parameters"
    rm "$documents/printed.pdf"
}

recent() { [ "$(value 'HKCU\Software\Tabrix\Tabrix\Recent Files' RecentFile1)" = "$1" ]; }
changed() { ! cmp -s "$1" "$2"; }
# edit FILE: opens it as a double click does, changes one name and saves.
edit() {
    local file=$1 name main
    name="C:\\users\\documents\\$(basename "$file")"
    cp "$file" "$work/before"
    wine start "$name"
    until_true recent "$name" || fail "a double click does not open $name"
    main=$(window "$frame") || fail "there is no window of the program"
    xdotool windowfocus --sync "$main"
    xdotool key --delay 100 ctrl+Home Right F2 ctrl+a
    xdotool type --delay 50 Edited
    xdotool key --delay 100 Return ctrl+s
    until_true changed "$file" "$work/before" || fail "$name is not saved"
    # One line has another name, and all other bytes are as they were.
    diff --text "$work/before" "$file" >"$work/diff" || true
    { [ "$(grep -ac '^[<>]' "$work/diff")" = 2 ] && grep -aq '^> .*,Edited,' "$work/diff"; } ||
        fail "the edit is not all that has changed in $name: $(head -c 600 "$work/diff")"
}
# print_from_window FILE: by the command of the program that has it open. There is no printer: a name is asked for.
print_from_window() {
    local title setup_window name_window=
    title="documents.$(basename "$1")\$"
    xdotool key --delay 100 ctrl+p
    setup_window=$(window "$title") || fail "there is no print set-up"
    xdotool windowfocus --sync "$setup_window"
    xdotool key --delay 100 Return
    asks_for_name() { name_window=$(window "$title") && [ "$name_window" != "$setup_window" ]; }
    until_true asks_for_name || fail "no name of a PDF file is asked for"
    xdotool windowfocus --sync "$name_window"
    xdotool key --delay 100 ctrl+a
    xdotool type --delay 50 'C:\users\documents\printed.pdf'
    xdotool key --delay 100 Return
    is_printed() { tail -c 6 "$documents/printed.pdf" 2>/dev/null | grep '%%EOF' >/dev/null; }
    until_true is_printed || fail "the window prints nothing"
    look_at_print_out
    xdotool windowfocus --sync "$(window "$frame")"
}
# show_help: from the program that is open.
show_help() {
    local shown
    xdotool key --delay 100 F1
    shown=$(window "$help") || fail "there is no help"
    xdotool windowfocus --sync "$shown"
    xdotool key --delay 100 alt+F4
}
leave_program() {
    for _ in 1 2 3; do # a window that has just closed may still have the keyboard
        xdotool windowfocus --sync "$(window "$frame")" || true
        xdotool key --delay 100 alt+F4
        timeout 60 wineserver -w && return # Wine's own programs end after the last other one
        [ -z "${TABRIX_CHECK_PICTURE:-}" ] || import -window root "$TABRIX_CHECK_PICTURE"
    done
    fail "the program does not end"
}

remove_program() {
    wine "$folder\\uninstall.exe" "$mode" /S
    gone() { [ ! -e "$installed" ]; }
    until_true gone || fail "files of the program are left in $folder"
    [ -z "$(value "$hive\\Software\\Classes\\.inv" '')" ] || fail ".inv still belongs to the program"
    [ -e "$documents/three-rows.inv" ] || fail "a document is gone"
    [ -n "$(value 'HKCU\Software\Tabrix\Tabrix\Recent Files' RecentFile1)" ] || fail "the settings are gone"
    [ -n "$(find "$WINEPREFIX/drive_c/users" -path '*Tabrix/backups/*' -type f)" ] || fail "the backups are gone"
}

[ $# -gt 1 ] && users=("${@:2}") || users=(en ja)
for user in "${users[@]}"; do
    become_user "$user"
    install_program
    use_tool
    for file in "$documents"/*; do
        edit "$file"
        if [ "$(basename "$file")" = three-rows.inv ]; then
            print_from_window "$file"
            show_help
        fi
        leave_program
    done
    remove_program
    echo "windows: $user: installed, opened by a double click, edited, saved, printed by window and tool, helped, removed"
done
