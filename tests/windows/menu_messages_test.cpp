#include <velmora/action_codes.h>

#include "overlay/play_window.h"
#include "shown_menu.h"

namespace velmora::test {
namespace {

// What the window's own procedure and bar are at the moment of its end.
struct LastMoment {
    HWND window = nullptr;
    LONG_PTR procedure = 0;
    HMENU bar = nullptr;
};
LastMoment lastMoment;

LRESULT CALLBACK watch(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    const bool ends = code == HC_ACTION && message->message == WM_DESTROY;
    if (ends && message->hwnd == lastMoment.window) {
        lastMoment.procedure = GetWindowLongPtrW(message->hwnd, GWLP_WNDPROC);
        lastMoment.bar = GetMenu(message->hwnd);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

class MenuMessagesTest : public PlayWindowTest {
protected:
    void SetUp() override { open(640, 480); }

    static HWND handle() { return nativeHandle(window()); }
    static LONG_PTR procedure() { return GetWindowLongPtrW(handle(), GWLP_WNDPROC); }

    int chosenAfterPump() {
        pump();
        return video.consumeMenuAction();
    }
};

TEST_F(MenuMessagesTest, DeliverCommandsSentAndPosted) {
    SendMessageW(handle(), WM_COMMAND, MAKEWPARAM(action::screenshot, 0), 0);
    EXPECT_EQ(video.consumeMenuAction(), action::screenshot);
    EXPECT_EQ(video.consumeMenuAction(), -1);
    // An accelerator's command, with more in the other half.
    PostMessageW(handle(), WM_COMMAND, MAKEWPARAM(2007, 1), 0x1234);
    EXPECT_EQ(chosenAfterPump(), 2007);
    EXPECT_EQ(chosenAfterPump(), -1);
}

TEST_F(MenuMessagesTest, RefillTheListsAsTheGamePopupOpens) {
    const HMENU popup = submenu(shownBar(window()), 0);
    const HMENU save = submenu(popup, 5);
    const auto opens = [](HMENU menu) {
        SendMessageW(handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    };
    video.hud.slotNames = {"M\xC3\xBChle \xE5\x9F\x8E"};
    opens(save);
    EXPECT_EQ(lines(save).find("M\xC3\xBChle"), std::string::npos);
    opens(popup);
    EXPECT_EQ(lines(save).find("1000 Slot 1  \xC2\xB7  M\xC3\xBChle \xE5\x9F\x8E\n"), 0U);
}

TEST_F(MenuMessagesTest, EndWithTheWindowAndBeginWithTheNext) {
    const auto classProcedure = static_cast<LONG_PTR>(GetClassLongPtrW(handle(), GCLP_WNDPROC));
    EXPECT_NE(procedure(), classProcedure);
    const HMENU bar = shownBar(window());
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, watch, nullptr, GetCurrentThreadId());
    lastMoment = {handle(), 0, bar};
    video.destroy();
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(lastMoment.procedure, classProcedure);
    EXPECT_EQ(lastMoment.bar, nullptr);
    EXPECT_FALSE(IsMenu(bar));

    for (const bool onHardware : {true, false}) {
        open(640, 480, onHardware);
        EXPECT_NE(procedure(), classProcedure);
        EXPECT_TRUE(IsMenu(shownBar(window())));
        SendMessageW(handle(), WM_COMMAND, action::stop, 0);
        EXPECT_EQ(video.consumeMenuAction(), action::stop);
        PostMessageW(handle(), WM_CLOSE, 0, 0);
        bool quit = false;
        video.pumpEvents(quit);
        EXPECT_TRUE(quit) << "SDL does not get what the menu has no use for";
    }
}

} // namespace
} // namespace velmora::test
