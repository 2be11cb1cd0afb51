#!/bin/bash
# Installs the icon set that the cell icons are rendered from into build/icon-set, at the version and with the
# contents that icons/cells/package-lock.json says. Does nothing where it is there. Prints where its icons are.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

wanted=$root/icons/cells
folder=$root/build/icon-set
icons=$folder/node_modules/@iconify-json/fluent-emoji-flat/icons.json

mkdir -p "$folder" "$logs"
# Build trees side by side install it once.
exec 9>"$folder/lock"
flock 9
if ! cmp -s "$wanted/package-lock.json" "$folder/installed.json" || [ ! -f "$icons" ]; then
    cp "$wanted/package.json" "$wanted/package-lock.json" "$folder"
    if ! (cd "$folder" && npm ci --ignore-scripts --no-audit --no-fund) >"$logs/icon-set.log" 2>&1; then
        tail -n 30 "$logs/icon-set.log" >&2
        fail "the icon set could not be installed (all of it: $logs/icon-set.log)"
    fi
    # npm keeps the times of the package's making, which no build could go by.
    touch "$icons"
    cp "$folder/package-lock.json" "$folder/installed.json"
fi
say "$icons"
