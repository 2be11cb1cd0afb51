#!/bin/bash
# Installs the Debian packages and the icon set where they are missing, and nothing else. Safe to repeat.
#
#   scripts/setup.sh [build] [run] [test] [check] [bench] [package]      (without a word: all of it)
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

packages_icons=(imagemagick librsvg2-bin zopfli)
# The machine may have a node of its own, which Debian's would fight with.
command -v npm >/dev/null || packages_icons+=(npm)
packages_build=(cmake ninja-build "${packages_icons[@]}"
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libz-mingw-w64-dev)
# fonts-wine: without it every face becomes another, and nothing measured is true.
packages_run=("${packages_build[@]}" wine wine64 fonts-wine xvfb xauth xdotool)
packages_check=("${packages_build[@]}" g++ googletest zlib1g-dev libbenchmark-dev clang clang-format clang-tidy git shellcheck)
packages_bench=("${packages_run[@]}" g++ googletest zlib1g-dev libbenchmark-dev)
packages_package=("${packages_build[@]}" zip unzip git wixl msitools cmark-gfm)
# From fp-compiler on: for the samples.
packages_test=("${packages_run[@]}" "${packages_package[@]}" g++ googletest zlib1g-dev clang libclang-rt-14-dev llvm
    debootstrap fp-compiler fpc-source lazarus-src mono-mcs libmono-system-windows-forms4.0-cil)

wanted=()
for purpose in "${@:-build run test check bench package}"; do
    for word in $purpose; do
        case $word in
            build) wanted+=("${packages_build[@]}") ;;
            run) wanted+=("${packages_run[@]}") ;;
            test) wanted+=("${packages_test[@]}") ;;
            check) wanted+=("${packages_check[@]}") ;;
            bench) wanted+=("${packages_bench[@]}") ;;
            package) wanted+=("${packages_package[@]}") ;;
            *) fail "unknown purpose '$word' (build, run, test, check, bench, package)" ;;
        esac
    done
done

installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p')
missing=$(printf '%s\n' "${wanted[@]}" | sort -u | grep -vxF -e "$installed" || true)
if [ -n "$missing" ]; then
    mapfile -t missing <<<"$missing"
    say "Installing: ${missing[*]}"
    mkdir -p "$logs"
    # A source that cannot be reached does not matter as long as the packages are found in another one.
    as_root apt-get update >"$logs/setup.log" 2>&1 || true
    if ! as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}" \
            >>"$logs/setup.log" 2>&1; then
        tail -n 30 "$logs/setup.log" >&2
        fail "the packages could not be installed (all of it: $logs/setup.log)"
    fi
fi
"$root/scripts/icon_set.sh" >/dev/null
