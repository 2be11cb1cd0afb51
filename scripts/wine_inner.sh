#!/bin/bash
# The part of wine.sh that runs where Wine is: on this machine, or in the 32-bit root. Needs Wine and the
# core utilities, nothing of ours.
#
#   wine_inner.sh <win64|win32> <folder of prefixes> <seconds> <program> [argument...]
set -u
export WINEARCH=$1 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
prefixes=$2 seconds=$3
shift 3

# One prefix is made once and copied for every run: a run finds a clean registry in a second.
# A new number here makes everybody's prefix anew.
edition=2
template=$prefixes/prefix-$edition-$WINEARCH-$(wine --version | tr -dc 'A-Za-z0-9.-')
mkdir -p "$prefixes"
exec 9>"$template.lock"
flock 9
if [ ! -e "$template/ready" ]; then
    rm -rf "$template"
    export WINEPREFIX=$template
    timeout -k 5 180 wine wineboot -i >/dev/null 2>&1 9>&-
    # A crash shall end the program with a trace, not open a dialog that waits for ever.
    timeout -k 5 60 wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
        >/dev/null 2>&1 9>&-
    timeout -k 5 60 wineserver -w 9>&-
    if [ ! -e "$template/system.reg" ]; then
        echo "wine could not make a prefix in $template" >&2
        exit 1
    fi
    # Debian's Wine does not look for its own faces where Debian puts them, and would show every text in
    # another one.
    ln -sf /usr/share/wine/fonts/* "$template/drive_c/windows/Fonts/"
    touch "$template/ready"
fi
flock -u 9
exec 9>&-

export WINEPREFIX
WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/obk-wine.XXXXXX")
end() {
    # A second signal must not cut this short.
    trap '' INT TERM HUP
    wineserver -k 2>/dev/null
    timeout 10 wineserver -w 2>/dev/null
    rm -rf "$WINEPREFIX"
}
trap end EXIT
trap 'exit 130' INT TERM HUP
cp -a "$template/." "$WINEPREFIX/"
wineserver -p
# In the background, so that a signal ends us now and not after the program.
timeout -k 10 "$seconds" "$@" &
wait $!
result=$?
[ "$result" -ne 124 ] || echo "ENDED: longer than $seconds s: $*" >&2
exit "$result"
