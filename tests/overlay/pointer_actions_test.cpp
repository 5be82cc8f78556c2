#include <climits>
#include <vector>

#include <velmora/action_codes.h>

#include "overlay/play_window.h"

namespace velmora::test {
namespace {

struct Row {
    int code, left, top, width;

    // Both edges count.
    bool contains(int x, int y) const {
        return x >= left && x <= left + width && y >= top && y <= top + 30;
    }
};

class PointerActions : public PlayWindowTest {
protected:
    void expectHits(const std::vector<Row>& rows) {
        for (int y = -1; y <= 600; ++y) {
            for (int x = -1; x <= 800; ++x) {
                int expected = action::none;
                for (const Row& row : rows)
                    expected = row.contains(x, y) ? row.code : expected;
                ASSERT_EQ(video.hitTest(x, y), expected) << x << ", " << y;
            }
        }
    }
};

TEST_F(PointerActions, HitExactlyTheDrawnRowsOnBothPaths) {
    const std::vector<Row> pauseRows = {
        {0, 236, 220, 328}, {1, 236, 254, 328}, {2, 236, 288, 328}, {3, 236, 322, 328}};
    std::vector<Row> pickerRows = {{20, 236, 394, 328}};
    for (int slot = 0; slot < 10; ++slot)
        pickerRows.push_back({10 + slot, slot < 5 ? 236 : 404, 214 + 34 * (slot % 5), 156});
    video.hud.menuOpen = true;
    for (const bool onHardware : {false, true}) {
        open(801, 601, onHardware);
        for (const int screen : {0, 1, 2, INT_MIN}) {
            SCOPED_TRACE(screen);
            video.hud.screen = screen;
            expectHits(screen == 0 ? pauseRows : pickerRows);
        }
    }
    EXPECT_EQ(video.hitTest(INT_MAX, INT_MIN), action::none);
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
