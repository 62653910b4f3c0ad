#!/bin/sh
# usage: tests/dialogs/real-input.sh
# The window for the choice of contacts folders, worked by a real mouse and keyboard: on a display of its own,
# from the pointer and the keys through to the settings. Ends with "1 passed" or "1 failed". What the prefix's
# user has goes.
set -eu
ROOT=$(cd "$(dirname "$(readlink -f "$0")")/../.." && pwd)
. "$ROOT/scripts/lib/common.sh"
. "$ROOT/scripts/lib/wine.sh"
. "$ROOT/scripts/lib/programs.sh"

TITLE='Outlook contacts folders selection'
# The middle of the first line's box, from the window's upper left corner (at 96 dots per inch).
BOX='25 61'

folder=$(mktemp -d)
display_server=

tidy() {
    status=$?
    trap - EXIT
    fresh_state
    [ -z "$display_server" ] || kill "$display_server" || :
    rm -rf "$folder"
    [ "$status" = 0 ] && echo "1 passed" || echo "1 failed"
    exit "$status"
}
trap tidy EXIT
trap 'exit 1' INT TERM HUP

# until_true WHAT COMMAND...: tries the command again and again, for 20 seconds at most.
until_true() {
    what=$1
    shift
    for _ in $(seq 200); do
        "$@" && return
        sleep 0.1
    done
    fail "waited too long for $what"
}
# find_window TITLE: its number in $window.
find_window() {
    window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null) && [ -n "$window" ]
}
is_closed() { ! find_window "$TITLE"; }
# press THING...: to xdotool; never waits for ever.
press() { timeout 10 xdotool "$@" || fail "the display does not take xdotool $*"; }
# is_stored NAME VALUES: those of that name in the stored selection, in the order of their numbers.
is_stored() {
    wine_quiet reg query 'HKCU\Software\Norvane\7316\Popup\zelbar00folder' || :
    stored=$(tr -d '\r' <"$PREFIX/setup.log" | sort | awk -v name="^$1[0-9]*\$" '$1 ~ name { printf "%s ", $3 }')
    [ "$stored" = "$2 " ]
}

for program in Xvfb xdotool; do
    command -v "$program" >/dev/null || fail "there is no $program; run scripts/setup first"
done
prefix_ready
register_programs
fresh_state
for cards in Mailbox/Contacts Club/Members Sales/Customers; do
    wine_quiet "$BIN/outlook_standin.exe" import --store "${cards%/*}" \
        "$(windows_path "$ROOT/samples/$cards.vcf")" || fail "no mailbox could be made; see $PREFIX/setup.log"
done
Xvfb -displayfd 3 -nolisten tcp -screen 0 1024x768x24 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
display_server=$!
until_true "a display" test -s "$folder/display"
DISPLAY=:$(cat "$folder/display")
export DISPLAY

# What the client's user does to get the window, on a Windows desktop that has the keyboard.
timeout -k 5 60 "$WINE" explorer "/desktop=realinput,1024x768" "$(windows_path "$BIN/pimcall.exe")" config \
    </dev/null >"$folder/pimcall.log" 2>&1 &
until_true "the desktop" find_window "realinput - Wine desktop"
press windowfocus "$window"
# The first choice is saved as soon as the folders are known.
until_true "the list of folders" is_stored selectId "-1 -1 -1 -1"
until_true "the window" find_window "$TITLE"
# shellcheck disable=SC2086
press mousemove --window "$window" $BOX click 1
press key Home Down Down space Tab space alt+o
until_true "the window to close" is_closed
is_stored selectId "0 -1 0 -1" ||
    fail "after a click on the first box and Space on the third the folders are '$stored'"
is_stored ConfigChanged 1 || fail "the cache is not to be rebuilt"
