#include <velmora/action_codes.h>

#include "overlay/play_window.h"
#include "shown_menu.h"

namespace velmora::test {
namespace {

class MenuMessagesTest : public PlayWindowTest {
protected:
    void SetUp() override { open(640, 480); }

    static HWND handle() { return nativeHandle(window()); }
    static LONG_PTR procedure() { return GetWindowLongPtrW(handle(), GWLP_WNDPROC); }

    // What the window still has as SDL is about to end it.
    struct LastMoment {
        LONG_PTR procedure = 0;
        HMENU bar = nullptr;
    };
    static bool SDLCALL watch(void* seen, SDL_Event* event) {
        if (event->type == SDL_EVENT_WINDOW_DESTROYED)
            *static_cast<LastMoment*>(seen) = {procedure(), GetMenu(handle())};
        return true;
    }
};

TEST_F(MenuMessagesTest, DeliverCommandsAndFillTheListsOfAnOpeningPopup) {
    SendMessageW(handle(), WM_COMMAND, MAKEWPARAM(action::screenshot, 0), 0);
    EXPECT_EQ(video.consumeMenuAction(), action::screenshot);
    EXPECT_EQ(video.consumeMenuAction(), -1);
    // An accelerator's command, with more in the other half.
    PostMessageW(handle(), WM_COMMAND, MAKEWPARAM(2007, 1), 0x1234);
    pump();
    EXPECT_EQ(video.consumeMenuAction(), 2007);

    const HMENU popup = submenu(shownBar(window()), 0);
    video.hud.slotNames = {"M\xC3\xBChle \xE5\x9F\x8E"};
    SendMessageW(handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), 0);
    EXPECT_EQ(lines(submenu(popup, 5)).find("1000 Slot 1  \xC2\xB7  M\xC3\xBChle \xE5\x9F\x8E\n"),
              0U);
}

TEST_F(MenuMessagesTest, EndWithTheWindowAndBeginWithTheNext) {
    const auto classProcedure = static_cast<LONG_PTR>(GetClassLongPtrW(handle(), GCLP_WNDPROC));
    EXPECT_NE(procedure(), classProcedure);
    const HMENU bar = shownBar(window());
    LastMoment last = {procedure(), bar};
    SDL_AddEventWatch(watch, &last);
    video.destroy();
    SDL_RemoveEventWatch(watch, &last);
    EXPECT_EQ(last.procedure, classProcedure);
    EXPECT_EQ(last.bar, nullptr);
    EXPECT_FALSE(IsMenu(bar));

    for (const bool onHardware : {true, false}) {
        open(640, 480, onHardware);
        EXPECT_NE(procedure(), classProcedure);
        EXPECT_TRUE(IsMenu(shownBar(window())));
        SendMessageW(handle(), WM_COMMAND, action::stop, 0);
        EXPECT_EQ(video.consumeMenuAction(), action::stop);
        PostMessageW(handle(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(pump()) << "SDL does not get what the menu has no use for";
    }
    video.destroy();
    SdlVideo next;
    ASSERT_TRUE(next.create("next", 160, 144));
    SendMessageW(handle(), WM_COMMAND, action::pause, 0);
    EXPECT_EQ(next.consumeMenuAction(), action::pause);
}

} // namespace
} // namespace velmora::test
