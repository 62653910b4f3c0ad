#!/bin/sh
# usage: tests/com/prefixes.sh
# What a member of an interface traps stands in the trace under the member's own name.
cd "$(dirname "$(readlink -f "$0")")/../../driver/com" || exit 1
awk '
    /STDMETHODIMP/ {
        member = $0
        sub(/\(.*/, "", member)
        sub(/.* (get_|put_|putref_)?/, "", member)
    }
    match($0, /"Error \([^)]*\): "/) {
        prefix = substr($0, RSTART, RLENGTH)
        members++
        if (prefix !~ "[( ]" member "(\\)| - )") wrong[member] = prefix
    }
    END {
        for (member in wrong) print member " reports under " wrong[member]
        exit members < 90 || length(wrong) > 0
    }' ./*Border.h
