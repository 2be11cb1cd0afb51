#!/bin/bash
# Measures: natively what can be measured natively, under Wine what is compared with the system's own
# automation and controls. Prints ratios taken in one run, and the sizes of the servers.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

"$root/scripts/setup.sh" bench
"$root/scripts/build.sh" all
build_preset native-release
build_preset windows-x64 products obk_window_benchmarks

say "Native"
timeout 600 "$root/build/native-release/benchmarks/obk_benchmarks" --benchmark_min_time=0.2 2>/dev/null
say
say "Windows, x64"
"$root/scripts/wine.sh" x64 600 "$root/build/windows-x64/benchmarks/obk_window_benchmarks.exe" | tr -d '\r'
say
say "Sizes in bytes"
(cd "$root/dist" && stat -c '%10s  %n' x64/OBKCTRLS.ocx x86/OBKCTRLS.ocx)
