#!/usr/bin/env bash
# release.sh FOLDER [COMMIT]: makes in FOLDER what is released of a commit (default: HEAD): source archive, Debian packages,
# portable archive, pictures of the windows, and SHA256SUMS; and tries them. The same commit, with the same packages
# installed, gives the same bytes, wherever it is built. As root, they are also tried in a fresh Debian 12, the portable
# archive in a fresh Debian 13 too; otherwise release.sh says that they were not.
set -euo pipefail
commit=$(git -C "$(dirname "$0")/.." rev-parse --verify "${2:-HEAD}^{commit}")
mkdir -p "$1"
folder=$(realpath "$1")
cd "$(dirname "$0")/.."
scripts/setup.sh check
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
say() { printf '\n== release: %s\n' "$*"; }

[ -z "$(ls -A "$folder")" ] || { echo "release: there is something in $folder already" >&2; exit 1; }
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct "$commit")
export SOURCE_DATE_EPOCH
version=$(git show "$commit:CMakeLists.txt" | sed -n 's/^project(Tabrix VERSION \([0-9.]*\).*/\1/p')
[ -n "$version" ] || { echo "release: CMakeLists.txt of $commit has no version" >&2; exit 1; }

say "source archive of Tabrix $version, $(git log -1 --format='%h of %cs' "$commit")"
git -c tar.umask=0022 archive --format=tar --prefix="tabrix-$version/" "$commit" | gzip -9n >"$folder/tabrix-$version.tar.gz"

say "build of what is in that archive"
tar -C "$work" -xzf "$folder/tabrix-$version.tar.gz"
cd "$work/tabrix-$version"
cmake --preset package
cmake --build --preset package
scripts/package.sh build-package "$folder"
scripts/portable.sh build-package "$folder"

say "pictures"
cmake --preset package -D TABRIX_TESTS=ON >/dev/null
scripts/pictures.sh "$work/tabrix-$version-pictures" build-package
tar -C "$work" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner --format=gnu \
    -cf "$folder/tabrix-$version-pictures.tar" "tabrix-$version-pictures"
(cd "$folder" && sha256sum -- * >"$work/SHA256SUMS" && mv "$work/SHA256SUMS" .)

say "checks"
scripts/check-package.sh "$folder"
portable=$(echo "$folder"/*-linux-*.tar.gz)
if [ "$(id -u)" -eq 0 ]; then
    scripts/fresh-root.sh bookworm scripts/check-root.sh "$folder/tabrix_${version}_$(dpkg --print-architecture).deb"
    scripts/fresh-root.sh bookworm scripts/check-root.sh "$portable"
    scripts/fresh-root.sh trixie scripts/check-root.sh "$portable"
else
    echo "release: not tried in a fresh Debian, which needs root's rights"
fi

say "made"
! grep -q '^## .*not released yet' CHANGELOG.md || echo "A trial: CHANGELOG.md does not say when this version is released."
cat "$folder/SHA256SUMS"
