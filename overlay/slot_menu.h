#pragma once

#include <velmora/play_hud.h>

namespace velmora {

// Fills the emptied "Save State" and "Load State" submenus. A list of fixed length shows every slot
// in both, the empty ones greyed where they would be loaded; a growing one leaves empty slots off
// the load list and offers a new slot to save to.
void fillSlotMenus(const PlayHud& hud, void* saveMenu, void* loadMenu);

} // namespace velmora
