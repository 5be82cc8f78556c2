#!/usr/bin/env bash
# What the programs answer without a screen: help, reports, pictures and clear words for what is
# wrong.
# shellcheck source=lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
export SDL_AUDIO_DRIVER=dummy SDL_VIDEO_DRIVER=offscreen
# Only the system's own driver has OpenGL on Windows.
gl_driver=windows
on_windows || { gl_driver=offscreen && unset DISPLAY WAYLAND_DISPLAY; }

run() { # EXIT-CODE PROGRAM ARGUMENT...: leaves its outputs in $out and $err
    local expected=$1 status=0
    shift
    command_of "$@"
    timeout $deadline "${command[@]}" >"$scratch/out.log" 2>"$scratch/err.log" || status=$?
    out=$(tr -d '\r' <"$scratch/out.log")
    err=$(tr -d '\r' <"$scratch/err.log")
    [ "$status" = "$expected" ] || fail "exit code $status instead of $expected: $*"
}

player() { run "$1" "$VELMORA_PLAYER" --save-dir "$scratch/saves" "${@:2}"; }
demo() { player "$1" "$VELMORA_DEMO_CORE" "$VELMORA_DEMO_GAME" "${@:2}"; }
says() { case $1 in *"$2"*) ;; *) fail "\"$2\" is not in: $1" ;; esac }

SDL_VIDEO_DRIVER=none run 0 "$VELMORA_PLAYER" --help
for option in system system-dir save-dir frames uncapped screenshot mute fullscreen; do
    says "$out" " --$option"
done

player 2
says "$err" "a core and a game are needed"
demo 2 --no-such-option
demo 2 --frames 0
demo 2 --frames many
says "$err" "--frames needs a number"

echo "not a core" >"$scratch/text.so"
player 1 "$scratch/missing.so" "$VELMORA_DEMO_GAME"
says "$err" "missing.so"
player 1 "$scratch/text.so" "$VELMORA_DEMO_GAME"
says "$err" "velmora-player: "
player 1 "$VELMORA_DEMO_CORE" "$scratch/missing.demo"
says "$err" "missing.demo"
nestopia=$(core_path nestopia)
if [ -n "$nestopia" ]; then
    player 1 "$nestopia" "$scratch/text.so"
    says "$err" "Core rejected ROM: $(seen "$scratch/text.so")"
    says "$err" "core: "
fi

SDL_VIDEO_DRIVER=none demo 1 --frames 5
says "$err" "no display: "
SDL_AUDIO_DRIVER=none demo 0 --frames 5
says "$err" "no sound: "
run 0 "$VELMORA_PLAYER" --save-dir "$scratch/text.so/saves" --frames 5 \
    "$VELMORA_DEMO_CORE" "$VELMORA_DEMO_GAME"
says "$err" "nothing will be saved: $(seen "$scratch/text.so/saves")"

demo 0 --frames 120 --uncapped --screenshot "$scratch/shot.bmp"
[ "$(grep -cE '^frames 120 seconds [0-9]+\.[0-9]{3} fps [0-9]+\.[0-9]$' <<<"$out")" = 1 ] ||
    fail "not one report line: $out"
says "$out" "audio "
[ "$(head -c 2 "$scratch/shot.bmp")" = BM ] || fail "the screenshot is no bitmap"
if command -v convert >/dev/null; then
    [ "$(convert "$scratch/shot.bmp" -format '%[fx:standard_deviation>0.05]' info:)" = 1 ] ||
        fail "the screenshot shows nothing"
fi
demo 1 --frames 5 --screenshot "$scratch"
says "$err" "no screenshot: "

# The window has to go while the core is there to be told.
SDL_VIDEO_DRIVER=$gl_driver player 0 "$VELMORA_DEMO_CORE_GL" "$VELMORA_DEMO_GAME" --frames 10
# On Windows the core's log is for the debugger alone.
on_windows || says "$err" "context destroyed"

cd "$scratch"
cp "$VELMORA_DEMO_GAME" "$scratch/jardin é 庭.demo"
run 0 "$VELMORA_MINIMAL" "$VELMORA_DEMO_CORE" "$scratch/jardin é 庭.demo" 60
run 1 "$VELMORA_MINIMAL" "$scratch/missing.so" "$VELMORA_DEMO_GAME"
says "$err" "missing.so"
run 2 "$VELMORA_MINIMAL"
