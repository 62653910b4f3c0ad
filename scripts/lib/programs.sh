# The project's programs inside the prefix: registered, and (on request) without any state of a user.
# Needs wine.sh.

# register_programs: driver and stand-ins, when a file is new, or another, or elsewhere than last time.
register_programs() {
    state=$(stat -c '%n %s %Y' "$BIN/zelbar00.dll" "$BIN/dao_standin.dll" "$BIN/outlook_standin.exe" \
        2>/dev/null) || fail "the programs are not built yet; run scripts/build"
    [ "$state" != "$(cat "$PREFIX/tessaria-registered" 2>/dev/null)" ] || return 0
    (
        flock 9
        wine_quiet regsvr32 /s "$(windows_path "$BIN/zelbar00.dll")" ||
            fail "zelbar00.dll could not be registered (status $?)"
        wine_quiet regsvr32 /s "$(windows_path "$BIN/dao_standin.dll")" ||
            fail "dao_standin.dll could not be registered (status $?)"
        wine_quiet "$BIN/outlook_standin.exe" /regserver ||
            fail "outlook_standin.exe could not be registered (status $?)"
        printf '%s\n' "$state" >"$PREFIX/tessaria-registered"
    ) 9>"$PREFIX.lock" || exit 1
}

# fresh_state: an empty mailbox, no cache, no settings. Ends whatever runs in the prefix.
fresh_state() {
    "$WINESERVER" -k || :
    "$WINESERVER" -w || :
    rm -rf "$PREFIX/drive_c/users/"*/AppData/Local/OutlookStandin \
        "$PREFIX/drive_c/users/"*"/AppData/Roaming/Norvane Tessaria"
    wine_quiet regedit /S "$(windows_path "$ROOT/scripts/lib/fresh.reg")" ||
        fail "the settings could not be removed; see $PREFIX/setup.log"
}
