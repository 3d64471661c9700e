#!/usr/bin/env bash
# Runs a command in a fresh X server (Xvfb) with a small window manager, so that focus, stacking and
# OpenGL behave as on a desktop. Usage: with_display.sh COMMAND [ARGUMENT...]
# KORVANE_SCREEN sets the screen (default 1920x1200x24).
set -u
scratch=$(mktemp -d)
server= manager=
finish() {
    [ -n "$manager" ] && kill "$manager" 2>/dev/null
    [ -n "$server" ] && kill "$server" 2>/dev/null && wait "$server" 2>/dev/null
    rm -rf "$scratch"
}
trap finish EXIT

# The server picks a free display by itself and tells which: safe with several at once.
Xvfb -displayfd 3 -screen 0 "${KORVANE_SCREEN:-1920x1200x24}" -nolisten tcp \
    3>"$scratch/display" >"$scratch/log" 2>&1 &
server=$!
for _ in $(seq 200); do
    [ -s "$scratch/display" ] && break
    kill -0 "$server" 2>/dev/null || { cat "$scratch/log" >&2; echo "Xvfb did not start" >&2; exit 1; }
    sleep 0.05
done
[ -s "$scratch/display" ] || { echo "Xvfb gave no display" >&2; exit 1; }
DISPLAY=:$(cat "$scratch/display")
export DISPLAY QT_QPA_PLATFORM=xcb LIBGL_ALWAYS_SOFTWARE=1
unset WAYLAND_DISPLAY XDG_CURRENT_DESKTOP QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE
if command -v openbox >/dev/null; then
    echo '<openbox_config xmlns="http://openbox.org/3.4/rc"/>' >"$scratch/openbox.xml"
    openbox --config-file "$scratch/openbox.xml" --startup "touch $scratch/managed" \
        >/dev/null 2>&1 &
    manager=$!
    # A window mapped while the manager takes over may never get its first expose event.
    for _ in $(seq 200); do
        [ -e "$scratch/managed" ] && break
        kill -0 "$manager" 2>/dev/null || break
        sleep 0.05
    done
fi
"$@"
