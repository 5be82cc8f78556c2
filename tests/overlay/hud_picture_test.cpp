#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <tuple>

#include "overlay/play_window.h"
#include "support/counted_memory.h"

using velmora::PlayHud;
using velmora::test::Picture;

namespace {

constexpr SDL_Color accent = {10, 132, 255, 255};
constexpr SDL_Color slotColour = {48, 48, 52, 255};
constexpr SDL_Color clear = {0, 0, 0, 0};

// The picture that the window must show, drawn by SDL alone from numbers of the test's own.
class Expected {
public:
    Expected(SDL_Point size, SDL_Color game, bool onHardware)
        : width(size.x), height(size.y), hardware(onHardware),
          surface(SDL_CreateSurface(width, height, SDL_PIXELFORMAT_RGBA32)), picture(surface),
          renderer(SDL_CreateSoftwareRenderer(surface), SDL_DestroyRenderer) {
        SDL_SetRenderDrawBlendMode(renderer.get(), SDL_BLENDMODE_BLEND);
        fill({0, 0, width, height}, game);
    }

    void message(const std::string& text) {
        element({0, 0, width, 26}, {20, 20, 22, 210});
        write(12, 9, text);
    }

    void volume(int filled, const std::string& label) {
        const int x = (width - 280) / 2;
        const int y = height - 64;
        element({x, y, 280, 36}, {28, 28, 30, 230});
        fill({x + 12, y + 14, 256, 8}, {70, 70, 74, 255});
        fill({x + 12, y + 14, filled, 8}, accent);
        write(x + 12, y + 4, label);
    }

    void pauseMenu(int selected) {
        menu("PAUSED");
        const char* rows[] = {"Resume", "Save State", "Load State", "Quit to Library"};
        for (int r = 0; r < 4; ++r)
            row({16, 56 + 34 * r, 328, 30}, {12, 10}, rows[r], selected == r ? accent : clear);
    }

    void picker(const char* title, int selected, const std::vector<std::string>& names) {
        menu(title);
        for (int i = 0; i < 10; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            const std::string name = slot < names.size() ? names[slot] : "Empty";
            row({i < 5 ? 16 : 184, 50 + 34 * (i % 5), 156, 30}, {8, 11},
                std::to_string(i + 1) + "  " + name, selected == i ? accent : slotColour);
        }
        row({16, 230, 328, 30}, {12, 10}, "Back", selected == 10 ? accent : clear);
    }

    // Blending rounds a little differently from renderer to renderer; the rest is exact.
    void compare(const Picture& shown) {
        SDL_RenderPresent(renderer.get());
        for (SDL_Point at = {0, 0}; at.y < height; ++at.y) {
            for (at.x = 0; at.x < width; ++at.x) {
                const bool exact = hardware || SDL_PointInRect(&at, &opaque);
                ASSERT_LE(apart(shown.at(at.x, at.y), picture.at(at.x, at.y)), exact ? 0 : 2) << at;
            }
        }
    }

private:
    static int apart(Uint32 a, Uint32 b) {
        const auto part = [&](int shift) {
            return std::abs(static_cast<int>(a >> shift & 255) -
                            static_cast<int>(b >> shift & 255));
        };
        return std::max({part(0), part(8), part(16)});
    }

    void menu(const char* title) {
        opaque = {(width - 360) / 2, (height - 272) / 2, 360, 272};
        if (!hardware)
            fill({0, 0, width, height}, {0, 0, 0, 120});
        element(opaque, {32, 32, 36, 255});
        write(opaque.x + 20, opaque.y + 18, title);
    }

    void row(const SDL_Rect& rect, SDL_Point text, const std::string& label, SDL_Color colour) {
        const SDL_Rect place = {opaque.x + rect.x, opaque.y + rect.y, rect.w, rect.h};
        fill(place, colour);
        write(place.x + text.x, place.y + text.y, label);
    }

    void element(const SDL_Rect& area, SDL_Color colour) {
        SDL_SetRenderClipRect(renderer.get(), hardware ? &area : nullptr);
        fill(area, {colour.r, colour.g, colour.b, hardware ? Uint8{255} : colour.a});
    }

    void fill(const SDL_Rect& rect, SDL_Color colour) {
        SDL_FRect target = {};
        SDL_RectToFRect(&rect, &target);
        SDL_SetRenderDrawColor(renderer.get(), colour.r, colour.g, colour.b, colour.a);
        if (rect.w > 0)
            SDL_RenderFillRect(renderer.get(), &target);
    }

    void write(int x, int y, const std::string& text) {
        SDL_SetRenderDrawColor(renderer.get(), 245, 245, 247, 255);
        SDL_RenderDebugText(renderer.get(), float(x), float(y), text.c_str());
    }

    int width;
    int height;
    bool hardware;
    SDL_Rect opaque = {};
    SDL_Surface* surface;
    Picture picture;
    std::unique_ptr<SDL_Renderer, decltype(&SDL_DestroyRenderer)> renderer;
};

// The same cases on either path.
class HudPicture : public velmora::test::PlayWindowTest, public testing::WithParamInterface<bool> {
protected:
    void SetUp() override { open(640, 480, GetParam()); }

