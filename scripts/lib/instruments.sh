# What the instruments share: a build folder of their own, and the tests in it. Needs common.sh and wine.sh.

# instrumented_build NAME [TARGET...]: the programs as cmake/Instruments.cmake makes them for NAME.
instrumented_build() {
    instrument=$1
    shift
    "$ROOT/scripts/setup" "$instrument"
    [ -e "$BUILD/build.ninja" ] || quietly "configure-$instrument" \
        cmake -S "$ROOT" -B "$BUILD" -G Ninja "-DINSTRUMENT=$instrument" ||
        fail "the build could not be configured"
    "$ROOT/scripts/build" "$@"
}

# run_tests [ROOM...]: all programs' tests, or those of the rooms named. WITHOUT may name one that says nothing.
run_tests() {
    prefix_ready
    rooms=$(echo "$*" | tr ' ' '|')
    rm -rf "$BUILD/test-results" "$BUILD/ctest.xml"
    # What looks at sources or pages only says nothing here.
    ctest --test-dir "$BUILD" --output-on-failure --no-tests=error -j "$(nproc)" \
        -R "^(${rooms:-.*})\$" -E "^(formatting|includes|shell-scripts|commands|pages${WITHOUT:+|$WITHOUT})\$" \
        --output-junit "$BUILD/ctest.xml" >&2
}

# count_results: how many tests passed and failed, in one line.
count_results() {
    awk -v results="$BUILD/test-results" -f "$ROOT/scripts/count-results.awk" "$BUILD/ctest.xml" || :
}
