#!/usr/bin/env bash
# with-window-manager.sh COMMAND...: runs a program on a display of its own, under a window manager.
set -euo pipefail

exec xvfb-run -a bash -euo pipefail -c '
    openbox --sm-disable &
    manager=$!
    status=0
    "$@" || status=$?
    kill "$manager"
    exit "$status"' bash "$@"
