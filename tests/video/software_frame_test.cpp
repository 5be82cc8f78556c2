#include "video/window_picture.h"

#include <climits>
#include <cstring>
#include <functional>
#include <vector>

#include "support/counted_memory.h"
#include "video/fit_rect.h"

namespace velmora::test {
namespace {

constexpr Uint32 bars = 0x080a10;

// A frame of exactly the bytes that a core owes: rows of a padded pitch, the last one unpadded, so
// that reading further is reading beyond the memory.
struct Frame {
    unsigned width;
    unsigned height;
    std::size_t pitch;
    std::vector<unsigned char> bytes;

    Frame(unsigned w, unsigned h, std::size_t bytesPerPixel, std::size_t padding,
          const std::function<Uint32(unsigned, unsigned)>& pixel)
        : width(w), height(h), pitch(w * bytesPerPixel + padding),
          bytes((h - 1) * pitch + w * bytesPerPixel, 0xee) {
        for (unsigned y = 0; y < h; ++y) {
            for (unsigned x = 0; x < w; ++x) {
                const Uint32 value = pixel(x, y);
                std::memcpy(&bytes[y * pitch + x * bytesPerPixel], &value, bytesPerPixel);
            }
        }
    }
};

Uint32 shownAs(unsigned format, Uint32 pixel) {
    const auto channels = [](Uint32 r, Uint32 g, Uint32 b) { return r << 16 | g << 8 | b; };
    if (format == RETRO_PIXEL_FORMAT_XRGB8888)
        return pixel & 0xffffff;
    if (format == RETRO_PIXEL_FORMAT_RGB565)
        return channels(pixel / 2048 * 8, pixel / 32 % 64 * 4, pixel % 32 * 8);
    return channels(pixel / 1024 % 32 * 8, pixel / 32 % 32 * 8, pixel % 32 * 8);
}

class SoftwareFrameTest : public VideoTest {
protected:
    void show(unsigned format, const Frame& frame) {
        video.setPixelFormat(format);
        video.upload(frame.bytes.data(), frame.width, frame.height, frame.pitch);
        presentForReading();
    }
};

// What no window has, and what would divide by nothing. The shapes of pictures follow below.
TEST(FitRect, IsNeverEmptyNorBeyondInt) {
    EXPECT_EQ(fitRect(0, 240, 100, 50), (FitRect{0, 0, 100, 50}));
    EXPECT_EQ(fitRect(320, -1, 100, 50), (FitRect{0, 0, 100, 50}));
    EXPECT_EQ(fitRect(320, 240, 0, 50), (FitRect{0, 0, 1, 50}));
    EXPECT_EQ(fitRect(320, 240, 100, -7), (FitRect{0, 0, 100, 1}));
    EXPECT_EQ(fitRect(1, 1, INT_MAX, INT_MAX), (FitRect{0, 0, INT_MAX, INT_MAX}));
}

// Every 16-bit value, at odd addresses and an odd size: the window shows each pixel three by three.
TEST_F(SoftwareFrameTest, EveryPixelOfEveryFormatArrives) {
    constexpr unsigned width = 257;
    constexpr unsigned height = 255;
    ASSERT_TRUE(video.create("formats", width, height));
    for (const unsigned format : {0U, 1U, 2U, 77U}) {
        const bool wide = format == RETRO_PIXEL_FORMAT_XRGB8888;
        const auto pixel = [=](unsigned x, unsigned y) {
            return wide ? 0xab000000U + ((y << 12) ^ (x * 0x1003U)) : (y * width + x) & 0xffff;
        };
        show(format, Frame(width, height, wide ? 4 : 2, wide ? 12 : 5, pixel));
        const Picture shown = screenshot();
        for (unsigned y = 0; y < height * 3; ++y) {
            for (unsigned x = 0; x < width * 3; ++x)
                ASSERT_EQ(shown.at(static_cast<int>(x), static_cast<int>(y)),
                          shownAs(format, pixel(x / 3, y / 3)))
                    << "format " << format << " at " << x << ", " << y;
        }
    }
}

TEST_F(SoftwareFrameTest, RowsOfEveryLengthAreWhole) {
    ASSERT_TRUE(video.create("rows", 160, 144));
    for (unsigned width = 1; width <= 70; ++width) {
        const auto pixel = [](unsigned x, unsigned y) { return (x % 31 + 1) | (y % 2) << 10; };
        show(RETRO_PIXEL_FORMAT_0RGB1555, Frame(width, width, 2, 1, pixel));
        const Picture shown = screenshot();
        for (unsigned x = 0; x < width; ++x) {
            const auto column = static_cast<int>(24 + 432 * (2 * x + 1) / (2 * width));
            for (unsigned y : {0U, width - 1})
                EXPECT_EQ(shown.at(column, static_cast<int>(432 * (2 * y + 1) / (2 * width))),
                          shownAs(RETRO_PIXEL_FORMAT_0RGB1555, pixel(x, y)))
                    << width << " wide, pixel " << x << ", " << y;
        }
    }
}

TEST_F(SoftwareFrameTest, FramesOfAnyShapeStandCentredBetweenBars) {
    struct {
        unsigned frameW, frameH;
        int windowW, windowH;
        SDL_Rect picture;
    } const cases[] = {{320, 100, 1200, 1200, {0, 412, 1200, 375}},
                       {320, 240, 1000, 1000, {0, 125, 1000, 750}},
                       {100, 300, 480, 432, {168, 0, 144, 432}},
                       {7, 5, 301, 99, {81, 0, 139, 99}},
                       {1000, 1, 400, 300, {0, 149, 400, 1}}};
    ASSERT_TRUE(video.create("shapes", 400, 400));
    for (const auto& c : cases) {
        resize(c.windowW, c.windowH);
        showPlain(c.frameW, c.frameH, 0x336699);
        const Picture shown = screenshot();
        for (SDL_Point at = {}; at.y < c.windowH; ++at.y) {
            for (at.x = 0; at.x < c.windowW; ++at.x)
                ASSERT_EQ(shown.at(at.x, at.y), SDL_PointInRect(&at, &c.picture) ? 0x336699 : bars)
                    << c.frameW << " by " << c.frameH << " at " << at;
        }
    }
}

TEST_F(SoftwareFrameTest, FramesThatCannotBeAreDroppedAndThePictureStays) {
    ASSERT_TRUE(video.create("drops", 160, 144));
    showPlain(160, 144, 0x123456);
    const Picture before = screenshot();
    EXPECT_EQ(before.at(240, 200), 0x123456U);

    constexpr std::size_t pitch = 640;
    const std::vector<Uint32> whole(pitch * 144 / sizeof(Uint32), 0xffffff);
    const void* data = whole.data();
    struct {
        const void* data;
        unsigned width, height;
        std::size_t pitch;
    } const drops[] = {{nullptr, 160, 144, pitch},
                       {RETRO_HW_FRAME_BUFFER_VALID, 160, 144, 0},
                       {RETRO_HW_FRAME_BUFFER_VALID, 160, 144, pitch},
                       {data, 0, 144, pitch},
                       {data, 160, 0, pitch},
                       {data, 160, 144, 319},
                       {data, 160, 144, std::size_t{INT_MAX} + 1},
                       {data, 160, 144, SIZE_MAX},
                       {data, UINT_MAX, 1, INT_MAX},
                       {data, UINT_MAX / 4 + 2, 1, pitch},
                       {data, 1, UINT_MAX, pitch},
                       {data, UINT_MAX, UINT_MAX, SIZE_MAX}};
    for (unsigned format : {0U, 1U, 2U}) {
        video.setPixelFormat(format);
        for (const auto& d : drops)
            video.upload(d.data, d.width, d.height, d.pitch);
    }
    video.present();
    EXPECT_TRUE(screenshot() == before);

    video.upload(data, INT_MAX / 4, INT_MAX, INT_MAX);
    showPlain(160, 144, 0x123456);
    EXPECT_TRUE(screenshot() == before) << "a frame too large for the renderer costs only itself";
}

TEST_F(SoftwareFrameTest, MemoryIsTakenOnceAndItsLackCostsOneFrame) {
    ASSERT_TRUE(video.create("memory", 160, 144));
    const Frame small(160, 144, 2, 0, [](unsigned, unsigned) { return 0x7fffU; });
    const Frame large(320, 288, 2, 0, [](unsigned, unsigned) { return 0x001fU; });
    show(RETRO_PIXEL_FORMAT_0RGB1555, small);
    memory::refusedSize = 320 * 288 * 4;
    show(RETRO_PIXEL_FORMAT_0RGB1555, large);
    memory::refusedSize = SIZE_MAX;
    show(RETRO_PIXEL_FORMAT_0RGB1555, large);
    EXPECT_EQ(screenshot().at(200, 200), 0x0000f8U);

    const auto play = [&](int frames) {
        for (int i = 0; i < frames; ++i) {
            show(RETRO_PIXEL_FORMAT_0RGB1555, i % 2 ? small : large);
            show(RETRO_PIXEL_FORMAT_RGB565, large);
        }
    };
    play(10); // drivers compile what they draw with once
    const long before = memory::allocations;
    play(60);
    EXPECT_EQ(memory::allocations, before);
}

TEST_F(SoftwareFrameTest, ScreenshotsAreBitmapsWhateverTheirNameAndFailCleanly) {
    ASSERT_TRUE(video.create("shot", 160, 144));
    showPlain(160, 144, 0xfedcba);
    const auto path = directory.path() / u8"écran.png";
    const std::u8string name = path.u8string();
    EXPECT_TRUE(video.captureScreenshot({name.begin(), name.end()}));
    EXPECT_EQ(readFile(path).substr(0, 2), "BM");
    EXPECT_FALSE(video.captureScreenshot(""));
    EXPECT_FALSE(video.captureScreenshot(directory.path().string()));
    EXPECT_FALSE(video.captureScreenshot((directory / "missing" / "a.bmp").string()));
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_FALSE(video.captureScreenshot("/dev/full"));
    }
    // Also while a resize is on its way.
    for (const int step : {3, 1, 4, 1, 5}) {
        showPlain(160, 144, 0xfedcba);
        SDL_SetWindowSize(window(), 300 + 97 * step, 250 + 53 * step);
        pump();
        screenshot();
    }
}

} // namespace
} // namespace velmora::test
