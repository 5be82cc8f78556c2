#include <climits>
#include <cmath>
#include <functional>
#include <tuple>

#include "overlay/play_window.h"
#include "support/counted_memory.h"

namespace velmora::test {
namespace {

constexpr SDL_Color accent = {10, 132, 255, 255};
constexpr SDL_Color slotColour = {48, 48, 52, 255};
constexpr SDL_Color clear = {0, 0, 0, 0};

// The same cases on either path.
class HudPicture : public PlayWindowTest, public testing::WithParamInterface<bool> {
protected:
    void SetUp() override { open(640, 480, GetParam()); }

    // The window must show what `draw` draws, by SDL alone and from numbers of the test's own.
    void expectShown(const std::function<void()>& draw) {
        size = windowSize();
        const Picture expected = drawn(draw);
        expectEach(present(), [&](SDL_Point at) { return expected.at(at.x, at.y); });
    }

    void message() {
        element({0, 0, size.x, 26}, {20, 20, 22, 210});
        write(12, 9, hud.message);
    }

    void volume(int filled) {
        const int x = (size.x - 280) / 2;
        const int y = size.y - 64;
        element({x, y, 280, 36}, {28, 28, 30, 230});
        paint({x + 12, y + 14, 256, 8}, {70, 70, 74, 255});
        paint({x + 12, y + 14, filled, 8}, accent);
        write(x + 12, y + 4, hud.muted ? "Muted" : "Volume");
    }

    void pauseMenu() {
        panelWith("PAUSED");
        const char* rows[] = {"Resume", "Save State", "Load State", "Quit to Library"};
        for (int r = 0; r < 4; ++r)
            row({16, 56 + 34 * r, 328, 30}, {12, 10}, rows[r], hud.selected == r ? accent : clear);
    }

    void picker(const char* title) {
        panelWith(title);
        for (int i = 0; i < 10; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            const std::string name = slot < hud.slotNames.size() ? hud.slotNames[slot] : "Empty";
            row({i < 5 ? 16 : 184, 50 + 34 * (i % 5), 156, 30}, {8, 11},
                std::to_string(i + 1) + "  " + name, hud.selected == i ? accent : slotColour);
        }
        row({16, 230, 328, 30}, {12, 10}, "Back", hud.selected == 10 ? accent : clear);
    }

    PlayHud& hud = video.hud;

private:
    // Blending rounds a little differently from renderer to renderer, so the same kind does it.
    Picture drawn(const std::function<void()>& draw) {
        SDL_Surface* surface = SDL_CreateSurface(1, 1, SDL_PIXELFORMAT_RGBA32);
        renderer = hardware ? SDL_CreateSoftwareRenderer(surface) : SDL_GetRenderer(window());
        SDL_Texture* target = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_XRGB8888,
                                                SDL_TEXTUREACCESS_TARGET, size.x, size.y);
        SDL_SetRenderTarget(renderer, target);
        SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_BLEND);
        paint({0, 0, size.x, size.y}, game);
        draw();
        SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_NONE);
        const Picture picture(SDL_RenderReadPixels(renderer, nullptr));
        SDL_SetRenderTarget(renderer, nullptr);
        SDL_DestroyTexture(target);
        if (hardware)
            SDL_DestroyRenderer(renderer);
        SDL_DestroySurface(surface);
        return picture;
    }

    void panelWith(const char* title) {
        panel = {(size.x - 360) / 2, (size.y - 272) / 2, 360, 272};
        if (!hardware)
            paint({0, 0, size.x, size.y}, {0, 0, 0, 120});
        element(panel, {32, 32, 36, 255});
        write(panel.x + 20, panel.y + 18, title);
    }

    void row(const SDL_Rect& rect, SDL_Point text, const std::string& label, SDL_Color colour) {
        const SDL_Rect place = {panel.x + rect.x, panel.y + rect.y, rect.w, rect.h};
        paint(place, colour);
        write(place.x + text.x, place.y + text.y, label);
    }

    void element(const SDL_Rect& area, SDL_Color colour) {
        SDL_SetRenderClipRect(renderer, hardware ? &area : nullptr);
        paint(area, {colour.r, colour.g, colour.b, hardware ? Uint8{255} : colour.a});
    }

    void paint(const SDL_Rect& rect, SDL_Color colour) {
        SDL_FRect target = {};
        SDL_RectToFRect(&rect, &target);
        SDL_SetRenderDrawColor(renderer, colour.r, colour.g, colour.b, colour.a);
        if (rect.w > 0)
            SDL_RenderFillRect(renderer, &target);
    }

    void write(int x, int y, const std::string& text) {
        SDL_SetRenderDrawColor(renderer, 245, 245, 247, 255);
        SDL_RenderDebugText(renderer, float(x), float(y), text.c_str());
    }

    SDL_Point size = {};
    SDL_Rect panel = {};
    SDL_Renderer* renderer = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Paths, HudPicture, testing::Bool(),
                         [](const auto& path) { return path.param ? "Hardware" : "Software"; });

