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

configure_release() { # [CMAKE OPTION...]
    if [ -e build/release/build.ninja ]; then
        quietly cmake "$@" build/release || die "the configuration failed"
        return
    fi
    say "building, which takes a minute the first time"
    # Only scripts/test wants the tests, and installs their libraries.
    quietly cmake --preset release -DVELMORA_BUILD_TESTS=OFF "$@" || die "the configuration failed"
}

build_release() { # TARGET...
    quietly cmake --build --preset release --target "$@" || die "the build failed"
}
