#!/usr/bin/env bash
# with-window-manager.sh COMMAND...: runs a program on a display of its own, under a window manager.
set -euo pipefail

# A display that loses its last client starts anew and drops who is just connecting: without -noreset, the first question
# for the manager turned the manager itself away now and then.
exec xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash -euo pipefail -c '
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
