#!/usr/bin/env bash
# The same sessions in the Windows player and in this machine's own: the last pictures are the same to
# the pixel, on windows of one screen and, for the hardware path, with one OpenGL.
# shellcheck source=../e2e/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../e2e/lib.sh"

native=${VELMORA_NATIVE_BUILD:-}/examples
need compare identify
[ -x "$native/player/velmora-player" ] || skip "VELMORA_NATIVE_BUILD names no build of this machine's"

play() { # DRIVER NAME PLAYER CORE GAME: leaves its last picture in NAME.bmp
    # Long enough for the scenes to be in full swing.
    command_of "${@:3}" --uncapped --mute --frames 200 --save-dir "$scratch/saves-$2" \
        --screenshot "$scratch/$2.bmp"
    local status=0
    SDL_VIDEO_DRIVER=$1 SDL_AUDIO_DRIVER=dummy "${command[@]}" >"$scratch/player.log" 2>&1 || status=$?
    ended_well $status || fail "$2: the player ended with $status"
}

same_picture() { # NAME WINDOWS-CORE CORE GAME
    local different
    play windows "$1-windows" "$VELMORA_PLAYER" "$2" "$4"
    VELMORA_EMULATOR='' play x11 "$1-here" "$native/player/velmora-player" "$3" "$4"
    [ -z "${VELMORA_KEEP_PICTURES:-}" ] || cp "$scratch/$1"-*.bmp "$VELMORA_KEEP_PICTURES/"
    different=$(compare -metric AE "$scratch/$1-windows.bmp" "$scratch/$1-here.bmp" null: 2>&1) ||
        fail "$1: the pictures differ: $different"
    echo "$1: $(identify -format '%w by %h' "$scratch/$1-here.bmp"), no pixel differs"
}

start_screen
same_picture software "$VELMORA_DEMO_CORE" "$native/demo_core/demo_core_libretro.so" "$VELMORA_DEMO_GAME"
same_picture hardware "$VELMORA_DEMO_CORE_GL" "$native/demo_core_gl/demo_core_gl_libretro.so" \
    "${VELMORA_DEMO_GAME%/*/*}/demo_core_gl/sheets.demogl"
