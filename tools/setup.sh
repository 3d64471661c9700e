# Sourced by run.sh and test.sh: installs what is missing of the packages they name. Debian and its
# children only; elsewhere the packages have to be there already.

# need PACKAGE...: installs those of the Debian packages that are not there yet.
need() {
    command -v dpkg-query >/dev/null || return 0
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Please install: ${missing[*]}" >&2; return 1; }
        root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
        "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
            --no-install-recommends "${missing[@]}" >/dev/null
}

# CLI11 and nlohmann-json are for korvane-cli, assimp and tinygltf for the export to other formats;
# lib3ds and tinyobjloader, which read what is exported, are for tests and benchmarks only.
build_packages=(g++ cmake ninja-build qt6-base-dev libqt6opengl6-dev qt6-svg-dev libgl-dev libegl-dev
    libglu1-mesa-dev libcli11-dev nlohmann-json3-dev libgtest-dev libgmock-dev libbenchmark-dev
    libassimp-dev zlib1g-dev lib3ds-dev libtinygltf-dev libtinyobjloader-dev)
run_packages=(libgl1-mesa-dri libegl-mesa0 fonts-dejavu-core)
display_packages=(xvfb openbox xdotool)
# What the tests run on exported source code, beside g++, and on an installation.
test_packages=(nodejs libjs-three python3 man-db desktop-file-utils shared-mime-info)
# tools/make_manual.sh: pictures with 192 colours take a third of the room.
manual_packages=(pngquant)
# fuzz/run.sh: clang, its sanitizers and libFuzzer, and what names the lines of a report.
fuzz_packages=(clang libclang-rt-dev llvm cmake ninja-build)
