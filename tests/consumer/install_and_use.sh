#!/usr/bin/env bash
# Installs the build into a prefix of its own, then builds and runs a project against it, once
# through the CMake package and once through pkg-config, and the installed player.
#   install_and_use.sh BUILD-DIRECTORY CORE GAME
set -euo pipefail
build=$1 core=$2 game=$3
project=$(dirname "${BASH_SOURCE[0]}")/project
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data
prefix=$scratch/prefix

step() { # COMMAND...: its output is shown only when it fails
    "$@" >"$scratch/log" 2>&1 || {
        echo "failed: $*"
        cat "$scratch/log"
        exit 1
    }
}

# What a frontend sees of the world has to come from the prefix alone.
step "$CMAKE" --install "$build" --prefix "$prefix"
libraries=$(dirname "$(find "$prefix" -name 'libVelmoraHost.so')")

step "$CMAKE" -G "$GENERATOR" -S "$project" -B "$scratch/cmake" -DCMAKE_PREFIX_PATH="$prefix"
grep -q "^VelmoraHost_DIR:PATH=$prefix/" "$scratch/cmake/CMakeCache.txt"
step "$CMAKE" --build "$scratch/cmake"
step "$scratch/cmake/consumer" "$core" "$game"
grep -qx 'Velmora snes 12 rows' "$scratch/log"

PKG_CONFIG_PATH=$libraries/pkgconfig${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}
export PKG_CONFIG_PATH
read -ra flags < <(pkg-config --cflags --libs velmorahost)
step "$CXX" -std=c++20 -fPIC "$project/main.cpp" -o "$scratch/consumer" "${flags[@]}"
step env LD_LIBRARY_PATH="$libraries${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" \
    "$scratch/consumer" "$core" "$game"

export SDL_VIDEO_DRIVER=offscreen SDL_AUDIO_DRIVER=dummy
step "$prefix/bin/velmora-player" "$core" "$game" --uncapped --frames 30 --save-dir "$scratch/saves"
grep -q '^frames 30 ' "$scratch/log"
