#include "player.h"

#include <algorithm>
#include <cstdio>

#include <QString>

#include <SDL3/SDL.h>

#include <velmora/action_codes.h>

#include "core_log.h"
#include "menu.h"

namespace player {
namespace {

using velmora::InputBindings;
namespace action = velmora::action;

constexpr int fastForwardSpeed = 4;
constexpr int picturesSkippedAtMost = 3;
constexpr std::uint64_t fastPictureInterval = SDL_NS_PER_SECOND / 60;
constexpr std::uint64_t batteryInterval = 10000;
constexpr std::uint64_t gamepadInterval = 1000;
constexpr double pausedRate = 60.0;
constexpr float unchangedVolume = 10.0F; // steps
constexpr int loudestVolume = 15;

struct SpecialAction {
    int special;
    int code;
};

constexpr SpecialAction specialActions[] = {
    {InputBindings::Pause, action::pause},
    {InputBindings::Reset, action::reset},
    {InputBindings::QuickSave, action::quickSave},
    {InputBindings::QuickLoad, action::quickLoad},
    {InputBindings::Screenshot, action::screenshot},
    {InputBindings::Fullscreen, action::fullscreen},
};

constexpr MenuKey directions[] = {MenuKey::up, MenuKey::down, MenuKey::left, MenuKey::right};

} // namespace

int play(const Options& options) {
    const CoreLog coreLog;
    Session session;
    if (!session.start(options)) {
        std::fprintf(stderr, "velmora-player: %s\n", session.failure.c_str());
        return exitFailure;
    }
    Player player(options, session);
    player.run();
    return player.finish() ? exitSuccess : exitFailure;
}

Player::Player(const Options& playOptions, Session& running)
    : options(playOptions), session(running), hud(running.video.hud), notices(running.video.hud),
      files(playOptions.saveDirectory, playOptions.game) {
    hud.slotsGrow = true;
    refreshSlots();
}

void Player::run() {
    startedAt = SDL_GetTicksNS();
    savedAt = SDL_GetTicks();
    while (!leaving) {
        session.video.pumpEvents(leaving);
        if (leaving) {
            break;
        }
        readControls();
        followPointer();
        takeActions();
        awaitRelease();
        notices.update();
        // A window that came up anew shows nothing before a frame, not even the menu.
        if (session.followGraphicsDevice() || !paused()) {
            runFrame();
        }
        show();
        pace();
    }
    endedAt = SDL_GetTicksNS();
}

bool Player::finish() {
    if (options.frames > 0) {
        const double seconds = static_cast<double>(endedAt - startedAt) / SDL_NS_PER_SECOND;
        // Not printf: its decimal point is the user's locale's, and scripts read this line.
        const QString line = QString::asprintf("frames %d seconds %.3f fps %.1f", frames, seconds,
                                               seconds > 0 ? frames / seconds : 0.0);
        std::puts(qPrintable(line));
    }
    if (options.screenshot.empty()) {
        return true;
    }
    session.video.present();
    if (session.video.captureScreenshot(toUtf8(options.screenshot))) {
        return true;
    }
    std::fprintf(stderr, "velmora-player: no screenshot: %s\n", SDL_GetError());
    return false;
}

void Player::readControls() {
    controls.read(session.bindings, session.input.pad);
    const bool menuWasOpen = hud.menuOpen;
    for (const SpecialAction& row : specialActions) {
        if (controls.pressed(row.special)) {
            act(row.code);
        }
    }
    readVolumeKeys();
    // A press that has just opened or closed the menu is not also a key in it.
    if (hud.menuOpen == menuWasOpen) {
        readMenuKeys();
    }
}

// The panel stays up as long as one of the keys is down.
void Player::readVolumeKeys() {
    if (controls.pressed(InputBindings::Mute)) {
        session.audio.muted = !session.audio.muted;
    }
    changeVolume(controls.pressed(InputBindings::VolUp) - controls.pressed(InputBindings::VolDown));
    if (controls.held(InputBindings::Mute) || controls.held(InputBindings::VolUp) ||
        controls.held(InputBindings::VolDown)) {
        notices.showVolume(static_cast<float>(volumeSteps) / unchangedVolume, session.audio.muted);
    }
}

void Player::changeVolume(int steps) {
    volumeSteps = std::clamp(volumeSteps + steps, 0, loudestVolume);
    session.audio.setGain(static_cast<float>(volumeSteps) / unchangedVolume);
}

void Player::readMenuKeys() {
    const bool escape = controls.pressed(MenuKey::escape);
    if (!hud.menuOpen) {
        if (escape) {
            togglePause();
        }
        return;
    }
    for (const MenuKey key : directions) {
        if (controls.pressed(key)) {
            menu::move(hud, key);
        }
    }
    if (controls.pressed(MenuKey::confirm)) {
        // Joins the clicks on their way through consumeAction.
        session.video.pendingAction = menu::selectedCode(hud);
    } else if (escape || controls.pressed(MenuKey::back)) {
        session.video.pendingAction =
            hud.screen == menu::pauseScreen ? action::resume : action::back;
    }
}

// Only a pointer that moves takes the highlight, else it would hold it against the keys.
void Player::followPointer() {
    int x = 0;
    int y = 0;
    session.video.mousePos(x, y);
    if (x != pointerX || y != pointerY) {
        pointerX = x;
        pointerY = y;
        menu::select(hud, session.video.hitTest(x, y));
    }
}

void Player::takeActions() {
    act(session.video.consumeMenuAction());
    act(session.video.consumeAction());
    leaving = leaving || session.host.shutdownRequested || session.sdl.quitRequested;
}

// The key that closed the menu is the game's Start as well: the game goes on when it is up again.
void Player::awaitRelease() {
    awaitingRelease =
        awaitingRelease && (controls.held(MenuKey::confirm) || controls.held(MenuKey::back));
}

bool Player::paused() const { return leaving || hud.menuOpen || awaitingRelease; }

bool Player::fast() const { return options.uncapped || controls.held(InputBindings::FastForward); }

void Player::runFrame() {
    session.audio.suspended = fast();
    session.host.runFrame();
    ++frames;
    session.followSampleRate();
    saveBattery();
    leaving = frames == options.frames || session.host.shutdownRequested;
}

// The display may hold every picture until its next refresh. A game that runs faster than that
// shows only some.
void Player::show() {
    const bool skip = fast() && !hud.menuOpen
                          ? SDL_GetTicksNS() - shownAt < fastPictureInterval
                          : pacer.behind() && picturesSkipped < picturesSkippedAtMost;
    if (skip && !leaving) {
        ++picturesSkipped;
        return;
    }
    picturesSkipped = 0;
    shownAt = SDL_GetTicksNS();
    session.video.present();
}

void Player::pace() {
    if (SDL_GetTicks() - gamepadSeenAt >= gamepadInterval) {
        gamepadSeenAt = SDL_GetTicks();
        session.followGamepad();
    }
    if (paused()) {
        pacer.wait(pausedRate);
    } else if (!options.uncapped) {
        pacer.wait(session.host.fps * (fast() ? fastForwardSpeed : 1));
    }
}

// A crash or a power cut should not cost more than a few moments of a long game.
void Player::saveBattery() {
    const std::uint64_t now = SDL_GetTicks();
    if (now - savedAt >= batteryInterval) {
        savedAt = now;
        session.host.persistSram();
    }
}

} // namespace player
