#!/bin/bash
# Copies its input and adds function and line to every address of ours in it, "OBKCTRLS.ocx+0x1234".
#
#   scripts/where.sh <x64|x86> < log
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

case ${1:-} in
    x64) tool=x86_64-w64-mingw32 ;;
    x86) tool=i686-w64-mingw32 ;;
    *) fail "usage: where.sh <x64|x86>" ;;
esac
tree=$root/build/windows-$1

declare -A files bases
while IFS= read -r line; do
    where=
    if [[ $line =~ ([A-Za-z0-9_.]+)\+0x([0-9a-f]{1,8})$ ]]; then
        module=${BASH_REMATCH[1]} offset=0x${BASH_REMATCH[2]}
        if [ -z "${files[$module]+known}" ]; then
            files[$module]=$(find "$tree" -name "$module" -type f -print -quit 2>/dev/null)
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
