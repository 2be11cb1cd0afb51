#!/bin/bash
# What a run of a test program came to, as one line: "<passed> <failed> <what failed...>".
#
#   scripts/count_tests.sh <report.xml> <log> <exit status>
#
# GoogleTest writes its report when the run ends. A skipped and a disabled test have failed, and so has a run of no
# test, and one that ends with a status but with no failure. Where there is no whole report the run was cut short: the
# log tells what had passed; every other test that it announced has failed, and the one that ran is named.
set -euo pipefail
report=$1 log=$2 status=$3

if [ -f "$report" ] && tail -n 1 "$report" | grep -q '^</testsuites>'; then
    tr -d '\r' <"$report" | awk -v status="$status" '
        function attribute(name,    at, rest) {
            at = index(line, " " name "=\"")
            rest = substr(line, at + length(name) + 3)
            return at ? substr(rest, 1, index(rest, "\"") - 1) : ""
        }
        function fails(text) { bad++; names = names " " text }
        function settle() {
            if (verdict == "completed") ok++
            else fails(test (verdict == "failed" ? "" : "(" verdict ")"))
        }
        {
            # What a failing test has said may look like anything.
            line = $0
            if (quoted) {
                if (!(at = index(line, "]]>"))) next
                line = substr(line, at + 3)
                quoted = 0
            }
            while (at = index(line, "<![CDATA[")) {
                rest = substr(line, at + 9)
                line = substr(line, 1, at - 1)
                if (!(end = index(rest, "]]>"))) { quoted = 1; break }
                line = line substr(rest, end + 3)
            }
        }
        line ~ /^ *<testcase / {
            test = attribute("classname") "." attribute("name")
            verdict = attribute("status") == "run" ? attribute("result") : "disabled"
            cases++
            if (line ~ /\/>$/) settle()
        }
        line ~ /^ *<failure /   { verdict = "failed" }
        line ~ /^ *<\/testcase>/ { settle() }
        END {
            if (!cases) fails("no_test_was_run")
            if (status != 0 && !bad) fails("status_" status)
            printf "%d %d%s\n", ok, bad, names
        }'
else
    tr -d '\r' <"$log" | awk '
        /^\[==========\] Running [0-9]+ test/ { announced = $3 }
        /^\[ RUN      \]/                     { last = $NF }
        /^\[       OK \]/                     { ok++ }
        END {
            missing = announced - ok
            printf "%d %d %s\n", ok, (missing > 0 ? missing : 1), (last ? "ended_in_" last : "no_test_was_run")
        }'
fi
