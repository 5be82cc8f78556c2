#pragma once

#include <string>
#include <vector>

#include <velmora/play_hud.h>

namespace velmora {

// One line of a slot submenu; the label is UTF-8.
struct SlotMenuItem {
    enum class Kind { item, separator };

    Kind kind = Kind::item;
    int id = 0;
    std::string label;
    bool enabled = true;
};

struct SlotMenus {
    std::vector<SlotMenuItem> save;
    std::vector<SlotMenuItem> load;
};

// What the "Save State" and "Load State" submenus list. A list of fixed length shows every slot in
// both, the empty ones greyed where they would be loaded; a growing one leaves empty slots off the
// load list and offers a new slot to save to.
SlotMenus slotMenus(const PlayHud& hud);

} // namespace velmora
