#!/bin/bash
# The 32-bit root: a small Debian of the i386 architecture with Wine in it, kept in the cache. 32-bit Wine
# cannot be had beside the 64-bit one without changing the machine's architectures.
#
#   scripts/i386_root.sh possible            whether this machine allows it; says why not
#   scripts/i386_root.sh make                makes it if it is not there
#   scripts/i386_root.sh run <command...>    runs a command in it, with this folder bound in, read-only but for build/logs
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

# A new number here makes everybody's root anew.
edition=1
# shellcheck source=/dev/null
codename=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
directory=$cache/i386-$codename-$edition

# Mounts live in a namespace of their own: they end with the process, however it ends.
namespace=(unshare --mount --propagation private --pid --fork --kill-child)

possible() {
    if [ "$(id -u)" -ne 0 ]; then say "it needs root"; return 1; fi
    if ! "${namespace[@]}" mount -t tmpfs none /mnt 2>/dev/null; then
        say "this machine does not let us mount"; return 1
    fi
    # Where even a 32-bit chroot could not execute anything.
    case $(uname -m) in
        x86_64 | i?86) ;;
        *) say "this is no x86 machine"; return 1 ;;
    esac
}

# The mirror that this machine itself uses, trusted for the main archive.
mirror() {
    # shellcheck disable=SC2016  # apt's own variables
    apt-get indextargets --format '$(ORIGIN) $(COMPONENT) $(CODENAME) $(REPO_URI)' 'Created-By: Packages' |
        awk -v codename="$codename" '$1 == "Debian" && $2 == "main" && $3 == codename {print $4; exit}'
}

make_root() {
    local partial=$directory.partial uri proxy
    uri=$(mirror)
    if [ -z "$uri" ]; then
        apt-get update || true
        uri=$(mirror)
    fi
    [ -n "$uri" ] || { say "apt knows no mirror of $codename"; return 1; }
    proxy=$(apt-config shell proxy Acquire::http::Proxy)
    if [ -n "$proxy" ]; then
        eval "$proxy"
        export http_proxy=$proxy
    fi

    rm -rf --one-file-system "$partial"
    local include=()
    case $uri in https:*) include=(--include=ca-certificates) ;; esac
    debootstrap --arch=i386 --variant=minbase "${include[@]}" "$codename" "$partial" "$uri"
    # No security suite: its i386 index is not on every mirror, and nothing here meets strangers.
    printf 'deb %s %s main\n' "$uri" "$codename" "$uri" "$codename-updates" >"$partial/etc/apt/sources.list"
    apt-config dump | grep -E '^Acquire::(https?|Retries|Check-Valid-Until|ForceIPv4)' \
        >"$partial/etc/apt/apt.conf.d/90host" || true
    cp -L /etc/resolv.conf "$partial/etc/resolv.conf" 2>/dev/null || true
    mount -t proc proc "$partial/proc"
    mount --rbind /dev "$partial/dev"
    export DEBIAN_FRONTEND=noninteractive
    chroot "$partial" apt-get update
    chroot "$partial" apt-get install -y --no-install-recommends wine wine32 fonts-wine
    chroot "$partial" apt-get clean
    umount "$partial/proc"
    umount -R -l "$partial/dev"
    mv "$partial" "$directory"
}

case ${1:-} in
    possible) possible ;;
    make)
        mkdir -p "$cache"
        exec 8>"$directory.lock"
        flock 8
        [ ! -d "$directory" ] || exit 0
        say "Making the 32-bit root in $directory"
        timeout -k 10 900 "${namespace[@]}" "$root/scripts/i386_root.sh" make-in-namespace
        ;;
    make-in-namespace) make_root ;;
    run)
        shift
        [ -d "$directory" ] || fail "there is no 32-bit root yet: scripts/i386_root.sh make"
        exec "${namespace[@]}" "$root/scripts/i386_root.sh" run-in-namespace "$@"
        ;;
    run-in-namespace)
        shift
        mount -t proc proc "$directory/proc"
        mount --rbind /dev "$directory/dev"
        mount -t tmpfs tmpfs "$directory/tmp"
        mkdir -p "$directory/tmp/.X11-unix" "$directory$root" "$logs"
        [ ! -d /tmp/.X11-unix ] || mount --bind /tmp/.X11-unix "$directory/tmp/.X11-unix"
        mount --bind "$root" "$directory$root"
        mount -o remount,bind,ro "$directory$root"
        # Where reports of tests are written.
        mount --bind "$logs" "$directory$logs"
        environment=(HOME=/root LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin "DISPLAY=${DISPLAY:-}")
        while IFS= read -r variable; do environment+=("$variable"); done < <(env | grep -E '^(GTEST_|OBK_|WINEDEBUG=)')
        # shellcheck disable=SC2016  # of the shell in the root
        chroot "$directory" env -i "${environment[@]}" bash -c 'cd "$0" && exec "$@"' "$root" "$@" &
        child=$!
        # As the first process of its namespace this one gets only the signals it asks for.
        trap 'kill -TERM "$child"' INT TERM HUP
        result=0
        wait "$child" || { result=$?; wait "$child" || result=$?; }
        exit "$result"
        ;;
    *) fail "usage: i386_root.sh possible | make | run <command...>" ;;
esac
