#!/bin/bash
# Prints what is built into the products besides our own code, from the linker's maps: "file, name, version, licence,
# folder of its licence texts" with tabs between, one line for each product and component. Fails on anything that
# packaging/components.tsv does not know.
#
#   scripts/built_in.sh
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

# linked <map>: the files outside of our build that something was taken from.
linked() {
    sed -nE '/^Archive member included/,/^(Discarded input sections|Allocating common symbols|Memory Configuration)/ {
            s,^(/[^ (]+)\(.*,\1,p }
        s,^LOAD (/.*\.o)$,\1,p' "$1" | sort -u | xargs -r realpath | sort -u
}

# The icons are data, and no map shows them.
icons_version=$(sed -nE '/"node_modules\/@iconify-json\/fluent-emoji-flat"/,/\}/ s/.*"version": "([^"]+)".*/\1/p' \
    "$root/icons/cells/package-lock.json")
[ -n "$icons_version" ] || fail "the icon set has no version"

maps=("$root"/build/windows-{x64,x86}/products/{OBKCTRLS.ocx,Gallery.exe}.map)
for map in "${maps[@]}"; do [ -f "$map" ] || fail "there is no $map: build first"; done
files=$(for map in "${maps[@]}"; do linked "$map" | awk -v map="$map" '{ print map "\t" $0 }'; done | grep -vF "	$root/")
declare -A package_of version_of
while IFS=$'\t' read -r package file; do package_of[$file]=$package; done < <(
    cut -f2 <<<"$files" | sort -u | xargs dpkg -S | sed -E 's/^([^:,]+)[^ ]*: /\1\t/')
# shellcheck disable=SC2016  # dpkg's own fields
while IFS=' ' read -r package version; do
    version=${version#*:}
    version_of[$package]=${version%%[-+]*}
done < <(printf '%s\n' "${package_of[@]}" | sort -u | xargs dpkg-query -W -f '${Package} ${Version}\n')

for architecture in x64 x86; do
    printf '%s/OBKCTRLS.ocx\tfluent-emoji-flat\t%s\tMIT\t\n' "$architecture" "$icons_version"
done >"$logs/built-in"
while IFS=$'\t' read -r map file; do
    product=${map##*/} architecture=${map%/products/*}
    product=${architecture##*-}/${product%.map} package=${package_of[$file]:-}
    found=
    while IFS=$'\t' read -r packages patterns name licence texts; do
        # shellcheck disable=SC2053  # they are patterns
        if [[ -n $package && $packages != '#'* && $package == $packages && ${file##*/} == $patterns ]]; then
            found=yes
            printf '%s\t%s\t%s\t%s\t%s\n' "$product" "$name" "${version_of[$package]}" "$licence" "$texts"
            break
        fi
    done <"$root/packaging/components.tsv"
    [ -n "$found" ] || fail "$file in $product is not in packaging/components.tsv"
done <<<"$files" >>"$logs/built-in"
sort -u "$logs/built-in"
