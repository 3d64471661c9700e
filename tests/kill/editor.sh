#!/usr/bin/env bash
# Kills the editor itself after an edit with the mouse, starts it again and answers its question
# with the keyboard. Usage: editor.sh KORVANE KORVANE_CLI EXAMPLES
set -u
cli=$(realpath -e "$2") && house=$(realpath -e "$3/house.kvobject") || exit 1
work=$(mktemp -d)
editor=
trap '[ -n "$editor" ] && kill -9 $editor 2>/dev/null; rm -rf "$work"' EXIT
cp "$1" "$work/korvane" && mkdir "$work/ObjTextures" && cp "$house" "$work/house.kvobject" || exit 1

fail() {
    echo "FAILED: $*"
    ls "$work/ObjCache"
    exit 1
}

await() { # await WHAT COMMAND...: until the command succeeds
    local what=$1
    shift
    for _ in $(seq 300); do
        "$@" >/dev/null 2>&1 && return
        kill -0 $editor 2>/dev/null || fail "the editor ended while waiting for $what"
        sleep 0.1
    done
    fail "waited in vain for $what"
}

window() { xdotool search --name "^$1\$"; }
left() { ls "$work/ObjCache" | grep -q "$1"; }

start() { # start ARGUMENT...: until something of it is on the screen
    "$work/korvane" "$@" &
    editor=$!
}

kill_editor() {
    kill -9 $editor
    wait $editor 2>/dev/null
    editor=
}

draw_box() { # in the Left view, below the house
    eval "$(xdotool getwindowgeometry --shell "$(window 'Korvane - house' | tail -1)" | grep '^[XY]=')"
    xdotool mousemove $((X + 560)) $((Y + 740)) mousedown 1
    for step in 20 40 60; do xdotool mousemove $((X + 560 + step)) $((Y + 740 + step)) sleep 0.1; done
    xdotool mouseup 1
}

brushes() { "$cli" info --json "$work/house.kvobject" | grep -o '"total": *[0-9]*' | head -1 | grep -o '[0-9]*$'; }

before=$(brushes)
start "$work/house.kvobject"
await "the window" window "Korvane - house"
sleep 1
draw_box
await "the edit" window "Korvane - house\*"
await "the idle autosave" left 'kvrecovery\$$'
kill_editor

start
await "the question" window "Notice!"
sleep 0.5
xdotool key Return # Yes
await "the restored scene" window "Korvane - house\*"
sleep 1
xdotool key F2 # Save
await "the save" window "Korvane - house"
[ "$(brushes)" -eq $((before + 1)) ] || fail "$(brushes) brushes are saved, there were $before"
kill_editor

start
await "the window" window "Korvane - New_Object"
sleep 1
window "Notice!" && fail "what was saved is offered again"
kill_editor
echo "The editor was killed, and nothing was lost."
