#!/usr/bin/env bash
# try.sh [--pictures <folder>] [<package>]
# Tries the Debian package where nothing of this machine helps it: makes a fresh Debian in a temporary folder, installs the
# package there with apt, runs both programs as an ordinary user, the window on a display of its own, and removes the package
# again. Fails when something does not work or anything stays. Without a package it makes one. Needs root and the network.
set -euo pipefail

pictures=
if [ "${1:-}" = --pictures ]; then
    pictures=$(realpath -m "${2:?names the folder of the pictures}")
    shift 2
fi
if [ $# -gt 1 ] || [[ ${1:-} == -* ]] || [ "$(id -u)" -ne 0 ]; then
    echo "usage (as root): try.sh [--pictures <folder>] [<package>]" >&2
    exit 2
fi
package=${1:-}
[ -z "$package" ] || package=$(realpath "$package")
self=$(realpath "$0")
cd "$(dirname "$self")/../.."
# Mounts of its own, which end with the script, and a display that is not the user's.
if [ -z "${VENTLOCK_TRIED:-}" ]; then
    . scripts/packages.sh
    need_packages mmdebstrap util-linux "${display_packages[@]}"
    [ -n "$package" ] || package=$(packaging/linux/package.sh | tail -n 1)
    export VENTLOCK_TRIED=$package VENTLOCK_PICTURES=$pictures
    exec tests/support/display/with_display.sh unshare --mount --pid --fork --kill-child --mount-proc "$self" "$package"
fi
pictures=$VENTLOCK_PICTURES

work=$(mktemp -d "${TMPDIR:-/tmp}/ventlock-debian.XXXXXX")
root=$work/root
program=
leave() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    umount --recursive "$root/proc" "$root/dev" 2>/dev/null || true
    rm -rf --one-file-system "$work"
}
trap leave EXIT

say() {
    echo "== $1"
}

fail() {
    echo "try.sh: $1" >&2
    exit 1
}

# within <command>...: in the fresh Debian, as root. as_user: as its ordinary user.
within() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}
as_user() {
    chroot --userspec=ada:ada "$root" env -i --chdir=/home/ada PATH=/usr/bin:/bin HOME=/home/ada LC_ALL=C.UTF-8 \
        DISPLAY="$DISPLAY" GDK_BACKEND=x11 NO_AT_BRIDGE=1 "$@"
}

# files: all of them but what apt and dpkg keep about packages, and those of users.
files() {
    (cd "$root" && find . -xdev \( -path ./home -o -path ./root -o -path ./tmp -o -path ./var/cache -o -path ./var/log -o -path ./var/lib/apt \
        -o -path ./var/lib/dpkg -o -path ./dev -o -path ./proc \) -prune -o -printf '%y %m %U:%G %P %l\n' | sort)
}

say "A fresh Debian"
. /etc/os-release
mmdebstrap --quiet --variant=apt --include=adduser "$VERSION_CODENAME" "$root"
mount --rbind /dev "$root/dev"
mount -t proc proc "$root/proc"
cp /etc/resolv.conf "$root/etc/resolv.conf"
within adduser --quiet --disabled-password --gecos Ada ada
cp "$package" "$root/tmp/ventlock.deb"

say "What it depends on, then the package"
within apt-get -qq update
within apt-get -qq -y satisfy "$(dpkg-deb --field "$package" Depends), $(dpkg-deb --field "$package" Recommends)" \
    >"$work/log" 2>&1 || fail "$(tail -n 20 "$work/log")"
files >"$work/before"
within apt-get -qq -y install /tmp/ventlock.deb >"$work/log" 2>&1 || fail "$(tail -n 20 "$work/log")"
grep -E '^(W|E):|warning' "$work/log" || true
files >"$work/installed"
echo "$(comm -13 "$work/before" "$work/installed" | wc -l) files, folders and links are new"
[ -z "$(comm -23 "$work/before" "$work/installed")" ] || fail "other files were changed: $(comm -23 "$work/before" "$work/installed")"

say "The command line, as an ordinary user"
as_user ventlock-cli --version
as_user ventlock-cli database create --file /home/ada/pyx.db --dsn PYX
as_user cp /usr/share/doc/ventlock/examples/Pyx.ini .
as_user ventlock-cli settings set INIPath /home/ada/Pyx.ini
as_user ventlock-cli register /usr/share/doc/ventlock/examples/flow-transmitter.ini --all --ddinstall-path Ddinstal.ini
as_user ventlock-cli database list devices
if as_user ventlock-cli database info --dsn Nowhere 2>/dev/null; then fail "a data source that is not there was found"; fi
echo "The log in the user's state folder:"
cat "$root/home/ada/.local/state/ventlock/Ventlock.log"

say "The same error met by root"
if within ventlock-cli database info --dsn Nowhere 2>/dev/null; then fail "a data source that is not there was found"; fi
within sh -c 'test -s ~/.local/state/ventlock/Ventlock.log' || fail "root has no log"

say "The window, as an ordinary user"
as_user ventlock &
program=$!
window=$(timeout 60 xdotool search --sync --onlyvisible --name '^Ventlock$' | head -n 1) || fail "no window came"
xdotool windowactivate --sync "$window"
if [ -n "$pictures" ]; then
    mkdir -p "$pictures"
    xdotool key F1
    timeout 60 bash -c 'until [ "$(xdotool search --onlyvisible --class ventlock | wc -l)" -ge 2 ]; do :; done' ||
        fail "no help came"
    import -window root "$pictures/window-and-help.png"
    echo "$pictures/window-and-help.png"
    xdotool key Escape
    xdotool windowactivate --sync "$window"
fi
xdotool key alt+F4
wait $program || fail "the window ended with $?"
find "$root/home/ada" -newer "$root/tmp/ventlock.deb" -type f -printf '/home/ada/%P\n' | sort

say "Removed again"
within apt-get -qq -y purge ventlock >"$work/log" 2>&1 || fail "$(tail -n 20 "$work/log")"
grep -E '^(W|E):|warning' "$work/log" || true
files >"$work/after"
diff -u "$work/before" "$work/after" || fail "not everything is as it was"
echo "Nothing of the package stays; what users have in their folders does."
