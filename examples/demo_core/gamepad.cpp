#include "gamepad.h"

#include <array>

#include "game.h"

namespace demo {
namespace {

struct Mapping {
    unsigned id;
    std::uint32_t button;
    const char* label;
};

constexpr std::array<Mapping, 10> mappings{{
    {RETRO_DEVICE_ID_JOYPAD_LEFT, buttonLeft, "Walk left"},
    {RETRO_DEVICE_ID_JOYPAD_RIGHT, buttonRight, "Walk right"},
    {RETRO_DEVICE_ID_JOYPAD_UP, buttonJump, "Jump"},
    {RETRO_DEVICE_ID_JOYPAD_DOWN, buttonDown, "Come down faster"},
    {RETRO_DEVICE_ID_JOYPAD_A, buttonJump, "Jump"},
    {RETRO_DEVICE_ID_JOYPAD_B, buttonRun, "Run"},
    {RETRO_DEVICE_ID_JOYPAD_L, buttonDashLeft, "Dash left"},
    {RETRO_DEVICE_ID_JOYPAD_R, buttonDashRight, "Dash right"},
    {RETRO_DEVICE_ID_JOYPAD_START, buttonStart, "Start and pause"},
    {RETRO_DEVICE_ID_JOYPAD_Y, buttonRun, "Run"},
}};

bool answersBitmask = false;

std::array<retro_input_descriptor, mappings.size() + 1> descriptors;

std::uint32_t heldIds(retro_input_state_t inputState) {
    if (answersBitmask)
        return static_cast<std::uint16_t>(
            inputState(0, RETRO_DEVICE_JOYPAD, 0, RETRO_DEVICE_ID_JOYPAD_MASK));
    std::uint32_t held = 0;
    for (const Mapping& each : mappings)
        if (inputState(0, RETRO_DEVICE_JOYPAD, 0, each.id) != 0)
            held |= 1U << each.id;
    return held;
}

} // namespace

void describeButtons(retro_environment_t environment) {
    for (std::size_t i = 0; i < mappings.size(); ++i)
        descriptors[i] = {0, RETRO_DEVICE_JOYPAD, 0, mappings[i].id, mappings[i].label};
    environment(RETRO_ENVIRONMENT_SET_INPUT_DESCRIPTORS, descriptors.data());
}

void openGamepad(retro_environment_t environment) {
    bool answered = false;
    answersBitmask = environment(RETRO_ENVIRONMENT_GET_INPUT_BITMASKS, &answered);
}

std::uint32_t heldButtons(retro_input_state_t inputState) {
    const std::uint32_t held = heldIds(inputState);
    std::uint32_t buttons = 0;
    for (const Mapping& each : mappings)
        if ((held >> each.id & 1) != 0)
            buttons |= each.button;
    return buttons;
}

} // namespace demo
