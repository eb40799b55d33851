#!/usr/bin/env bash
# libraries.sh [--folder] <x86_64|i686>
# Builds what the Windows programs and their tests are linked with, for one word size, and prints the folder it is in:
# wxWidgets, pugixml and GoogleTest as static libraries from Debian's own source, the header-only libraries from their
# packages.
# The folder is in the user's cache and named after the versions and the options, so that nothing is built twice and
# nothing old is used. --folder: only prints the folder, there or not.
set -euo pipefail

usage() {
    echo "usage: libraries.sh [--folder] <x86_64|i686>" >&2
    exit 2
}

only_folder=no
if [ "${1:-}" = --folder ]; then
    only_folder=yes
    shift
fi
case ${1:-} in
    x86_64 | i686) target=$1-w64-mingw32 ;;
    *) usage ;;
esac

# Only what the window uses: without pictures in PNG and SVG, and with the help window's own old-style icons.
wx_options=(
    --with-msw --disable-shared --enable-unicode --enable-accessibility
    --disable-debug --disable-debug_info --disable-tests --without-subdirs
    --disable-dependency-tracking --disable-precomp-headers
    --with-zlib=sys --with-regex=builtin --with-expat=no --with-libpng=no --with-libjpeg=no --with-libtiff=no
    --disable-svg --disable-arttango --disable-xrc --disable-aui --disable-propgrid --disable-ribbon --disable-stc
    --disable-richtext --disable-grid --disable-mediactrl --disable-webview --disable-webrequest --disable-protocol
    --disable-protocols --disable-sockets --disable-ipc --disable-sound --disable-joystick --disable-debugreport
    --disable-dbghelp --disable-dialupman --disable-secretstore
)
header_packages=(libcli11-dev nlohmann-json3-dev libdtl-dev)

version_of() {
    dpkg-query -W -f '${source:Version}' "$1"
}
wx_version=$(version_of libwxgtk3.2-dev)
pugixml_version=$(version_of libpugixml-dev)
key=$({
    echo "$wx_version ${wx_options[*]}"
    echo "$pugixml_version"
    "$target-g++-posix" --version | head -n 1
    dpkg-query -W -f '${Version} ' googletest "${header_packages[@]}" libz-mingw-w64-dev
} | sha256sum | cut -c1-12)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/ventlock/windows
folder=$cache/$1-$key
if [ $only_folder = yes ] || [ -e "$folder/complete" ]; then
    echo "$folder"
    exit
fi

mkdir -p "$cache"
exec 9>"$cache/lock"
flock 9
if [ -e "$folder/complete" ]; then
    echo "$folder"
    exit
fi
rm -rf "$folder"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# run <command>...: shows the end of its output only when it fails.
run() {
    "$@" >"$work/log" 2>&1 && return
    tail -n 40 "$work/log" >&2
    echo "libraries.sh: this failed: $*" >&2
    exit 1
}

# fetch_source <package>=<version>...
# The package lists of the machine name programs, not sources; lists of our own name those and leave the machine's alone.
fetch_source() {
    local lists=$work/apt
    mkdir -p "$lists"/{lists/partial,parts}
    local file
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -e "$file" ] && sed 's/^Types:.*/Types: deb-src/' "$file" >"$lists/parts/$(basename "$file")"
    done
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -e "$file" ] && sed -n 's/^deb /deb-src /p' "$file" >"$lists/parts/$(basename "$file" .list).list"
    done
    local options=(-o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$lists/parts"
        -o Dir::State::Lists="$lists/lists" -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache=)
    run apt-get "${options[@]}" update
    (cd "$work" && run apt-get "${options[@]}" source "$@")
}

echo "Building wxWidgets $wx_version for $target" >&2
fetch_source "wxwidgets3.2=$wx_version" "pugixml=$pugixml_version"
mkdir "$work/wx"
(
    cd "$work/wx"
    run "$work"/wxwidgets3.2-*/configure --host="$target" --prefix="$folder" "${wx_options[@]}" \
        CC="$target-gcc-posix" CXX="$target-g++-posix" CFLAGS=-O2 \
        CXXFLAGS="-O2 -std=gnu++20 -ffile-prefix-map=$work=."
    run make -j"$(nproc)"
    run make install
)

# build_with_cmake <name> <source folder>
build_with_cmake() {
    echo "Building $1 for $target" >&2
    run cmake -G Ninja -S "$2" -B "$work/$1" -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_COMPILER="$target-gcc-posix" -DCMAKE_CXX_COMPILER="$target-g++-posix" \
        -DCMAKE_INSTALL_PREFIX="$folder"
    run cmake --build "$work/$1"
    run cmake --install "$work/$1"
}
build_with_cmake pugixml "$work"/pugixml-*
build_with_cmake googletest /usr/src/googletest

# Copied, because /usr/include is this machine's own and no place for a cross compiler to look into.
dpkg -L "${header_packages[@]}" | grep -E '^/usr/(include|share/cmake)/' | while read -r path; do
    [ -d "$path" ] || install -D -m 644 "$path" "$folder/${path#/usr/}"
done

touch "$folder/complete"
echo "$folder"
