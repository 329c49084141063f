#!/bin/sh
# Builds the Debian package twice and checks that the two files are the same
# byte for byte, and that lintian, pedantic, has nothing to say about them.
# Prints the package's SHA-256. The first build is this tree's, into
# build-package with umask 022. The second is of a copy of this tree in
# build-package-2, with fresh file times, another path, another build folder
# and umask 077. With ccache the second costs little: the compiler sees the
# same relative paths and arguments as in the first.
set -eu
cd "$(dirname "$0")/.."

P="lintian ccache"
S=$([ "$(id -u)" = 0 ] || echo sudo)
dpkg -s $P >/dev/null 2>&1 || {
    $S apt-get update && $S env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $P
}

start=$(date +%s)
(umask 022 && packaging/build-deb.sh build-package)
middle=$(date +%s)
rm -rf build-package-2
mkdir -p build-package-2/quillmark
tar -cf - --exclude=./.git --exclude='./build*' --exclude=./dist . |
    tar -xmf - -C build-package-2/quillmark
(umask 077 && build-package-2/quillmark/packaging/build-deb.sh build-package)
end=$(date +%s)
echo "First build $((middle - start)) s, second build $((end - middle)) s"

a=$(ls build-package/quillmark_*.deb) b=$(ls build-package-2/quillmark/build-package/quillmark_*.deb)
if ! cmp "$a" "$b"; then
    echo "Two builds of one commit differ: $a and $b" >&2
    for deb in "$a" "$b"; do
        dpkg-deb -c "$deb" >"$deb.contents"
        dpkg-deb -f "$deb" >"$deb.control"
    done
    diff "$a.contents" "$b.contents" >&2 || true
    diff "$a.control" "$b.control" >&2 || true
    exit 1
fi
echo "Two builds give the same package:"
sha256sum "$a"

# Any tag at all, down to the pedantic ones, fails.
report=$(lintian --pedantic --display-info --fail-on error,warning,info,pedantic "$a") || {
    printf '%s\n' "$report" >&2
    exit 1
}
[ -z "$report" ] || {
    printf '%s\n' "$report" >&2
    exit 1
}
echo "lintian --pedantic: nothing to report"
