#!/usr/bin/env bash
# fresh-root.sh SUITE COMMAND [ARGUMENT...]: runs a command, as root, beside a smallest Debian of that suite (such as
# bookworm), which FRESH_ROOT names. What it changes there is gone afterwards. The root itself is kept in ~/.cache/tabrix/roots,
# and made by debootstrap if it is not there.
set -euo pipefail
suite=$1
shift
[ "$(id -u)" -eq 0 ] || { echo "fresh-root: this needs root's rights" >&2; exit 1; }
kept=${XDG_CACHE_HOME:-$HOME/.cache}/tabrix/roots/$suite
if [ ! -e "$kept/etc/debian_version" ]; then
    mkdir -p "$kept"
    debootstrap --variant=minbase "$suite" "$kept" "${TABRIX_DEBIAN_MIRROR:-http://deb.debian.org/debian}" >"$kept.log" ||
        { tail "$kept.log"; rm -rf "$kept"; exit 1; }
fi

# The mounts are seen by the command alone, and end with it.
export FRESH_ROOT=/mnt kept
# shellcheck disable=SC2016
exec unshare --mount --propagation private bash -euc '
    mount -t tmpfs tmpfs /mnt
    mkdir /mnt/changes /mnt/work
    mount -t overlay overlay -o "lowerdir=$kept,upperdir=/mnt/changes,workdir=/mnt/work" /mnt
    mount -t proc proc /mnt/proc
    mount --rbind /dev /mnt/dev
    mount -t tmpfs tmpfs /mnt/tmp
    mkdir /mnt/tmp/.X11-unix
    [ ! -d /tmp/.X11-unix ] || mount --bind /tmp/.X11-unix /mnt/tmp/.X11-unix
    cp /etc/resolv.conf /mnt/etc
    "$@"
' fresh-root "$@"
