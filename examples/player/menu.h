#pragma once

#include "controls.h"

namespace velmora {
struct PlayHud;
}

// The overlay's menu screens, as moves on the record that the library draws.
namespace player::menu {

inline constexpr int pauseScreen = 0;
inline constexpr int saveScreen = 1;
inline constexpr int loadScreen = 2;

void show(velmora::PlayHud& hud, int screen, int selected = 0);
void close(velmora::PlayHud& hud);

// Moves the highlight by one of the four direction keys. The pause menu is one column; a picker has
// two columns of slots and "Back" below both.
void move(velmora::PlayHud& hud, MenuKey direction);

// The action code of the highlighted row, and the other way round: the highlight that follows the
// pointer. Other codes than a row's leave the highlight alone.
int selectedCode(const velmora::PlayHud& hud);
void select(velmora::PlayHud& hud, int code);

} // namespace player::menu
