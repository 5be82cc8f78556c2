#pragma once

// What the user asked for, as small integers: one numbering for clicks on the overlay
// (SdlVideo::consumeAction, SdlVideo::hitTest) and for commands of the native menu
// (SdlVideo::consumeMenuAction), so that a frontend can send both through one switch. The library
// acts on none of them.
namespace velmora::action {

inline constexpr int none = -1;

// The pause menu's rows. The code of a row is the value of PlayHud::selected that highlights it.
inline constexpr int resume = 0;
inline constexpr int saveState = 1;
inline constexpr int loadState = 2;
inline constexpr int quitToLibrary = 3;

// A picker's rows: `pickerSlot` + i for slot i, from 0 to 9, and `back`. The code is `pickerSlot`
// plus the value of PlayHud::selected that highlights the row. PlayHud::screen tells whether the
// slot is to be saved to or loaded from.
inline constexpr int pickerSlot = 10;
inline constexpr int pickerSlotCount = 10;
inline constexpr int back = 20;

// The native menu's fixed items. `newSlot` is offered only while PlayHud::slotsGrow is set.
inline constexpr int pause = 30;
inline constexpr int quickSave = 31;
inline constexpr int quickLoad = 32;
inline constexpr int fullscreen = 33;
inline constexpr int reset = 35;
inline constexpr int screenshot = 36;
inline constexpr int stop = 37;
inline constexpr int newSlot = 38;
inline constexpr int alwaysOnTop = 39;

// The native menu's slot lists: `saveSlot` + i and `loadSlot` + i for slot i, from 0 to 399. Slots
// count from 0 here and from 1 in what the user reads.
inline constexpr int saveSlot = 1000;
inline constexpr int loadSlot = 2000;
inline constexpr int menuSlotLimit = 400;

} // namespace velmora::action
