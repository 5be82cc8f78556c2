# shellcheck shell=bash
# Sourced by every script here, from the root of the tree.

# shellcheck source=scripts/env.sh
. scripts/env.sh

die() {
    echo "${0##*/}: $*" >&2
    exit 1
}

say() { echo "${0##*/}: $*"; }

quietly() { # COMMAND...: its output is shown only when it fails
    local output
    output=$(mktemp)
    if "$@" >"$output" 2>&1 </dev/null; then
        rm -f "$output"
        return 0
    fi
    tail -n 200 "$output" >&2
    rm -f "$output"
    return 1
}
