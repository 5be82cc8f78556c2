# shellcheck shell=bash
# Shared by the scripts beside it: the Windows player with Wine, on the screen that is there.
set -euo pipefail

deadline=60
scratch=$(mktemp -d)
player=

finish() {
    local status=$?
    [ -z "$player" ] || kill "$player" 2>/dev/null || true
    if [ "$status" -ne 0 ] && [ "$status" -ne 77 ] && [ -s "$scratch/player.log" ]; then
        tail -n 40 "$scratch/player.log"
    fi
    rm -rf "$scratch"
    exit "$status"
}
trap finish EXIT

skip() {
    echo "skipped: $*"
    exit 77
}

fail() {
    echo "failed: $*"
    [ -z "${VELMORA_KEEP_PICTURES:-}" ] || import -window root "$VELMORA_KEEP_PICTURES/failed.png"
    exit 1
}

need() { # TOOL...
    local tool
    [ -n "${DISPLAY:-}" ] || skip "there is no X server"
    for tool; do
        command -v "$tool" >/dev/null || skip "$tool is not installed"
    done
}

eventually() { # COMMAND...: repeats it until it succeeds or time is up
    local end=$((SECONDS + deadline))
    until "$@"; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.2
    done
}

in_windows() { echo "Z:${1//\//\\}"; } # PATH

# A picture of the screen for whoever wants to look.
keep_picture() { # NAME
    [ -z "${VELMORA_KEEP_PICTURES:-}" ] || import -window root "$VELMORA_KEEP_PICTURES/$1.png"
}
