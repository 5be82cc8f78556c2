#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

#include <velmora/settings_keys.h>

namespace velmora {

// The application's settings store. Every operation opens it for itself, so that the page and a
// running game meet in the store alone.
inline QSettings openStore() { return QSettings(settingskeys::org(), settingskeys::app()); }

// The stored keys that start with `prefix`.
inline QStringList keysUnder(const QSettings& store, QStringView prefix) {
    QStringList keys = store.allKeys();
    keys.removeIf([prefix](const QString& key) { return !key.startsWith(prefix); });
    return keys;
}

inline void removeUnder(QSettings& store, QStringView prefix) {
    for (const QString& key : keysUnder(store, prefix))
        store.remove(key);
}

} // namespace velmora
