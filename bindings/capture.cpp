#include <velmora/input_bindings.h>

#include <memory>
#include <optional>
#include <utility>

#include <QKeyEvent>

#include <SDL3/SDL.h>

#include "bindings/first_gamepad.h"
#include "bindings/qt_key_map.h"
#include "support/no_throw.h"

namespace velmora {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(SDL_JoystickID gamepad) {
    const char* name = SDL_GetGamepadNameForID(gamepad);
    return name && *name ? QString::fromUtf8(name) : u"Gamepad"_s;
}

// The lowest button that is down on the gamepad. It is opened for this one look: a pad that is
// pulled out and put back is another device to SDL, which a handle kept from before would miss.
std::optional<int> heldButton(SDL_JoystickID gamepad) {
    const std::unique_ptr<SDL_Gamepad, decltype(&SDL_CloseGamepad)> pad(SDL_OpenGamepad(gamepad),
                                                                        SDL_CloseGamepad);
    for (int button = 0; pad && button < SDL_GAMEPAD_BUTTON_COUNT; ++button)
        if (SDL_GetGamepadButton(pad.get(), static_cast<SDL_GamepadButton>(button)))
            return button;
    return std::nullopt;
}

} // namespace

bool InputBindings::listening() const { return listening_; }

int InputBindings::listeningId() const { return listeningId_; }

QString InputBindings::listeningName() const {
    return noThrowOr(QString(),
                     [this] { return listening_ ? buttonName(listeningId_) : QString(); });
}

QString InputBindings::gamepadName() const { return gamepadName_; }

void InputBindings::prepare() { refreshGamepadName(); }

void InputBindings::listen(int buttonId) {
    listening_ = true;
    listeningId_ = buttonId;
    noThrow([this] { timer_.start(); });
    Q_EMIT listeningChanged();
}

void InputBindings::cancelListen() {
    if (!listening_)
        return;
    listening_ = false;
    listeningId_ = -1;
    timer_.stop();
    Q_EMIT listeningChanged();
}

bool InputBindings::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (!listening_ || event->type() != QEvent::KeyPress)
        return false;
    const auto* press = static_cast<const QKeyEvent*>(event);
    if (press->isAutoRepeat())
        return true;
    if (press->key() == Qt::Key_Escape) {
        cancelListen();
        return true;
    }
    if (device_ == "keyboard"_L1)
        assign(u"key"_s, scancodeForQtKey(press->key()));
    return true;
}

bool InputBindings::ensureSdl() {
    if (!sdlReady_)
        sdlReady_ = SDL_Init(SDL_INIT_GAMEPAD | SDL_INIT_EVENTS);
    return sdlReady_;
}

void InputBindings::pollGamepad() {
    refreshGamepadName();
    if (!listening_ || device_ != "gamepad"_L1 || !ensureSdl())
        return;
    SDL_PumpEvents();
    const SDL_JoystickID gamepad = firstGamepad();
    if (gamepad == 0)
        return;
    if (const std::optional<int> button = heldButton(gamepad))
        assign(u"pad"_s, *button);
}

void InputBindings::refreshGamepadName() {
    const bool changed = noThrowOr(false, [this] {
        const SDL_JoystickID gamepad = ensureSdl() ? firstGamepad() : 0;
        QString name = gamepad == 0 ? u"No gamepad connected"_s : nameOf(gamepad);
        if (name == gamepadName_)
            return false;
        gamepadName_ = std::move(name);
        return true;
    });
    if (changed)
        Q_EMIT gamepadNameChanged();
}

} // namespace velmora
