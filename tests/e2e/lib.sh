# shellcheck shell=bash
# Shared by the end-to-end scripts: a screen, a player on it, fingers and eyes. The same scripts
# drive the Windows programs where VELMORA_EMULATOR names what runs them.
# Nothing waits a fixed time for an effect: it is looked for until a deadline that a slow machine
# meets as well.
set -euo pipefail

deadline=60
scratch=$(mktemp -d)
background=()

finish() {
    local status=$? i
    # The screen came first and goes last.
    for ((i = ${#background[@]} - 1; i >= 0; --i)); do
        kill "${background[i]}" 2>/dev/null || true
        wait "${background[i]}" 2>/dev/null || true
    done
    if [ "$status" -ne 0 ] && [ "$status" -ne 77 ]; then
        for log in "$scratch"/*.log; do
            [ ! -s "$log" ] || { echo "--- ${log##*/}" && tail -n 40 "$log"; }
        done
    fi
    rm -rf "$scratch"
    exit "$status"
}
trap finish EXIT

# A driver unloaded at the end takes along what a leak checker would need to know it by.
export ASAN_OPTIONS=detect_leaks=0

# Settings and saves of the user's own stay untouched.
export HOME=$scratch XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data

skip() {
    echo "skipped: $*"
    exit 77
}

fail() {
    echo "failed: $*"
    keep_picture failed
    exit 1
}

# A picture of the screen for whoever wants to look.
keep_picture() { # NAME
    [ -z "${VELMORA_KEEP_PICTURES:-}" ] || import -window root "$VELMORA_KEEP_PICTURES/$1.png" || true
}

need() { # TOOL...
    local tool
    for tool; do
        command -v "$tool" >/dev/null || skip "$tool is not installed"
    done
}

on_windows() { [ -n "${VELMORA_EMULATOR:-}" ]; }

# The settings of the application's user, where the platform keeps them.
user_settings=$XDG_CONFIG_HOME/Velmora/Velmora.conf
! on_windows || user_settings='HKCU\Software\Velmora'

# A path as the programs under test take and show it: Wine has this machine's files on its drive Z.
seen() { # PATH
    on_windows && echo "Z:$1" || echo "$1"
}

command_of() { # PROGRAM ARGUMENT...: leaves in $command what runs it
    local word
    command=()
    ! on_windows || command=("$VELMORA_EMULATOR")
    for word; do
        [[ $word != /* ]] || word=$(seen "$word")
        command+=("$word")
    done
}

# On Windows the menu bar takes the first rows of the window.
strip=0
! on_windows || strip=19

core_path() { # NAME: the module of Debian's package libretro-NAME, empty where it is missing
    local places=(/usr/lib/*/libretro /usr/lib/libretro) suffix=so
    ! on_windows || places=("$VELMORA_WINDOWS") suffix=dll
    find "${places[@]}" -name "$1_libretro.$suffix" -print -quit 2>/dev/null || true
}

eventually() { # COMMAND...: repeats it until it succeeds or time is up
    local end=$((SECONDS + deadline))
    until "$@"; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.1
    done
}

start_screen() {
    need Xvfb xdotool import convert
    if on_windows; then
        # Wine's windows live on one screen together, and its programs have one registry.
        [ -n "${DISPLAY:-}" ] || skip "there is no X server"
        "$VELMORA_EMULATOR" reg delete "$user_settings" /f >/dev/null 2>&1 || true
        return
    fi
    # -noreset: without it the server drops whoever connects while its last client leaves.
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$scratch/display" \
        >"$scratch/xvfb.log" 2>&1 &
    background+=($!)
    eventually grep -qs . "$scratch/display" || fail "no X server came up"
    DISPLAY=:$(cat "$scratch/display")
    export DISPLAY SDL_VIDEO_DRIVER=x11
}

start_player() { # ARGUMENT...: leaves its process in $player and its window in $window
    command_of "$VELMORA_PLAYER" "$@" --save-dir "$scratch/saves"
    # The disk driver's raw file holds what a sound card would have got.
    SDL_AUDIO_DRIVER=disk SDL_AUDIO_DISK_OUTPUT_FILE=$(seen "$scratch/sound.raw") \
        "${command[@]}" >"$scratch/player.log" 2>&1 &
    player=$!
    background+=("$player")
    # By the time it opens its sound, SDL is done with trying out windows.
    eventually grep -q '^audio ' "$scratch/player.log" || fail "no game came up"
    eventually focus_window || fail "no window came up"
}

focus_window() { # there is no window manager here to give it the keys
    kill -0 "$player" 2>/dev/null || fail "the player has ended"
    window=$(xdotool search --onlyvisible --class velmora-player 2>/dev/null | head -n 1) || true
    [ -n "$window" ] && xdotool windowfocus "$window" 2>/dev/null &&
        [ "$(xdotool getwindowfocus -f 2>/dev/null)" = "$window" ]
}

# Wine kills a program that has ended and is not gone within a second, too little on a busy machine.
ended_well() { # EXIT-CODE
    [ "$1" = 0 ] || { on_windows && [ "$1" = 137 ]; }
}

wait_for_end() { # the player's exit code must be 0
    local status=0
    eventually has_ended || fail "the player does not end"
    wait "$player" || status=$?
    ended_well $status || fail "the player ended with $status"
}

has_ended() { ! kill -0 "$player" 2>/dev/null; }

point_at() { # X Y in the picture
    xdotool mousemove --window "$window" "$1" $(($2 + strip))
}

hold_until() { # KEY COMMAND...: the key is down until the command succeeds
    local status=0
    xdotool keydown "$1"
    eventually "${@:2}" || status=1
    xdotool keyup "$1"
    # The player looks once a frame: a key that is soon down again would never have been up.
    sleep 0.5
    return $status
}

# The box around all pixels of the window that a filter leaves white, as X Y WIDTH HEIGHT; nothing
# where there are none.
box_of() { # FILTER...
    import -window "$window" "$scratch/now.png"
    [ $strip = 0 ] || mogrify -chop "0x$strip" "$scratch/now.png"
    convert "$scratch/now.png" -alpha off "$@" -format '%@ %[fx:mean>0]\n' info: 2>/dev/null |
        sed -nE 's/^([0-9]+)x([0-9]+)\+([0-9]+)\+([0-9]+) 1$/\3 \4 \1 \2/p'
}

# The games' ground is dark in the red channel and their square bright, and so is a message's text.
square() {
    box_of -channel R -separate -threshold 60% -fill black -draw 'rectangle 0,0,9999,25'
}

# The accent colour: the highlighted row of the menu.
highlight() { box_of -fill black +opaque 'rgb(10,132,255)' -fill white -opaque 'rgb(10,132,255)'; }

square_shows() { [ -n "$(square)" ]; }
menu_is_open() { [ -n "$(highlight)" ]; }
menu_is_closed() { [ -z "$(highlight)" ]; }

square_x() { local box && box=$(square) && echo "${box%% *}"; }

# The square's place once it has stopped. A busy machine shows the same picture for a while, and
# has not seen yet that the key is up.
resting_x() {
    local now before='' same=0
    while [ $same -lt 3 ]; do
        now=$(square_x)
        [ "$now" = "$before" ] && same=$((same + 1)) || same=0
        before=$now
        sleep 0.3
    done
    echo "$now"
}

# Either way: beyond the right edge the square comes in at the left, and on a busy machine a key is
# down for as long as it takes to look.
square_away_from() { # X
    local x
    x=$(square_x) && [ $((x > $1 ? x - $1 : $1 - x)) -gt 30 ]
}
square_right_of() { [ "$(square_x)" -gt "$1" ] 2>/dev/null; }
square_is_at() { [ "$(square_x)" = "$1" ]; }

# SDL opens its device for 16-bit stereo at no less than 44100 Hz.
device_rate() {
    local rate
    rate=$(sed -nE 's/^audio ([0-9]+) Hz\r?$/\1/p' "$scratch/player.log" | tail -n 1)
    echo $((rate > 44100 ? rate : 44100))
}

recent_samples() { # the left channel's last half second that reached the device
    tail -c $(($(device_rate) * 2)) "$scratch/sound.raw" | od -An -v -t d2 -w4 | awk '{ print $1 }'
}

loudness() { # the span between the highest and the lowest recent sample
    recent_samples |
        awk 'NR == 1 || $1 > high { high = $1 } NR == 1 || $1 < low { low = $1 } END { print high - low }'
}

# The usual distance between two rises through the middle, which a gap in the sound leaves alone.
pitch() { # prints Hz, 0 for none
    recent_samples >"$scratch/samples"
    awk 'NR == FNR { sum += $1; count = FNR; next }
         { above = $1 > sum / count; if (above && !before) { if (last) print FNR - last; last = FNR } before = above }' \
        "$scratch/samples" "$scratch/samples" | sort -n |
        awk -v rate="$(device_rate)" '{ period[NR] = $1 } END { print NR ? int(rate / period[int((NR + 1) / 2)]) : 0 }'
}

tone_sounds() { # 440 Hz, as the games make it
    local hz
    hz=$(pitch) && [ "$(loudness)" -gt 2000 ] && [ "$hz" -gt 425 ] && [ "$hz" -lt 455 ]
}

is_silent() { [ "$(loudness)" -lt 500 ]; }
