#include <array>
#include <climits>
#include <limits>
#include <set>
#include <tuple>

#include <velmora/sdl_video.h>

#include "core_host/host_test.h"

namespace velmora::test {

class Environment : public HostTest {
protected:
    void SetUp() override { ASSERT_TRUE(host.loadCore(core.path)); }

    template <class Data>
    bool ask(unsigned command, Data& data) {
        return core->environment(command, &data);
    }

    // The value that the core finds in place of `before`.
    template <class Data>
    Data answer(unsigned command, Data before) {
        EXPECT_TRUE(ask(command, before)) << command;
        return before;
    }
};

TEST_F(Environment, AnswersItsCommandsAndNoOthers) {
    // By the answer to a record of zeros. Without data it is the same but for the pixel format.
    const std::set<unsigned> accepted = {6,  7,  8,  10,      11,      16,      17,     18, 27,
                                         32, 34, 35, 37,      39,      52,      53,     54, 55,
                                         56, 60, 87, 0x10024, 0x1002A, 0x10033, 0x10048};
    const std::set<unsigned> read = {9, 14, 15, 30, 31, 67, 68};
    std::array<unsigned char, 128> pattern;
    pattern.fill(0xAB);
    const auto check = [&](unsigned command) {
        const bool unknown = !accepted.contains(command) && !read.contains(command);
        alignas(16) auto data = pattern;
        if (!unknown)
            data.fill(0);
        EXPECT_EQ(core->environment(command, data.data()), accepted.contains(command)) << command;
        EXPECT_TRUE(!unknown || data == pattern) << command;
        EXPECT_EQ(core->environment(command, nullptr),
                  accepted.contains(command) && command != RETRO_ENVIRONMENT_SET_PIXEL_FORMAT);
    };
    for (unsigned command = 0; command < 0x20100; ++command)
        check(command);
    for (const unsigned command : {0x80000009U, 0xFFFF0009U, 0xFFFFFFFFU})
        check(command);
    EXPECT_TRUE(host.shutdownRequested);
}

TEST_F(Environment, WritesFixedAnswers) {
    EXPECT_EQ(answer(RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE, true), false);
    EXPECT_EQ(answer(RETRO_ENVIRONMENT_GET_LANGUAGE, ~0U), 0U);
    EXPECT_EQ(answer(RETRO_ENVIRONMENT_GET_CORE_OPTIONS_VERSION, ~0U), 2U);
    EXPECT_EQ(answer(RETRO_ENVIRONMENT_GET_PREFERRED_HW_RENDER, ~0U), 3U);
    EXPECT_EQ(answer(87, std::uint64_t{0xFF000000000000FF}), 0x0FU);
    EXPECT_EQ(answer(RETRO_ENVIRONMENT_GET_INPUT_BITMASKS, false), true);
    EXPECT_EQ(answer(RETRO_ENVIRONMENT_GET_SAVESTATE_CONTEXT, -1), 0);
    for (unsigned format : {0U, 2U, 3U, UINT_MAX})
        EXPECT_EQ(ask(RETRO_ENVIRONMENT_SET_PIXEL_FORMAT, format), format <= 2) << format;
}

TEST_F(Environment, LendsTheDirectories) {
    const auto expect = [&](unsigned command, const std::string& text) {
        const char* given = nullptr;
        EXPECT_EQ(ask(command, given), !text.empty());
        EXPECT_STREQ(given, text.c_str());
        EXPECT_EQ(core->environment(command, nullptr), !text.empty());
    };
    expect(9, "");
    host.setDirectories("C:\\a\\system", u8"/päth/save");
    expect(9, "C:/a/system");
    expect(30, "C:/a/system");
    expect(31, "/päth/save");
}

TEST_F(Environment, KeepsTimingAndSizeThatMakeSense) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const auto expect = [&](double fps, double rate, unsigned width, unsigned height) {
        EXPECT_EQ(std::tuple(host.fps, host.sampleRate, host.width, host.height),
                  std::tuple(fps, rate, width, height));
    };
    for (const double useless : {0.0, 1.0, nan, infinity}) {
        retro_system_av_info info = {{0, 0, 9, 9, 1.0F}, {useless, useless}};
        EXPECT_TRUE(ask(RETRO_ENVIRONMENT_SET_SYSTEM_AV_INFO, info));
        expect(60.0, 32768.0, 240, 160);
    }
    retro_system_av_info info = {{0, 300, 9, 9, 1.0F}, {1.5, 1.0}};
    EXPECT_TRUE(ask(RETRO_ENVIRONMENT_SET_SYSTEM_AV_INFO, info));
    expect(1.5, 32768.0, 240, 300);
    retro_game_geometry geometry = {500, 0, 9, 9, 1.0F};
    EXPECT_TRUE(ask(RETRO_ENVIRONMENT_SET_GEOMETRY, geometry));
    expect(1.5, 32768.0, 500, 300);
}

TEST_F(Environment, OffersOpenGlOnlyWithAWindowToPutItIn) {
    retro_game_geometry sizeOfNoWindow = {UINT_MAX, UINT_MAX, 0, 0, 0};
    EXPECT_TRUE(ask(RETRO_ENVIRONMENT_SET_GEOMETRY, sizeOfNoWindow));
    SdlVideo video;
    const struct {
        SdlVideo* output;
        retro_hw_context_type type;
        bool tried;
    } rows[] = {{nullptr, RETRO_HW_CONTEXT_OPENGL_CORE, false},
                {&video, RETRO_HW_CONTEXT_OPENGL_CORE, true},
                {&video, RETRO_HW_CONTEXT_OPENGL, true},
                {&video, RETRO_HW_CONTEXT_OPENGLES2, false},
                {&video, RETRO_HW_CONTEXT_VULKAN, false}};
    for (const auto& [output, type, tried] : rows) {
        host.video = output;
        host.lastError.clear();
        retro_hw_render_callback callback = {};
        callback.context_type = type;
        EXPECT_FALSE(ask(RETRO_ENVIRONMENT_SET_HW_RENDER, callback)) << type;
        EXPECT_EQ(callback.get_current_framebuffer, tried ? SdlVideo::framebufferThunk : nullptr);
        EXPECT_EQ(callback.get_proc_address, tried ? SdlVideo::procAddressThunk : nullptr);
        EXPECT_EQ(host.lastError.starts_with("OpenGL context failed: "), tried) << type;
    }
}

} // namespace velmora::test