    template <class Draw>
    void expectShown(Draw&& draw) {
        Expected expected(windowSize(), game, GetParam());
        draw(expected);
        expected.compare(present());
    }

    PlayHud& hud = video.hud;
};

INSTANTIATE_TEST_SUITE_P(Paths, HudPicture, testing::Bool(),
                         [](const auto& path) { return path.param ? "Hardware" : "Software"; });

} // namespace

TEST_P(HudPicture, PauseMenuHighlightsTheSelectedRow) {
    hud.menuOpen = true;
    for (const int selected : {0, 3, 4, 10, -1, INT_MIN}) {
        SCOPED_TRACE(selected);
        hud.selected = selected;
        expectShown([&](Expected& expected) { expected.pauseMenu(selected); });
    }
}

TEST_P(HudPicture, PickersShowTenSlots) {
    const std::vector<std::string> few = {"Morning", "", "Longer than its row", "\xC3\x84\xFF\xE5"};
    std::vector<std::string> many(12, "Kept");
    many[2] = std::string(10'000, 'w');
    many[7] = "A name that leaves the panel altogether";
    const std::tuple<int, const char*, int, std::vector<std::string>> cases[] = {
        {1, "SAVE STATE", 3, few},
        {1, "SAVE STATE", 10, {}},
        {2, "LOAD STATE", 0, many},
        {7, "LOAD STATE", 11, few}};
    hud.menuOpen = true;
    for (const auto& [screen, title, selected, names] : cases) {
        SCOPED_TRACE(screen);
        hud.screen = screen;
        hud.selected = selected;
        hud.slotNames = names;
        expectShown([&](Expected& expected) { expected.picker(title, selected, names); });
    }
}

TEST_P(HudPicture, VolumeBarFollowsTheGain) {
    hud.showVolume = true;
    constexpr std::pair<float, int> cases[] = {
        {-1.0F, 0},  {0.005F, 0}, {0.006F, 1}, {0.5F, 85},      {0.75F, 128},  {1.0F, 170},
        {1.5F, 256}, {2.0F, 256}, {NAN, 0},    {INFINITY, 256}, {-INFINITY, 0}};
    for (const auto& [volume, filled] : cases) {
        SCOPED_TRACE(volume);
        hud.volume = volume;
        hud.muted = filled == 128;
        expectShown(
            [&](Expected& expected) { expected.volume(filled, hud.muted ? "Muted" : "Volume"); });
    }
}

TEST_P(HudPicture, MessageStandsWhileThereIsOne) {
    hud.showMessage = true;
    expectShown([](Expected&) {});
    for (const char* text : {"State saved", "\xC3\xA9\xFF\xF0\x9F\x80 broken"}) {
        hud.message = text;
        expectShown([&](Expected& expected) { expected.message(text); });
    }
}

TEST_P(HudPicture, ElementsOverlapInOrderAndRunOffASmallWindow) {
    const std::string longMessage(10'000, 'm');
    hud.showMessage = hud.showVolume = true;
    hud.message = longMessage;
    for (const auto& [w, h] : {std::pair{361, 300}, {358, 301}, {359, 60}, {1, 400}, {1, 1}}) {
        SCOPED_TRACE(testing::Message() << w << " by " << h);
        resize(w, h);
        hud.menuOpen = false;
        expectShown([&](Expected& expected) {
            expected.message(longMessage);
            expected.volume(170, "Volume");
        });
        hud.menuOpen = true;
        expectShown([](Expected& expected) {
            expected.volume(170, "Volume");
            expected.pauseMenu(0);
        });
    }
}

TEST_P(HudPicture, LeavesOutWhatMemoryDoesNotSufficeFor) {
    hud.menuOpen = true;
    hud.screen = 1;
    hud.slotNames = {std::string(1 << 18, 'x')};
    present();
    velmora::test::memory::refusedSize = 1 << 18;
    EXPECT_NO_THROW(video.present());
    EXPECT_NO_THROW(video.refreshNativeMenu());
    velmora::test::memory::refusedSize = std::numeric_limits<std::size_t>::max();
    expectShown([&](Expected& expected) { expected.picker("SAVE STATE", 0, hud.slotNames); });
}

using HudState = velmora::test::PlayWindowTest;

TEST_F(HudState, TouchesTheBlendModeOnlyWhileSomethingIsUp) {
    open(640, 480);
    present();
    SDL_Renderer* renderer = SDL_GetRenderer(window());
    SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_ADD);
    for (const bool up : {false, true}) {
        video.hud.showMessage = up;
        video.present();
        SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
        SDL_GetRenderDrawBlendMode(renderer, &mode);
        EXPECT_EQ(mode, up ? SDL_BLENDMODE_NONE : SDL_BLENDMODE_ADD);
    }
}
