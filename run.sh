#!/usr/bin/env bash
# Builds the editor and starts it with a sample object, or with the object file named as argument.
# Without a display it starts inside a virtual one, takes a picture of the window and says where.
set -eu
object=${1:-}
case $object in '' | /*) ;; *) object=$PWD/$object ;; esac # the name counts from this folder
cd "$(dirname "$0")"
. tools/setup.sh

need "${build_packages[@]}" "${run_packages[@]}"
cmake --preset release >/dev/null
cmake --build --preset release --target korvane
program=build/release/bin/korvane
object=${object:-build/release/bin/examples/house.kvobject}

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || [ "$(uname)" != Linux ]; then
    exec "$program" "$object"
fi

need "${display_packages[@]}" imagemagick
mkdir -p screenshots
picture=$PWD/screenshots/korvane.png
echo "There is no display: starting inside a virtual one."
KORVANE_SCREEN=1280x1024x24 tools/with_display.sh tools/picture.sh "$picture" "$program" "$object"
echo "A picture of the window is in $picture"
