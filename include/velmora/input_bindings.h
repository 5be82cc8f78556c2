#pragma once

#include <memory>

#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariant>

#include <velmora/export.h>

class QSettings;

struct SDL_Gamepad;

namespace velmora {

// The controls: which key or pad button stands for each virtual button, per device and per system,
// in the application's settings store. A settings page drives it through properties, signals and
// invokable methods; the play side reads the same store at every lookup, so an edit is felt in a
// running game at once.
//
// Button ids: 0 to 15 are the libretro joypad ids, 100 to 109 the special actions, which hold for
// all systems. The store's keys are `controls/<device>/<system or "special">/<id>`; a value is
// "key:" with an SDL scancode, "pad:" with an SDL gamepad button, or "none:0" for a cleared button.
// No value means the button's default.
//
// Construct it after the QCoreApplication, else keys cannot be captured. Everything but the
// play-time lookups runs on the application object's thread. Nothing here reports failure: a store
// that cannot be written is silently left, and a value without a kind counts as no value. No
// operation throws.
class VELMORA_EXPORT InputBindings : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString systemId READ systemId WRITE setSystemId NOTIFY mappingChanged)
    Q_PROPERTY(QString device READ device WRITE setDevice NOTIFY mappingChanged)
    Q_PROPERTY(bool listening READ listening NOTIFY listeningChanged)
    Q_PROPERTY(int listeningId READ listeningId NOTIFY listeningChanged)
    Q_PROPERTY(QString listeningName READ listeningName NOTIFY listeningChanged)
    Q_PROPERTY(QString padStyle READ padStyle NOTIFY mappingChanged)
    Q_PROPERTY(QString gamepadName READ gamepadName NOTIFY gamepadNameChanged)
    Q_PROPERTY(QVariantList systems READ systems CONSTANT)
    Q_PROPERTY(QVariantList buttons READ buttons NOTIFY mappingChanged)
    Q_PROPERTY(QVariantList specials READ specials NOTIFY mappingChanged)

public:
    // The special actions, stored once per device for all systems.
    static const int Pause = 100;
    static const int Reset = 101;
    static const int QuickSave = 102;
    static const int QuickLoad = 103;
    static const int Screenshot = 104;
    static const int Fullscreen = 105;
    static const int Mute = 106;
    static const int VolDown = 107;
    static const int VolUp = 108;
    static const int FastForward = 109;

    // A button's default: an SDL scancode (0 or less: no key) and an SDL gamepad button (negative:
    // no button).
    struct DefaultMap {
        int key = 0;
        int pad = 0;
    };

    // Becomes what `instance` gives, and watches the application object for key presses.
    explicit InputBindings(QObject* parent = nullptr);
    // Stops being what `instance` gives. An open edit keeps the store as it stands.
    ~InputBindings() override;

    // The object constructed last, or null when that one is gone. Never creates one.
    static InputBindings* instance();

    // --- The settings page: what is being edited ---

    // The system being edited, "nes" at first. Any text is taken, but an id is a word without
    // slashes; a change ends a running capture.
    QString systemId() const;
    void setSystemId(const QString& id);

    // The device being edited: "gamepad", or "keyboard" for any other text. A change ends a running
    // capture.
    QString device() const;
    void setDevice(const QString& name);

    // Whether a capture runs, for which button id (-1 for none), and that button's name.
    bool listening() const;
    int listeningId() const;
    QString listeningName() const;

    // The word for the pad that the current system shows, such as "snes".
    QString padStyle() const;

    // Name of the first gamepad, or "No gamepad connected"; refreshed by `prepare` and during a
    // capture.
    QString gamepadName() const;

    // Every system: maps of "id", "label", "short", "accent" and "pad", all QString.
    QList<QVariant> systems() const;

    // The current system's buttons in the order of a page, and the ten special actions: maps of
    // "id" (int), "name" and "binding" (QString), the binding for the current device and system.
    // Built anew at each call, with one read of the store per row.
    QList<QVariant> buttons() const;
    QList<QVariant> specials() const;

    // --- Play time: plain reads of the store, usable from the thread that runs the core ---
    //
    // Each opens the store for itself, at a cost that does not grow with the store. `keys` is the
    // array of SDL_GetKeyboardState and `pad` an open gamepad; both may be null.

    // The SDL scancode bound to `button` on `systemId`; 0 or less for none.
    int keyboardScancode(const QString& systemId, int button) const;

    // The SDL gamepad button bound to `button` on `systemId`; negative for none.
    int padButton(const QString& systemId, int button) const;

    // Whether the bound key, or the bound pad button, is down at this moment.
    bool keyboardHeld(const QString& systemId, int button, const bool* keys) const;
    bool padHeld(const QString& systemId, int button, SDL_Gamepad* pad) const;

    // Whether a special action's key or pad button is down at this moment. No edge detection: for
    // one action per press the caller keeps the last state.
    bool specialHeld(int special, const bool* keys, SDL_Gamepad* pad) const;

