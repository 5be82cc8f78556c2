#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <velmora/action_codes.h>

// The one layout of the overlay: both drawing routes and the hit test read these rows, so what is
// shown and what is clicked cannot drift apart. Whole pixels, origin at the top left. Nothing is
// clamped: an element larger than the canvas runs off its edges.
namespace velmora::hud_layout {

struct Position {
    int x;
    int y;
};

struct Rect {
    int x;
    int y;
    int w;
    int h;
};

constexpr Rect moved(const Rect& rect, const Position& by) {
    return {rect.x + by.x, rect.y + by.y, rect.w, rect.h};
}

// Both edges count: one pixel more each way than a fill of the same rectangle covers.
constexpr bool contains(const Rect& rect, int x, int y) {
    return x >= rect.x && x <= rect.x + rect.w && y >= rect.y && y <= rect.y + rect.h;
}

// The elements on a canvas of `w` by `h`. Everything further down is relative to its element.
constexpr Rect messageStrip(int w, int) { return {0, 0, w, 26}; }
constexpr Rect volumePanel(int w, int h) { return {(w - 280) / 2, h - 64, 280, 36}; }
constexpr Rect menuPanel(int w, int h) { return {(w - 360) / 2, (h - 272) / 2, 360, 272}; }

inline constexpr Position messageText = {12, 9};

inline constexpr float fullVolume = 1.5F;
inline constexpr Position volumeLabel = {12, 4};
inline constexpr Rect volumeTrack = {12, 14, 256, 8};

// The filled part of the track; empty for a gain that is not a number.
constexpr Rect volumeFill(float volume) {
    Rect fill = volumeTrack;
    const float gain = volume > 0.0F ? std::min(volume, fullVolume) : 0.0F;
    fill.w = static_cast<int>(gain * static_cast<float>(volumeTrack.w) / fullVolume);
    return fill;
}

inline constexpr Position menuTitle = {20, 18};

// A row of the menu panel. One without a label is a slot: its text comes from the slot names, and
// it is filled even while it is not highlighted.
struct Row {
    Rect rect;
    Position text;
    const char* label = nullptr;
};

// What the menu panel shows. Row n is highlighted by `selected` n and gives the code
// `firstCode` + n.
struct MenuScreen {
    const char* title;
    int firstCode;
    std::span<const Row> rows;
};

constexpr Row pauseRow(int r, const char* label) {
    return {{16, 56 + 34 * r, 328, 30}, {28, 66 + 34 * r}, label};
}

inline constexpr int slotsPerColumn = 5;

constexpr Row slotRow(int slot) {
    const int column = slot / slotsPerColumn;
    const int r = slot % slotsPerColumn;
    return {{16 + 168 * column, 50 + 34 * r, 156, 30}, {24 + 168 * column, 61 + 34 * r}};
}

inline constexpr std::array pauseRows = {pauseRow(0, "Resume"), pauseRow(1, "Save State"),
                                         pauseRow(2, "Load State"), pauseRow(3, "Quit to Library")};

inline constexpr std::size_t pickerRowCount = action::pickerSlotCount + 1;

inline constexpr auto pickerRows = [] {
    std::array<Row, pickerRowCount> rows;
    for (int slot = 0; slot < action::pickerSlotCount; ++slot)
        rows[static_cast<std::size_t>(slot)] = slotRow(slot);
    rows.back() = {{16, 230, 328, 30}, {28, 240}, "Back"};
    return rows;
}();

static_assert(action::resume + static_cast<int>(pauseRows.size()) - 1 == action::quitToLibrary);
static_assert(action::pickerSlot + action::pickerSlotCount == action::back);

inline constexpr MenuScreen pauseMenu = {"PAUSED", action::resume, pauseRows};
inline constexpr MenuScreen savePicker = {"SAVE STATE", action::pickerSlot, pickerRows};
inline constexpr MenuScreen loadPicker = {"LOAD STATE", action::pickerSlot, pickerRows};

constexpr const MenuScreen& menuScreen(std::int32_t screen) {
    if (screen == 0)
        return pauseMenu;
    return screen == 1 ? savePicker : loadPicker;
}

// A colour with its alpha where the overlay is blended over the picture. Where an element replaces
// what lies under it, every colour is opaque.
struct Colour {
    std::uint8_t r;
    std::uint8_t g;
    std::uint8_t b;
    std::uint8_t blendedAlpha = 255;
};

inline constexpr Colour textColour = {245, 245, 247};
inline constexpr Colour accent = {10, 132, 255};
inline constexpr Colour messageBackground = {20, 20, 22, 210};
inline constexpr Colour volumeBackground = {28, 28, 30, 230};
inline constexpr Colour volumeTrackColour = {70, 70, 74};
inline constexpr Colour dimming = {0, 0, 0, 120};
inline constexpr Colour menuBackground = {32, 32, 36};
inline constexpr Colour slotBackground = {48, 48, 52};

} // namespace velmora::hud_layout
