#!/bin/bash
# Shows the gallery under Wine: in a window where there is a display, otherwise as pictures of every page in
# dist/pictures/.
#
#   scripts/run.sh [--pictures [--dpi N] [--look flat|classic|contrast|dark]]
#
# --pictures makes pictures also where there is a display, of the pages at N dots per inch (96) in one of the
# looks (flat). Wine has no switch for high contrast: contrast is the colours of it alone.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

pictures_only=no dpi=96 look=flat
while [ $# -gt 0 ]; do
    case $1 in
        --pictures) pictures_only=yes; shift ;;
        --dpi) dpi=${2:?} ; shift 2 ;;
        --look) look=${2:?} ; shift 2 ;;
        *) fail "unknown argument '$1'" ;;
    esac
done

"$root/scripts/setup.sh" run
"$root/scripts/build.sh" x64

if [ "$pictures_only" = no ] && can_open_windows; then
    say "The gallery is open; this ends when you close it."
    exec "$root/scripts/wine.sh" --display x64 86400 "$root/dist/x64/Gallery.exe"
fi
pictures=$root/dist/pictures
rm -rf "$pictures"
mkdir -p "$pictures"
"$root/scripts/wine.sh" x64 300 "$root/scripts/gallery_pictures.sh" "$root/dist/x64/Gallery.exe" \
    "$(windows_path "$pictures")" "$dpi" "$look"
shopt -s nullglob
made=("$pictures"/*.png)
[ "${#made[@]}" -gt 0 ] || fail "the gallery made no picture"
say "Pictures of the gallery:"
printf '    %s\n' "${made[@]}"
