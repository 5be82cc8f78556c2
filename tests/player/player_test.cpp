#include <gtest/gtest.h>

#include <SDL3/SDL.h>

#include <velmora/action_codes.h>
#include <velmora/input_bindings.h>
#include <velmora/play_hud.h>

#include "examples/player/controls.h"
#include "examples/player/game_files.h"
#include "examples/player/menu.h"
#include "support/scratch_directory.h"

namespace {

using player::Controls;
using player::MenuKey;
using velmora::test::ScratchDirectory;
using velmora::test::writeFile;
namespace action = velmora::action;
namespace menu = player::menu;

TEST(PlayerMenu, KeysReachEveryRowAndStayOnTheScreen) {
    struct Move {
        int screen;
        int from;
        MenuKey key;
        int to;
    };
    constexpr Move moves[] = {
        {0, 0, MenuKey::down, 1},  {0, 3, MenuKey::down, 0},   {0, 0, MenuKey::up, 3},
        {0, 2, MenuKey::right, 2}, {1, 0, MenuKey::down, 1},   {1, 4, MenuKey::down, 10},
        {1, 9, MenuKey::down, 10}, {1, 10, MenuKey::down, 0},  {1, 10, MenuKey::up, 4},
        {1, 5, MenuKey::up, 10},   {2, 7, MenuKey::up, 6},     {2, 2, MenuKey::right, 7},
        {2, 2, MenuKey::left, 7},  {2, 10, MenuKey::left, 10}, {2, 9, MenuKey::right, 4},
    };
    for (const Move& move : moves) {
        velmora::PlayHud hud;
        menu::show(hud, move.screen, move.from);
        menu::move(hud, move.key);
        EXPECT_EQ(hud.selected, move.to) << "screen " << move.screen << " row " << move.from;
    }
}

TEST(PlayerMenu, HighlightAndActionCodeBelongTogether) {
    velmora::PlayHud hud;
    menu::show(hud, menu::pauseScreen);
    menu::select(hud, action::quitToLibrary);
    EXPECT_EQ(menu::selectedCode(hud), action::quitToLibrary);
    for (const int foreign : {action::none, action::pickerSlot, action::back}) {
        menu::select(hud, foreign);
        EXPECT_EQ(hud.selected, 3) << foreign;
    }
    menu::show(hud, menu::loadScreen);
    for (const int code : {action::pickerSlot + 9, action::back, action::pickerSlot}) {
        menu::select(hud, code);
        EXPECT_EQ(menu::selectedCode(hud), code);
    }
    menu::select(hud, action::saveState);
    EXPECT_EQ(hud.selected, 0);
}

TEST(PlayerControls, OnePressPerPressOfAPadButton) {
    ASSERT_TRUE(SDL_Init(SDL_INIT_GAMEPAD | SDL_INIT_VIDEO)) << SDL_GetError();
    SDL_VirtualJoystickDesc description;
    SDL_INIT_INTERFACE(&description);
    description.type = SDL_JOYSTICK_TYPE_GAMEPAD;
    description.nbuttons = SDL_GAMEPAD_BUTTON_COUNT;
    const SDL_JoystickID id = SDL_AttachVirtualJoystick(&description);
    SDL_Gamepad* pad = SDL_OpenGamepad(id);
    ASSERT_NE(pad, nullptr) << SDL_GetError();
    const velmora::InputBindings bindings;
    Controls controls;
    const auto pass = [&](SDL_GamepadButton button, bool down) {
        SDL_SetJoystickVirtualButton(SDL_GetGamepadJoystick(pad), button, down);
        SDL_UpdateGamepads();
        controls.read(bindings, pad);
    };

    // What was held before the first pass is no press.
    pass(SDL_GAMEPAD_BUTTON_SOUTH, true);
    EXPECT_FALSE(controls.pressed(MenuKey::confirm));
    pass(SDL_GAMEPAD_BUTTON_SOUTH, false);
    pass(SDL_GAMEPAD_BUTTON_SOUTH, true);
    EXPECT_TRUE(controls.pressed(MenuKey::confirm));
    EXPECT_FALSE(controls.pressed(MenuKey::back));
    pass(SDL_GAMEPAD_BUTTON_SOUTH, true);
    EXPECT_FALSE(controls.pressed(MenuKey::confirm));
    EXPECT_TRUE(controls.held(MenuKey::confirm));
    pass(SDL_GAMEPAD_BUTTON_GUIDE, true);
    EXPECT_TRUE(controls.pressed(velmora::InputBindings::Pause));
    pass(SDL_GAMEPAD_BUTTON_GUIDE, true);
    EXPECT_FALSE(controls.pressed(velmora::InputBindings::Pause));

    controls.read(bindings, nullptr);
    EXPECT_FALSE(controls.held(velmora::InputBindings::Pause));
    SDL_CloseGamepad(pad);
    SDL_DetachVirtualJoystick(id);
}

TEST(PlayerFiles, SlotsAreNamedUpToTheLastInUse) {
    const ScratchDirectory saves;
    const player::GameFiles files(saves.path(), "games/Dr. Who v1.2.nes");
    EXPECT_TRUE(files.slotNames().empty());
    EXPECT_EQ(files.quickSlot().filename(), "Dr. Who v1.2.quick.state");

    writeFile(files.slot(0), "state");
    writeFile(files.slot(11), "state");
    writeFile(saves / "Dr. Who.slot20.state", "another game's");
    const auto names = files.slotNames();
    ASSERT_EQ(names.size(), 12U);
    EXPECT_EQ(names[0], names[11]);
    EXPECT_EQ(names[0].size(), std::string("01 Jan 12:00").size());
    EXPECT_EQ(names[1], "Empty");

    const auto first = files.newScreenshot();
    writeFile(first, "picture");
    EXPECT_NE(files.newScreenshot(), first);
}

} // namespace
