#!/bin/sh
# setup.exe and MSI from installation to removal, in a Windows folder that has never seen the driver.
set -eu
ROOT=$(cd "$(dirname "$(readlink -f "$0")")/../.." && pwd)
. "$ROOT/scripts/lib/common.sh"
WALK=$BUILD/packages-walk
TESSARIA_PREFIX=$WALK/prefix
. "$ROOT/scripts/lib/common.sh"
. "$ROOT/scripts/lib/wine.sh"
unset DISPLAY
export PYTHONDONTWRITEBYTECODE=1

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
setup=$WALK/new/tessaria-outlook-driver-$version-setup.exe
machine="$PREFIX/drive_c/Program Files/Norvane/Outlook driver"
user="$PREFIX/drive_c/users/$(id -un)/AppData/Local/Programs/Norvane/Outlook driver"
uninstall_key='Software\Microsoft\Windows\CurrentVersion\Uninstall\Norvane Outlook driver'
server_key='Software\Classes\CLSID\{98EDA71F-51E6-49F9-BF7A-5F664091FC7C}\InprocServer32'

# run STATUS TEXT PROGRAM [ARG...]: its status, the last eight bits of it, and something that it says.
run() {
    status=$1
    text=$2
    shift 2
    actual=0
    (cd "$WALK" && timeout -k 5 60 "$WINE" "$@") </dev/null >"$WALK/output" 2>&1 || actual=$?
    [ "$actual" = "$status" ] || fail "$*: status $actual instead of $status: $(cat "$WALK/output")"
    [ -z "$text" ] || grep -q -e "$text" "$WALK/output" || fail "$*: \"$text\" is not in: $(cat "$WALK/output")"
}

# value ROOT KEY [NAME]: what the registry has there.
value() {
    if [ -n "${3:-}" ]; then
        run 0 REG_ reg query "$1\\$2" /v "$3"
    else
        run 0 REG_ reg query "$1\\$2" /ve
    fi
    tr -d '\r' <"$WALK/output" | sed -n 's/.*REG_[A-Z]* *//p'
}

