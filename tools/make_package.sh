#!/usr/bin/env bash
# Builds the Debian package and says where it is: build/package/korvane_VERSION_ARCHITECTURE.deb.
# Arguments go to cmake's configuration, as -DKORVANE_MAINTAINER="Name <address>".
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

need "${build_packages[@]}" dpkg-dev gzip
# Debian's flags of a hardened build, without debugging information, which would be stripped again.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g
cmake --preset package -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)" \
    -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)" "$@" >/dev/null
cmake --build --preset package
rm -f build/package/*.deb
(cd build/package && cpack -G DEB >cpack.log) || { cat build/package/cpack.log >&2; exit 1; }
ls build/package/*.deb
