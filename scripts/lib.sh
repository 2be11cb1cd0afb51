# shellcheck shell=bash disable=SC2034
# What the scripts share: where things are, building a preset, running a program in Wine.
# Sourced, never run.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cache=${OBK_CACHE:-${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/obkctrls}
logs=$root/build/logs
jobs=${JOBS:-$(nproc)}

say() { printf '%s\n' "$*"; }
fail() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# build_preset <preset> [target...]: quiet unless something has to be said.
build_preset() {
    local preset=$1; shift
    mkdir -p "$logs"
    local log=$logs/build-$preset.log
    if ! (cd "$root" && cmake --preset "$preset") >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
    # Tests that already run, and wait for windows, go first.
    if ! nice ninja -C "$root/build/$preset" -j "$jobs" "$@" >>"$log" 2>&1; then
        grep -vE '^\[[0-9]+/[0-9]+\] (Building|Linking|Generating|Re-checking)' "$log" | tail -n 80 >&2
        return 1
    fi
}

# windows_path <path>: the path as a Windows program sees it.
windows_path() {
    local path=Z:$1
    printf '%s' "${path//\//\\}"
}

# start_display: an X server of our own, unless one runs already. Its number comes from the server itself,
# so that runs side by side do not meet.
start_display() {
    local report
    report=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$report" >/dev/null 2>&1 &
    display_pid=$!
    local tries=0
    while [ ! -s "$report" ]; do
        kill -0 "$display_pid" 2>/dev/null || fail "Xvfb did not start"
        tries=$((tries + 1))
        [ "$tries" -lt 200 ] || fail "Xvfb gave no display"
        sleep 0.05
    done
    DISPLAY=:$(tr -d '[:space:]' <"$report")
    export DISPLAY
    rm -f "$report"
}

stop_display() {
    [ -n "${display_pid:-}" ] || return 0
    kill "$display_pid" 2>/dev/null || true
    wait "$display_pid" 2>/dev/null || true
    display_pid=
}

# can_open_windows: whether $DISPLAY names a display that lets us in.
can_open_windows() {
    [ -n "${DISPLAY:-}" ] && timeout 5 xdotool getdisplaygeometry >/dev/null 2>&1
}

# end_tree <pid>: asks a process and everything it started to end. A signal to the first alone would leave
# the rest running: timeout puts its program into a group of its own.
end_tree() {
    local child
    # shellcheck disable=SC2013  # numbers on one line
    for child in $(cat "/proc/$1/task/$1/children" 2>/dev/null); do end_tree "$child"; done
    kill -TERM "$1" 2>/dev/null || true
}

# release: the version that is built, "1.0.0".
release() { sed -nE 's/^project\(OrbekControls VERSION ([0-9.]+) .*/\1/p' "$root/CMakeLists.txt"; }

# name_to_uuid < name: a UUID that is the same for the same name.
name_to_uuid() {
    local digits
    digits=$(sha1sum | cut -c1-32)
    printf '%s-%s-5%s-a%s-%s' "${digits:0:8}" "${digits:8:4}" "${digits:13:3}" "${digits:17:3}" "${digits:20:12}"
}

# commit_time: when what is built was committed, in seconds; for everything that would carry the time of its making.
commit_time() {
    if [ -n "${SOURCE_DATE_EPOCH:-}" ]; then
        printf '%s' "$SOURCE_DATE_EPOCH"
    else
        git -C "$root" log -1 --format=%ct
    fi
}
