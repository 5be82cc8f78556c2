#pragma once

#include <QString>

#include <velmora/export.h>

// The two names of the settings store in which the control bindings live:
// `QSettings(settingskeys::org(), settingskeys::app())`, native format, user scope.
namespace velmora::settingskeys {

// The organisation name, "Velmora". Any thread.
VELMORA_EXPORT const QString org();

// The application name, "Velmora". Any thread.
VELMORA_EXPORT const QString app();

} // namespace velmora::settingskeys
