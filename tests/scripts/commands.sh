#!/bin/sh
# What the other tests rely on: that a failure is passed on, and counted.
set -eu
ROOT=$(cd "$(dirname "$(readlink -f "$0")")/../.." && pwd)
. "$ROOT/scripts/lib/common.sh"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

# expect STATUS OUTPUT COMMAND...: runs it, with both as they must be; of the output the last line.
expect() {
    status=$1
    output=$2
    shift 2
    actual=0
    printed=$("$@" 2>&1) || actual=$?
    printed=$(printf '%s' "$printed" | tr -d '\r' | tail -n 1)
    [ "$actual" = "$status" ] || fail "$*: status $actual instead of $status ($printed)"
    case $printed in *"$output"*) ;; *) fail "$*: \"$printed\" instead of \"$output\"" ;; esac
}

# A program of the current folder is not what a plain name means.
cp "$BIN/pimcall.exe" reg.exe
expect 2 'pimcall --help' "$ROOT/scripts/emulator" "$BIN/pimcall.exe" nonsense
expect 2 'pimcall --help' "$ROOT/inwine" pimcall nonsense
expect 0 RelayFromExclude "$ROOT/inwine" reg query 'HKCU\Software\Wine\Debug'
expect 2 'no program nonsense' "$ROOT/inwine" nonsense
expect 2 'no part nonsense' "$ROOT/prove" nonsense

# count: what count-results.awk makes of the programs in ctest.xml.
count() { awk -v results=. -f "$ROOT/scripts/count-results.awk" ctest.xml; }
suites() { printf '<testsuites tests="%s" failures="%s" disabled="1" errors="0">\n' "$2" "$3" >"$1.xml"; }
suites good 4 0
suites bad 5 2
printf '<testcase name="%s" status="%s">\n' good run other run >ctest.xml
expect 0 '4 passed, 0 failed' count
printf '<testcase name="%s" status="%s">\n' bad fail good fail crashed fail >>ctest.xml
expect 1 '9 passed, 4 failed' count
: >ctest.xml
expect 1 '0 passed, 0 failed' count
