#!/usr/bin/env bash
# The player's special keys on a running game, and a rebinding that reaches it without a restart.
# shellcheck source=lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

core=$(core_path nestopia)
game=$VELMORA_GAMES/steer.nes
[ -n "$core" ] || skip "the core nestopia is not there"
[ -e "$game" ] || skip "steer.nes was not assembled"

quick_state=$scratch/saves/steer.quick.state
bar_is() { [ "$(highlight | cut -d ' ' -f 3)" = "$1" ]; }
screenshot_exists() { compgen -G "$scratch/saves/steer 20*.bmp" >/dev/null; }
move_away() { hold_until Right square_away_from "$(resting_x)" || fail "Right does not move the square"; }

# As another program of the application would, while the game runs.
rebind() { # SYSTEM CONTROL BINDING
    if on_windows; then
        "$VELMORA_EMULATOR" reg add "$user_settings\\Velmora\\controls\\keyboard\\$1" \
            /v "$2" /d "$3" /f >/dev/null
    else
        mkdir -p "${user_settings%/*}"
        [ -e "$user_settings" ] || echo '[controls]' >"$user_settings"
        printf 'keyboard\\%s\\%s=%s\n' "$@" >>"$user_settings"
    fi
}

end_player() {
    if on_windows; then
        xdotool key alt+F4
    else
        kill "$player"
    fi
}

start_screen
start_player "$core" "$game" --system nes
eventually square_shows || fail "the game's square does not show"
read -r start_x start_y _ < <(square)

move_away
saved_x=$(resting_x)
hold_until F5 test -s "$quick_state" || fail "F5 saves no state"
move_away
hold_until F8 square_is_at "$saved_x" || fail "F8 does not bring the square back"
hold_until F1 square_is_at "$start_x" || fail "F1 does not reset the game"

# The message of the reset is still up, or the volume panel: neither belongs into the file.
hold_until minus bar_is 153 || fail "minus does not show nine tenths of the volume"
hold_until F12 screenshot_exists || fail "F12 writes no screenshot"
hold_until equal bar_is 170 || fail "equals does not bring the volume back"
for file in "$scratch/saves"/*.bmp; do
    seen=$(convert "$file" -alpha off -channel R -separate -threshold 40% -format '%@' info:)
    [ "$seen" = "48x48+$start_x+$start_y" ] || fail "the screenshot shows $seen besides the ground"
done

xdotool keydown x
eventually tone_sounds || fail "no tone"
hold_until m is_silent || fail "M does not mute"
hold_until m tone_sounds || fail "M does not bring the sound back"
hold_until Tab is_silent || fail "running fast is not silent"
eventually tone_sounds || fail "no tone after running fast"
xdotool keyup x

eventually menu_is_closed || fail "the volume panel stays up"
hold_until p menu_is_open || fail "P opens no menu"
hold_until p menu_is_closed || fail "P does not close the menu"

rm "$quick_state"
rebind special 102 key:10
rebind nes 7 key:13
hold_until g test -s "$quick_state" || fail "the new key for saving does nothing"
hold_until j square_away_from "$(resting_x)" || fail "the new key for moving does nothing"

end_player
wait_for_end
[ -s "$scratch/saves/steer.srm" ] || fail "a player that was told to end leaves no battery save"
