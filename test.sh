#!/usr/bin/env bash
# Builds and runs every test; those of the windows run inside virtual X servers. Arguments go to
# cmake's configuration. Ends with CTest's summary.
set -eu
cd "$(dirname "$0")"
. tools/setup.sh

need "${build_packages[@]}" "${run_packages[@]}" "${display_packages[@]}" "${test_packages[@]}"
cmake --preset release "$@" >/dev/null
cmake --build --preset release
ctest --preset release --output-on-failure -j "$(nproc)"