Q_SIGNALS:
    // Read again: `systemId`, `device`, `padStyle`, `buttons`, `specials` and any label shown.
    void mappingChanged();
    // Read again: `listening`, `listeningId`, `listeningName`. Comes before `mappingChanged` where
    // a capture ends with a binding.
    void listeningChanged();
    // Read again: `gamepadName`.
    void gamepadNameChanged();

public:
    // Starts a capture for the button, or moves a running one to it: the next press on the current
    // device is stored. Escape ends it without a result; there is no time-out. A key is known by
    // what it types, taken for the place where that stands on a US keyboard: letters, digits,
    // F1 to F12, arrows, Return, Backspace, Tab, Space, - = [ ] \ ; ' , . / and Ctrl, Shift and
    // Alt, which count as the left ones; the keypad counts as the main rows. Any other key is
    // swallowed and the capture goes on.
    Q_INVOKABLE void listen(int buttonId);
    // Ends a capture without a result; without one, nothing.
    Q_INVOKABLE void cancelListen();
    // Unbinds the button on the current device and system, its default included.
    Q_INVOKABLE void clearButton(int buttonId);
    // Brings back all defaults of the current system on the current device, and of the device's
    // special actions.
    Q_INVOKABLE void resetSystem();
    // Remembers every stored binding as the point of return. Edits still go straight to the store.
    Q_INVOKABLE void beginEdit();
    // Forgets the point of return; what was done stays.
    Q_INVOKABLE void commitEdit();
    // Puts all bindings back to the point of return; without one, nothing.
    Q_INVOKABLE void revertEdit();
    // The button's binding in words for the current device and system; "None" for no binding.
    Q_INVOKABLE QString bindingLabel(int buttonId) const;
    // The same, short; empty for no binding.
    Q_INVOKABLE QString bindingCaption(int buttonId) const;
    // Brings up SDL's gamepads and reads `gamepadName`. SDL then takes over SIGINT and SIGTERM
    // unless SDL_HINT_NO_SIGNAL_HANDLERS was set before.
    Q_INVOKABLE void prepare();

protected:
    // The keyboard side of a capture; passes everything while none runs.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static QString padStyleFor(const QString& systemId);
    static QString buttonName(int buttonId);
    static DefaultMap defaultsFor(int buttonId);

    QString settingsKey(const QString& device, const QString& systemId, int id) const;
    bool loadBinding(const QString& device, const QString& systemId, int id, QString* kind,
                     int* code) const;
    void saveBinding(int id, const QString& kind, int code);
    void assign(const QString& kind, int code);
    bool ensureSdl();
    void pollGamepad();
    void refreshGamepadName();

    static InputBindings* instance_;

    QString systemId_ = QStringLiteral("nes");
    QString device_ = QStringLiteral("keyboard");
    bool listening_ = false;
    int listeningId_ = -1;
    bool sdlReady_ = false;
    QString gamepadName_ = QStringLiteral("No gamepad connected");
    QTimer timer_;
    QHash<QString, QVariant> snapshot_;
    bool editing_ = false;
    // Never read. Where the store is a file, Qt keeps a larger one parsed only as long as an object
    // on it lives, and every operation opens and closes one of its own.
    std::unique_ptr<QSettings> keepsFileParsed_;
};

} // namespace velmora
