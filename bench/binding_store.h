#pragma once

#include <memory>

#include <QSettings>

#include <velmora/input_bindings.h>
#include <velmora/settings_keys.h>

#include "support/scratch_directory.h"

namespace velmora::bench {

// A settings store of so many bindings, sixteen of each system's keyboard and of its gamepad; those
// of the keyboard on "snes" come first. Of all stores one is the application's at a time.
class BindingStore {
public:
    explicit BindingStore(int count) {
        select();
        QSettings store(settingskeys::org(), settingskeys::app());
        for (int i = 0; i < count; ++i)
            store.setValue(keyOf(i),
                           isKeyboard(i) ? QStringLiteral("key:4") : QStringLiteral("pad:0"));
    }
    ~BindingStore() { release(); }
    BindingStore(const BindingStore&) = delete;
    BindingStore& operator=(const BindingStore&) = delete;

    static QString keyOf(int i) {
        const QString device =
            isKeyboard(i) ? QStringLiteral("keyboard") : QStringLiteral("gamepad");
        const QString system =
            i < 32 ? QStringLiteral("snes") : QStringLiteral("system%1").arg(i / 32);
        return QStringLiteral("controls/%1/%2/%3").arg(device, system).arg(i % 16);
    }

    // Makes this the application's store, with new InputBindings on it.
    void bind() {
        select();
        bindings = std::make_unique<InputBindings>();
    }

    // Makes this the application's store, with an object kept on it as a careful reader keeps one.
    void keep() {
        select();
        kept = std::make_unique<QSettings>(settingskeys::org(), settingskeys::app());
    }

private:
    static bool isKeyboard(int i) { return i / 16 % 2 == 0; }

    static void release() {
        bindings.reset();
        kept.reset();
    }

    void select() {
        release();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(directory.path().string()));
    }

    inline static std::unique_ptr<InputBindings> bindings;
    inline static std::unique_ptr<QSettings> kept;
    test::ScratchDirectory directory;
};

} // namespace velmora::bench
