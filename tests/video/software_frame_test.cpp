#include "video/window_picture.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <tuple>
#include <vector>

#include "support/counted_memory.h"
#include "video/fit_rect.h"
#include "video/pixel_conversion.h"

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
    EXPECT_EQ(fitRect(320, 0, 100, 50), (FitRect{0, 0, 100, 50}));
    EXPECT_EQ(fitRect(320, 240, 0, 50), (FitRect{0, 0, 1, 50}));
    EXPECT_EQ(fitRect(320, 240, 100, 0), (FitRect{0, 0, 100, 1}));
    EXPECT_EQ(fitRect(1, 3, 5, 1), (FitRect{2, 0, 1, 1}));
    EXPECT_EQ(fitRect(1, 1, INT_MAX, INT_MAX), (FitRect{0, 0, INT_MAX, INT_MAX}));
}

// Each row alone in memory, at an odd address and with nothing behind it on either side.
TEST(PixelConversion, WritesEveryPixelOfARowOfAnyLengthAndNoneBeyond) {
    for (const unsigned format : {0U, 2U}) {
        const auto convert =
            format == RETRO_PIXEL_FORMAT_RGB565 ? convertRowRgb565 : convertRow0rgb1555;
        for (unsigned count = 0; count <= 70; ++count) {
            const auto pixel = [=](unsigned x, unsigned) { return (count + x) * 977U & 0xffff; };
            std::vector<unsigned char> source(1 + count * 2);
            std::ranges::copy(Frame(count, 1, 2, 0, pixel).bytes, source.begin() + 1);
            std::vector<Uint32> words(count + 1, 0xeeeeeeee);
            convert(source.data() + 1, words.data(), count);
            for (unsigned x = 0; x < count; ++x)
                ASSERT_EQ(words[x], shownAs(format, pixel(x, 0))) << x << " of " << count;
            ASSERT_EQ(words[count], 0xeeeeeeee) << count;
        }
    }
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
        SCOPED_TRACE(format);
        expectEach(screenshot(), [&](SDL_Point at) {
            return shownAs(format, pixel(unsigned(at.x) / 3, unsigned(at.y) / 3));
        });
    }
}

TEST_F(SoftwareFrameTest, FramesOfAnyShapeStandCentredBetweenBars) {
    // The sizes of the frame and of the window, and where the picture stands in that.
    const std::tuple<unsigned, unsigned, int, int, SDL_Rect> cases[] = {
        {320, 100, 1200, 1200, {0, 412, 1200, 375}}, {320, 240, 1000, 1000, {0, 125, 1000, 750}},
        {480, 240, 1000, 1000, {0, 250, 1000, 500}}, {100, 300, 480, 432, {168, 0, 144, 432}},
        {7, 5, 301, 99, {81, 0, 139, 99}},           {1000, 1, 400, 300, {0, 149, 400, 1}}};
    ASSERT_TRUE(video.create("shapes", 400, 400));
    for (const auto& [frameW, frameH, windowW, windowH, place] : cases) {
        resize(windowW, windowH);
        showPlain(frameW, frameH, 0x336699);
        SCOPED_TRACE(testing::Message() << frameW << " by " << frameH);
        expectEach(screenshot(),
                   [&](SDL_Point at) { return SDL_PointInRect(&at, &place) ? 0x336699 : bars; });
    }
}

TEST_F(SoftwareFrameTest, FramesThatCannotBeAreDroppedAndThePictureStays) {
    ASSERT_TRUE(video.create("drops", 160, 144));
    showPlain(160, 144, 0x123456);
    constexpr std::size_t pitch = 640;
    const std::vector<Uint32> whole(pitch * 144 / sizeof(Uint32), 0xffffff);
    const void* data = whole.data();
    const std::tuple<const void*, unsigned, unsigned, std::size_t> drops[] = {
        {nullptr, 160, 144, pitch},
        {RETRO_HW_FRAME_BUFFER_VALID, 160, 144, pitch},
        {data, 0, 144, pitch},
        {data, 160, 0, pitch},
        {data, 160, 144, 319},
        {data, 160, 144, std::size_t{INT_MAX} + 1},
        {data, INT_MAX / 4 + 1, 1, INT_MAX},
        {data, 1, UINT_MAX, pitch},
        {data, UINT_MAX, UINT_MAX, SIZE_MAX}};
    for (unsigned format : {0U, 1U, 2U}) {
        video.setPixelFormat(format);
        for (const auto& [pixels, width, height, rowBytes] : drops)
            video.upload(pixels, width, height, rowBytes);
    }
    resize(400, 432); // so that the picture is drawn anew
    presentForReading();
    const Picture kept = screenshot();
    EXPECT_EQ(kept.at(5, 5), bars);
    EXPECT_EQ(kept.at(200, 216), 0x123456U);

    video.upload(data, INT_MAX / 4, INT_MAX, INT_MAX);
    showPlain(160, 144, 0x123456);
    EXPECT_TRUE(screenshot() == kept) << "a frame too large for the renderer costs only itself";
    video.setPixelFormat(RETRO_PIXEL_FORMAT_RGB565);
    video.upload(data, 160, 1, INT_MAX);
    presentForReading();
    EXPECT_EQ(screenshot().at(240, 216), 0xf8fcf8U) << "of one row the pitch does not matter";
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

    long before = 0;
    for (int frame = 0; frame < 20; ++frame) {
        show(RETRO_PIXEL_FORMAT_0RGB1555, frame % 2 ? small : large);
        show(RETRO_PIXEL_FORMAT_RGB565, large);
        if (frame == 4) // drivers compile what they draw with once
            before = memory::allocations;
    }
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
