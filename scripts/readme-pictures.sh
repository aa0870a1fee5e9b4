#!/usr/bin/env bash
# readme-pictures.sh [BUILD]: makes the pictures of the README anew: the program with a sample file, in both languages, for a
# user without settings. Look at them and commit them. BUILD: a built folder (build).
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build}")
work=$(mktemp -d)
trap 'rm -rf "$work" /tmp/parameters' EXIT
mkdir /tmp/parameters # which the picture shows
cp examples/XT200.INV /tmp/parameters

for language in en_US ja_JP; do
    scripts/screenshot.sh "docs/pictures/${language%_*}.png" env -u LANGUAGE -u XDG_DATA_HOME HOME="$work" \
        XDG_CONFIG_HOME="$work/$language" LC_ALL=$language.UTF-8 "$build/tabrix" /tmp/parameters/XT200.INV
done
