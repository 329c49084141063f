#!/bin/sh
# Writes the release of the commit checked out into dist/:
#   quillmark-<version>.tar.gz     the sources, as git archive packs them
#   quillmark_<version>_amd64.deb  the Debian package, built from that tarball
#   SHA256SUMS                     the checksums of both
# The package is built from the tarball, not from the working tree, so it is
# what anyone who unpacks the tarball and runs packaging/build-deb.sh gets, and
# uncommitted changes reach neither file. Run twice on one commit, it writes the
# same three files.
set -eu
cd "$(dirname "$0")/.."

commit=$(git rev-parse --verify HEAD)
version=$(git show "$commit:CMakeLists.txt" |
    sed -n 's/^project(quillmark VERSION \([0-9][0-9.]*\)[ )].*/\1/p')
[ -n "$version" ] || {
    echo "No version in project() of CMakeLists.txt" >&2
    exit 1
}
[ -z "$(git status --porcelain --untracked-files=no)" ] ||
    echo "Note: uncommitted changes are not part of the release of $commit." >&2

umask 022
export LC_ALL=C.UTF-8 TZ=UTC
tarball=quillmark-$version.tar.gz
deb=quillmark_${version}_amd64.deb
rm -rf dist build-rel-source
mkdir dist build-rel-source

# git archive gives every member the commit's time and fixed owners, and here
# fixed modes and line ends whatever the caller's git configuration; gzip -n
# leaves out a name and time of its own.
git -c tar.umask=0022 -c core.autocrlf=false -c core.eol=lf \
    archive --format=tar --prefix="quillmark-$version/" "$commit" | gzip -9n >"dist/$tarball"

tar -xzf "dist/$tarball" -C build-rel-source
build-rel-source/quillmark-$version/packaging/build-deb.sh
cp "build-rel-source/quillmark-$version/build-package/$deb" dist/

(cd dist && sha256sum "$deb" "$tarball" >SHA256SUMS)
echo "Release $version of $commit in dist/:"
cat dist/SHA256SUMS
