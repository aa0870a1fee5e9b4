#!/usr/bin/env bash
# screenshot.sh PICTURE PROGRAM [ARGUMENT...]: starts the program under a virtual display and saves what it shows.
# TABRIX_SCREEN sets the display's size, e.g. 2560x1600.
set -euo pipefail
picture=$1
shift
export picture

# shellcheck disable=SC2016
xvfb-run -a -s "-screen 0 ${TABRIX_SCREEN:-1280x800}x24 -noreset" bash -c '
    "$@" &
    program=$!
    previous=
    for _ in $(seq 100); do # until two pictures in a row are the same and not blank
        sleep 0.3
        kill -0 "$program" || exit 1
        import -window root "$picture"
        colours=$(identify -format %k "$picture")
        current=$(sha256sum <"$picture")
        [ "$colours" -gt 16 ] && [ "$current" = "$previous" ] && break
        previous=$current
    done
    kill "$program"
    wait "$program" 2>/dev/null || true
' screenshot "$@"
test -s "$picture"
