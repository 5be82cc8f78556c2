#include "overlay/slot_menu.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <velmora/action_codes.h>

#include "platform/native_menu.h"

namespace velmora {
namespace {

constexpr std::string_view emptyName = "Empty";
constexpr int fixedSlotCount = 10;

int slotCount(const PlayHud& hud) {
    if (hud.slotCount < 1)
        return hud.slotsGrow ? 0 : fixedSlotCount;
    return std::min(hud.slotCount, action::menuSlotLimit);
}

// An empty string stands for an empty slot here, unlike in the overlay's pickers.
std::string_view slotName(const PlayHud& hud, int slot) {
    const auto index = static_cast<std::size_t>(slot);
    if (index >= hud.slotNames.size() || hud.slotNames[index].empty())
        return emptyName;
    return hud.slotNames[index];
}

std::string slotLabel(int slot, std::string_view name) {
    std::string label = "Slot " + std::to_string(slot + 1) + "  \u00B7  ";
    return label += name;
}

void addSlot(const PlayHud& hud, int slot, void* saveMenu, void* loadMenu) {
    const std::string_view name = slotName(hud, slot);
    const std::string label = slotLabel(slot, name);
    const bool filled = name != emptyName;
    platform::appendItem(saveMenu, action::saveSlot + slot, label, true);
    if (filled || !hud.slotsGrow)
        platform::appendItem(loadMenu, action::loadSlot + slot, label, filled);
}

} // namespace

void fillSlotMenus(const PlayHud& hud, void* saveMenu, void* loadMenu) {
    const int count = slotCount(hud);
    if (hud.slotsGrow)
        platform::appendItem(saveMenu, action::newSlot, "New slot", true);
    if (hud.slotsGrow && count > 0)
        platform::appendSeparator(saveMenu);
    for (int slot = 0; slot < count; ++slot)
        addSlot(hud, slot, saveMenu, loadMenu);
}

} // namespace velmora
