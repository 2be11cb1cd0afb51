#!/bin/bash
# Builds what is handed out into dist/: the servers, the type library and the gallery.
#
#   scripts/build.sh [x64|x86|all]      (default: all)
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

case ${1:-all} in
    all) architectures="x64 x86" ;;
    x64 | x86) architectures=$1 ;;
    *) fail "unknown architecture '$1' (x64, x86, all)" ;;
esac

"$root/scripts/setup.sh" build
for architecture in $architectures; do
    say "Building dist/$architecture"
    build_preset "windows-$architecture" products
done
