#include <velmora/sdl_input.h>

#include <algorithm>
#include <memory>

#include <SDL3/SDL.h>
#include <gtest/gtest.h>
#include <velmora/libretro.h>

#include "audio_input/virtual_pad.h"
#include "bindings/stored_bindings.h"

namespace velmora::test {
namespace {

using Held = std::initializer_list<int>;

constexpr std::int16_t bit(int button) { return static_cast<std::int16_t>(1U << button); }

class SdlInputTest : public testing::Test {
protected:
    // The joypad's buttons after a poll with nothing but these down. SDL has no virtual keyboard:
    // the keys go into its own table, where those of a real one would.
    std::int16_t maskOf(Held keys, Held buttons) {
        auto* table = const_cast<bool*>(SDL_GetKeyboardState(nullptr));
        for (int key = 0; key < SDL_SCANCODE_COUNT; ++key)
            table[key] = std::ranges::count(keys, key) > 0;
        pad.hold(buttons);
        SDL_PumpEvents();
        input.poll();
        return input.state(0, RETRO_DEVICE_JOYPAD, 0, RETRO_DEVICE_ID_JOYPAD_MASK);
    }

    const VirtualPad pad{"First"};
    SdlInput input;
};

// Key and pad button of each joypad button from 0 on, as they are before the user changes them.
constexpr struct {
    int key;
    int pad;
} defaults[] = {{29, 0},  {4, 2},   {229, 4}, {40, 6}, {82, 11}, {81, 12},
                {80, 13}, {79, 14}, {27, 1},  {22, 3}, {20, 9},  {26, 10}};

TEST_F(SdlInputTest, PlaysByFixedTablesWithoutBindings) {
    input.systemId = "snes";
    input.open();
    for (int button = 0; button < 12; ++button) {
        EXPECT_EQ(maskOf({defaults[button].key}, {}), bit(button)) << button;
        EXPECT_EQ(maskOf({}, {defaults[button].pad}), bit(button)) << button;
    }
    EXPECT_EQ(maskOf({SDL_SCANCODE_1}, {}), 0);
}

TEST_F(SdlInputTest, PlaysByTheBindingsOfTheSystem) {
    InputBindings bindings;
    put("controls/keyboard/snes/15", "key:34");
    put("controls/gamepad/snes/3", "pad:20");
    put("controls/gamepad/gba/0", "pad:7");
    put("controls/keyboard/snes/16", "key:34");
    input.systemId = "snes";
    input.open();
    EXPECT_EQ(maskOf({34}, {}), -32768);
    EXPECT_FALSE(input.escapeHeld) << "there is no seventeenth button";
    EXPECT_EQ(maskOf({SDL_SCANCODE_1}, {}), bit(12));
    EXPECT_EQ(maskOf({}, {20}), 0x0008);
    EXPECT_EQ(maskOf({}, {6, 7}), 0);
    EXPECT_EQ(maskOf({}, {0, 9}), bit(0) | bit(10) | bit(12));

    put("controls/gamepad/snes/3", "none:0");
    EXPECT_EQ(maskOf({}, {20}), 0) << "an edit is felt at the next poll";
    input.systemId = "gba";
    EXPECT_EQ(maskOf({}, {7}), bit(0));
    input.systemId.clear();
    EXPECT_EQ(maskOf({}, {0, 6}), bit(0) | bit(3));
}

TEST_F(SdlInputTest, KeyboardAndPadAddUpAndAPollStartsAnew) {
    input.open();
    for (const bool withBindings : {false, true}) {
        const auto bindings = withBindings ? std::make_unique<InputBindings>() : nullptr;
        EXPECT_EQ(maskOf({SDL_SCANCODE_RETURN, SDL_SCANCODE_ESCAPE}, {SDL_GAMEPAD_BUTTON_EAST}),
                  bit(3) | bit(8));
        EXPECT_TRUE(input.escapeHeld);
        EXPECT_EQ(maskOf({}, {SDL_GAMEPAD_BUTTON_EAST}), bit(8));
        EXPECT_FALSE(input.escapeHeld);
    }
}

TEST_F(SdlInputTest, AnswersForOneJoypadOnly) {
    EXPECT_EQ(maskOf({SDL_SCANCODE_RETURN, SDL_SCANCODE_ESCAPE}, {SDL_GAMEPAD_BUTTON_SOUTH}),
              bit(3))
        << "the pad is not opened";
    EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 5, 3), 1);
    for (const unsigned int id : {2U, 16U, 255U, 257U, ~0U})
        EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 0, id), 0) << id;
    for (const unsigned int id : {3U, 256U}) {
        EXPECT_EQ(input.state(1, RETRO_DEVICE_JOYPAD, 0, id), 0) << id;
        EXPECT_EQ(input.state(0, RETRO_DEVICE_ANALOG, 0, id), 0) << id;
    }
}

TEST_F(SdlInputTest, OpensTheFirstPadOnly) {
    const VirtualPad second("Second");
    input.open();
    ASSERT_TRUE(input.pad);
    EXPECT_STREQ(SDL_GetGamepadName(input.pad), "First");
    EXPECT_FALSE(SDL_GetGamepadFromID(second.id)) << "never opened";
    EXPECT_EQ(maskOf({}, {SDL_GAMEPAD_BUTTON_SOUTH}), bit(0));

    pad.unplug();
    EXPECT_EQ(maskOf({}, {}), 0) << "a pad pulled out holds nothing";
    second.unplug();
    input.open();
    EXPECT_FALSE(input.pad);
}

TEST_F(SdlInputTest, GivesThePadBack) {
    input.open();
    input.open();
    input.close();
    EXPECT_FALSE(SDL_GetGamepadFromID(pad.id)) << "opened twice, closed once";
    EXPECT_FALSE(input.pad);
    input.close();
    EXPECT_EQ(maskOf({SDL_SCANCODE_Z}, {SDL_GAMEPAD_BUTTON_EAST}), bit(0)) << "keys go on";
    { SdlInput().open(); }
    EXPECT_FALSE(SDL_GetGamepadFromID(pad.id)) << "by the end of an object";
}

TEST_F(SdlInputTest, APollPumpsNoEvents) {
    input.open();
    pad.hold({SDL_GAMEPAD_BUTTON_SOUTH});
    input.poll();
    EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 0, 0), 0);
    SDL_PumpEvents();
    EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 0, 0), 0) << "the snapshot of the last poll";
    input.poll();
    EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 0, 0), 1);
}

} // namespace
} // namespace velmora::test