# driver_answers: a script is told by the driver who has a number.
driver_answers() { run 0 'Lindqvist' cscript //nologo "$(windows_path "$ROOT/docs/samples/find.vbs")" +46313900601; }

# state FILE: all of the registry and of the disk, but for what Windows itself keeps there.
state() {
    stop_windows
    for hive in system user; do
        sed -e "s/^/$hive /" -e 's/\] [0-9]*$/]/' -e '/#time=/d' \
            -e '/"DriverDateData"\|"PendingFileRenameOperations"/d' "$PREFIX/$hive.reg"
    done >"$1"
    (cd "$PREFIX" && find drive_c ! -path '*/Temp/*' ! -path '*/temp/*' ! -path '*/OutlookStandin*' \
        ! -path '*/Norvane Tessaria*' ! -name 'error_*.log' | sort) >>"$1"
}

# nothing_left BEFORE [PATTERN]: the machine is as it was then, but for lines that the pattern knows.
nothing_left() {
    state "$WALK/after"
    diff "$1" "$WALK/after" | grep '^[<>]' | grep -v -e '^. [a-z]* $' ${2:+-e "$2"} >"$WALK/difference" || return 0
    fail "not as it was: $(head -n 20 "$WALK/difference")"
}

# registration FILE: the driver's own keys in a state, whatever a folder's name ends with.
registration() {
    sed -n 's/^system //p' "$WALK/$1" | sed 's/driver\\\\"/driver"/' |
        awk 'BEGIN { RS = ""; ORS = "\n\n" } /^\[Software..Classes/ && /zelbar00|F03A15CF-DF40|98EDA71F-51E6/'
}

# uninstalled FOLDER: runs the removal, which works on after its first process has ended.
uninstalled() {
    run 0 '' "$1/uninstall.exe" /S
    for _ in $(seq 100); do
        [ -e "$1" ] || return 0
        sleep 0.1
    done
    fail "the removal left: $(ls -A "$1")"
}

# hold_driver: a script that uses the driver until C:\stop is there.
hold_driver() {
    rm -f "$PREFIX/drive_c/stop"
    cat >"$WALK/hold.js" <<'JS'
var driver = new ActiveXObject("zelbar00.cDataConnector");
var disk = new ActiveXObject("Scripting.FileSystemObject");
disk.CreateTextFile("C:\\held").Close();
while (!disk.FileExists("C:\\stop"));
WScript.Quit(driver.PIMInstalled ? 7 : 1);
JS
    rm -f "$PREFIX/drive_c/held"
    (cd "$WALK" && timeout -k 5 60 "$WINE" cscript //nologo hold.js </dev/null >"$WALK/hold.log" 2>&1) &
    holder=$!
    for _ in $(seq 200); do
        [ -e "$PREFIX/drive_c/held" ] && return 0
        sleep 0.1
    done
    fail "the driver could not be held: $(cat "$WALK/hold.log")"
}

# let_go: ends that; the driver that it had must have worked to the end.
let_go() {
    touch "$PREFIX/drive_c/stop"
    status=0
    wait "$holder" || status=$?
    [ "$status" = 7 ] || fail "the driver in use failed: $status"
    rm -f "$PREFIX/drive_c/stop" "$PREFIX/drive_c/held"
}

stop_windows() {
    "$WINESERVER" -k || :
    "$WINESERVER" -w || :
}

[ ! -d "$PREFIX" ] || stop_windows
trap stop_windows EXIT
rm -rf "$WALK"
mkdir -p "$WALK"
prefix_ready
"$ROOT/packaging/make-packages" "$BUILD" "$WALK/new" "$version" >"$WALK/make.log" 2>&1 || fail "$(cat "$WALK/make.log")"
"$ROOT/packaging/make-packages" "$BUILD" "$WALK/old" 1.0.0 >"$WALK/make.log" 2>&1 || fail "$(cat "$WALK/make.log")"

run 0 '' regsvr32 /s "$(windows_path "$BIN/dao_standin.dll")"
run 0 '' "$BIN/outlook_standin.exe" /regserver
run 0 '' "$BIN/outlook_standin.exe" import "$(windows_path "$ROOT/samples/Mailbox/Contacts.vcf")"
run 0 '' "$BIN/fillcache.exe" --country SE --quiet
# What the script host registers of its own when it is used first.
echo 'new ActiveXObject("Scripting.FileSystemObject")' >"$WALK/first.js"
run 0 '' cscript //nologo first.js
run 0 '' cscript //nologo "$(windows_path "$ROOT/docs/samples/find.vbs")" 1
state "$WALK/before"

# For all users: an older version, then this one over it.
run 0 '' "$WALK/old/tessaria-outlook-driver-1.0.0-setup.exe" /S /CACHE
driver_answers
state "$WALK/by-setup"
touch "$machine/docs/gone.md"
printf 'docs\\gone.md\r\n' >>"$machine/installed.txt"
run 0 '' "$setup" /S
[ "$(value HKLM "$uninstall_key" DisplayVersion)" = "$version" ] || fail "the version is not the new one"
[ ! -e "$machine/docs/gone.md" ] || fail "a file that only the older version had is still there"
value HKLM 'Software\Microsoft\Windows\CurrentVersion\Run' 'Tessaria contact cache' | grep -q 'fillcache.exe" --quiet' ||
    fail "the cache is not kept current any more"
run 6 'newer' "$WALK/old/tessaria-outlook-driver-1.0.0-setup.exe" /S

# Damage is repaired by running the setup again.
echo damaged >"$machine/zelbar00.dll"
rm "$machine/pimcall.exe"
run 0 '' reg delete 'HKLM\Software\Classes\zelbar00.cDataConnector' /f
run 0 '' "$setup" /S
cmp "$machine/zelbar00.dll" "$BIN/zelbar00.dll" && cmp "$machine/pimcall.exe" "$BIN/pimcall.exe"
driver_answers

# While a program uses the driver: what it has goes on, what starts gets the new one; 3010 means a restart.
hold_driver
run $((3010 & 255)) 'close it and start it again' "$setup" /S
driver_answers
let_go
run 0 '' "$setup" /S
[ "$(find "$machine" -name '~old*')" = '' ] || fail "what was in use is still there"

uninstalled "$machine"
nothing_left "$WALK/before"

# What cannot be done changes nothing: no folder to be made, no room on the disk.
echo >"$PREFIX/drive_c/blocked"
state "$WALK/blocked"
run 4 'Everything is as it was' "$setup" /S '/D=C:\blocked\driver'
(
    trap '' XFSZ
    ulimit -f 1000
    run 4 'Make room' "$setup" /S
)
nothing_left "$WALK/blocked"
rm "$PREFIX/drive_c/blocked"

# The MSI has the driver registered as it does itself; upgrade, repair, removal.
msi=$(windows_path "$WALK/new/tessaria-outlook-driver-$version.msi")
run 0 '' msiexec /i "$(windows_path "$WALK/old/tessaria-outlook-driver-1.0.0.msi")" /qn INSTALLLEVEL=2
state "$WALK/by-msi"
registration by-setup >"$WALK/expected"
registration by-msi | diff "$WALK/expected" - || fail "the MSI registers the driver otherwise than it does itself"
run 6 MSI "$setup" /S
run 0 '' msiexec /i "$msi" /qn
rm "$machine/pimcall.exe"
run 0 '' reg delete 'HKLM\Software\Classes\zelbar00.cDataConnector' /f
run 0 '' msiexec /i "$msi" /qn REINSTALL=ALL REINSTALLMODE=vamus
cmp "$machine/pimcall.exe" "$BIN/pimcall.exe"
driver_answers
run 0 '' msiexec /x "$msi" /qn
# The installer's own keys and folder stay; Wine's also forgets to remove the outer of two empty folders.
nothing_left "$WALK/before" '\\Installer\|CurrentVersion\\\\Run\]$\|windows/Installer$\|drive_c/Program Files/Norvane$'
rmdir "$PREFIX/drive_c/Program Files/Norvane" "$PREFIX/drive_c/windows/Installer"
state "$WALK/before"

# For one user alone: nothing outside what is his.
run 0 '' "$setup" /S /CURRENTUSER
[ "$(value HKCU "$server_key" | tr -d '\r')" = "$(printf 'C:%s' "${user#"$PREFIX/drive_c"}" | tr / '\134')\\zelbar00.dll" ] ||
    fail "the driver is not registered for the user: $(cat "$WALK/output")"
state "$WALK/user"
diff "$WALK/before" "$WALK/user" | grep '^[<>]' | grep -v -e '^[<>] user ' -e '^> drive_c/users/' &&
    fail "an installation for one user changed what is not his"
uninstalled "$user"
# Keys and folders that every other program would have made before stay when they are empty.
nothing_left "$WALK/before" '#class\|Classes\\\\[A-Za-z]*\]$\|CurrentVersion\\\\Uninstall\]$\|Local/Programs$'
