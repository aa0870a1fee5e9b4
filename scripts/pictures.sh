#!/usr/bin/env bash
# pictures.sh FOLDER [BUILD]: makes a picture of every window of the program in both languages, at 12 and 20 points, on a
# light and a dark desktop, to be looked at after a change of what is shown. BUILD: a configured build folder (build).
set -euo pipefail
mkdir -p "$1"
folder=$(realpath "$1")
cd "$(dirname "$0")/.."
build=${2:-build}
pictured=/tmp/parameters # which pictures show
mkdir "$pictured"
trap 'rm -rf "$pictured"' EXIT

cmake --build "$build" --target window_pictures
for language in en ja; do # each by itself: the toolkit's Japanese texts stay once they are loaded
    TZ=UTC TABRIX_PICTURES=$folder TABRIX_PICTURED=$pictured QT_QPA_PLATFORM="offscreen:configfile=$PWD/tests/pictures/screen.json" \
        "$build/window_pictures" --gtest_brief=1 --gtest_filter="*/${language}_*"
done
echo "$(find "$folder" -name '*.png' | wc -l) pictures in $folder"
