#pragma once

#include <cstdint>
#include <string>

#include <velmora/export.h>

struct SDL_Gamepad;

namespace velmora {

// Answers a core's input questions: one player (port 0), the joypad device, sixteen buttons, from
// the keyboard and the first gamepad merged by a plain OR through the user's bindings.
//
// The bindings come from InputBindings::instance(), read from the settings store on every poll, so
// an edit is felt at the next frame; without such an object fixed defaults apply. All members run
// on the thread that runs the core. No operation throws or reports failure.
class VELMORA_EXPORT SdlInput {
public:
    SdlInput() = default;
    // Closes `pad`.
    ~SdlInput();
    SdlInput(const SdlInput&) = delete;
    SdlInput& operator=(const SdlInput&) = delete;

    // Brings up SDL_INIT_GAMEPAD and opens the first gamepad in SDL's list into `pad`, closing one
    // that was open. Without a gamepad `pad` is null and the keyboard carries on alone. A pad that
    // is pulled out stays in `pad`, with nothing held (SDL_GamepadConnected tells), and one that is
    // plugged in later is not noticed: the frontend calls `open` again then.
    void open();

    // Closes `pad`. Keyboard play goes on.
    void close();

    // Takes the snapshot that `state` reads until the next poll. Pumps no events: the keyboard
    // moves only when SdlVideo::pumpEvents runs.
    void poll();

    // The libretro input state callback. For port 0 and RETRO_DEVICE_JOYPAD: 1 or 0 for an `id`
    // from 0 to 15, and the mask of all sixteen for RETRO_DEVICE_ID_JOYPAD_MASK (bit 15 makes it
    // negative). Anything else is 0; `index` is ignored.
    std::int16_t state(unsigned int port, unsigned int device, unsigned int index,
                       unsigned int id) const;

    // The open gamepad, owned by this object, or null. A frontend may pass it to
    // InputBindings::specialHeld.
    SDL_Gamepad* pad = nullptr;

private:
    void applyKeyboard(const bool* keys);
    void applyGamepad();

    bool held[16] = {};

public:
    // The physical Escape key was down at the last poll, whatever the bindings say. The core never
    // sees it.
    bool escapeHeld = false;

    // The system whose bindings apply, such as "snes", UTF-8. Written by the frontend before play.
    std::string systemId;
};

} // namespace velmora
