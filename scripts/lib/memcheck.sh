# A Wine that memcheck can follow, below $MEMCHECK, and what it says that is of no interest. Needs common.sh,
# wine.sh and private-apt.sh.

MEMCHECK=$ROOT/build/memcheck

# memcheck_wine: memcheck must know the functions of the C library that Wine's loader runs on, and the host's comes
# without their names. So the loader is copied and made to run on a C library of its own.
memcheck_wine() {
    [ ! -e "$MEMCHECK/wine/complete" ] || return 0
    say "unpacking a C library for memcheck (about half a minute) ..."
    quietly memcheck-packages unpack_c_library || fail "the C library for memcheck could not be fetched"
    wine_files=$TOOLS/wine/root/usr
    [ -d "$wine_files" ] || wine_files=/usr
    tree=$MEMCHECK/wine/usr
    mkdir -p "$tree/lib/wine"
    ln -sf "$wine_files/share" "$tree/share"
    ln -sf "$wine_files/lib/i386-linux-gnu" "$tree/lib/i386-linux-gnu"
    for program in wine wineserver32; do
        # Not a link: Wine looks for its files beside the program.
        cp "$wine_files/lib/wine/$program" "$tree/lib/wine/$program"
        patchelf --set-interpreter "$MEMCHECK/libc/lib/i386-linux-gnu/ld-linux.so.2" "$tree/lib/wine/$program"
    done
    ln -sf wineserver32 "$tree/lib/wine/wineserver"
    touch "$MEMCHECK/wine/complete"
}

unpack_c_library() (
    rm -rf "$MEMCHECK/packages" "$MEMCHECK/libc" "$MEMCHECK/wine"
    mkdir -p "$MEMCHECK/packages" "$MEMCHECK/libc"
    private_apt "$MEMCHECK/apt" i386
    cd "$MEMCHECK/packages"
    apt-get -qq download libc6 libc6-dbg
    for package in *.deb; do dpkg-deb -x "$package" "$MEMCHECK/libc"; done
    # memcheck looks for a library's names beside it, in a file that is called for most of the library's number.
    libraries=$MEMCHECK/libc/lib/i386-linux-gnu
    mkdir -p "$libraries/.debug"
    for names in "$MEMCHECK"/libc/usr/lib/debug/.build-id/*/*.debug; do
        ln -sf "$names" "$libraries/.debug/"
    done
)

# print_suppressions: of what Wine and the C library do by themselves.
print_suppressions() {
    for object in '*/wine/i386-unix/*' '*/i386-windows/ntdll.dll' '*/i386-windows/kernelbase.dll' '*/i386-linux-gnu/*'; do
        for kind in Addr1 Addr2 Addr4 Addr8 Addr16 Cond Value1 Value2 Value4 Value8 Value16 Jump; do
            printf '{\n%s\nMemcheck:%s\nobj:%s\n}\n' "$kind" "$kind" "$object"
            # The same from a function of the C library's that memcheck has put its own in the place of.
            for function in 'mem*' 'str*' 'wcs*'; do
                printf '{\n%s\nMemcheck:%s\nfun:%s\nobj:%s\n}\n' "$kind" "$kind" "$function" "$object"
            done
        done
        printf '{\nParam\nMemcheck:Param\n*\nobj:%s\n}\n' "$object"
    done
}
