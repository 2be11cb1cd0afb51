#!/bin/bash
# Renews what is committed and follows from the member tables: the type library's description, the manifest, what
# registering writes, the imports for other languages and the reference pages. Look at what changed before you commit it: hosts are built with these numbers.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

"$root/scripts/setup.sh" build
build_preset native-debug describe
describe=$root/build/native-debug/tools/describe/describe
"$describe" idl >"$root/src/server/OBKCTRLS.idl"
"$describe" manifest >"$root/src/server/OBKCTRLS.manifest"
"$describe" registry >"$root/packaging/registry.tsv"
"$describe" imports "$root/imports"
"$describe" reference "$root/docs/reference"
