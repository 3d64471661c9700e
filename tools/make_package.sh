#!/usr/bin/env bash
# Builds the Debian package and says where it is: build/package/korvane_VERSION_ARCHITECTURE.deb.
# Arguments go to cmake's configuration, as -DKORVANE_MAINTAINER="Name <address>".
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

need "${build_packages[@]}" dpkg-dev gzip
cmake --preset package "$@" >/dev/null
cmake --build --preset package
rm -f build/package/*.deb
(cd build/package && cpack -G DEB >cpack.log) || { cat build/package/cpack.log >&2; exit 1; }
ls build/package/*.deb
