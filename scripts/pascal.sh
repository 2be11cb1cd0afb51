#!/bin/bash
# Compiles a Pascal program for 64-bit Windows. Debian has the compiler and its sources, but no units for Windows: these
# are compiled once and kept in the cache.
#
#   scripts/pascal.sh <program.pas> <program.exe> [folder of units...]
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

[ $# -ge 2 ] || fail "usage: pascal.sh <program.pas> <program.exe> [folder of units...]"
program=$1 result=$2
shift 2
version=$(ppcx64 -iV)
sources=/usr/share/fpcsrc/$version
units=$cache/pascal-$version
compile=(ppcx64 -n -Twin64 -Px86_64 -v0e)

mkdir -p "$cache"
exec 9>"$units.lock"
flock 9
if [ ! -e "$units/ready" ]; then
    rm -rf "$units"
    mkdir -p "$units"
    rtl=()
    for folder in win inc x86_64 win/wininc objpas objpas/sysutils objpas/classes charmaps win64; do
        rtl+=("-Fi$sources/rtl/$folder" "-Fu$sources/rtl/$folder")
    done
    (cd "$sources/rtl/win64" && "${compile[@]}" "${rtl[@]}" "-FE$units" "-FU$units" -Us -Sg system.pp &&
        "${compile[@]}" "${rtl[@]}" "-FE$units" "-FU$units" buildrtl.pp) >"$units/log" 2>&1 ||
        { grep -E 'Error|Fatal' "$units/log" >&2; fail "the units for Windows do not compile"; }
    touch "$units/ready"
fi
flock -u 9

paths=("-Fu$units")
for folder in winunits-base/src rtl-objpas/src/inc rtl-objpas/src/win fcl-registry/src fcl-base/src fcl-base/src/win fcl-xml/src; do
    paths+=("-Fu$sources/packages/$folder" "-Fi$sources/packages/$folder")
done
for folder in "$@"; do paths+=("-Fu$folder"); done
work=$(mktemp -d "${TMPDIR:-/tmp}/obk-pascal.XXXXXX")
trap 'rm -rf "$work"' EXIT
"${compile[@]}" "${paths[@]}" "-FE$work" "-FU$work" "-oprogram.exe" "$program" >"$work/log" 2>&1 ||
    { grep -E 'Error|Fatal' "$work/log" >&2; fail "$program does not compile"; }
mv "$work/program.exe" "$result"
