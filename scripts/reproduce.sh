#!/bin/bash
# Proves that the commit gives the same release twice: makes it from a fresh clone in another folder and compares the
# archives with those of scripts/package.sh in dist/. Nothing may be uncommitted. Takes as long as a whole build.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

[ -z "$(git -C "$root" status --porcelain)" ] || fail "something is not committed"
"$root/scripts/package.sh"
clone=$(mktemp -d "${TMPDIR:-/tmp}/obk-clone.XXXXXX")
trap 'rm -rf "$clone"' EXIT
git clone -q "$root" "$clone/elsewhere"
"$clone/elsewhere/scripts/package.sh"
version=$(release)
for name in "OrbekControls-$version.zip" "OrbekControls-$version-symbols.zip"; do
    cmp "$root/dist/$name" "$clone/elsewhere/dist/$name" || fail "$name comes out differently"
    say "$name comes out the same: $(sha256sum <"$root/dist/$name" | cut -d' ' -f1)"
done
