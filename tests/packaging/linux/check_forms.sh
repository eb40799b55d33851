#!/usr/bin/env bash
# check_forms.sh <package>
# Fails, telling every breach, when a tool that knows how the files of a package are to look has anything to say.
set -euo pipefail
package=$(realpath "$1")
cd "$(dirname "$0")"
. ../expect.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8
mkdir "$work/tree"
dpkg-deb --extract "$package" "$work/tree"
share=$work/tree/usr/share

for entry in "$share"/applications/*; do
    expect "$entry" "" "$(desktop-file-validate "$entry" 2>&1)"
done
# Its hint is about the name, whose last part is no domain of the network.
expect "software catalogue" "" "$(appstreamcli validate --no-net --no-color "$share"/metainfo/* 2>&1 |
    grep -E '^(E|W|I):|failed' | grep -v cid-maybe-not-rdns || true)"
expect "software catalogue: result" 0 "$(appstreamcli validate --no-net "$share"/metainfo/* >"$work/log" 2>&1; echo $?)"
expect "desktop entry of the catalogue" "$(basename "$share"/applications/*.desktop)" \
    "$(sed -n 's|.*<launchable type="desktop-id">\(.*\)</launchable>.*|\1|p' "$share"/metainfo/*)"

for page in "$share"/man/man1/*; do
    zcat "$page" >"$work/page.1"
    # The pages refer to each other, which the tool looks for among those of the machine.
    expect "$(basename "$page")" "" "$(mandoc -T lint "$work/page.1" 2>&1 |
        grep -v 'referenced manual not found: Xr ventlock' || true)"
done

# The compiler keeps texts in pieces of eight bytes, in which words end early.
expect "lintian" "" "$(lintian --allow-root --display-info --pedantic --suppress-tags spelling-error-in-binary \
    "$package" 2>&1 | grep -v 'running with root privileges' || true)"
finish
