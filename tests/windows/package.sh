#!/usr/bin/env bash
# The package on another machine: unpacked elsewhere, it brings every DLL that is needed, its player
# plays, and a project builds against it.
#   package.sh PACKAGE
# shellcheck source=../e2e/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../e2e/lib.sh"
[ -e "$1" ] || skip "scripts/package-windows has not made ${1##*/}"

place="$scratch/un packed ü"
mkdir "$place"
(cd "$place" && "$CMAKE" -E tar xf "$1")
tree=("$place"/*)

# Nothing of the build is in reach: what is loaded comes from the package or from Windows.
export WINEPATH
WINEPATH=$(seen "$tree/bin")
VELMORA_EMULATOR=$(command -v wine)
export SDL_AUDIO_DRIVER=dummy

step() { # COMMAND...: its output is shown only when it fails
    local status=0
    "$@" >"$scratch/step.log" 2>&1 || status=$?
    ended_well $status || fail "$*"
}

play() { # CORE GAME
    command_of "$tree/bin/velmora-player.exe" "$tree/cores/$1" "$tree/games/$2" \
        --uncapped --frames 30 --save-dir "$scratch/saves" --screenshot "$scratch/shot.bmp"
    step "${command[@]}"
    grep -q '^frames 30 ' "$scratch/step.log" || fail "$1: no report"
    [ -s "$scratch/shot.bmp" ] || fail "$1: no picture"
    rm "$scratch/shot.bmp"
}
play demo_core_libretro.dll garden.demo
play demo_core_gl_libretro.dll sheets.demogl

step "$CMAKE" -G "$GENERATOR" -S "$CONSUMER" -B "$scratch/build" \
    -DCMAKE_TOOLCHAIN_FILE="$TOOLCHAIN" -DVelmoraHost_DIR="$tree/lib/cmake/VelmoraHost"
step "$CMAKE" --build "$scratch/build"
command_of "$scratch/build/consumer.exe" "$tree/cores/demo_core_libretro.dll" "$tree/games/garden.demo"
step "${command[@]}"
grep -q '^Velmora snes 12 rows' "$scratch/step.log" || fail "the consumer says something else"
