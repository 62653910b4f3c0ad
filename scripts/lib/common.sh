# Shared by the project's shell commands: where things are, and how to speak to the user.
# To be sourced by a script that has set ROOT to the project's folder.

TOOLS=$ROOT/build/tools
BUILD=$(realpath -ms "${TESSARIA_BUILD:-$ROOT/build/release}")
PREFIX=$(realpath -ms "${TESSARIA_PREFIX:-$ROOT/build/prefix}")
# The commands that ours call may work in another folder.
export TESSARIA_BUILD="$BUILD" TESSARIA_PREFIX="$PREFIX"
BIN=$BUILD/bin

say() { printf '%s\n' "$*" >&2; }

# fail MESSAGE [STATUS]: the end, with a plain sentence.
fail() {
    say "${0##*/}: $1"
    exit "${2:-1}"
}

# quietly LOGNAME COMMAND...: runs with the output kept in a log, shown only when the command fails.
quietly() {
    log=$ROOT/build/$1.log
    shift
    mkdir -p "$ROOT/build"
    "$@" >"$log" 2>&1 </dev/null && return 0
    tail -n 40 "$log" >&2
    say "(the whole output: $log)"
    return 1
}

# as_root COMMAND...: as the administrator, by sudo when the caller is somebody else.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        return 1
    fi
}
