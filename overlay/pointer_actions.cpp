#include <velmora/sdl_video.h>

#include <utility>

#include <velmora/action_codes.h>

#include "overlay/hud_layout.h"
#include "video/window_size.h"

namespace velmora {

bool SdlVideo::consumeClick(int& x, int& y) {
    if (!clickPending)
        return false;
    clickPending = false;
    x = clickX;
    y = clickY;
    return true;
}

int SdlVideo::hitTest(int x, int y) const {
    if (!window || !hud.menuOpen)
        return action::none;
    const SDL_Point canvas = windowSize(window);
    const hud_layout::Rect panel = hud_layout::menuPanel(canvas.x, canvas.y);
    const hud_layout::MenuScreen& screen = hud_layout::menuScreen(hud.screen);
    int code = screen.firstCode;
    for (const hud_layout::Row& row : screen.rows) {
        if (contains(moved(row.rect, {panel.x, panel.y}), x, y))
            return code;
        ++code;
    }
    return action::none;
}

int SdlVideo::consumeAction() {
    if (pendingAction >= 0)
        return std::exchange(pendingAction, action::none);
    return std::exchange(clickPending, false) ? hitTest(clickX, clickY) : action::none;
}

} // namespace velmora
