#!/bin/sh
# Builds the Debian package build-package/quillmark_<version>_amd64.deb from a
# Release build with Debian's hardening flags, installing what it needs first.
set -eu
cd "$(dirname "$0")/.."

P="qt6-base-dev qt6-5compat-dev cmake ninja-build g++ dpkg-dev file"
S=$([ "$(id -u)" = 0 ] || echo sudo)
dpkg -s $P >/dev/null 2>&1 || {
    $S apt-get update && $S env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $P
}

export DEB_BUILD_MAINT_OPTIONS=hardening=+all
CXXFLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)"
LDFLAGS=$(dpkg-buildflags --get LDFLAGS)
export CXXFLAGS LDFLAGS

cmake -S . -B build-package -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF
cmake --build build-package -j2
(cd build-package && cpack -G DEB)
