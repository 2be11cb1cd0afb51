#!/bin/bash
# Draws docs/pictures/cell-icons.png anew, after a change of the cell icons.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

"$root/scripts/setup.sh" build
node "$root/icons/cells/overview.mjs" "$("$root/scripts/icon_set.sh")" "$root/docs/pictures/cell-icons.png"
