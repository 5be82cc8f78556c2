#!/usr/bin/env bash
# The menu bar by mouse: it opens, each command does what it says, the check mark follows, and the bar
# goes and comes with fullscreen.
# shellcheck source=../e2e/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/../e2e/lib.sh"

# Rows of the "Game" popup; the last one, behind the separator, is "stop".
row_screenshot=2 row_save=5 row_load=6 row_fullscreen=7 row_on_top=8

# All visible windows of the player but the game's, which are open popups, as X Y WIDTH HEIGHT.
popups() {
    local id
    for id in $(xdotool search --onlyvisible --class velmora-player 2>/dev/null); do
        [ "$id" = "$window" ] || (eval "$(xdotool getwindowgeometry --shell "$id")" &&
            echo "$X $Y $WIDTH $HEIGHT")
    done
}
popups_open() { [ "$(popups | wc -l)" = "$1" ]; }

open_game_menu() {
    eval "$(xdotool getwindowgeometry --shell "$window")"
    xdotool mousemove $((X + 20)) $((Y + 10)) click 1
    eventually popups_open 1 || fail "a click on Game opens no popup"
}

# The popup holds ten rows, a separator and a frame; a row is known by its number from 0.
point_at_row() { # ROW
    local x y width height
    read -r x y width height < <(popups | sort -k 4 -n | tail -n 1)
    local row=$(((height - 15) / 10))
    if [ "$1" = stop ]; then
        xdotool mousemove $((x + width / 2)) $((y + height - row / 2 - 3))
    else
        xdotool mousemove $((x + width / 2)) $((y + 3 + row * $1 + row / 2))
    fi
}

choose() { # ROW
    open_game_menu
    point_at_row "$1"
    sleep 0.3
    xdotool click 1
    eventually popups_open 0 || fail "the popup stays open"
}

# The place of the check mark of "Always on Top".
mark_shows() {
    local x y width height row
    read -r x y width height < <(popups)
    row=$(((height - 15) / 10))
    [ "$(import -window root -crop "16x$row+$((x + 2))+$((y + 3 + row * row_on_top))" +repage png:- |
        convert - -threshold 50% -format '%[fx:mean<1]' info:)" = 1 ]
}

bar_shows() { # white all over beside its one popup
    eval "$(xdotool getwindowgeometry --shell "$window")"
    [ "$(import -window root -crop "200x12+$((X + 200))+$((Y + 3))" +repage png:- |
        convert - -format '%[fx:minima==1]' info:)" = 1 ]
}
bar_is_gone() { ! bar_shows; }
fills_the_screen() {
    eval "$(xdotool getwindowgeometry --shell "$window")"
    [ "$WIDTH $HEIGHT" = "$(xdotool getdisplaygeometry)" ]
}
is_where() { # X Y WIDTH HEIGHT of the window
    [ "$(xdotool getwindowgeometry --shell "$window" | sed -n '2,5s/.*=//p' | xargs)" = "$*" ]
}
is_windowed() { ! fills_the_screen; }

file_is_there() { [ -n "$(find "$scratch/saves" -name "$1" -size +0 2>/dev/null)" ]; }

start_screen
start_player "$VELMORA_DEMO_CORE" "$VELMORA_DEMO_GAME"
eventually bar_shows || fail "no menu bar shows"
eval "$(xdotool getwindowgeometry --shell "$window")"
[ "$WIDTH $((HEIGHT - strip))" = "720 480" ] || fail "the picture is not three times the frame's size"
place="$X $Y $WIDTH $HEIGHT"

choose $row_screenshot
eventually file_is_there '*.bmp' || fail "Screenshot writes no picture"

open_game_menu
point_at_row $row_save
eventually popups_open 2 || fail "Save State opens no submenu"
keep_picture save_state
read -r x y width height < <(popups | sort -k 4 -n | head -n 1)
xdotool mousemove $((x + width / 2)) $((y + height / 2))
sleep 0.3
xdotool click 1
eventually file_is_there '*.slot1.state' || fail "New slot writes no state"
eventually popups_open 0 || fail "the menu stays open"

open_game_menu
point_at_row $row_load
eventually popups_open 2 || fail "Load State lists no slot"
keep_picture load_state
xdotool mousemove $((X + 300)) $((Y + 300)) click 1
eventually popups_open 0 || fail "a click beside the menu does not close it"

open_game_menu
! mark_shows || fail "Always on Top has a check mark from the start"
point_at_row $row_on_top
sleep 0.3
xdotool click 1
eventually popups_open 0 || fail "the popup stays open"
open_game_menu
eventually mark_shows || fail "Always on Top gets no check mark"
keep_picture check_mark
xdotool mousemove $((X + 300)) $((Y + 300)) click 1
eventually popups_open 0 || fail "the menu stays open"

for way in 1 2 3; do
    choose $row_fullscreen
    eventually fills_the_screen || fail "Fullscreen does not fill the screen"
    eventually bar_is_gone || fail "the bar stays in fullscreen"
    keep_picture fullscreen
    xdotool windowfocus "$window" keydown F11 sleep 0.3 keyup F11
    eventually is_windowed || fail "F11 does not end fullscreen"
    eventually bar_shows || fail "the bar does not come back"
    # shellcheck disable=SC2086 # four words
    eventually is_where $place || fail "way $way through fullscreen moves or resizes the window"
done

choose stop
wait_for_end
