#!/bin/sh
# Builds the Debian package <folder>/quillmark_<version>_amd64.deb from a Release
# build with Debian's hardening flags, installing what it needs first. The build
# folder is the argument, build-package when none is given; a folder that was
# configured otherwise before (tests, benchmarks) is set back to a package build.
#
# One commit gives one package, byte for byte, whatever the folder, the time of
# the build, the umask or the locale of the caller.
set -eu
cd "$(dirname "$0")/.."
build=${1:-build-package}

P="qt6-base-dev qt6-5compat-dev cmake ninja-build g++ dpkg-dev file"
S=$([ "$(id -u)" = 0 ] || echo sudo)
dpkg -s $P >/dev/null 2>&1 || {
    $S apt-get update && $S env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $P
}

# Every time in the package is the last commit's. A checkout asks git; in a
# source tarball, git archive has written the time into packaging/source-date.
if [ -z "${SOURCE_DATE_EPOCH:-}" ]; then
    SOURCE_DATE_EPOCH=$(cat packaging/source-date)
    case $SOURCE_DATE_EPOCH in
    '' | *[!0-9]*)
        SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null) || {
            echo "Neither a git checkout nor a tarball of git archive: set SOURCE_DATE_EPOCH." >&2
            exit 1
        }
        ;;
    esac
fi
export SOURCE_DATE_EPOCH
# CMake creates the installed folders, and CPack the parts of the package, with
# the modes the umask leaves; dpkg-buildpackage sets the same umask. The locale
# and the time zone of the caller reach no file either.
umask 022
export LC_ALL=C.UTF-8 TZ=UTC
unset LANGUAGE

# Debian's hardening flags, less -g: the package's binary is stripped, and debug
# information would carry the build folder's path into the build id. dpkg's
# -ffile-prefix-map makes the paths of the sources relative to this folder.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g
CXXFLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)"
LDFLAGS=$(dpkg-buildflags --get LDFLAGS)
# ccache sees the build folder's absolute paths as relative ones, so a second
# build folder of the same sources reuses what the first compiled.
export CCACHE_BASEDIR="$PWD"

cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_FLAGS="$CXXFLAGS" -DCMAKE_EXE_LINKER_FLAGS="$LDFLAGS" \
    -DBUILD_TESTING=OFF -DQUILLMARK_BENCH=OFF -DQUILLMARK_FUZZ=OFF -DQUILLMARK_SANITIZE=OFF
cmake --build "$build" -j2
rm -f "$build"/quillmark_*.deb
(cd "$build" && cpack -G DEB)
