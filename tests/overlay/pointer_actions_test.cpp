#include <algorithm>
#include <array>
#include <climits>
#include <map>

#include <velmora/action_codes.h>

#include "overlay/play_window.h"

namespace action = velmora::action;

namespace {

// Left, top, right, bottom, number of points.
using Box = std::array<int, 5>;

// Both edges of a row count.
Box row(int left, int top, int w) { return {left, top, left + w, top + 30, (w + 1) * 31}; }

class PointerActions : public velmora::test::PlayWindowTest {
protected:
    std::map<int, Box> boxes() const {
        std::map<int, Box> found;
        for (int y = -1; y <= 600; ++y) {
            for (int x = -1; x <= 800; ++x) {
                Box& box = found.try_emplace(video.hitTest(x, y), Box{x, y, x, y, 0}).first->second;
                box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x),
                       std::max(box[3], y), box[4] + 1};
            }
        }
        found.erase(action::none);
        return found;
    }
};

} // namespace

TEST_F(PointerActions, HitExactlyTheDrawnRowsOnBothPaths) {
    const std::map<int, Box> pauseRows = {{0, row(236, 220, 328)},
                                          {1, row(236, 254, 328)},
                                          {2, row(236, 288, 328)},
                                          {3, row(236, 322, 328)}};
    const std::map<int, Box> pickerRows = {
        {10, row(236, 214, 156)}, {11, row(236, 248, 156)}, {12, row(236, 282, 156)},
        {13, row(236, 316, 156)}, {14, row(236, 350, 156)}, {15, row(404, 214, 156)},
        {16, row(404, 248, 156)}, {17, row(404, 282, 156)}, {18, row(404, 316, 156)},
        {19, row(404, 350, 156)}, {20, row(236, 394, 328)}};
    video.hud.menuOpen = true;
    EXPECT_TRUE(boxes().empty()) << "without a window";
    for (const bool onHardware : {false, true}) {
        open(800, 600, onHardware);
        for (const int screen : {0, 1, 2, 5, INT_MIN}) {
            video.hud.screen = screen;
            EXPECT_EQ(boxes(), screen == 0 ? pauseRows : pickerRows) << screen;
        }
    }
    EXPECT_EQ(video.hitTest(INT_MAX, INT_MIN), action::none);
    video.hud.menuOpen = false;
    EXPECT_TRUE(boxes().empty()) << "with the menu closed";
}

TEST_F(PointerActions, CentreByTruncationAndClampNothing) {
    open(361, 300);
    video.hud.menuOpen = true;
    for (const auto& [width, left] : {std::pair{362, 17}, {361, 16}, {359, 16}, {358, 15}}) {
        resize(width, 300);
        EXPECT_EQ(boxes().at(action::resume)[0], left) << width;
    }
    resize(1, 1);
    EXPECT_EQ(video.hitTest(0, -60), action::resume);
}

TEST_F(PointerActions, ComePostedFirstThenByTheLatestClick) {
    open(800, 600);
    video.hud.menuOpen = true;
    click(300, 220);
    click(300, 254);
    click(300, 220, SDL_BUTTON_RIGHT);
    video.pendingAction = action::stop;
    open(800, 600); // What is pending outlives the window.
    EXPECT_EQ(video.consumeAction(), action::stop);
    EXPECT_EQ(video.consumeAction(), action::saveState);
    EXPECT_EQ(video.consumeAction(), action::none);
    EXPECT_EQ(video.pendingAction, action::none);
}

TEST_F(PointerActions, AreTestedWhenConsumedAndUseUpEveryClick) {
    open(800, 600);
    click(392, 214);
    video.hud.menuOpen = true;
    video.hud.screen = 1;
    EXPECT_EQ(video.consumeAction(), action::pickerSlot);

    int x = -7;
    int y = -7;
    video.hud.menuOpen = false;
    click(392, 214);
    EXPECT_EQ(video.consumeAction(), action::none);
    EXPECT_FALSE(video.consumeClick(x, y));
    EXPECT_EQ(x, -7);

    video.hud.menuOpen = true;
    click(391.9F, 214.9F);
    EXPECT_TRUE(video.consumeClick(x, y));
    EXPECT_EQ(x, 391);
    EXPECT_EQ(y, 214);
    EXPECT_EQ(video.consumeAction(), action::none);
}
