#!/bin/sh
# setup.exe, MSI and zip from installation to removal, in a Windows folder that has never seen the driver.
set -eu
ROOT=$(cd "$(dirname "$(readlink -f "$0")")/../.." && pwd)
WALK=$(realpath -ms "${TESSARIA_BUILD:-$ROOT/build/release}")/packages-walk
TESSARIA_PREFIX=$WALK/prefix
. "$ROOT/scripts/lib/common.sh"
. "$ROOT/scripts/lib/wine.sh"
unset DISPLAY
export PYTHONDONTWRITEBYTECODE=1

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
new=$WALK/new/tessaria-outlook-driver-$version
old=$WALK/old/tessaria-outlook-driver-1.0.0
machine="$PREFIX/drive_c/Program Files/Norvane/Outlook driver"
user="$PREFIX/drive_c/users/$(id -un)/AppData/Local/Programs/Norvane/Outlook driver"

# run STATUS TEXT PROGRAM [ARG...]: its status, the last eight bits of it, and something that it says.
run() {
    expected="$1 $2"
    shift 2
    actual=0
    (cd "$WALK" && timeout -k 5 60 "$WINE" "$@") </dev/null >"$WALK/output" 2>&1 || actual=$?
    [ -z "${expected#* }" ] || grep -q -e "${expected#* }" "$WALK/output" || actual="$actual and other words"
    [ "$actual" = "${expected%% *}" ] || fail "$*: $actual instead of $expected: $(cat "$WALK/output")"
}

