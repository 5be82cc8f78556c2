#pragma once

#include <string>
#include <utility>

#include <QSettings>
#include <QStringList>

#include <velmora/input_bindings.h>
#include <velmora/settings_keys.h>

namespace velmora::test {

inline QSettings bindingStore() { return QSettings(settingskeys::org(), settingskeys::app()); }

inline void put(const QString& key, const QVariant& value) { bindingStore().setValue(key, value); }

// The stored value in plain text; empty without one.
inline std::string stored(const QString& key) {
    return bindingStore().value(key).toString().toStdString();
}

// The object's signals in the order in which they came, "L" for listening, "M" for mapping, "N" for
// the gamepad's name.
class Signals {
public:
    explicit Signals(InputBindings& bindings) {
        QObject::connect(&bindings, &InputBindings::listeningChanged, [this] { seen += 'L'; });
        QObject::connect(&bindings, &InputBindings::gamepadNameChanged, [this] { seen += 'N'; });
        QObject::connect(&bindings, &InputBindings::mappingChanged, [this] { seen += 'M'; });
    }
    // What came since the last call.
    std::string take() { return std::exchange(seen, {}); }

private:
    std::string seen;
};

} // namespace velmora::test
