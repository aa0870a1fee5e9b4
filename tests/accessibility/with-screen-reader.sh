#!/usr/bin/env bash
# with-screen-reader.sh COMMAND...: runs a program on a display and a session bus of its own, where a screen reader is on.
set -euo pipefail

exec xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" dbus-run-session -- bash -euo pipefail -c '
    dbus-send --session --dest=org.a11y.Bus --print-reply=literal /org/a11y/bus org.freedesktop.DBus.Properties.Set \
        string:org.a11y.Status string:ScreenReaderEnabled variant:boolean:true
    "$@"' bash "$@"
