#include <velmora/sdl_input.h>

#include <memory>

#include <SDL3/SDL.h>
#include <gtest/gtest.h>
#include <velmora/libretro.h>

#include "audio_input/virtual_pad.h"
#include "bindings/stored_bindings.h"

namespace velmora::test {
namespace {

// SDL has virtual gamepads but no virtual keyboard, so the keys go in where `poll` puts SDL's.
// Naming a private member is allowed in an explicit instantiation.
void applyKeys(SdlInput& input, const bool* keys);
template <auto member>
struct Keyboard {
    friend void applyKeys(SdlInput& input, const bool* keys) { (input.*member)(keys); }
};
template struct Keyboard<&SdlInput::applyKeyboard>;

std::int16_t mask(const SdlInput& input) {
    return input.state(0, RETRO_DEVICE_JOYPAD, 0, RETRO_DEVICE_ID_JOYPAD_MASK);
}

constexpr std::int16_t bit(int button) { return static_cast<std::int16_t>(1U << button); }

// The buttons held after the key alone went down.
std::int16_t maskOfKey(int scancode) {
    bool keys[SDL_SCANCODE_COUNT] = {};
    keys[scancode] = true;
    SdlInput input;
    input.systemId = "snes";
    applyKeys(input, keys);
    return mask(input);
}

std::int16_t maskOfPad(SdlInput& input, const VirtualPad& pad, std::initializer_list<int> buttons) {
    pad.hold(buttons);
    SDL_PumpEvents();
    input.poll();
    return mask(input);
}

// Key and pad button of each joypad button from 0 on, as they are before the user changes them.
constexpr struct {
    int key;
    int pad;
} defaults[] = {{29, 0},  {4, 2},   {229, 4}, {40, 6}, {82, 11}, {81, 12},
                {80, 13}, {79, 14}, {27, 1},  {22, 3}, {20, 9},  {26, 10}};

TEST(SdlInputTest, PlaysByFixedTablesWithoutBindings) {
    const VirtualPad pad;
    SdlInput input;
    input.open();
    ASSERT_TRUE(input.pad);
    for (int button = 0; button < 12; ++button) {
        EXPECT_EQ(maskOfKey(defaults[button].key), bit(button)) << button;
        EXPECT_EQ(maskOfPad(input, pad, {defaults[button].pad}), bit(button)) << button;
    }
    EXPECT_EQ(maskOfKey(SDL_SCANCODE_1), 0);
    EXPECT_EQ(maskOfPad(input, pad, {SDL_GAMEPAD_BUTTON_LEFT_SHOULDER}), bit(10));
}

TEST(SdlInputTest, PlaysByTheBindingsOfTheSystem) {
    const VirtualPad pad;
    InputBindings bindings;
    put("controls/keyboard/snes/15", "key:34");
    put("controls/gamepad/snes/3", "pad:20");
    put("controls/gamepad/gba/0", "pad:7");
    SdlInput input;
    input.systemId = "snes";
    input.open();
    EXPECT_EQ(maskOfKey(34), -32768);
    EXPECT_EQ(maskOfKey(SDL_SCANCODE_1), bit(12));
    EXPECT_EQ(maskOfPad(input, pad, {20}), 0x0008);
    EXPECT_EQ(maskOfPad(input, pad, {6, 7}), 0);
    EXPECT_EQ(maskOfPad(input, pad, {0, 9}), bit(0) | bit(10) | bit(12));

    put("controls/gamepad/snes/3", "none:0");
    EXPECT_EQ(maskOfPad(input, pad, {20}), 0) << "an edit is felt at the next poll";
    input.systemId = "gba";
    EXPECT_EQ(maskOfPad(input, pad, {7}), bit(0));
    input.systemId.clear();
    EXPECT_EQ(maskOfPad(input, pad, {0, 6}), bit(0) | bit(3));
}

TEST(SdlInputTest, KeyboardAndPadAddUp) {
    const VirtualPad pad;
    for (const bool withBindings : {false, true}) {
        const auto bindings = withBindings ? std::make_unique<InputBindings>() : nullptr;
        SdlInput input;
        input.open();
        maskOfPad(input, pad, {SDL_GAMEPAD_BUTTON_EAST});
        bool keys[SDL_SCANCODE_COUNT] = {};
        keys[SDL_SCANCODE_RETURN] = keys[SDL_SCANCODE_ESCAPE] = true;
        applyKeys(input, keys);
        EXPECT_EQ(mask(input), bit(3) | bit(8));
        EXPECT_TRUE(input.escapeHeld);
        input.poll();
        EXPECT_EQ(mask(input), bit(8)) << "a poll starts anew";
        EXPECT_FALSE(input.escapeHeld);
    }
}

TEST(SdlInputTest, AnswersForOneJoypadOnly) {
    SdlInput input;
    EXPECT_EQ(mask(input), 0);
    bool keys[SDL_SCANCODE_COUNT] = {};
    keys[SDL_SCANCODE_RETURN] = true;
    applyKeys(input, nullptr);
    applyKeys(input, keys);
    EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 0, 3), 1);
    EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 5, 3), 1);
    for (const unsigned int id : {2U, 16U, 255U, 257U, ~0U}) {
        EXPECT_EQ(input.state(0, RETRO_DEVICE_JOYPAD, 0, id), 0) << id;
    }
    for (const unsigned int id : {3U, 256U}) {
        EXPECT_EQ(input.state(1, RETRO_DEVICE_JOYPAD, 0, id), 0) << id;
        EXPECT_EQ(input.state(0, RETRO_DEVICE_ANALOG, 0, id), 0) << id;
    }
}

TEST(SdlInputTest, OpensTheFirstPadOnly) {
    SdlInput input;
    input.open();
    EXPECT_FALSE(input.pad);
    VirtualPad first("First");
    const VirtualPad second("Second");
    input.open();
    input.open();
    ASSERT_TRUE(input.pad);
    EXPECT_STREQ(SDL_GetGamepadName(input.pad), "First");
    EXPECT_EQ(maskOfPad(input, second, {SDL_GAMEPAD_BUTTON_SOUTH}), 0);

    first.unplug();
    SDL_PumpEvents();
    input.poll();
    EXPECT_EQ(mask(input), 0) << "a pad pulled out holds nothing";
    EXPECT_FALSE(SDL_GetGamepadFromID(second.id)) << "never opened";
    input.close();
    input.close();
    input.poll();
}

} // namespace
} // namespace velmora::test
