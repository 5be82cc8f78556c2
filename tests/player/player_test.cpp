#include <gtest/gtest.h>

#include <memory>

#include <SDL3/SDL.h>

#include <velmora/action_codes.h>
#include <velmora/input_bindings.h>
#include <velmora/play_hud.h>

#include "audio_input/virtual_pad.h"
#include "examples/player/controls.h"
#include "examples/player/game_files.h"
#include "examples/player/menu.h"
#include "examples/player/session.h"
#include "support/probe_core.h"
#include "support/scratch_directory.h"

namespace {

using player::Controls;
using player::MenuKey;
using velmora::test::ScratchDirectory;
using velmora::test::writeFile;
namespace action = velmora::action;
namespace menu = player::menu;

TEST(PlayerMenu, KeysReachEveryRowAndStayOnTheScreen) {
    constexpr struct {
        int screen, from;
        MenuKey key;
        int to;
    } moves[] = {
        {0, 0, MenuKey::down, 1},  {0, 3, MenuKey::down, 0},   {0, 0, MenuKey::up, 3},
        {0, 2, MenuKey::right, 2}, {1, 0, MenuKey::down, 1},   {1, 4, MenuKey::down, 10},
        {1, 9, MenuKey::down, 10}, {1, 10, MenuKey::down, 0},  {1, 10, MenuKey::up, 4},
        {1, 5, MenuKey::up, 10},   {2, 7, MenuKey::up, 6},     {2, 2, MenuKey::right, 7},
        {2, 2, MenuKey::left, 7},  {2, 10, MenuKey::left, 10}, {2, 9, MenuKey::right, 4},
    };
    for (const auto& move : moves) {
        velmora::PlayHud hud;
        menu::show(hud, move.screen, move.from);
        menu::move(hud, move.key);
        EXPECT_EQ(hud.selected, move.to) << "screen " << move.screen << " row " << move.from;
    }
}

TEST(PlayerMenu, TheHighlightFollowsCodesOfItsScreenOnly) {
    velmora::PlayHud hud;
    menu::show(hud, menu::pauseScreen, 2);
    for (const int foreign : {action::none, action::pickerSlot, action::back}) {
        menu::select(hud, foreign);
        EXPECT_EQ(menu::selectedCode(hud), action::loadState) << foreign;
    }
    menu::show(hud, menu::loadScreen, 2);
    menu::select(hud, action::saveState);
    EXPECT_EQ(menu::selectedCode(hud), action::pickerSlot + 2);
    for (const int code : {action::pickerSlot + 9, action::back}) {
        menu::select(hud, code);
        EXPECT_EQ(menu::selectedCode(hud), code);
    }
}

TEST(PlayerControls, OnePressPerPressOfAPadButton) {
    const velmora::test::VirtualPad virtualPad;
    SDL_Gamepad* pad = SDL_OpenGamepad(virtualPad.id);
    const velmora::InputBindings bindings;
    Controls controls;
    const auto pass = [&](std::initializer_list<int> held) {
        virtualPad.hold(held);
        SDL_UpdateGamepads();
        controls.read(bindings, pad);
    };

    pass({SDL_GAMEPAD_BUTTON_SOUTH});
    EXPECT_FALSE(controls.pressed(MenuKey::confirm)) << "held before the first pass";
    pass({});
    pass({SDL_GAMEPAD_BUTTON_SOUTH});
    EXPECT_TRUE(controls.pressed(MenuKey::confirm));
    EXPECT_FALSE(controls.pressed(MenuKey::back));
    pass({SDL_GAMEPAD_BUTTON_SOUTH, SDL_GAMEPAD_BUTTON_GUIDE});
    EXPECT_FALSE(controls.pressed(MenuKey::confirm));
    EXPECT_TRUE(controls.held(MenuKey::confirm));
    EXPECT_TRUE(controls.pressed(velmora::InputBindings::Pause));

    controls.read(bindings, nullptr);
    EXPECT_FALSE(controls.held(velmora::InputBindings::Pause));
    SDL_CloseGamepad(pad);
}

TEST(PlayerSession, ALostGraphicsDeviceBringsANewWindow) {
    const ScratchDirectory scratch;
    writeFile(scratch / "game", "a game");
    const velmora::test::ProbeCore core;
    player::Session session;
    player::Options options;
    options.core = core.path;
    options.game = scratch / "game";
    options.saveDirectory = scratch.path();
    ASSERT_TRUE(session.start(options)) << session.failure;
    const auto window = [] {
        const std::unique_ptr<SDL_Window*, decltype(&SDL_free)> all(SDL_GetWindows(nullptr),
                                                                    SDL_free);
        return SDL_GetWindowID(*all);
    };
    const SDL_WindowID first = window();
    EXPECT_FALSE(session.followGraphicsDevice());
    SDL_Event event = {.render = {SDL_EVENT_RENDER_DEVICE_RESET, 0, 0, first}};
    SDL_PushEvent(&event);
    EXPECT_TRUE(session.followGraphicsDevice());
    EXPECT_NE(window(), first);
    EXPECT_FALSE(session.followGraphicsDevice());
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
    EXPECT_EQ(names[0].size(), std::string("01 Jan 12:00").size());
    EXPECT_EQ(names[1], "Empty");

    const auto first = files.newScreenshot();
    writeFile(first, "picture");
    EXPECT_NE(files.newScreenshot(), first);
}

} // namespace
