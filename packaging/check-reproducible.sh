#!/bin/sh
# Builds the Debian package twice from this tree, into two build folders and with
# two umasks, and checks that the two files are the same byte for byte and that
# lintian, pedantic, has nothing to say about them. Prints the package's SHA-256.
# Arguments: the two build folders, build-package and build-package-2 by default.
# The second folder is built afresh; with ccache it costs little, as the first
# build compiled the same sources with the same arguments.
set -eu
cd "$(dirname "$0")/.."
first=${1:-build-package} second=${2:-build-package-2}

P="lintian"
S=$([ "$(id -u)" = 0 ] || echo sudo)
dpkg -s $P >/dev/null 2>&1 || {
    $S apt-get update && $S env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $P
}

(umask 022 && packaging/build-deb.sh "$first")
rm -rf "$second"
(umask 077 && packaging/build-deb.sh "$second")

a=$(ls "$first"/quillmark_*.deb) b=$(ls "$second"/quillmark_*.deb)
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
report=$(lintian --pedantic --fail-on error,warning,info,pedantic "$a") || {
    printf '%s\n' "$report" >&2
    exit 1
}
[ -z "$report" ] || {
    printf '%s\n' "$report" >&2
    exit 1
}
echo "lintian --pedantic: nothing to report"
