#include "video/window_picture.h"

#include <climits>
#include <cstring>
#include <functional>
#include <vector>

#include "support/counted_memory.h"

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

Uint32 channels(unsigned r, unsigned g, unsigned b) { return r << 16 | g << 8 | b; }

class SoftwareFrameTest : public VideoTest {
protected:
    void show(unsigned format, const Frame& frame) {
        video.setPixelFormat(format);
        video.upload(frame.bytes.data(), frame.width, frame.height, frame.pitch);
        video.present();
    }

    static Frame plain(unsigned w, unsigned h, Uint32 colour) {
        return {w, h, 4, 0, [=](unsigned, unsigned) { return colour; }};
    }
};

// Every 16-bit value, at odd addresses and an odd size: the window shows each pixel three by three.
TEST_F(SoftwareFrameTest, EveryPixelOfEveryFormatArrives) {
    constexpr unsigned width = 257;
    constexpr unsigned height = 255;
    const auto value = [](unsigned x, unsigned y) { return (y * width + x) & 0xffff; };
    const auto wide = [](unsigned x, unsigned y) {
        return 0xab000000U + ((y << 12) ^ (x * 0x1003U));
    };
    const auto rgb565 = [&](unsigned x, unsigned y) {
        const unsigned p = value(x, y);
        return channels(p / 2048 * 8, p / 32 % 64 * 4, p % 32 * 8);
    };
    const auto rgb1555 = [&](unsigned x, unsigned y) {
        const unsigned p = value(x, y);
        return channels(p / 1024 % 32 * 8, p / 32 % 32 * 8, p % 32 * 8);
    };
    const auto xrgb8888 = [&](unsigned x, unsigned y) { return wide(x, y) & 0xffffff; };
    struct {
        unsigned format;
        std::size_t bytesPerPixel, padding;
        std::function<Uint32(unsigned, unsigned)> source;
        std::function<Uint32(unsigned, unsigned)> expected;
    } const cases[] = {{RETRO_PIXEL_FORMAT_RGB565, 2, 5, value, rgb565},
                       {RETRO_PIXEL_FORMAT_0RGB1555, 2, 5, value, rgb1555},
                       {RETRO_PIXEL_FORMAT_XRGB8888, 4, 12, wide, xrgb8888},
                       {77, 2, 5, value, rgb1555}};
    ASSERT_TRUE(video.create("formats", width, height));
    for (const auto& c : cases) {
        show(c.format, Frame(width, height, c.bytesPerPixel, c.padding, c.source));
        const Picture shown = screenshot();
        ASSERT_EQ(shown.width(), 771);
        ASSERT_EQ(shown.height(), 765);
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                ASSERT_EQ(shown.at(x, y),
                          c.expected(static_cast<unsigned>(x) / 3, static_cast<unsigned>(y) / 3))
                    << "format " << c.format << " at " << x << ", " << y;
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
                          channels(y % 2 * 8, 0, (x % 31 + 1) * 8))
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
        SDL_SetWindowSize(window(), c.windowW, c.windowH);
        SDL_SyncWindow(window());
        bool quit = false;
        video.pumpEvents(quit);
        // Twice: the buffer that a resize brought can be the one that is now on screen.
        show(RETRO_PIXEL_FORMAT_XRGB8888, plain(c.frameW, c.frameH, 0x336699));
        video.present();
        const Picture shown = screenshot();
        ASSERT_EQ(shown.width(), c.windowW);
        ASSERT_EQ(shown.height(), c.windowH);
        for (int y = 0; y < c.windowH; ++y) {
            for (int x = 0; x < c.windowW; ++x) {
                const SDL_Point at = {x, y};
                ASSERT_EQ(shown.at(x, y), SDL_PointInRect(&at, &c.picture) ? 0x336699 : bars)
                    << c.frameW << " by " << c.frameH << " at " << at;
            }
        }
    }
}

TEST_F(SoftwareFrameTest, FramesThatCannotBeAreDroppedAndThePictureStays) {
    const Frame good = plain(160, 144, 0x123456);
    const void* data = good.bytes.data();
    video.upload(data, 160, 144, 640);
    ASSERT_TRUE(video.create("drops", 160, 144));
    show(RETRO_PIXEL_FORMAT_XRGB8888, good);
    const Picture before = screenshot();
    EXPECT_EQ(before.at(240, 200), 0x123456U);

    constexpr std::size_t pitch = 640;
    struct {
        const void* data;
        unsigned width, height;
        std::size_t pitch;
    } const drops[] = {{nullptr, 160, 144, pitch},
                       {RETRO_HW_FRAME_BUFFER_VALID, 160, 144, 0},
                       {RETRO_HW_FRAME_BUFFER_VALID, 160, 144, pitch},
                       {data, 0, 144, pitch},
                       {data, 160, 0, pitch},
                       {data, 161, 144, pitch / 2 - 1},
                       {data, 160, 144, 0},
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
    EXPECT_EQ(screenshot(), before);
    video.present();
    EXPECT_EQ(screenshot(), before) << "one frame is shown any number of times";

    show(RETRO_PIXEL_FORMAT_XRGB8888, plain(40, 36, 0x00ff00));
    EXPECT_EQ(screenshot().at(240, 200), 0x00ff00U) << "another resolution";
    video.upload(data, INT_MAX / 4, INT_MAX, INT_MAX);
    show(RETRO_PIXEL_FORMAT_XRGB8888, good);
    EXPECT_EQ(screenshot(), before) << "a frame too large for the renderer costs only itself";
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
    show(RETRO_PIXEL_FORMAT_XRGB8888, plain(160, 144, 0xfedcba));
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
}

TEST_F(SoftwareFrameTest, AScreenshotMayComeWhileAResizeIsOnItsWay) {
    ASSERT_TRUE(video.create("shot", 160, 144));
    for (const int step : {3, 1, 4, 1, 5}) {
        show(RETRO_PIXEL_FORMAT_XRGB8888, plain(160, 144, 0xfedcba));
        SDL_SetWindowSize(window(), 300 + 97 * step, 250 + 53 * step);
        bool quit = false;
        video.pumpEvents(quit);
        EXPECT_TRUE(video.captureScreenshot((directory / "shot.bmp").string())) << SDL_GetError();
    }
}

} // namespace
} // namespace velmora::test
