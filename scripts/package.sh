#!/bin/bash
# Makes the release in dist/: OrbekControls-<version>.zip, its symbols, two installers, a list of checksums, and
# the documentation as a site (dist/site). The same
# commit gives the same archives, wherever and whenever they are made (scripts/reproduce.sh proves it); installers carry
# the time of their making.
#
#   scripts/package.sh
#
#   SOURCE_DATE_EPOCH   the time that the files carry, in seconds (default: that of the commit)
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

[ $# -eq 0 ] || fail "usage: package.sh"
"$root/scripts/setup.sh" build package
"$root/scripts/build.sh"

version=$(release)
[ -n "$version" ] || fail "CMakeLists.txt names no version"
SOURCE_DATE_EPOCH=$(commit_time)
OBK_COMMIT=$(git -C "$root" rev-parse HEAD 2>/dev/null || printf 'unknown')
export SOURCE_DATE_EPOCH OBK_COMMIT
dist=$root/dist
name=OrbekControls-$version
stage=$root/build/package
rm -rf "$stage"
mkdir -p "$stage/$name/licences" "$stage/$name-symbols"
rm -f "$dist"/OrbekControls-* "$dist/SHA256SUMS"

say "Packing $name"
package=$stage/$name
for architecture in x64 x86; do
    mkdir "$package/$architecture"
    cp "$dist/$architecture/"{OBKCTRLS.ocx,OBKCTRLS.manifest,Gallery.exe} "$package/$architecture"
    cp -r "$dist/symbols/$architecture" "$stage/$name-symbols"
done
cp "$dist/OBKCTRLS.tlb" "$root/src/server/OBKCTRLS.idl" "$root/CHANGELOG.md" "$package"
cp "$root/LICENSE" "$package/LICENSE.txt"
cp "$root/icons/cells/NOTICE.txt" "$package/licences/icons-and-zlib.txt"
node "$root/tools/site/site.mjs" "$root" "$dist/site" >/dev/null
cp -r "$dist/site" "$package/docs"
cp -r "$root/imports" "$root/samples" "$package"
# Classic Basic reads no other line ends.
sed -i 's/$/\r/' "$package"/samples/classic/*
rm "$package/imports/.clang-format"
sed "s/@VERSION@/$version/" "$root/packaging/README.txt" | sed 's/$/\r/' >"$package/README.txt"
for command in Gallery Register; do sed 's/$/\r/' "$root/packaging/$command.cmd" >"$package/$command.cmd"; done
while IFS= read -r texts; do
    cp -L "/usr/share/doc/$texts/copyright" "$package/licences/$texts.txt"
done < <(awk -F'\t' '!/^#/ { print $5 }' "$root/packaging/components.tsv" | sort -u)
"$root/scripts/spdx.sh" "$package" >"$package/$name.spdx"
cp "$root/scripts/where.sh" "$stage/$name-symbols"

# pack <folder>: the files in the order of their names, with one time, and nothing of who packed them.
pack() {
    find "$stage/$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
    find "$stage/$1" -type d -exec chmod 755 {} +
    find "$stage/$1" -type f -exec chmod 644 {} +
    find "$stage/$1" \( -name '*.exe' -o -name '*.ocx' -o -name '*.sh' \) -exec chmod 755 {} +
    (cd "$stage" && find "$1" -type f | LC_ALL=C sort | TZ=UTC zip -X -q -@ "$dist/$1.zip")
}
pack "$name"
pack "$name-symbols"
"$root/scripts/installers.sh" "$package" "$dist/$name.msi" "$dist/$name-user.msi"
(cd "$dist" && sha256sum "$name"*.* >SHA256SUMS)
say "The release, in dist/:"
(cd "$dist" && printf '    %s\n' "$name"*.* SHA256SUMS)
