#!/usr/bin/env bash
# Runs every sub-command of korvane-cli on good and bad input, without a display, and checks exit
# status, messages and what is left on the disk. Usage: commands.sh KORVANE_CLI EXAMPLES
set -u
cli=$(realpath -e "$1") && examples=$(realpath -e "$2") || exit 1
golden=$(realpath -e "$(dirname "$0")/../golden") || exit 1
unset DISPLAY WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb # must not matter
# The drivers of OpenGL leak a little of their own.
export ASAN_OPTIONS=detect_leaks=0:${ASAN_OPTIONS:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
mkdir out none
cp "$examples/house.kvobject" "$examples/castle_tower.kvobject" .
cp "$golden/scene.kvobject" two.kvobject
head -c 5000 house.kvobject >cut.kvobject
: >empty.kvobject
mkdir folder.kvobject
printf 'CODE\5\0\0\0head\n\21\0\0\0%%TextureName%%;%%d\n\5\0\0\0foot\n' >names.kvcode
printf 'EDOC' >bad.kvcode
failures=0

fail() {
    echo "FAILED: $*"
    sed 's/^/    stdout: /' stdout
    sed 's/^/    stderr: /' stderr
    failures=$((failures + 1))
}

# run STATUS ARGUMENT...: runs the program and checks how it ends.
run() {
    local expected=$1 status
    shift
    args="$*"
    "$cli" "$@" >stdout 2>stderr </dev/null
    status=$?
    [ $status -eq "$expected" ] || fail "$args: exit status $status, expected $expected"
}

good() { # nothing on standard error
    run 0 "$@"
    [ ! -s stderr ] || fail "$args: standard error is not empty"
}

bad() { # bad MESSAGE ARGUMENT...: exactly this line on standard error, nothing else anywhere
    local message=$1
    shift
    run 1 "$@"
    [ "$(cat stderr)" = "$message" ] || fail "$args: expected the line: $message"
    [ ! -s stdout ] || fail "$args: standard output is not empty"
    nothing_left
}

wrong() { # wrong TEXT ARGUMENT...: wrong usage that is explained with this text
    local text=$1
    shift
    run 2 "$@"
    grep -qF -- "$text" stderr || fail "$args: expected to be told: $text"
    [ ! -s stdout ] || fail "$args: standard output is not empty"
    nothing_left
}

nothing_left() {
    [ -z "$(ls -A out)" ] || { fail "$args: left $(ls -A out)"; rm -rf out/* out/.[!.]*; }
}

says() { grep -qF -- "$1" stdout || fail "$args: expected on standard output: $1"; }

json() { # json EXPRESSION: holds of the array d that was printed
    python3 -c "import json,sys; d=json.load(open('stdout')); sys.exit(not ($1))" 2>/dev/null ||
        fail "$args: not true: $1"
}

# --- help and usage
for command in info convert export render optimize; do
    good --help
    says "  $command "
    good $command --help
    says "Usage: korvane-cli $command"
    wrong "is required" $command
done
wrong "A subcommand is required"
wrong "nonsense" nonsense
wrong "--nonsense" info house.kvobject --nonsense
wrong "does not end in .kvobject" convert house.kvobject -o out/x.3ds
wrong "does not end in .3ds or .obj or .glb or .txt" export house.kvobject -o out/x.mtl
wrong "only goes with an output that ends in .txt" export house.kvobject -o out/x.3ds --template a
wrong "does not end in .png" render house.kvobject -o out/x.jpg
for size in 800x 0x600 800x-1 8193x600 800.5x600 800x600x3 nanx1; do
    wrong "is no size like" render house.kvobject -o out/x.png --size $size
done
for camera in 0,3,5,-30 0,3,5,-30,0,0 0,3,5,-30,x 0,3,5,-30,nan 0,3,5,-30,1e99 0,,5,-30,0; do
    wrong "is no camera like" render house.kvobject -o out/x.png --camera $camera
done
wrong "--size excludes --thumbnail" render house.kvobject -o out/x.png --size 1x1 --thumbnail 64
for side in 0 -1 8193 64x64; do
    wrong "--thumbnail" render house.kvobject -o out/x --thumbnail $side
done
wrong "--view" render house.kvobject -o out/x.png --view back
wrong "only goes with --view 3d" render house.kvobject -o out/x.png --view top --camera 0,3,5,-30,0
wrong "--detail" optimize house.kvobject -o out/x.kvobject --detail 5
wrong "excludes" optimize house.kvobject -o out/x.kvobject --exact --detail 1
wrong "absent: No such file or directory" info house.kvobject --textures absent
wrong "bad.kvcode: Not a directory" info house.kvobject --textures bad.kvcode

# --- bad files
invalid="Error: Invalid Korvane File Format!"
for use in info "convert house.kvobject -o out/x.kvobject" "export -o out/x.3ds" \
    "optimize -o out/x.kvobject" "render -o out/x.png"; do
    for file in cut empty; do bad "$file.kvobject: $invalid" $use $file.kvobject; done
done
bad "absent.kvobject: $invalid (No such file or directory)" info absent.kvobject
bad "one?line: $invalid (No such file or directory)" info $'one\nline'
bad "folder.kvobject: $invalid (Is a directory)" convert folder.kvobject -o out/x.kvobject
bad "bad.kvcode: Error: Invalid Source Code Template File!" \
    export house.kvobject -o out/x.txt --template bad.kvcode
bad "absent: Error: Unable to load file! (No such file or directory)" \
    export house.kvobject -o out/x.txt --template absent

# --- files that can't be written
save="Error: Unable to save file!"
bad "no/x.kvobject: $save" optimize house.kvobject -o no/x.kvobject --exact
for output in x.kvobject x.3ds x.obj x.glb x.txt x.png; do
    case $output in
    *.kvobject) command=convert ;;
    *.png) command=render ;;
    *) command=export ;;
    esac
    bad "no/$output: $save" $command house.kvobject -o no/$output
    echo old >out/$output
    run 1 $command cut.kvobject -o out/$output
    [ "$(cat out/$output)" = old ] || fail "$args: touched the old file"
    good $command house.kvobject -o out/$output
    [ "$(cat out/$output | head -c 3)" != old ] || fail "$args: kept the old file"
    [ ! -s stdout ] || fail "$args: standard output is not empty"
    [ $output = x.obj ] && rm out/x.mtl out/*.{jpg,jpeg,gif,bmp,tga} # the textures beside it
    rm out/$output
    nothing_left
done
if [ -c /dev/full ]; then
    "$cli" info house.kvobject >/dev/full 2>stderr && fail "info: a full disk went unnoticed"
fi

# --- info
good info house.kvobject castle_tower.kvobject
says "  Brushes:        121 total, 109 box, 9 cone, 3 sphere"
good info --json house.kvobject castle_tower.kvobject
json "list(d[0]) == ['file', 'brushes', 'faces', 'vertices', 'polygons', 'textures', 'bounds', 'groups']"
json "d[0]['brushes'] == {'total': 121, 'box': 109, 'cone': 9, 'sphere': 3}"
json "d[0]['faces']['total'] == 1049 and d[0]['vertices'] == 2475 and d[0]['polygons']['visible'] == 2198"
json "d[0]['textures']['used'] == 13 == len(d[0]['textures']['names']) and d[0]['textures']['total'] == 18"
json "d[0]['bounds'] == {'min': [-3.4, -0.1, -3.5], 'max': [3.4, 2.03, 2.7]}"
json "d[0]['groups'][:2] == ['Garden', 'House']"
run 1 info --json cut.kvobject house.kvobject
[ "$(cat stderr)" = "cut.kvobject: $invalid" ] || fail "$args: another message"
json "[x['file'] for x in d] == ['house.kvobject']"

# --- texture names outlive a folder without textures
good info --json house.kvobject --textures none
json "d[0]['textures']['used'] == 13 == len(d[0]['textures']['names']) and d[0]['textures']['total'] == 1"
good convert house.kvobject -o out/same.kvobject --textures none
cmp -s house.kvobject out/same.kvobject || fail "convert: changed an object that is up to date"
good convert castle_tower.kvobject house.kvobject -o out/both.kvobject
good info --json out/both.kvobject castle_tower.kvobject house.kvobject
json "d[0]['vertices'] == d[1]['vertices'] + d[2]['vertices']"
json "d[0]['groups'] == d[1]['groups'] + d[2]['groups']"
json "set(d[0]['textures']['names']) == set(d[1]['textures']['names'] + d[2]['textures']['names'])"
good convert house.kvobject house.kvobject -o house.kvobject
good info --json house.kvobject
json "d[0]['brushes']['total'] == 242 and d[0]['textures']['used'] == 13"
cp "$examples/house.kvobject" house.kvobject

# --- export
good export house.kvobject -o out/house.3DS --textures none
[ "$(head -c 2 out/house.3DS)" = MM ] || fail "$args: no 3DStudio file"
grep -qaF Roof_Tiles.gif out/house.3DS || fail "$args: lost a texture name"
good export house.kvobject -o out/house.obj --textures none
good export house.kvobject -o out/house.OBJ
[ -f out/house.mtl ] && [ "$(grep -c '^map_Kd' out/house.mtl)" -eq 13 ] || fail "$args: no materials"
cmp -s out/house.obj out/house.OBJ || fail "$args: textures change the mesh"
cmp -s out/Roof_Tiles.gif "$(dirname "$cli")/ObjTextures/Roof_Tiles.gif" || fail "$args: no textures"
good export house.kvobject -o out/house.glb
good export house.kvobject -o out/bare.glb --textures none
[ "$(stat -c %s out/house.glb)" -gt "$(stat -c %s out/bare.glb)" ] || fail "$args: no textures"
good export house.kvobject -o out/b.txt
[ "$(grep -c 'glVertex3f(.*);' out/b.txt)" -eq $((3 * 2198)) ] || fail "$args: wrong number of corners"
good export house.kvobject -o out/a.txt --template a
grep -q 'glVertex3f -\?[0-9.]*, ' out/a.txt || fail "$args: not template a"
good export house.kvobject -o out/names.txt --template names.kvcode --textures none
[ "$(grep -o '^[^;]*;' out/names.txt | sort -u | wc -l)" -eq 13 ] || fail "$args: lost texture names"
grep -q '^Brick.jpg;%d' out/names.txt || fail "$args: not the given template"

# --- optimize
good optimize castle_tower.kvobject -o out/low.kvobject --detail 4
good optimize two.kvobject -o out/fast.kvobject
says "0 polygons hidden, 4 polygons made visible again"
good optimize two.kvobject -o out/driver.kvobject --reference
cmp -s out/fast.kvobject out/driver.kvobject || fail "optimize: the engines differ"
cmp -s two.kvobject out/driver.kvobject && fail "$args: changed nothing"
good optimize castle_tower.kvobject -o out/less.kvobject --detail 4 --no-z-axis-pass --no-polar-passes
cmp -s out/low.kvobject out/less.kvobject && fail "optimize: the passes change nothing"
good optimize castle_tower.kvobject -o out/high.kvobject --json
json "list(d) == ['file', 'brushes', 'hiddenPolygons', 'shownPolygons']"
json "d['file'] == 'out/high.kvobject' and d['hiddenPolygons'] > 0 == d['shownPolygons']"
good optimize out/high.kvobject -o out/exact.kvobject --exact --json
json "d['shownPolygons'] > 0"
good info --json castle_tower.kvobject out/high.kvobject out/exact.kvobject
json "0 == d[0]['faces']['invisible'] < d[2]['faces']['invisible'] < d[1]['faces']['invisible']"

# A long run on a terminal tells how far it is; broken off, it leaves nothing.
mkdir broken
python3 - "$cli" >stdout 2>stderr <<'EOF' || fail "optimize: no progress on a terminal"
import os, pty, select, signal, sys
pid, terminal = pty.fork()
if pid == 0:
    os.execv(sys.argv[1], [sys.argv[1], "optimize", "castle_tower.kvobject", "--reference",
                           "-o", "broken/x.kvobject"])
shown = b""
while b"Optimizing Brush: 1 of 164   Elapsed: 0:" not in shown:
    if not select.select([terminal], [], [], 60)[0]:
        break
    shown += os.read(terminal, 1000)
os.kill(pid, signal.SIGTERM)
os.waitpid(pid, 0)
sys.exit(b"Elapsed" not in shown)
EOF
[ -z "$(ls -A broken)" ] || fail "optimize: a broken run left $(ls -A broken)"

# --- render
picture() { # picture WIDTH HEIGHT ARGUMENT...
    local size="$1, $2"
    shift 2
    good render house.kvobject -o out/picture.png "$@"
    python3 -c "import struct,sys; sys.exit(struct.unpack('>II', open('out/picture.png','rb').read()[16:24]) != ($size))" ||
        fail "$args: not $size pixels"
    cp out/picture.png "out/last$((shots += 1)).png"
}
shots=0
picture 800 600
picture 320 200 --size 320x200 --view 3D
picture 1 1 --size 1x1
for view in top left front; do picture 300 200 --size 300x200 --view $view; done
picture 320 200 --size 320x200 --camera -4,3,5,-30,-30
picture 320 200 --size 320x200 --textures none
picture 128 128 --thumbnail 128
good render house.kvobject -o out/nameless --thumbnail 128
cmp -s out/nameless out/last9.png || fail "$args: not the same thumbnail"
[ "$(cksum out/last*.png | cut -d' ' -f1 | sort -u | wc -l)" -eq 9 ] ||
    fail "render: different options give the same picture"

[ $failures -eq 0 ] && echo "All commands are as they should be."
exit $((failures > 0))
