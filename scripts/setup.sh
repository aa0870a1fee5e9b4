#!/usr/bin/env bash
# setup.sh [windows]: installs what building, testing and running Tabrix needs from Debian's packages, with "windows" for
# a cross-build as well. Does nothing when all is there.
set -euo pipefail

packages=(
    # build
    g++ cmake ninja-build
    qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools qt6-documentation-tools libgl-dev libxlsxwriter-dev
    # run
    libqt6svg6 libqt6sql6-sqlite qt6-qpa-plugins qt6-translations-l10n fonts-dejavu-core fonts-ipafont-gothic
    # test, measure and check
    git man-db libgtest-dev libbenchmark-dev valgrind poppler-utils xvfb xauth imagemagick dbus-daemon dbus-bin at-spi2-core
    openbox libxcb1-dev libxcb-xkb-dev
    clang clang-format clang-tidy libclang-rt-14-dev python3 python3-jsonschema
    # package, and check the package
    dpkg-dev file librsvg2-bin desktop-file-utils appstream libxml2-utils shared-mime-info libglib2.0-bin xdotool procps
)

[ "${1:-}" != windows ] || packages+=(g++-mingw-w64-x86-64-posix googletest wine wine64 fonts-wine nsis zip)

missing=()
for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
echo "Installing: ${missing[*]}"
"${sudo[@]}" apt-get update -q
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
