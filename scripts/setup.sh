#!/usr/bin/env bash
# setup.sh [PURPOSE]: installs from Debian's packages what is missing for a purpose, after saying what and how much that is.
# Purposes: run (building and starting), test (the tests too; the default), check (all that .ci/run and a release do),
# windows (the tests, and a cross-build).
set -euo pipefail
purpose=${1:-test}

run=(
    g++ cmake ninja-build
    qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-documentation-tools libgl-dev libxlsxwriter-dev
    libqt6svg6 libqt6sql6-sqlite qt6-translations-l10n fonts-dejavu-core fonts-ipafont-gothic
)
# For a picture of the program where it cannot be seen otherwise
screen=(xvfb xauth imagemagick)
test=(
    git man-db libgtest-dev libbenchmark-dev valgrind poppler-utils python3 python3-jsonschema
    dbus-daemon dbus-bin at-spi2-core openbox xdotool procps libxcb1-dev libxcb-xkb-dev
)
check=(
    clang clang-format clang-tidy libclang-rt-14-dev
    # make packages, and check them
    dpkg-dev file patchelf librsvg2-bin
    lintian gdb debootstrap desktop-file-utils appstream libxml2-utils shared-mime-info libglib2.0-bin
)
windows=(librsvg2-bin g++-mingw-w64-x86-64-posix googletest wine wine64 fonts-wine nsis zip locales)

case $purpose in
run)
    packages=("${run[@]}")
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || packages+=("${screen[@]}")
    ;;
test) packages=("${run[@]}" "${screen[@]}" "${test[@]}") ;;
check) packages=("${run[@]}" "${screen[@]}" "${test[@]}" "${check[@]}") ;;
windows) packages=("${run[@]}" "${screen[@]}" "${test[@]}" "${windows[@]}") ;;
*)
    echo "setup: the purposes are run, test, check and windows" >&2
    exit 2
    ;;
esac

if ! command -v apt-get dpkg-query >/dev/null; then
    echo "setup: this is no Debian system. Install what these packages of Debian 12 have: ${packages[*]}" >&2
    exit 1
fi
missing=()
for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0
install=(apt-get install -q -y --no-install-recommends "${missing[@]}")
echo "Missing to $purpose Tabrix: ${missing[*]}"

# For those who may not install packages: what to pass on to somebody who may.
ask_for_help() {
    printf 'setup: you have no right to install packages here. Ask for this, as root:\n\n%s && %s\n\n' \
        "apt-get update" "${install[*]}" >&2
    exit 1
}
as_root=(env LC_ALL=C DEBIAN_FRONTEND=noninteractive)
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || ask_for_help
    [ -t 0 ] || sudo -n true 2>/dev/null || ask_for_help # nobody is there to type a password
    sudo -v || ask_for_help
    as_root=(sudo "${as_root[@]}")
fi

"${as_root[@]}" apt-get update -q
# Asked without an answer, the installer says what it would do.
plan=$("${as_root[@]}" apt-get install --assume-no --no-install-recommends "${missing[@]}" || true)
sed -n 's/^[0-9]* upgraded, \([0-9]*\) newly.*/Installing \1 packages, with those that they need./p
        s/^Need to get \(.*\) of archives.*/Download: \1/p
        s/^After this operation, \(.*\) of additional disk space.*/Disk space: \1/p' <<<"$plan"
"${as_root[@]}" "${install[@]}"
