#!/usr/bin/env bash
# The settings page under real keys and clicks, and the player beside it on the same store, which
# obeys an edit without being told.
#   settings_page.sh PAGE
# shellcheck source=lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

page_program=$1

start_page() { # ARGUMENT...: leaves its process in $page and its window in $page_window
    # What GL drivers and the bus never give back, a sanitizer would lay at the page's door.
    QT_QPA_PLATFORM=xcb ASAN_OPTIONS=detect_leaks=0 "$page_program" "$@" >"$scratch/page.log" 2>&1 &
    page=$!
    background+=("$page")
    eventually find_page || fail "no page came up"
    xdotool windowmove --sync "$page_window" 0 0
    turn_to "$page_window"
}

find_page() {
    if ! kill -0 "$page" 2>/dev/null; then
        ! grep -q 'is not installed' "$scratch/page.log" || skip "a module of Qt Quick is not installed"
        fail "the page has ended"
    fi
    page_window=$(xdotool search --onlyvisible --name '^Controls' 2>/dev/null | head -n 1)
    [ -n "$page_window" ]
}

page_has_ended() { ! kill -0 "$page" 2>/dev/null; }

wait_for_page() { # its exit code must be 0
    eventually page_has_ended || fail "the page does not close"
    wait "$page" || fail "the page ended with $?"
}

turn_to() { # WINDOW: brings it to the front and gives it the keys
    xdotool windowraise "$1" windowfocus --sync "$1"
}

click() { xdotool mousemove --window "$page_window" "$1" "$2" click 1; }

# Places at the page's first size: the rows of the list of buttons, and the cross in each.
row_y() { echo $((137 + 38 * $1)); }
click_row() { click 360 "$(row_y "$1")"; }
click_cross() { click 643 "$(row_y "$1")"; }

stored() { grep -qxF "$1" "$store"; } # LINE of the store
not_stored() { ! stored "$1"; }

# A round's level stands in the lower left corner, in a colour of its own; the title has none there.
a_round_runs() {
    [ -n "$(box_of -crop 100x32+0+448 +repage -fill black +opaque 'rgb(255,243,196)' -fill white -opaque 'rgb(255,243,196)')" ]
}
the_title_shows() { ! a_round_runs; }

starts_nothing() { # KEY, on the title
    ! deadline=2 hold_until "$1" a_round_runs
}

start_screen
store=$("$page_program" --store)
[ "${store#"$scratch"/}" != "$store" ] || fail "the store $store is not the test's own"
mkdir -p "${store%/*}"
printf '[controls]\nkeyboard\\nes\\3=key:40\n\n[window]\nwidth=640\n' >"$store"
cp "$store" "$scratch/store.before"

# --- By keyboard, with a game running, whose Start starts a round and whose F1 leads to the title
start_player "$VELMORA_DEMO_CORE" "$VELMORA_DEMO_GAME" --system nes
starts_nothing k || fail "K starts a round before anybody has bound it"

start_page --system nes
xdotool key Return Delete Escape # the first cannot be bound, the second ends the capture alone
xdotool key Down Down Down Down Down Down Down Return k
eventually stored 'keyboard\nes\3=key:14' || fail "K is not stored for Start"
not_stored 'keyboard\nes\4=none:0' || fail "Delete clears while it is waited for a key"

turn_to "$window"
starts_nothing Return || fail "the player still obeys the old key"
hold_until k a_round_runs || fail "the player does not obey the new key"
hold_until F1 the_title_shows || fail "F1 does not lead to the title"

turn_to "$page_window"
xdotool key Escape
wait_for_page
cmp -s "$store" "$scratch/store.before" || fail "Cancel leaves another store: $(cat "$store")"
turn_to "$window"
starts_nothing k || fail "the player still obeys a key that was taken back"
hold_until Return a_round_runs || fail "the player does not go back to the old key"
kill "$player"

# --- By mouse
start_page --system nes
click_row 5
xdotool key j
eventually stored 'keyboard\nes\8=key:13' || fail "a click on the row of A and J store nothing"
click_cross 4
eventually stored 'keyboard\nes\0=none:0' || fail "the cross does not clear B"
click 100 213 # Super Nintendo
click_row 0
xdotool key u
eventually stored 'keyboard\snes\4=key:24' || fail "the list of systems does not lead to Super Nintendo"
click 980 40 # Gamepad
click_cross 0
eventually stored 'gamepad\snes\4=none:0' || fail "the switch does not lead to the gamepad"
click 80 722 # Reset
eventually not_stored 'gamepad\snes\4=none:0' || fail "Reset keeps a binding"
stored 'keyboard\snes\4=key:24' || fail "Reset takes the other device's bindings"
click 1000 722 # OK
wait_for_page
stored 'keyboard\nes\8=key:13' || fail "OK does not keep what was done"
stored 'width=640' || fail "the page changes what is not its own"
