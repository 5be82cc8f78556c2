#!/usr/bin/env bash
# The same sessions in the Windows player and in this machine's own: the last pictures are the same to
# the pixel. The software path plays without a screen, whose menu bar takes a strip of the picture on
# one side only; the hardware path on one screen and with one OpenGL.
# shellcheck source=lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

native=${VELMORA_NATIVE_BUILD:-}/examples
need compare
[ -x "$native/player/velmora-player" ] || skip "VELMORA_NATIVE_BUILD names no build of this machine's"

# Long enough for the scenes to be in full swing.
options=(--uncapped --mute --frames 200 --save-dir)

play_in_windows() { # DRIVER CORE GAME PICTURE
    SDL_VIDEO_DRIVER=$1 SDL_AUDIO_DRIVER=dummy "$WINE" "$VELMORA_PLAYER" "$(in_windows "$2")" "$(in_windows "$3")" \
        "${options[@]}" "$(in_windows "$scratch/windows")" --screenshot "$(in_windows "$4")" \
        >"$scratch/player.log" 2>&1 || fail "the Windows player ended with $?"
}

play_here() { # DRIVER CORE GAME PICTURE
    SDL_VIDEO_DRIVER=$1 SDL_AUDIO_DRIVER=dummy "$native/player/velmora-player" "$2" "$3" \
        "${options[@]}" "$scratch/here" --screenshot "$4" >"$scratch/player.log" 2>&1 ||
        fail "this machine's player ended with $?"
}

same_picture() { # NAME WINDOWS_DRIVER DRIVER WINDOWS_CORE CORE GAME
    local different
    play_in_windows "$2" "$4" "$6" "$scratch/$1-windows.bmp"
    play_here "$3" "$5" "$6" "$scratch/$1-here.bmp"
    [ -z "${VELMORA_KEEP_PICTURES:-}" ] || cp "$scratch/$1"-*.bmp "$VELMORA_KEEP_PICTURES/"
    different=$(compare -metric AE "$scratch/$1-windows.bmp" "$scratch/$1-here.bmp" null: 2>&1) ||
        fail "$1: the pictures differ: $different"
    echo "$1: $(identify -format '%w by %h' "$scratch/$1-here.bmp"), no pixel differs"
}

examples=$VELMORA_EXAMPLES
same_picture software offscreen offscreen \
    "$VELMORA_DEMO_CORE" "$native/demo_core/demo_core_libretro.so" "$examples/demo_core/garden.demo"
same_picture hardware windows x11 \
    "$VELMORA_DEMO_CORE_GL" "$native/demo_core_gl/demo_core_gl_libretro.so" \
    "$examples/demo_core_gl/sheets.demogl"
