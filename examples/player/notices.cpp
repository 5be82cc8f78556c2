#include "notices.h"

#include <utility>

#include <SDL3/SDL_timer.h>

#include <velmora/play_hud.h>

namespace player {
namespace {

constexpr std::uint64_t messageTime = 2000;
constexpr std::uint64_t volumeTime = 1500;

} // namespace

void Notices::say(std::string text) {
    hud.message = std::move(text);
    hud.showMessage = true;
    messageEnd = SDL_GetTicks() + messageTime;
}

void Notices::showVolume(float volume, bool muted) {
    hud.volume = volume;
    hud.muted = muted;
    hud.showVolume = true;
    volumeEnd = SDL_GetTicks() + volumeTime;
}

void Notices::update() {
    const std::uint64_t now = SDL_GetTicks();
    hud.showMessage = hud.showMessage && now < messageEnd;
    hud.showVolume = hud.showVolume && now < volumeEnd;
}

} // namespace player
