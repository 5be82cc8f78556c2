#pragma once

#include "video/window_picture.h"

namespace velmora::test {

// A window on either path, over a game picture of one colour and the window's own size.
class PlayWindowTest : public VideoTest {
protected:
    static constexpr SDL_Color game = {100, 150, 200, 255};

    // On hardware at least 640 by 480, and not to be enlarged: the offscreen driver never gives a
    // GL window a larger surface.
    void open(int w, int h, bool onHardware = false) {
        hardware = onHardware;
        ASSERT_TRUE(hardware ? video.setupHardware(openGl(), w / 2, h / 2)
                             : video.create("overlay", 320, 240))
            << SDL_GetError();
        resize(w, h);
    }

    // What the window shows.
    Picture present() {
        const SDL_Point size = windowSize();
        const auto w = static_cast<unsigned>(size.x);
        const auto h = static_cast<unsigned>(size.y);
        if (hardware) {
            video.resizeHardwareBuffers(w, h);
            fill(0, 0, size.x, size.y, game.r / 255.0F, game.g / 255.0F, game.b / 255.0F);
        }
        showPlain(w, h, game.r << 16 | game.g << 8 | game.b);
        return hardware ? shownByGl() : screenshot();
    }

    bool hardware = false;
};

} // namespace velmora::test
