#!/usr/bin/env bash
# A real core plays an image of ours: a key press moves the square in the picture and sounds in the
# device's bytes, and the count of presses reaches the disk and comes back.
#   real_game.sh CORE IMAGE
# shellcheck source=lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

core=$(core_path "$1")
game=$VELMORA_GAMES/$2
[ -n "$core" ] || skip "the core $1 is not there"
[ -e "$game" ] || skip "$2 was not assembled"

saved_byte() { # OFFSET
    od -An -t u1 -j "$1" -N 1 "$scratch/saves/steer.srm" | tr -d ' '
}
case $2 in
*.nes) presses_at=6 ;;
*.gba) presses_at=5 ;;
esac

quit_is_highlighted() { [ "$(highlight | cut -d ' ' -f 2)" -gt "$first_row" ] 2>/dev/null; }

start_screen
start_player "$core" "$game" --system "${2##*.}"
eventually square_shows || fail "the game's square does not show"

read -r x y width height < <(square)
[ "$width $height" = "48 48" ] || fail "the square is $width by $height on the screen"
is_silent || fail "sound before any key was pressed"

hold_until Right square_right_of $((x + 60)) || fail "Right does not move the square"
[ "$(square | cut -d ' ' -f 2)" = "$y" ] || fail "Right moves the square up or down"

hold_until x tone_sounds || fail "no tone of 440 Hz but $(pitch) Hz, loudness $(loudness)"

hold_until Escape menu_is_open || fail "Escape opens no menu"
first_row=$(highlight | cut -d ' ' -f 2)
hold_until Up quit_is_highlighted || fail "Up does not reach the last row"
hold_until Return has_ended || fail "Return on the last row does not quit"
wait_for_end

[ "$(head -c 4 "$scratch/saves/steer.srm")" = VELM ] || fail "no battery save"
[ "$(saved_byte 4)" = 1 ] || fail "$(saved_byte 4) starts counted instead of 1"
[ "$(saved_byte "$presses_at")" = 1 ] || fail "$(saved_byte "$presses_at") presses counted instead of 1"

start_player "$core" "$game" --frames 90
wait_for_end
grep -qE '^frames 90 seconds [0-9.]+ fps [0-9.]+\s*$' "$scratch/player.log" || fail "no report"
[ "$(saved_byte 4)" = 2 ] || fail "the second start found no battery save"
[ "$(saved_byte "$presses_at")" = 1 ] || fail "the count of presses did not survive"
