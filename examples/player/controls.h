#pragma once

#include <bitset>
#include <cstddef>

struct SDL_Gamepad;

namespace velmora {
class InputBindings;
}

namespace player {

// The keys and pad buttons that move through the menu; unlike the special actions they are fixed.
enum class MenuKey { up, down, left, right, confirm, back, escape };

// Turns the level of keys and buttons into one press per press.
class Controls {
public:
    // Call it once per pass, after the events were pumped.
    void read(const velmora::InputBindings& bindings, SDL_Gamepad* pad);

    // Went down since the pass before. `special` is one of InputBindings' ids.
    bool pressed(int special) const { return isNew(specialBit(special)); }
    bool pressed(MenuKey key) const { return isNew(menuBit(key)); }

    bool held(int special) const { return now[specialBit(special)]; }
    bool held(MenuKey key) const { return now[menuBit(key)]; }

private:
    static constexpr std::size_t specialCount = 10;
    static constexpr std::size_t menuKeyCount = 7;

    static std::size_t specialBit(int special);
    static std::size_t menuBit(MenuKey key) { return specialCount + static_cast<std::size_t>(key); }
    bool isNew(std::size_t bit) const { return now[bit] && !before[bit]; }

    using Levels = std::bitset<specialCount + menuKeyCount>;

    // All held at first: a key that is down at the start, such as the Return that launched the
    // program, is no press.
    Levels now = Levels().set();
    Levels before;
};

} // namespace player
