#!/bin/bash
# Reads the sources without running them: formatting and shell scripts of the whole tree, and clang-tidy over what is
# not committed and the files of the latest fifty commits. Ends with status 0 only if nothing was found.
#
#   scripts/check.sh [--all]
#
#   --all             clang-tidy over the whole tree, however long that takes
#   TIDY_SECONDS=140  how long clang-tidy may begin another piece otherwise; what is left is told, with a count
#
# Nothing has to be built: two trees are configured for their compile commands. Code for Windows is read with the
# headers of its own compiler.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

all=no
case ${1:-} in
    --all) all=yes ;;
    '') ;;
    *) fail "usage: check.sh [--all]" ;;
esac
tidy_seconds=${TIDY_SECONDS:-140}
tidy=$root/build/check
findings=0

"$root/scripts/setup.sh" check
cd "$root"
rm -rf "$tidy"
mkdir -p "$logs" "$tidy/units"

mapfile -t sources < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
[ "${#sources[@]}" -gt 0 ] || fail "git names no sources here"
say "Formatting: ${#sources[@]} files"
printf '%s\0' "${sources[@]}" | xargs -0 clang-format --dry-run -Werror || findings=$((findings + 1))

mapfile -t shell_scripts < <(git ls-files --cached --others --exclude-standard '*.sh' .ci/run)
say "Shell scripts: ${#shell_scripts[@]} files"
shellcheck "${shell_scripts[@]}" || findings=$((findings + 1))

# configure <preset>: into a tree of its own, without precompiled headers, which only a build would make.
configure() {
    cmake --preset "$1" -B "$tidy/$1" -DOBK_PRECOMPILE=OFF -DOBK_DIST="$tidy/dist" "${@:2}" >"$logs/check-$1.log" 2>&1 ||
        { cat "$logs/check-$1.log" >&2; return 1; }
}
configure native-sanitize -DOBK_BENCHMARKS=ON
# clang finds the headers of C for this target, but not the place of this compiler's C++ library.
library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include/c++)
configure windows-x64 \
    "-DCMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES=$library;$library/x86_64-w64-mingw32;$library/backward"

# The command of each source, without its output and its name: sources of one command are read as one piece, because
# nearly all of clang-tidy's time goes into the headers.
declare -A command_of folder_command
while IFS=$'\t' read -r file command; do
    file=${file#"$root/"}
    [ -z "${command_of[$file]:-}" ] || continue
    command_of[$file]=$command
    folder_command[${file%/*}]=$command
done < <(sed -nE '/^ *"command": "/ { s/^ *"command": "(.*)",$/\1/; s/ -o [^ ]+ -c [^ ]+$//; h }
    /^ *"file": "/ { s/^ *"file": "(.*\.cpp)",?$/\1/; t print; b; :print G; s/\n/\t/; p }' \
    "$tidy"/{native-sanitize,windows-x64}/compile_commands.json)

# A folder of headers alone is read as its users are.
folder_command[src/com]=${folder_command[src/server]:-}

# The newest change comes first.
if [ "$all" = yes ]; then
    wanted=("${sources[@]}")
else
    mapfile -t wanted < <({
        git diff --name-only HEAD
        git log --max-count=50 --format= --name-only
    } | awk '/\.(cpp|h)$/ && !seen[$0]++')
fi

# Pieces of at most sixteen files, in the order of their first ones. Fuzzers all define the same function.
declare -A unit_of unit_size
units=() unread=()
for file in "${wanted[@]}"; do
    [ -f "$file" ] || continue
    command=${command_of[$file]:-}
    case $file in *.h) command=${folder_command[${file%/*}]:-} ;; esac
    if [ -z "$command" ]; then
        unread+=("$file")
        continue
    fi
    unit=${unit_of[$command]:-} most=16
    case $file in fuzz/*) most=1 ;; esac
    if [ -z "$unit" ] || [ "${unit_size[$unit]}" -ge "$most" ]; then
        unit=$tidy/units/${#units[@]}.cpp
        units+=("$unit")
        unit_of[$command]=$unit unit_size[$unit]=0
        printf '%s\t%s\n' "$unit" "$command" >>"$tidy/commands"
    fi
    unit_size[$unit]=$((unit_size[$unit] + 1))
    printf '#include "%s"\n' "$root/$file" >>"$unit"
done
[ "${#unread[@]}" -eq 0 ] || say "No compile command, not read by clang-tidy: ${unread[*]}"

# tidy_unit <unit>: its findings, one a line. Files that do not agree in one piece are read one by one.
tidy_unit() {
    local unit=$1 command report=$1.report include number=0 part
    too_late() { [ "$all" = no ] && [ "$(date +%s)" -ge "$tidy_until" ]; }
    if too_late; then
        cp "$unit" "$unit.left"
        return
    fi
    command=$(awk -F'\t' -v unit="$unit" '$1 == unit { print $2; exit }' "$tidy/commands")
    read_unit() {
        local folder=$1.d
        mkdir -p "$folder"
        printf '[{"directory": "%s", "command": "%s -c %s", "file": "%s"}]\n' \
            "$tidy" "$command" "$1" "$1" >"$folder/compile_commands.json"
        # Warnings are the compilers' part; the target follows from the compiler's name in the command.
        local status=0
        clang-tidy --quiet -p "$folder" --config-file="$root/.clang-tidy" --extra-arg=-w "$1" \
            >"$1.output" 2>"$1.errors" || status=$?
        grep -E '^[^ ]+:[0-9]+:[0-9]+: (warning|error): ' "$1.output" || true
        [ "$status" -eq 0 ] || grep -q ': error: ' "$1.output" ||
            printf '%s: error: clang-tidy ended with %s, see %s.errors\n' "$1" "$status" "$1"
    }
    read_unit "$unit" >"$report"
    if grep -q ': error: ' "$report"; then
        : >"$report"
        while IFS= read -r include; do
            if too_late; then
                printf '%s\n' "$include" >>"$unit.left"
                continue
            fi
            number=$((number + 1)) part=${unit%.cpp}-$number.cpp
            printf '%s\n' "$include" >"$part"
            read_unit "$part" >>"$report"
        done <"$unit"
    fi
}
export -f tidy_unit
export tidy all root tidy_until=$(($(date +%s) + tidy_seconds))

say "clang-tidy: $((${#wanted[@]} - ${#unread[@]})) files in ${#units[@]} pieces"
# shellcheck disable=SC2016  # of the shells that xargs starts
[ "${#units[@]}" -eq 0 ] || printf '%s\0' "${units[@]}" | xargs -0 -n 1 -P "$jobs" bash -c 'tidy_unit "$1"' tidy_unit

left=$(find "$tidy/units" -name '*.left' -exec cat {} + | wc -l)
# A header is named by the link it was included through, once for each piece that includes it.
found=$(find "$tidy/units" -name '*.report' -exec cat {} + |
    sed -E "\\,^$tidy/units/.*bugprone-suspicious-include,d; s,^$tidy/[^/]+/include/obk_container/,apps/,; s,^$tidy/[^/]+/include/[^/]+/,src/,; s,^$root/,," |
    sort -u -t: -k1,1 -k2,2n -k3,3n -k4)
if [ -n "$found" ]; then
    say "$found"
    findings=$((findings + 1))
fi
[ "$left" -eq 0 ] ||
    say "NOTICE: $left of these files were not read by clang-tidy in $tidy_seconds s; scripts/check.sh --all reads all."
[ "$findings" -eq 0 ] || fail "there are findings"
say "No findings"
