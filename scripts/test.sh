#!/bin/bash
# Runs every test: natively under sanitizers, in real windows of both architectures under Wine, of the release as it
# is handed out, and a short run of each fuzzer. Ends with one line, "N passed, N failed", and with status 0 only if nothing failed.
#
#   scripts/test.sh [gtest filter]
#
#   FUZZ_SECONDS=60   how long to fuzz, all fuzzers together (0: not at all, which counts as skipped)
#   CI=true           makes the 32-bit tests a must; without it a machine that allows no chroot skips them
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

filter=${1:-*}
fuzz_seconds=${FUZZ_SECONDS:-60}
results=$logs/results
passed=0 failed=0 skipped=0 finished=no
started=$SECONDS

background=()
close() {
    local status=$?
    for pid in "${background[@]}"; do end_tree "$pid"; done
    wait
    if [ "$finished" = no ]; then
        say "The tests did not come to their end."
        say "$passed passed, $((failed + 1)) failed"
        [ "$status" -ne 0 ] || exit 1
    fi
}
trap close EXIT
trap 'exit 130' INT TERM HUP

"$root/scripts/setup.sh" test
rm -rf "$results"
mkdir -p "$results"
"$root/tests/scripts/count_tests_test.sh" || fail "the tests would be counted wrongly"

# note <leg> <passed> <failed> <skipped> <text>: what one leg came to.
note() { printf '%s %s %s %s\n' "$2" "$3" "$4" "$5" >"$results/$1"; }

# count_tests <leg> <log> <status> <seconds>: from GoogleTest's own report beside the log.
count_tests() {
    local leg=$1 log=$2 status=$3 took=$4 good bad names
    read -r good bad names < <("$root/scripts/count_tests.sh" "${log%.log}.xml" "$log" "$status")
    note "$leg" "$good" "$bad" 0 "$took s${names:+; $names}"
    if [ "$bad" -ne 0 ]; then
        say "--- $leg: $log"
        tr -d '\r' <"$log" | grep -vE '\[(       OK | RUN      |----------)\]' | tail -n 120 |
            case $leg in
                windows-*) "$root/scripts/where.sh" "${leg#windows-}" ;;
                guarded-*) "$root/scripts/where.sh" "${leg#guarded-}" "$root/build/windows-${leg#guarded-}-guarded" ;;
                *) cat ;;
            esac
        say "---"
    fi
}

# run_tests <leg> <seconds> <command...>: a test executable, its log, its report and its count.
run_tests() {
    local leg=$1 seconds=$2 start=$SECONDS status=0 report=$logs/$1.xml
    shift 2
    rm -f "$report"
    case $leg in windows-* | guarded-*) report=$(windows_path "$report") ;; esac
    timeout -k 10 "$seconds" "$@" --gtest_color=no --gtest_filter="$filter" --gtest_output="xml:$report" \
        >"$logs/$leg.log" 2>&1 || status=$?
    count_tests "$leg" "$logs/$leg.log" "$status" "$((SECONDS - start))"
}

run_windows_tests() {
    local architecture=$1
    run_tests "windows-$architecture" 1820 "$root/scripts/wine.sh" "$architecture" 1800 \
        "$root/build/windows-$architecture/tests/windows/obk_window_tests.exe"
}

# On the guarded heap: what runs through most of the server and the platform in little time. The whole of it by hand.
run_guarded_tests() {
    local filter=$filter
    [ "$filter" != '*' ] || filter='GuardedHeap*:EveryControlWindow*:*HostInEvents*:*Refusals*:Server*:SystemFiles*:GridEditing*'
    run_tests guarded-x64 1220 "$root/scripts/wine.sh" x64 1200 \
        "$root/build/windows-x64-guarded/tests/windows/obk_window_tests.exe"
}

# The release, as it is handed out. Its builds find nothing to do.
run_release_tests() {
    local start=$SECONDS log=$logs/package.log good bad
    if nice "$root/scripts/package.sh" >"$log" 2>&1; then
        nice timeout -k 10 900 "$root/tests/scripts/release_test.sh" >>"$log" 2>&1 || true
        read -r good bad < <(sed -nE '$ s/^([0-9]+) passed, ([0-9]+) failed$/\1 \2/p' "$log") || good=0 bad=1
    else
        good=0 bad=1
    fi
    note package "$good" "$bad" 0 "$((SECONDS - start)) s"
    if [ "$bad" -ne 0 ]; then
        say "--- package: $log"
        grep -v '^ok ' "$log" | tail -n 60
        say "---"
    fi
}