# driver_answers: a script is told by the driver who has a number.
driver_answers() { run 0 'Lindqvist' cscript //nologo "$(windows_path "$ROOT/docs/samples/find.vbs")" +46313900601; }

stop_windows() {
    "$WINESERVER" -k || :
    "$WINESERVER" -w || :
}

# state NAME: all of the registry and of the disk, but for what Windows itself keeps there, and the user's data.
state() {
    stop_windows
    for hive in system user; do
        sed -e "s/^/$hive /" -e 's/\] [0-9]*$/]/' -e '/#time=/d' \
            -e '/"DriverDateData"\|"PendingFileRenameOperations"/d' "$PREFIX/$hive.reg"
    done >"$WALK/$1"
    (cd "$PREFIX" && find drive_c ! -path '*/Temp/*' ! -path '*/temp/*' ! -path '*/OutlookStandin*' \
        ! -path '*/Norvane Tessaria*' ! -name 'error_*.log' | sort) >>"$WALK/$1"
}

# has NAME TEXT: the state has it.
has() { grep -qF "$2" "$WALK/$1" || fail "$1: there is no $2"; }

# nothing_left STATE [PATTERN]: the machine is as it was then, but for lines that the pattern knows.
nothing_left() {
    state after
    diff "$WALK/$1" "$WALK/after" | grep '^[<>]' | grep -v -e '^. [a-z]* $' ${2:+-e "$2"} >"$WALK/difference" || return 0
    fail "not as it was: $(head -n 20 "$WALK/difference")"
}

# registration STATE: the driver's own keys in it, whatever a folder's name ends with.
registration() {
    sed -n 's/^system //p' "$WALK/$1" | sed 's/driver\\\\"/driver"/' |
        awk 'BEGIN { RS = ""; ORS = "\n\n" } /^\[Software..Classes/ && /zelbar00|F03A15CF-DF40|98EDA71F-51E6/'
}

# await COMMAND...: until it succeeds, half a minute at most.
await() {
    for _ in $(seq 300); do
        "$@" && return 0
        sleep 0.1
    done
    fail "waited in vain for: $*"
}

# uninstalled FOLDER: runs the removal, which works on after its first process has ended.
uninstalled() {
    run 0 '' "$1/uninstall.exe" /S
    await [ ! -e "$1" ]
}

[ ! -d "$PREFIX" ] || stop_windows
trap stop_windows EXIT
rm -rf "$WALK"
mkdir -p "$WALK"
prefix_ready
for package in "new $version" "old 1.0.0"; do
    "$ROOT/packaging/make-packages" "$BUILD" "$WALK/${package% *}" "${package#* }" >"$WALK/output" 2>&1 ||
        fail "$(cat "$WALK/output")"
done
run 0 '' regsvr32 /s "$(windows_path "$BIN/dao_standin.dll")"
run 0 '' "$BIN/outlook_standin.exe" /regserver
run 0 '' "$BIN/outlook_standin.exe" import "$(windows_path "$ROOT/samples/Mailbox/Contacts.vcf")"
run 0 '' "$BIN/fillcache.exe" --country SE --quiet
# The script host registers something of its own when it is used first.
run 0 '' cscript //nologo "$(windows_path "$ROOT/docs/samples/find.vbs")" 1
state before

# For all users: an older version, then this one over it.
run 0 '' "$old-setup.exe" /S /CACHE
driver_answers
touch "$machine/docs/gone.md"
printf 'docs\\gone.md\r\n' >>"$machine/installed.txt"
run 0 '' "$new-setup.exe" /S
state by-setup
has by-setup "\"DisplayVersion\"=\"$version\""
has by-setup 'fillcache.exe\" --quiet'
[ ! -e "$machine/docs/gone.md" ] || fail "a file that only the older version had is still there"
run 6 'newer' "$old-setup.exe" /S

# Damage is repaired by running the setup again.
echo damaged >"$machine/zelbar00.dll"
run 0 '' reg delete 'HKLM\Software\Classes\zelbar00.cDataConnector' /f
run 0 '' "$new-setup.exe" /S
driver_answers

# While a program uses the driver: what it has goes on, what starts gets the new one (3010 means a restart), or
# none when it is removed; the next setup clears away what had to stay.
cp "$ROOT/tests/packaging/hold.js" "$WALK"
(cd "$WALK" && timeout -k 5 60 "$WINE" cscript //nologo hold.js </dev/null >"$WALK/hold.log" 2>&1) &
holder=$!
await [ -e "$PREFIX/drive_c/held" ]
run $((3010 & 255)) 'close it and start it again' "$new-setup.exe" /S
driver_answers
run 0 '' "$machine/uninstall.exe" /S
await [ ! -e "$machine/pimcall.exe" ]
touch "$PREFIX/drive_c/stop"
wait "$holder" || fail "the driver in use failed: $(cat "$WALK/hold.log")"
rm "$PREFIX/drive_c/stop" "$PREFIX/drive_c/held"
run 0 '' "$new-setup.exe" /S
uninstalled "$machine"
nothing_left before

# What cannot be done changes nothing: no folder to be made, no room on the disk.
echo >"$PREFIX/drive_c/blocked"
run 4 'Everything is as it was' "$new-setup.exe" /S '/D=C:\blocked\driver'
rm "$PREFIX/drive_c/blocked"
(
    trap '' XFSZ
    ulimit -f 1000
    run 4 'Make room' "$new-setup.exe" /S
)
nothing_left before

# From the zip, without registration.
python3 -m zipfile -e "$new.zip" "$WALK/zip"
run 0 'Lindqvist' "$BIN/sample_find.exe" +46313900601 "$(windows_path "$WALK/zip/Norvane.Zelbar00.manifest")"
run 3 'no driver' "$BIN/sample_find.exe" +46313900601

# The MSI has the driver registered as it does itself; upgrade, repair, removal.
run 0 '' msiexec /i "$(windows_path "$old.msi")" /qn INSTALLLEVEL=2
state by-msi
registration by-setup >"$WALK/expected"
registration by-msi | diff "$WALK/expected" - || fail "the MSI registers the driver otherwise than it does itself"
run 6 MSI "$new-setup.exe" /S
run 0 '' msiexec /i "$(windows_path "$new.msi")" /qn
rm "$machine/zelbar00.dll"
run 0 '' reg delete 'HKLM\Software\Classes\zelbar00.cDataConnector' /f
run 0 '' msiexec /i "$(windows_path "$new.msi")" /qn REINSTALL=ALL REINSTALLMODE=vamus
driver_answers
run 0 '' msiexec /x "$(windows_path "$new.msi")" /qn
# The installer's own keys and folder stay; Wine's also forgets to remove the outer of two empty folders.
nothing_left before '\\Installer\|CurrentVersion\\\\Run\]$\|windows/Installer$\|drive_c/Program Files/Norvane$'
rmdir "$PREFIX/drive_c/Program Files/Norvane" "$PREFIX/drive_c/windows/Installer"
state before

# For one user alone: nothing outside what is his.
run 0 '' "$new-setup.exe" /S /CURRENTUSER
state for-user
has for-user "$(printf 'user @="C:%s/zelbar00.dll"' "${user#"$PREFIX/drive_c"}" | sed 's#/#\\\\#g')"
diff "$WALK/before" "$WALK/for-user" | grep '^[<>]' | grep -v -e '^[<>] user ' -e '^> drive_c/users/' &&
    fail "an installation for one user changed what is not his"
uninstalled "$user"
# Keys and folders that every other program would have made before stay when they are empty.
nothing_left before '#class\|Classes\\\\[A-Za-z]*\]$\|CurrentVersion\\\\Uninstall\]$\|Local/Programs$'
