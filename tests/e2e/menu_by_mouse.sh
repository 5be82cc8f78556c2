#!/usr/bin/env bash
# Everything that the pause menu offers, by mouse: the pointer takes the highlight along, and each
# click does what its row says.
# shellcheck source=lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

core=$(core_path nestopia)
game=$VELMORA_GAMES/steer.nes
[ -n "$core" ] || skip "the core nestopia is not there"
[ -e "$game" ] || skip "steer.nes was not assembled"

start_screen
start_player "$core" "$game"
eventually square_shows || fail "the game's square does not show"

eval "$(xdotool getwindowgeometry --shell "$window")"
menu_x=$(((WIDTH - 360) / 2))
menu_y=$(((HEIGHT - strip - 272) / 2))

# The middle of a row, and the box that its highlight fills.
pause_row() { echo $((menu_x + 180)) $((menu_y + 71 + 34 * $1)); }
slot_row() { echo $((menu_x + 94 + 168 * ($1 / 5))) $((menu_y + 65 + 34 * ($1 % 5))); }
back_row() { echo $((menu_x + 180)) $((menu_y + 245)); }
pause_box() { echo $((menu_x + 16)) $((menu_y + 56 + 34 * $1)) 328 30; }
slot_box() { echo $((menu_x + 16 + 168 * ($1 / 5))) $((menu_y + 50 + 34 * ($1 % 5))) 156 30; }

highlight_is() { [ "$(highlight)" = "$*" ]; }
click() { point_at "$1" "$2" && xdotool click 1; }

# shellcheck disable=SC2046 # a place is two words, a box four
hover() { # PLACE BOX, each a function and its argument
    point_at $($1)
    eventually highlight_is $($2) || fail "the highlight does not follow the pointer to $1"
}

open_menu() {
    point_at 5 5
    hold_until Escape menu_is_open || fail "Escape opens no menu"
}

# shellcheck disable=SC2046
{
    open_menu
    eventually highlight_is $(pause_box 0) || fail "the menu does not open on its first row"
    hover 'pause_row 3' 'pause_box 3'
    hover 'pause_row 1' 'pause_box 1'
    click $(pause_row 0)
    eventually menu_is_closed || fail "Resume does not close the menu"

    start_x=$(square_x)
    open_menu
    click $(pause_row 1)
    eventually highlight_is $(slot_box 0) || fail "Save State opens no picker"
    hover 'slot_row 7' 'slot_box 7'
    click $(slot_row 7)
    eventually menu_is_closed || fail "a slot of the save picker does not close the menu"
    [ -s "$scratch/saves/steer.slot8.state" ] || fail "no state file for slot 8"

    hold_until Right square_right_of $((start_x + 60)) || fail "the game does not go on"
    moved_x=$(resting_x)
    open_menu
    click $(pause_row 2)
    eventually highlight_is $(slot_box 0) || fail "Load State opens no picker"
    click $(slot_row 2)
    eventually menu_is_closed || fail "an empty slot of the load picker does not close the menu"
    [ "$(resting_x)" = "$moved_x" ] || fail "an empty slot changes the game"

    open_menu
    click $(pause_row 2)
    eventually highlight_is $(slot_box 0) || fail "Load State opens no picker again"
    click $(slot_row 7)
    eventually menu_is_closed || fail "a slot of the load picker does not close the menu"
    eventually square_is_at "$start_x" || fail "slot 8 does not bring the square back"

    open_menu
    click $(pause_row 1)
    eventually highlight_is $(slot_box 0) || fail "Save State opens no picker again"
    click $(back_row)
    eventually highlight_is $(pause_box 1) || fail "Back does not lead to the pause menu"
    [ "$(ls "$scratch/saves"/*.state)" = "$scratch/saves/steer.slot8.state" ] ||
        fail "Back writes a state"

    click $(pause_row 3)
    wait_for_end
}
