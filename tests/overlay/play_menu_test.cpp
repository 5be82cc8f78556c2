#include <algorithm>
#include <climits>
#include <string>
#include <tuple>
#include <vector>

#include "overlay/play_window.h"
#include "shown_menu.h"

namespace velmora::test {
namespace {

std::string slot(int id, const std::string& name) {
    return std::to_string(id) + " Slot " + std::to_string(id % 1000 + 1) + "  \xC2\xB7  " + name +
           "\n";
}

class PlayMenuTest : public PlayWindowTest {
protected:
    void SetUp() override { open(640, 480); }

    static ShownMenu bar() { return shownBar(window()); }
    static ShownMenu gameMenu() { return submenu(bar(), 0); }
    static ShownMenu save() { return submenu(gameMenu(), 5); }
    static ShownMenu load() { return submenu(gameMenu(), 6); }

    void refresh(bool grow, std::int32_t count, const std::vector<std::string>& names) {
        video.hud.slotsGrow = grow;
        video.hud.slotCount = count;
        video.hud.slotNames = names;
        video.refreshNativeMenu();
    }
};

TEST_F(PlayMenuTest, HoldsTheWholeTreeAndTheCheckMark) {
    const auto tree = [](const char* mark) {
        return std::string("30 Pause\tP\n35 Reset\tF1\n36 Screenshot\tF12\n31 Quick Save\tF5\n"
                           "32 Quick Load\tF8\n> Save State\n> Load State\n33 Fullscreen\tF11\n"
                           "39 Always on Top") +
               mark + "\n-- \n37 Stop\tEsc\n";
    };
    EXPECT_EQ(lines(bar()), "> Game\n");
    EXPECT_EQ(lines(gameMenu()), tree(""));
    ASSERT_TRUE(video.toggleAlwaysOnTop());
    EXPECT_EQ(lines(gameMenu()), tree(" (checked)"));
    open(640, 480, true);
    EXPECT_EQ(lines(gameMenu()), tree(" (checked)")) << "the wish outlives the window";
    ASSERT_TRUE(video.toggleAlwaysOnTop());
    EXPECT_EQ(lines(gameMenu()), tree(""));
}

TEST_F(PlayMenuTest, ListsSlotsByTheirNames) {
    const std::string odd = "M\xC3\xBChle \xE5\x9F\x8E & ";
    const std::string shown = odd + shownInvalid;
    const std::string longName(10'000, 'x');
    refresh(false, 6, {"Morning", odd + "\xFF\xC0", "", "Empty", longName});
    EXPECT_EQ(lines(save()), slot(1000, "Morning") + slot(1001, shown) + slot(1002, "Empty") +
                                 slot(1003, "Empty") + slot(1004, longName) + slot(1005, "Empty"));
    EXPECT_EQ(lines(load()), slot(2000, "Morning") + slot(2001, shown) +
                                 slot(2002, "Empty (greyed)") + slot(2003, "Empty (greyed)") +
                                 slot(2004, longName) + slot(2005, "Empty (greyed)"));
    refresh(true, 4, {"empty", "Empty", "Evening"});
    EXPECT_EQ(lines(save()), "38 New slot\n-- \n" + slot(1000, "empty") + slot(1001, "Empty") +
                                 slot(1002, "Evening") + slot(1003, "Empty"));
    EXPECT_EQ(lines(load()), slot(2000, "empty") + slot(2002, "Evening"));
}

TEST_F(PlayMenuTest, TakesAnySlotCount) {
    const std::tuple<bool, std::int32_t, int, int> cases[] = {
        {false, 0, 10, 10}, {false, INT_MIN, 10, 10},  {true, -3, 1, 0},
        {true, 1, 3, 1},    {true, INT_MAX, 402, 400}, {false, 1000, 400, 400}};
    for (const auto& [grow, count, saves, loads] : cases) {
        refresh(grow, count, std::vector<std::string>(100'000, "Name"));
        EXPECT_EQ(std::ranges::count(lines(save()), '\n'), saves) << count;
        EXPECT_EQ(std::ranges::count(lines(load()), '\n'), loads) << count;
    }
}

TEST_F(PlayMenuTest, RefillsWhenTheGamePopupOpensAndOnlyThen) {
    const std::string before = lines(save());
    EXPECT_EQ(before.find(slot(1000, "Empty")), 0U) << "filled from the start";
    video.hud.slotNames = {"Evening"};
    video.onInitMenuPopup(nullptr);
    video.onInitMenuPopup(save());
    EXPECT_EQ(lines(save()), before);
    video.onInitMenuPopup(gameMenu());
    EXPECT_EQ(lines(save()).find(slot(1000, "Evening")), 0U);
    EXPECT_EQ(lines(load()).find(slot(2000, "Evening")), 0U);
}

TEST_F(PlayMenuTest, ComesAndGoesWithTheWindowedWindow) {
    const ShownMenu shown = bar();
    ASSERT_TRUE(video.setFullscreen(true));
    EXPECT_EQ(bar(), nullptr);
    refresh(true, 1, {"Evening"});
    ASSERT_TRUE(video.toggleFullscreen());
    EXPECT_EQ(bar(), shown);
    EXPECT_EQ(lines(load()), slot(2000, "Evening")) << "refilled while it was hidden";
    ASSERT_TRUE(video.toggleFullscreen());
    open(640, 480);
    ASSERT_TRUE(video.toggleFullscreen());
    EXPECT_EQ(bar(), nullptr) << "the next window was not in fullscreen";
}

TEST_F(PlayMenuTest, IsOffTheWindowWhenThatEnds) {
    ShownMenu last = bar();
    ASSERT_NE(last, nullptr);
    const auto look = [](void* seen, SDL_Event* event) {
        if (event->type == SDL_EVENT_WINDOW_DESTROYED)
            *static_cast<ShownMenu*>(seen) = bar();
        return true;
    };
    SDL_AddEventWatch(look, &last);
    video.destroy();
    SDL_RemoveEventWatch(look, &last);
    EXPECT_EQ(last, nullptr);
    video.refreshNativeMenu();
}

TEST_F(PlayMenuTest, HandsOutTheLatestCommandOnce) {
    video.onNativeMenu(30);
    video.onNativeMenu(2007);
    video.destroy();
    EXPECT_EQ(video.consumeMenuAction(), 2007);
    EXPECT_EQ(video.consumeMenuAction(), -1);
    video.onNativeMenu(0);
    EXPECT_EQ(video.consumeMenuAction(), 0);
    video.onNativeMenu(37);
    video.onNativeMenu(-5);
    EXPECT_EQ(video.consumeMenuAction(), -1);
}

} // namespace
} // namespace velmora::test
