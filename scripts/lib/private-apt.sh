# apt with folders of its own: packages and sources can be fetched (never installed) without root, without
# touching the host's package lists, and for an architecture or a kind (sources) that the host has not
# switched on. Needs common.sh.

# debian_mirror: the address the host itself takes Debian from.
debian_mirror() {
    cat /etc/apt/sources.list.d/*.sources 2>/dev/null | awk -v suite="$1" '
        function finish() { if (uri != "" && suites ~ " " suite " " && components ~ / main /) { print uri; found = 1; exit } uri = suites = components = "" }
        /^[ \t]*$/ { finish(); next }
        tolower($1) == "uris:" { uri = $2 }
        tolower($1) == "suites:" { $1 = ""; suites = $0 " " }
        tolower($1) == "components:" { $1 = ""; components = $0 " " }
        END { if (!found) finish() }'
    cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null |
        sed -n "s/^deb \(\[[^]]*\] *\)\?\([^ ]*\)  *$1  *\(.* \)\?main\( .*\)\?\$/\2/p"
}

# private_apt DIR ARCHITECTURE: prepares DIR and points apt-get at it (APT_CONFIG).
private_apt() {
    dir=$1
    arch=$2
    suite=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    mirror=$(debian_mirror "$suite" | head -n 1)
    [ -n "$mirror" ] || fail "no package archive for Debian '$suite' among apt's sources"
    rm -rf "$dir"
    mkdir -p "$dir/lists/partial" "$dir/cache/archives/partial" "$dir/none"
    : >"$dir/status"
    keyring=/usr/share/keyrings/debian-archive-keyring.gpg
    signed=
    [ -e "$keyring" ] && signed="[signed-by=$keyring]"
    for kind in deb deb-src; do
        echo "$kind $signed $mirror $suite main"
    done >"$dir/sources.list"
    cat >"$dir/apt.conf" <<END
Dir::State::status "$dir/status";
Dir::State::lists "$dir/lists";
Dir::Cache "$dir/cache";
Dir::Etc::sourcelist "$dir/sources.list";
Dir::Etc::sourceparts "$dir/none";
Dir::Etc::preferencesparts "$dir/none";
APT::Architecture "$arch";
APT::Architectures { "$arch"; "amd64"; };
APT::Sandbox::User "";
Acquire::Languages "none";
Acquire::Retries "3";
END
    export APT_CONFIG="$dir/apt.conf"
    apt-get -qq update
}
