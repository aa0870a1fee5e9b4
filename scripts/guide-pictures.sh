#!/usr/bin/env bash
# guide-pictures.sh [BUILD]: makes the guide's pictures of the windows anew, in both languages, from the program itself.
# Their parts are those that the pages list below them. Look at the result and commit it. BUILD: a configured build
# folder (build).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}

cmake --build "$build" --target guide_pictures
for language in en ja; do # each by itself: the toolkit's Japanese texts stay once they are loaded
    TABRIX_GUIDE=$PWD/resources/help QT_QPA_PLATFORM="offscreen:configfile=$PWD/tests/pictures/screen.json" \
        "$build/guide_pictures" --gtest_brief=1 --gtest_filter="*/$language"
done
du -ch resources/help/*/*.png | tail -1
