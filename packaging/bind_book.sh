#!/usr/bin/env bash
# bind_book.sh <Ventlock.hlp>: binds the help book of a build anew in its place, so that the same pages give the same bytes.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. "$(dirname "$0")/same_bytes.sh"
bind_book "$1" "$1"
chmod 644 "$1"
