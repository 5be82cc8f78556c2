#pragma once

#include <SDL3/SDL.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <velmora/sdl_video.h>

#include "support/scratch_directory.h"

namespace velmora::test {

struct SurfaceDeleter {
    void operator()(SDL_Surface* surface) const { SDL_DestroySurface(surface); }
};

// A picture whose pixels read as 0xRRGGBB, top row first.
class Picture {
public:
    explicit Picture(SDL_Surface* surface) : pixels(surface) {}

    int width() const { return pixels ? pixels->w : 0; }
    int height() const { return pixels ? pixels->h : 0; }

    Uint32 at(int x, int y) const {
        Uint8 r = 0;
        Uint8 g = 0;
        Uint8 b = 0;
        Uint8 a = 0;
        EXPECT_TRUE(SDL_ReadSurfacePixel(pixels.get(), x, y, &r, &g, &b, &a)) << x << ", " << y;
        return static_cast<Uint32>(r << 16 | g << 8 | b);
    }

    bool operator==(const Picture& other) const {
        if (width() != other.width() || height() != other.height())
            return false;
        for (int y = 0; y < height(); ++y) {
            for (int x = 0; x < width(); ++x) {
                if (at(x, y) != other.at(x, y))
                    return false;
            }
        }
        return true;
    }

private:
    std::unique_ptr<SDL_Surface, SurfaceDeleter> pixels;
};

class VideoTest : public testing::Test {
protected:
    VideoTest() { EXPECT_TRUE(SDL_Init(SDL_INIT_VIDEO)) << SDL_GetError(); }

    static int windowCount() {
        int count = 0;
        SDL_free(SDL_GetWindows(&count));
        return count;
    }

    static SDL_Window* window() {
        const std::unique_ptr<SDL_Window*, decltype(&SDL_free)> all(SDL_GetWindows(nullptr),
                                                                    SDL_free);
        return *all;
    }

    static SDL_Point windowSize() {
        SDL_Point size = {};
        SDL_GetWindowSize(window(), &size.x, &size.y);
        return size;
    }

    Picture screenshot() {
        const std::string file = (directory / "picture.bmp").string();
        EXPECT_TRUE(video.captureScreenshot(file)) << SDL_GetError();
        return Picture(SDL_LoadBMP(file.c_str()));
    }

    ScratchDirectory directory;
    SdlVideo video;
};

} // namespace velmora::test

inline bool operator==(const SDL_Point& a, const SDL_Point& b) { return a.x == b.x && a.y == b.y; }
inline std::ostream& operator<<(std::ostream& out, const SDL_Point& p) {
    return out << p.x << ", " << p.y;
}
