#include "game_parts.h"

#include <algorithm>

namespace demo {
namespace {

constexpr std::int32_t walkSpeed = pixels(2);
constexpr std::int32_t runSpeed = pixels(3) + 64;
constexpr std::int32_t dashSpeed = pixels(5);
constexpr std::int32_t jumpSpeed = -pixels(4);
constexpr std::int32_t gravity = 56;
constexpr std::int32_t dropGravity = 160;

void startDash(Game& game, std::uint32_t pressed) {
    if ((pressed & (buttonDashLeft | buttonDashRight)) == 0 || game.dashRest > 0)
        return;
    game.facing = (pressed & buttonDashLeft) != 0 ? -1 : 1;
    game.dashFrames = dashLength;
    game.dashRest = dashPause;
    game.events |= eventDashed;
}

void walk(Game& game, std::uint32_t buttons) {
    const std::int32_t wish =
        ((buttons & buttonRight) != 0 ? 1 : 0) - ((buttons & buttonLeft) != 0 ? 1 : 0);
    game.dashRest = std::max(0, game.dashRest - 1);
    std::int32_t velocity = wish * ((buttons & buttonRun) != 0 ? runSpeed : walkSpeed);
    if (game.dashFrames > 0) {
        --game.dashFrames;
        velocity = game.facing * dashSpeed;
    } else if (wish != 0) {
        game.facing = wish;
    }
    game.walking = velocity != 0 ? game.walking + 1 : 0;
    game.playerX = std::clamp(game.playerX + velocity, pixels(12), pixels(screenWidth - 12));
}

void jumpAndFall(Game& game, std::uint32_t buttons, std::uint32_t pressed) {
    const bool standing = game.playerY >= pixels(groundY);
    if (standing && (pressed & buttonJump) != 0) {
        game.fallVelocity = jumpSpeed;
        game.events |= eventJumped;
    }
    game.playerY += game.fallVelocity;
    game.fallVelocity += (buttons & buttonDown) != 0 ? dropGravity : gravity;
    if (game.playerY >= pixels(groundY)) {
        game.playerY = pixels(groundY);
        game.fallVelocity = 0;
    }
}

} // namespace

void moveGardener(Game& game, std::uint32_t buttons, std::uint32_t pressed) {
    startDash(game, pressed);
    walk(game, buttons);
    jumpAndFall(game, buttons, pressed);
    game.safeFrames = std::max(0, game.safeFrames - 1);
}

} // namespace demo
