# SPDX-License-Identifier: MIT
# Reads the output of a GoogleTest program. Prints the whole output of each failed test, a line
# "FAILED name" for it, and last "TOTALS passed failed skipped". A test that began and never ended
# has failed, and so have those that never began.
{ sub(/\r$/, "") }
/\[==========\] Running [0-9]+ test/ { expected = $3 }
/^\[ RUN      \] / { current = $4; block = "" }
{ block = block "    " $0 "\n" }
current == "" { next }
/\[       OK \] .* ms\)$/ { passed++; current = "" }
/\[  SKIPPED \] .* ms\)$/ { skipped++; current = "" }
/\[  FAILED  \] .* ms\)$/ { fail(current) }
function fail(name) {
    printf "%sFAILED %s\n", block, name
    failed++
    current = ""
}
END {
    if (current != "") {
        block = block "    the program ended (or hung) in this test\n"
        fail(current)
    }
    missing = expected - passed - failed - skipped
    if (missing > 0) {
        printf "    %d tests were not reached\n", missing
        failed += missing
    }
    printf "TOTALS %d %d %d\n", passed, failed, skipped
}
