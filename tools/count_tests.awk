# Adds up the tests of one stage and prints how many passed, failed and were skipped.
#
#   awk -f count_tests.awk CTEST.junit PROGRAM.xml…
#
# ctest knows a test program as one test. Where GoogleTest left PROGRAM.xml, its tests are counted instead. A program
# that failed without a failed test to show for it (a crash, a leak found at its end, a time-out) counts as one more.

function attribute(line, name,    found) {
    if (!match(line, " " name "=\"[^\"]*\"")) return ""
    found = substr(line, RSTART, RLENGTH)
    sub("^ " name "=\"", "", found)
    sub("\"$", "", found)
    return found
}

FNR == 1 {
    program = FILENAME
    sub(".*/", "", program)
    sub("\\.xml$", "", program)
}

FILENAME ~ /\.junit$/ {
    if (/<testcase /) status[attribute($0, "name")] = attribute($0, "status")
    next
}

/^<testsuites / {
    known[program] = 1
    tests[program] += attribute($0, "tests")
    failures[program] += attribute($0, "failures") + attribute($0, "errors")
    disabled[program] += attribute($0, "disabled")
}

/^    <testcase .* result="skipped"/ { disabled[program]++ }

END {
    for (name in status) {
        if (name in known) {
            passed += tests[name] - failures[name] - disabled[name]
            failed += failures[name]
            skipped += disabled[name]
            if (status[name] == "fail" && failures[name] == 0) failed++
        }
        else if (status[name] == "run") passed++
        else if (status[name] == "fail") failed++
        else skipped++
    }
    print passed + 0, failed + 0, skipped + 0
}
