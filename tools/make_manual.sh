#!/usr/bin/env bash
# Makes the manual's pictures and its generated pages (tutorial, keys, commands) anew from the running
# program; the other pages in help/Korvane are written by hand. Usage: make_manual.sh [BUILD]
# BUILD is a build folder, build/release unless named, which is configured if it is not there.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

need "${build_packages[@]}" "${run_packages[@]}" "${display_packages[@]}" "${manual_packages[@]}"
build=${1:-build/release}
[ -f "$build/CMakeCache.txt" ] || cmake --preset release >/dev/null
cmake --build "$build" --target korvane_make_manual
tools/with_display.sh "$build/bin/korvane_make_manual" .
pngquant --force --strip --speed 1 --ext .png 192 help/Korvane/*.png
du -ch help/Korvane/*.png | tail -n 1
