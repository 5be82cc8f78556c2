#include <climits>
#include <vector>

#include <velmora/action_codes.h>

#include "overlay/play_window.h"

namespace velmora::test {
namespace {

// Both edges count: a row drawn 328 by 30 takes one point more either way.
struct Row {
    int code;
    SDL_Rect points;
};

class PointerActions : public PlayWindowTest {
protected:
    void expectHits(const std::vector<Row>& rows) {
        for (SDL_Point at = {-1, -1}; at.y <= 600; ++at.y) {
            for (at.x = -1; at.x <= 800; ++at.x) {
                int expected = action::none;
                for (const Row& row : rows)
                    expected = SDL_PointInRect(&at, &row.points) ? row.code : expected;
                ASSERT_EQ(video.hitTest(at.x, at.y), expected) << at;
            }
        }
    }
};

TEST_F(PointerActions, HitExactlyTheDrawnRowsOnBothPaths) {
    std::vector<Row> pauseRows;
    for (int row = 0; row < 4; ++row)
        pauseRows.push_back({row, {236, 220 + 34 * row, 329, 31}});
    std::vector<Row> pickerRows = {{20, {236, 394, 329, 31}}};
    for (int slot = 0; slot < 10; ++slot)
        pickerRows.push_back({10 + slot, {slot < 5 ? 236 : 404, 214 + 34 * (slot % 5), 157, 31}});
    video.hud.menuOpen = true;
    for (const bool onHardware : {false, true}) {
        open(801, 601, onHardware);
        for (const int screen : {0, 1, 2, INT_MIN}) {
            SCOPED_TRACE(screen);
            video.hud.screen = screen;
            expectHits(screen == 0 ? pauseRows : pickerRows);
        }
    }
    video.hud.menuOpen = false;
    expectHits({});
    video.hud.menuOpen = true;
    video.destroy();
    expectHits({});
}

TEST_F(PointerActions, ComePostedFirstThenByClick) {
    open(800, 600);
    video.hud.menuOpen = true;
    click(300, 254);
    video.pendingAction = action::resume;
    open(800, 600); // What is pending outlives the window.
    EXPECT_EQ(video.consumeAction(), action::resume);
    EXPECT_EQ(video.consumeAction(), action::saveState);
    EXPECT_EQ(video.consumeAction(), action::none);
}

TEST_F(PointerActions, AreTestedWhenConsumedAndUseUpEveryClick) {
    open(800, 600);
    click(392, 214);
    video.hud.menuOpen = true;
    video.hud.screen = 1;
    EXPECT_EQ(video.consumeAction(), action::pickerSlot);

    video.hud.menuOpen = false;
    click(392, 214);
    EXPECT_EQ(video.consumeAction(), action::none);
    video.hud.menuOpen = true;
    EXPECT_EQ(video.consumeAction(), action::none);
}

} // namespace
} // namespace velmora::test