TEST_P(HudPicture, MenusHighlightTheSelectedRowAndPickersShowTenSlots) {
    const std::vector<std::string> few = {"Morning", "", "Longer than its row", "\xC3\x84\xFF\xE5"};
    std::vector<std::string> many(12, "Kept");
    many[2] = std::string(10'000, 'w');
    many[7] = "A name that leaves the panel altogether";
    const std::tuple<int, int, std::vector<std::string>> cases[] = {
        {0, 0, few}, {0, 3, {}},  {0, 4, {}},   {0, -1, {}}, {0, INT_MIN, {}},
        {1, 3, few}, {1, 10, {}}, {2, 0, many}, {7, 11, few}};
    hud.menuOpen = true;
    for (const auto& [screen, selected, names] : cases) {
        SCOPED_TRACE(testing::Message() << screen << ": " << selected);
        hud.screen = screen;
        hud.selected = selected;
        hud.slotNames = names;
        expectShown([&] {
            if (hud.screen == 0)
                pauseMenu();
            else
                picker(hud.screen == 1 ? "SAVE STATE" : "LOAD STATE");
        });
    }
}

TEST_P(HudPicture, VolumeBarFollowsTheGain) {
    hud.showVolume = true;
    constexpr std::pair<float, int> cases[] = {{-1.0F, 0},   {0.005F, 0},    {0.006F, 1},
                                               {0.75F, 128}, {1.5F, 256},    {2.0F, 256},
                                               {NAN, 0},     {INFINITY, 256}};
    for (const auto& [gain, filled] : cases) {
        SCOPED_TRACE(gain);
        hud.volume = gain;
        hud.muted = filled == 128;
        expectShown([&] { volume(filled); });
    }
}

TEST_P(HudPicture, MessageStandsWhileThereIsOne) {
    hud.showMessage = true;
    expectShown([] {});
    for (const char* text : {"State saved", "\xC3\xA9\xFF\xF0\x9F\x80 broken"}) {
        hud.message = text;
        expectShown([&] { message(); });
    }
}

TEST_P(HudPicture, ElementsOverlapInOrderAndRunOffASmallWindow) {
    hud.showMessage = hud.showVolume = true;
    hud.message = std::string(10'000, 'm');
    for (const auto& [w, h] : {std::pair{361, 300}, {358, 301}, {359, 60}, {1, 1}}) {
        SCOPED_TRACE(testing::Message() << w << " by " << h);
        resize(w, h);
        hud.menuOpen = false;
        expectShown([&] {
            message();
            volume(170);
        });
        hud.menuOpen = true;
        expectShown([&] {
            volume(170);
            pauseMenu();
        });
    }
}

TEST_P(HudPicture, LeavesOutWhatMemoryDoesNotSufficeFor) {
    hud.menuOpen = true;
    hud.screen = 1;
    hud.slotNames = {std::string(1 << 18, 'x')};
    present();
    memory::refusedSize = 1 << 18;
    EXPECT_NO_THROW(presentForReading());
    EXPECT_NO_THROW(video.refreshNativeMenu());
    memory::refusedSize = SIZE_MAX;
    const Picture without = hardware ? shownByGl() : screenshot();
    if (memory::failed) { // a DLL has an operator new of its own
        EXPECT_EQ(without.at(320, 130), without.at(5, 130)) << "not even an empty panel";
    }
    expectShown([&] { picker("SAVE STATE"); });
}

} // namespace
} // namespace velmora::test
