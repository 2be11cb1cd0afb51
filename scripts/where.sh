#!/bin/bash
# Copies its input and adds function and line to every address of ours in it, "OBKCTRLS.ocx+0x1234".
#
#   where.sh <x64|x86> [folder of symbols] < log
#
# It stands alone, because it is handed out with the symbols of a release: without a folder it looks beside itself,
# then where builds of this repository leave their symbols. Needs the binutils for Windows (binutils-mingw-w64).
set -euo pipefail

usage() { printf 'usage: where.sh <x64|x86> [folder of symbols] < log\n' >&2; exit 1; }
case ${1:-} in
    x64) tool=x86_64-w64-mingw32 ;;
    x86) tool=i686-w64-mingw32 ;;
    *) usage ;;
esac
[ $# -le 2 ] || usage
here=$(dirname "$0")
folders=()
for folder in ${2:+"$2"} "$here/$1" "$here/../build/windows-$1" "$here/../dist/symbols/$1"; do
    [ ! -d "$folder" ] || folders+=("$folder")
done
[ "${#folders[@]}" -gt 0 ] || { printf 'where.sh: there are no symbols for %s\n' "$1" >&2; exit 1; }

declare -A files bases
while IFS= read -r line; do
    where=
    if [[ $line =~ ([A-Za-z0-9_.]+)\+0x([0-9A-Fa-f]{1,8})$ ]]; then
        module=${BASH_REMATCH[1]} offset=0x${BASH_REMATCH[2]}
        if [ -z "${files[$module]+known}" ]; then
            files[$module]=$(find "${folders[@]}" \( -name "$module.debug" -o -name "$module" \) -type f -print -quit)
            [ -z "${files[$module]}" ] ||
                bases[$module]=0x$($tool-objdump -p "${files[$module]}" | awk '$1 == "ImageBase" {print $2}')
        fi
        if [ -n "${files[$module]}" ]; then
            where=$($tool-addr2line -f -s -C -e "${files[$module]}" \
                "$(printf '0x%x' $((bases[$module] + offset)))" | paste -sd' ')
        fi
    fi
    printf '%s%s\n' "$line" "${where:+  $where}"
done
