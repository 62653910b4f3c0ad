# How Wine is started here, and the prefix (the Windows installation) it runs in. Needs common.sh.

export WINEPREFIX="$PREFIX"
export WINEARCH=win32
# Wine links the user's Windows folders into the Unix home; programs under test must not reach the real one.
export HOME="$PREFIX/home"
export WINEDEBUG="${WINEDEBUG:--all}"
# File names and arguments are UTF-8, whatever the caller's terminal uses.
export LC_ALL=C.UTF-8
# No offers to download .NET or a browser, and no debugger that waits for somebody after a crash.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winedbg.exe=}"
[ ! -e "$TOOLS/wine/fonts.conf" ] || export FONTCONFIG_FILE="$TOOLS/wine/fonts.conf"
WINE=$TOOLS/wine/wine32
WINESERVER=$TOOLS/wine/wineserver32

# wine_quiet COMMAND...: a small Windows command of our own, its output kept in a file: background
# processes that Wine starts would hold a pipe open (and a lock, which is why 9 is closed). It runs in the
# prefix: Wine would take a program that lies in the caller's folder before its own of that name.
wine_quiet() (
    cd "$PREFIX" && timeout -k 5 120 "$WINE" "$@" </dev/null >"$PREFIX/setup.log" 2>&1 9>&-
)

# prefix_ready: makes the prefix on first use, and gives it our settings when those are new. Several callers
# at once wait for the one who does it.
prefix_ready() {
    settings=$ROOT/scripts/lib/prefix.reg
    cmp -s "$settings" "$PREFIX/tessaria-settings.reg" && return 0
    [ -x "$WINE" ] || fail "there is no Wine yet; run scripts/setup first"
    mkdir -p "$PREFIX"
    (
        flock 9
        cmp -s "$settings" "$PREFIX/tessaria-settings.reg" && exit 0
        if [ ! -e "$PREFIX/system.reg" ]; then
            say "making the Windows folder $PREFIX (about ten seconds) ..."
            wine_quiet wineboot -i || fail "Wine could not make its folder; see $PREFIX/setup.log"
            own_user_folders
        fi
        wine_quiet regedit /S "$(windows_path "$settings")" ||
            fail "Wine could not take its settings; see $PREFIX/setup.log"
        # The services of a fresh prefix only answer other processes after a restart.
        "$WINESERVER" -k || :
        "$WINESERVER" -w || :
        cp "$settings" "$PREFIX/tessaria-settings.reg"
    ) 9>"$PREFIX.lock" || exit 1
}

# own_user_folders: Documents and the like are links to the caller's real home in a fresh prefix.
own_user_folders() {
    find "$PREFIX/drive_c/users" -type l 2>/dev/null | while read -r link; do
        rm -f "$link"
        mkdir "$link"
    done
}

# windows_path PATH: the same file as Windows programs name it.
windows_path() {
    printf 'Z:%s\n' "$(realpath -ms "$1" | tr / '\\')"
}
