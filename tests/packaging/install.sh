#!/usr/bin/env bash
# Installs a build into an empty folder and uses it as a user would: all files are there, the programs
# find what they brought along, write nothing beside it, and the desktop's own tools understand what
# is meant for them. Usage: install.sh BUILD SOURCE
set -u
build=$(realpath -e "$1") && source=$(realpath -e "$2") || exit 1
export ASAN_OPTIONS=detect_leaks=0:${ASAN_OPTIONS:-} # the drivers of OpenGL leak a little
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home
unset XDG_DATA_HOME XDG_CONFIG_HOME
mkdir "$HOME"
usr=$work/usr
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
says_nothing() { # says_nothing COMMAND...: prints nothing at all
    local said
    said=$("$@" 2>&1) || fail "$*: exit status $?"
    [ -z "$said" ] || fail "$*: $said"
}
have() { command -v "$1" >/dev/null || { echo "skipped: there is no $1" && false; }; }

DESTDIR=$work cmake --install "$build" --prefix /usr >"$work/log" || { cat "$work/log"; exit 1; }

# --- what is there
cd "$usr" || exit 1
{
    echo bin/korvane bin/korvane-cli share/doc/korvane/{copyright,NEWS.md.gz,changelog.gz}
    echo share/man/man1/korvane{,-cli}.1.gz share/metainfo/org.korvane.Korvane.metainfo.xml
    echo share/applications/org.korvane.Korvane.desktop share/mime/packages/org.korvane.Korvane.xml
    echo share/thumbnailers/org.korvane.Korvane.thumbnailer
    for size in 16x16 32x32 48x48 64x64 128x128 256x256 scalable; do
        ending=png
        [ $size = scalable ] && ending=svg
        echo share/icons/hicolor/$size/{apps/org.korvane.Korvane,mimetypes/application-x-korvane-object}.$ending
    done
    (cd "$source/examples" && printf 'share/korvane/%s\n' ObjTextures/*)
    (cd "$source/examples" && printf 'share/korvane/examples/%s\n' *.kvobject templates/*.kvcode)
    (cd "$source/help" && find . -type f -printf 'share/korvane/Help/%P\n')
} | tr ' ' '\n' | sort >"$work/expected"
find . -type f -printf '%P\n' | sort >"$work/there"
difference=$(diff "$work/expected" "$work/there") || fail "installed files: $difference"

if have dpkg-deb && have dpkg-shlibdeps; then
    cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/deb" >"$work/log" 2>&1 || fail "$(cat "$work/log")"
    dpkg-deb --fsys-tarfile "$work"/deb/*.deb | tar -t | sed -n 's:^\./usr/\(.*[^/]\)$:\1:p' | sort >"$work/packed"
    says_nothing diff "$work/there" "$work/packed"
    depends=$(dpkg-deb -f "$work"/deb/*.deb Depends)
    for package in libc6 libqt6widgets6 libqt6svg6 libgl1-mesa-dri; do
        [[ ", $depends" == *", $package"* ]] || fail "the package does not depend on $package: $depends"
    done
fi

# --- the programs, with the data they brought along
cli=$usr/bin/korvane-cli example=$usr/share/korvane/examples/house.kvobject
cd "$work" || exit 1
says_nothing "$cli" render "$example" -o shipped.png --size 200x150
says_nothing "$cli" render "$example" -o same.png --size 200x150 --textures "$source/examples/ObjTextures"
says_nothing "$cli" render "$example" -o plain.png --size 200x150 --textures "$HOME"
cmp -s shipped.png same.png || fail "render: not with the shipped textures"
cmp -s shipped.png plain.png && fail "render: textures make no difference"
version=$("$cli" --version | cut -d' ' -f2)
grep -q "VERSION $version " "$source/CMakeLists.txt" || fail "another version: $version"
[ "$("$usr/bin/korvane" --version)" = "korvane $version" ] || fail "korvane --version"

data=$HOME/.local/share/korvane
"$source/tools/with_display.sh" bash -c '
    "$1" "$2" & editor=$!
    for _ in $(seq 600); do grep -qs ALL_SYSTEMS_GO "$3" && break; sleep 0.1; done
    kill $editor' - "$usr/bin/korvane" "$example" "$data/Korvane.log"
grep -qs ALL_SYSTEMS_GO "$data/Korvane.log" || fail "the installed editor did not come up"
loaded=$(grep -c 'LOAD_Texture: .* Loaded' "$data/Korvane.log")
[ "$loaded" -eq "$(ls "$source/examples/ObjTextures" | wc -l)" ] || fail "loaded $loaded textures"
says_nothing diff "$work/there" <(cd "$usr" && find . -type f -printf '%P\n' | sort)

# --- man pages: well-formed, and with every option
for page in korvane korvane-cli; do
    gzip -dc "$usr/share/man/man1/$page.1.gz" >$page.1
    have man && says_nothing bash -c "man --warnings -E UTF-8 -l -Tutf8 -Z $page.1 >/dev/null"
done
subcommands=$("$cli" --help | sed -n '/^Subcommands/,/^$/s/^  \([a-z]\+\) .*/\1/p')
[ -n "$subcommands" ] || fail "--help lists no sub-commands"
for command in $subcommands; do
    grep -q "^\.B $command$" korvane-cli.1 || fail "korvane-cli.1 lacks $command"
    for option in $("$cli" "$command" --help | grep -oE '^  (-[a-z],)?--[a-z-]+' | grep -oE -- '--.*'); do
        sed 's/\\-/-/g' korvane-cli.1 | grep -q -- "$option\b" || fail "korvane-cli.1 lacks $option"
        grep -q -- "$option\b" "$usr/share/korvane/Help/Korvane/cli.htm" || fail "cli.htm lacks $option"
    done
done

# --- the desktop
have desktop-file-validate && says_nothing desktop-file-validate "$usr"/share/applications/*.desktop
have appstreamcli && { appstreamcli validate --no-net "$usr"/share/metainfo/*.xml >said || fail "$(cat said)"; }
if have update-mime-database; then
    says_nothing env XDG_DATA_DIRS="$usr/share" update-mime-database "$usr/share/mime"
    grep -q ':application/x-korvane-object:\*.kvobject' "$usr/share/mime/globs2" || fail "no file type"
fi
thumbnail=$(sed -n 's/^Exec=//p' "$usr"/share/thumbnailers/*)
cp "$example" "a house.kvobject"
thumbnail=${thumbnail//%i/\'a house.kvobject\'} thumbnail=${thumbnail//%o/thumbnail} thumbnail=${thumbnail//%s/128}
PATH=$usr/bin:$PATH says_nothing bash -c "$thumbnail"
[ "$(head -c 4 thumbnail | tail -c 3)" = PNG ] || fail "no thumbnail"

[ $failures -eq 0 ] && echo "The installation is as it should be."
exit $((failures > 0))
