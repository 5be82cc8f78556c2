#include <SDL3/SDL.h>

#include <velmora/action_codes.h>

#include "menu.h"
#include "player.h"

namespace player {

namespace action = velmora::action;

void Player::act(int code) {
    struct Duty {
        int first;
        int count;
        void (Player::*perform)(int index);
    };
    static constexpr Duty duties[] = {
        {action::resume, 1, &Player::resume},
        {action::saveState, 1, &Player::openSavePicker},
        {action::loadState, 1, &Player::openLoadPicker},
        {action::quitToLibrary, 1, &Player::stop},
        {action::pickerSlot, action::pickerSlotCount, &Player::useSlot},
        {action::back, 1, &Player::leavePicker},
        {action::pause, 1, &Player::togglePause},
        {action::quickSave, 1, &Player::quickSave},
        {action::quickLoad, 1, &Player::quickLoad},
        {action::fullscreen, 1, &Player::toggleFullscreen},
        {action::reset, 1, &Player::reset},
        {action::screenshot, 1, &Player::takeScreenshot},
        {action::stop, 1, &Player::stop},
        {action::newSlot, 1, &Player::newSlot},
        {action::alwaysOnTop, 1, &Player::toggleAlwaysOnTop},
        {action::saveSlot, action::menuSlotLimit, &Player::saveSlot},
        {action::loadSlot, action::menuSlotLimit, &Player::loadSlot},
    };
    for (const Duty& duty : duties) {
        if (code >= duty.first && code < duty.first + duty.count) {
            (this->*duty.perform)(code - duty.first);
            return;
        }
    }
}

void Player::resume(int) {
    menu::close(hud);
    awaitingRelease = true;
}

// A bare pause would strand a player whose only device is a pad: its one special button is this.
void Player::togglePause(int) {
    if (hud.menuOpen) {
        resume();
        return;
    }
    session.host.persistSram();
    menu::show(hud, menu::pauseScreen);
}

void Player::openSavePicker(int) {
    refreshSlots();
    menu::show(hud, menu::saveScreen);
}

void Player::openLoadPicker(int) {
    refreshSlots();
    menu::show(hud, menu::loadScreen);
}

void Player::useSlot(int index) {
    if (hud.screen == menu::saveScreen) {
        saveSlot(index);
    } else {
        loadSlot(index);
    }
}

// Back to the row that led here: on the pause menu the pickers' rows have their screens' numbers.
void Player::leavePicker(int) { menu::show(hud, menu::pauseScreen, hud.screen); }

void Player::saveSlot(int index) {
    save(files.slot(index), "Saved to slot " + std::to_string(index + 1));
}

void Player::loadSlot(int index) {
    load(files.slot(index), "Loaded slot " + std::to_string(index + 1));
}

void Player::newSlot(int) {
    if (hud.slotCount < action::menuSlotLimit) {
        saveSlot(hud.slotCount);
    } else {
        notices.say("All slots are in use");
    }
}

void Player::quickSave(int) { save(files.quickSlot(), "State saved"); }

void Player::quickLoad(int) { load(files.quickSlot(), "State loaded"); }

void Player::reset(int) {
    session.host.reset();
    resume();
    notices.say("Reset");
}

void Player::takeScreenshot(int) {
    const velmora::PlayHud shown = hud;
    hud.showMessage = false;
    hud.showVolume = false;
    hud.menuOpen = false;
    // Twice, for a picture without the overlay in both buffers: which of them a screenshot reads
    // after a swap is the driver's affair.
    session.video.present();
    session.video.present();
    const std::filesystem::path file = files.newScreenshot();
    const bool written = session.video.captureScreenshot(toUtf8(file));
    const std::string reason = SDL_GetError();
    hud = shown;
    notices.say(written ? "Screenshot " + toUtf8(file.filename()) : "No screenshot: " + reason);
}

void Player::toggleFullscreen(int) {
    if (!session.video.toggleFullscreen()) {
        notices.say(std::string("No fullscreen: ") + SDL_GetError());
    }
}

void Player::toggleAlwaysOnTop(int) {
    if (!session.video.toggleAlwaysOnTop()) {
        notices.say(std::string("Not kept on top: ") + SDL_GetError());
    }
}

void Player::stop(int) { leaving = true; }

void Player::save(const std::filesystem::path& file, const std::string& done) {
    notices.say(session.host.saveState(file) ? done : session.host.lastError);
    refreshSlots();
    resume();
}

void Player::load(const std::filesystem::path& file, const std::string& done) {
    notices.say(session.host.loadState(file) ? done : session.host.lastError);
    resume();
}

void Player::refreshSlots() {
    hud.slotNames = files.slotNames();
    hud.slotCount = static_cast<std::int32_t>(hud.slotNames.size());
    session.video.refreshNativeMenu();
}

} // namespace player