run_fuzzers() {
    local fuzzers=("$root"/build/native-sanitize/fuzz/*_fuzzer) fuzzer name share start=$SECONDS
    local good=0 bad=0 names=
    [ -x "${fuzzers[0]}" ] || { note fuzz 0 1 0 "there is no fuzzer"; return; }
    share=$((fuzz_seconds / ${#fuzzers[@]}))
    [ "$share" -ge 1 ] || share=1
    for fuzzer in "${fuzzers[@]}"; do
        name=$(basename "$fuzzer")
        local corpus=$root/build/corpus/$name found=$root/build/found/$name log=$logs/$name.log seeds=()
        mkdir -p "$corpus" "$found"
        [ ! -d "$root/fuzz/corpus/$name" ] || seeds=("$root/fuzz/corpus/$name")
        if timeout -k 10 $((share + 120)) "$fuzzer" -max_total_time="$share" -timeout=20 -rss_limit_mb=2048 \
                -print_final_stats=1 -artifact_prefix="$found/" "$corpus" "${seeds[@]}" >"$log" 2>&1 &&
                grep -qE 'number_of_executed_units: *[1-9]' "$log"; then
            good=$((good + 1))
        else
            bad=$((bad + 1)) names="$names $name"
            say "--- $name: $log"
            grep -vE '^#[0-9]+' "$log" | tail -n 60
            say "---"
        fi
    done
    note fuzz "$good" "$bad" 0 "$((SECONDS - start)) s${names:+;$names}"
}

# in_background <leg> <command...>: its output is kept apart until it is done.
in_background() {
    local leg=$1
    shift
    "$@" >"$results/$leg.output" 2>&1 9>&- &
    background+=("$!")
}

# build <leg> <preset> <target...>: a leg that does not build has failed.
build() {
    local leg=$1 preset=$2 start=$SECONDS
    shift 2
    if build_preset "$preset" "$@"; then
        say "Built $preset ($((SECONDS - start)) s)"
    else
        note "$leg" 0 1 0 "does not build"
        return 1
    fi
}

legs="native windows-x64 windows-x86 guarded-x64 package fuzz"
root_for_x86=
if reason=$("$root/scripts/i386_root.sh" possible); then
    "$root/scripts/i386_root.sh" make >"$logs/i386-root.log" 2>&1 &
    root_for_x86=$!
    background+=("$root_for_x86")
fi

export ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1
if build native native-sanitize obk_native_tests; then
    in_background native run_tests native 900 "$root/build/native-sanitize/tests/obk_native_tests"
fi
if build windows-x64 windows-x64 products obk_window_tests; then
    in_background windows-x64 run_windows_tests x64
fi
if [ -z "$root_for_x86" ]; then
    say "NOTICE: the 32-bit tests are not run on this machine: $reason."
    if [ "${CI:-}" = true ]; then
        note windows-x86 0 1 0 "not possible here: $reason"
    else
        legs_not_run=windows-x86
    fi
elif ! wait "$root_for_x86"; then
    tail -n 30 "$logs/i386-root.log"
    note windows-x86 0 1 0 "the 32-bit root could not be made: $logs/i386-root.log"
elif build windows-x86 windows-x86 products obk_window_tests; then
    in_background windows-x86 run_windows_tests x86
fi
if build guarded-x64 windows-x64-guarded products obk_window_tests; then
    in_background guarded-x64 run_guarded_tests
fi
if build package windows-x64 products && build package windows-x86 products; then
    in_background package run_release_tests
fi
if [ "$fuzz_seconds" -eq 0 ]; then
    note fuzz 0 0 1 "not run: FUZZ_SECONDS is 0"
elif build fuzz native-sanitize fuzzers; then
    in_background fuzz run_fuzzers
fi
for pid in "${background[@]}"; do wait "$pid" || true; done
background=()

for leg in $legs; do
    [ ! -s "$results/$leg.output" ] || cat "$results/$leg.output"
    if [ "$leg" = "${legs_not_run:-}" ]; then
        # As many as the same tests came to on the other architecture.
        read -r good bad _ <"$results/windows-x64"
        note "$leg" 0 0 "$((good + bad))" "not run: $reason"
    fi
    [ -s "$results/$leg" ] || note "$leg" 0 1 0 "ended without a result"
done
say
for leg in $legs; do
    read -r good bad left text <"$results/$leg"
    printf '%-12s %5d passed, %d failed%s  (%s)\n' "$leg" "$good" "$bad" \
        "$([ "$left" -eq 0 ] || printf ', %d skipped' "$left")" "$text"
    passed=$((passed + good)) failed=$((failed + bad)) skipped=$((skipped + left))
done
finished=yes
say "$((SECONDS - started)) s"
if [ "$skipped" -ne 0 ]; then
    say "$passed passed, $failed failed, $skipped skipped"
else
    say "$passed passed, $failed failed"
fi
[ "$failed" -eq 0 ]
