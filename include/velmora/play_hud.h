#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

// What the overlay shows over the game picture. The frontend writes it between frames, on the
// thread that calls SdlVideo::present; the library only reads it. There is no timer and no fade:
// an element is up as long as the frontend leaves its flag set.
//
// The initial values give an invisible overlay that would open on the pause menu.
struct PlayHud {
    // Shows `message` in a strip along the top edge, unless it is empty or the menu is open.
    bool showMessage = false;

    // Shows the volume panel near the bottom edge.
    bool showVolume = false;

    // Shows the menu panel selected by `screen`; SdlVideo::hitTest answers only while it is set.
    bool menuOpen = false;

    // Free for the frontend; the library neither reads nor writes it.
    std::uint8_t frontendFlag = 0;

    // The volume panel reads "Muted" instead of "Volume".
    bool muted = false;

    // The gain given to SdlAudio::setGain; the bar is full at 1.5 and empty at 0 (and for NaN).
    float volume = 1.0F;

    // 0: pause menu. 1: save picker. Any other value: load picker.
    std::int32_t screen = 0;

    // Highlighted row. Pause menu: 0 to 3. Pickers: 0 to 9 for a slot, 10 for "Back". Any other
    // value highlights nothing.
    std::int32_t selected = 0;

    // Text of the message strip. Drawn in SDL's 8 by 8 debug font.
    std::string message;

    // Display name of each save slot, UTF-8, first slot first. May be shorter than the number of
    // slots: the missing ones read "Empty". Read by the pickers (the first ten) and by the native
    // slot menus (as many as `slotCount` gives).
    std::vector<std::string> slotNames;

    // The list of slots has no fixed length: the native menu offers "New slot" and leaves empty
    // slots off its load list.
    bool slotsGrow = false;

    // Number of slots in the native menu, at most 400. Below 1 it means ten, or none while
    // `slotsGrow` is set.
    std::int32_t slotCount = 0;

    // Free for the frontend; the library neither reads nor writes them.
    std::array<std::string, 4> frontendTexts;
};

} // namespace velmora
