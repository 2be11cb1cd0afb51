#!/bin/bash
# What scripts/count_tests.sh makes of reports and logs. Ends with status 0 only if each case comes out as it should.
set -euo pipefail
count=$(cd "$(dirname "$0")/../../scripts" && pwd)/count_tests.sh
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failed=0

# expect <line> <exit status of the run>: of the report and the log that stand there.
expect() {
    local line
    line=$("$count" "$folder/report.xml" "$folder/log" "$2")
    [ "$line" = "$1" ] || { printf 'expected "%s", got "%s"\n' "$1" "$line" >&2; failed=1; }
}
# report [testcase...]
report() {
    printf '<?xml version="1.0" encoding="UTF-8"?>\r\n<testsuites tests="9" name="AllTests">\r\n' >"$folder/report.xml"
    printf '  <testsuite name="S">\r\n' >>"$folder/report.xml"
    [ $# -eq 0 ] || printf '    %s\r\n' "$@" >>"$folder/report.xml"
    printf '  </testsuite>\r\n</testsuites>\r\n' >>"$folder/report.xml"
}
passing='<testcase name="Passes" file="a.cpp" line="3" status="run" result="completed" time="0." classname="S" />'
skipped='<testcase name="Skips" status="run" result="skipped" time="0." classname="S">'
disabled='<testcase name="DISABLED_Off" status="notrun" result="suppressed" time="0." classname="S" />'
failing='<testcase name="Fails" status="run" result="completed" time="0." classname="S">'
message='<failure message="a&#x0A;b" type=""><![CDATA[said:'
: >"$folder/log"

report "$passing" "$passing"
expect "2 0" 0
expect "2 1 status_3" 3
report "$passing" "$failing" "$message" "$passing" "]]>]]&gt;<![CDATA[" "$passing" "]]></failure>" "$message]]></failure>" \
    "</testcase>" "$passing"
expect "2 1 S.Fails" 1
report "$skipped" '<skipped message="no"><![CDATA[no]]></skipped>' "</testcase>" "$disabled" "$passing"
expect "1 2 S.Skips(skipped) S.DISABLED_Off(disabled)" 0
report
expect "0 1 no_test_was_run" 0

printf '[==========] Running 4 tests from 1 test suite.\r\n[ RUN      ] S.A\r\n[       OK ] S.A (0 ms)\r\n[ RUN      ] S.B\r\n' \
    >"$folder/log"
rm "$folder/report.xml"
expect "1 3 ended_in_S.B" 139
report "$passing"
sed -i '$d' "$folder/report.xml"
expect "1 3 ended_in_S.B" 139
: >"$folder/log"
expect "0 1 no_test_was_run" 127

exit "$failed"
