#!/bin/bash
# Registers the controls in the Wine prefix it is run in, and starts the gallery. Called through wine.sh.
cd "$(dirname "$0")/../dist/x64" || exit 1
wine regsvr32 /s OBKCTRLS.ocx || { echo "the controls could not be registered" >&2; exit 1; }
exec wine Gallery.exe "$@"
