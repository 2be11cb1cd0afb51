#!/bin/bash
# Runs a program in Wine: in a fresh prefix, on a display of its own unless told otherwise.
#
#   scripts/wine.sh [--display] <x64|x86> <seconds> <program> [argument...]
#
# --display uses $DISPLAY. A .sh program is run by bash and calls wine itself. x86 runs in the 32-bit root
# (scripts/i386_root.sh), which sees this folder, read-only but for build/logs, under the same name.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

own_display=yes
if [ "${1:-}" = --display ]; then own_display=no; shift; fi
[ $# -ge 3 ] || fail "usage: wine.sh [--display] <x64|x86> <seconds> <program> [argument...]"
architecture=$1 seconds=$2 program=$3
shift 3
case $program in
    *.sh) command=(bash "$program" "$@") ;;
    *) command=(wine "$program" "$@") ;;
esac

# Wine's processes mostly wait for one another: on one processor they take turns several times as fast as on
# two. Each architecture has its own, as both may run at once.
processors=$(taskset -cp $$ 2>/dev/null | sed 's/.*: //') || processors=
case $architecture in
    x86) processor=${processors%%[,-]*} ;;
    *) processor=${processors##*[,-]} ;;
esac
[ -z "$processor" ] || taskset -cp "$processor" $$ >/dev/null 2>&1 || true

if [ "$own_display" = yes ]; then
    trap stop_display EXIT
    trap 'exit 130' INT TERM HUP
    start_display
fi

inner=$root/scripts/wine_inner.sh
case $architecture in
    x64) session=(bash "$inner" win64 "$cache" "$seconds" "${command[@]}") ;;
    x86)
        session=("$root/scripts/i386_root.sh" run
            bash "$inner" win32 /var/cache/obkctrls "$seconds" "${command[@]}") ;;
    *) fail "unknown architecture '$architecture'" ;;
esac
"${session[@]}" &
session_pid=$!
interrupted() {
    trap '' INT TERM HUP
    kill -TERM "$session_pid" 2>/dev/null || true
    wait "$session_pid" || true
    exit 130
}
trap interrupted INT TERM HUP
result=0
wait "$session_pid" || result=$?
exit "$result"
