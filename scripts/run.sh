#!/bin/bash
# Shows the gallery under Wine: in a window where there is a display, otherwise as pictures of every page in
# dist/pictures/.
#
#   scripts/run.sh [--pictures]      --pictures: pictures also where there is a display
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

"$root/scripts/setup.sh" run
"$root/scripts/build.sh" x64

if [ "${1:-}" != --pictures ] && can_open_windows; then
    say "The gallery is open; this ends when you close it."
    exec "$root/scripts/wine.sh" --display x64 86400 "$root/dist/x64/Gallery.exe"
fi
pictures=$root/dist/pictures
rm -rf "$pictures"
mkdir -p "$pictures"
"$root/scripts/wine.sh" x64 300 "$root/dist/x64/Gallery.exe" --pictures "$(windows_path "$pictures")"
shopt -s nullglob
made=("$pictures"/*.png)
[ "${#made[@]}" -gt 0 ] || fail "the gallery made no picture"
say "Pictures of the gallery:"
printf '    %s\n' "${made[@]}"
