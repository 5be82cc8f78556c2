# shellcheck shell=bash
# Packages and sources on Debian; sourced after common.sh by the scripts that get a machine ready.

release_field() { (. /etc/os-release && echo "${!1:-}"); }

is_root() { [ "$(id -u)" = 0 ]; }

can_install() { is_root || command -v sudo >/dev/null; }

as_root() {
    if is_root; then
        env DEBIAN_FRONTEND=noninteractive "$@"
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

lists_are_fresh=
refresh_lists() {
    [ -z "$lists_are_fresh" ] || return 0
    say "reading the package lists"
    quietly as_root apt-get update -qq || die "apt-get update failed"
    lists_are_fresh=yes
}

is_installed() { dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed; }

install_missing() {
    local missing=() package
    for package; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    can_install || die "without root or sudo these packages cannot be installed: ${missing[*]}"
    refresh_lists
    say "installing ${missing[*]}"
    quietly as_root apt-get install -y -qq --no-install-recommends "${missing[@]}" ||
        die "apt-get install failed"
}

index_targets() {
    # shellcheck disable=SC2016 # apt's placeholders, not the shell's
    apt-get indextargets --format '$(SITE) $(CODENAME) $(COMPONENT)' 'Created-By: Packages'
}

debian_address() { # the archive that this machine's own packages come from
    # Images come with the lists removed, and apt knows of no archive then.
    [ -n "$(index_targets)" ] || refresh_lists >&2
    index_targets | awk -v codename="$(release_field VERSION_CODENAME)" \
        '!/^cdrom:/ && $2 == codename && $3 == "main" && !found { print $1; found = 1 }'
}

# Unpacks a source package of a Debian release, through a source entry and lists that stay out of the
# system's own.
fetch_source() { # DIRECTORY ADDRESS CODENAME PACKAGE
    local keyring=/usr/share/keyrings/debian-archive-keyring.gpg
    local apt=(apt-get -qq -o "Dir::Etc::sourcelist=$1/source.list"
        -o Dir::Etc::sourceparts=/dev/null -o "Dir::State::Lists=$1/lists"
        -o "Dir::Cache=$1/cache" -o "APT::Sandbox::User=$(id -un)")
    [ -n "$2" ] || die "apt knows no Debian archive to take the source of $4 from"
    mkdir -p "$1/lists/partial" "$1/cache/archives/partial" &&
        echo "deb-src [signed-by=$keyring] $2 $3 main" >"$1/source.list" &&
        "${apt[@]}" update && cd "$1" && "${apt[@]}" source --only-source "$4"
}

# Has `COMPILE WORK` build and install into WORK/stage/PREFIX, and puts the finished tree in place with
# one rename. PREFIX/MARK tells that it is there.
provide_prefix() { # NAME PREFIX MARK COMPILE
    local work="$2.building"
    [ ! -e "$2/$3" ] || return 0
    mkdir -p "$(dirname "$2")"
    exec 9>"$2.lock"
    flock 9
    # Another set-up may have built it while this one waited.
    [ ! -e "$2/$3" ] || return 0
    say "building $1 into $2, once; it takes minutes"
    rm -rf "$work" && mkdir "$work"
    (quietly "$4" "$work") || die "$1 could not be built"
    rm -rf "$2"
    mv "$work/stage$2" "$2"
    rm -rf "$work"
    exec 9>&-
}
