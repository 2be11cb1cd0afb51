#!/bin/bash
# Compiles a Pascal program for 64-bit Windows. Debian has the compiler and its sources, but no units for Windows: these
# are compiled once and kept in the cache.
#
#   scripts/pascal.sh [--lazarus] <program> <program.exe> [folder of units...]
#
# --lazarus: the program has forms of Lazarus.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

lazarus=
if [ "${1:-}" = --lazarus ]; then
    lazarus=$(find /usr/lib/lazarus -mindepth 1 -maxdepth 1 -type d | sort -V | tail -n 1)
    [ -n "$lazarus" ] || fail "there is no source of Lazarus"
    shift
fi
[ $# -ge 2 ] || fail "usage: pascal.sh [--lazarus] <program> <program.exe> [folder of units...]"
program=$1 result=$2
shift 2
version=$(ppcx64 -iV)
sources=/usr/share/fpcsrc/$version
units=$cache/pascal-$version
compile=(ppcx64 -n -Twin64 -Px86_64 -v0e)

# report <log> <what>: what a compiler said that failed.
report() { grep -E 'Error|Fatal' "$1" >&2; fail "$2"; }

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
        report "$units/log" "the units for Windows do not compile"
    touch "$units/ready"
fi

paths=("-Fu$units")
for folder in winunits-base/src rtl-objpas/src/{inc,win} fcl-registry/src fcl-base/src{,/win} fcl-xml/src; do
    paths+=("-Fu$sources/packages/$folder" "-Fi$sources/packages/$folder")
done
if [ -n "$lazarus" ]; then
    for folder in fcl-image/src fcl-json/src fcl-process/src{,/win} paszlib/src pasjpeg/src hash/src rtl-extra/src/{inc,win} \
        rtl-generics/src{,/inc} rtl-unicode/src/inc regexpr/src fcl-res/src chm/src; do
        [ ! -d "$sources/packages/$folder" ] || paths+=("-Fu$sources/packages/$folder" "-Fi$sources/packages/$folder")
    done
    for folder in lcl{,/forms,/include,/widgetset,/interfaces/win32} components/{lazutils,activex,freetype}; do
        paths+=("-Fu$lazarus/$folder" "-Fi$lazarus/$folder")
    done
    compile+=(-dLCL -dLCLwin32 -MObjFPC -Scghi -WG)
    forms=$units/lazarus-${lazarus##*/}
    if [ ! -e "$forms/ready" ]; then
        rm -rf "$forms"
        mkdir -p "$forms"
        printf 'program all; uses Interfaces, Forms, Controls, StdCtrls, ActiveXContainer; begin end.\n' >"$forms/all.pas"
        "${compile[@]}" "${paths[@]}" "-FE$forms" "-FU$forms" "$forms/all.pas" >"$forms/log" 2>&1 ||
            report "$forms/log" "the units of Lazarus do not compile"
        touch "$forms/ready"
    fi
    paths=("-Fu$forms" "${paths[@]}")
fi
flock -u 9

for folder in "$@"; do paths+=("-Fu$folder"); done
work=$(mktemp -d "${TMPDIR:-/tmp}/obk-pascal.XXXXXX")
trap 'rm -rf "$work"' EXIT
"${compile[@]}" "${paths[@]}" "-FE$work" "-FU$work" "-oprogram.exe" "$program" >"$work/log" 2>&1 ||
    report "$work/log" "$program does not compile"
mv "$work/program.exe" "$result"
