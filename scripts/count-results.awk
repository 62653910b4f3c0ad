# Counts what really ran. Input: ctest's results, one <testcase> per program; a program made with GoogleTest has
# left results/<name>.xml with its own cases (unless it crashed), any other counts as one.

function attribute(line, name,   rest) {
    if (!match(line, " " name "=\"[^\"]*\"")) return ""
    rest = substr(line, RSTART, RLENGTH)
    sub(/^[^"]*"/, "", rest)
    sub(/"$/, "", rest)
    return rest
}

# Adds the cases of one program; returns how many failed, or -1 when the program left no results.
function addCases(file,   line, bad, read) {
    bad = -1
    while ((read = (getline line < file)) > 0) {
        if (line ~ /<testsuites /) {
            bad = attribute(line, "failures") + attribute(line, "errors")
            failed += bad
            passed += attribute(line, "tests") - attribute(line, "disabled") - bad
        } else if (line ~ /<testsuite /) {
            passed -= attribute(line, "skipped")
        }
    }
    close(file)
    return bad
}

/<testcase / {
    name = attribute($0, "name")
    ran = attribute($0, "status") == "run"
    bad = addCases(results "/" name ".xml")
    if (ran && bad < 0) passed++
    # A program that failed although none of its cases says so has crashed, hung or left something behind.
    if (!ran && bad <= 0) failed++
}

END {
    print (passed + 0) " passed, " (failed + 0) " failed"
    exit failed > 0 || passed == 0
}
