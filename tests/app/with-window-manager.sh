#!/usr/bin/env bash
# with-window-manager.sh COMMAND...: runs a program on a display of its own, under a window manager.
set -euo pipefail

exec xvfb-run -a bash -euo pipefail -c '
    openbox --sm-disable &
    manager=$!
    until xdotool get_num_desktops >/dev/null 2>&1; do # windows that are there before their manager are another matter
        kill -0 "$manager"
        sleep 0.05
    done
    status=0
    "$@" || status=$?
    kill "$manager"
    exit "$status"' bash "$@"
