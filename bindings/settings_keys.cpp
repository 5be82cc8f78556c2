#include <velmora/settings_keys.h>

namespace velmora::settingskeys {

const QString org() { return QStringLiteral("Velmora"); }

const QString app() { return QStringLiteral("Velmora"); }

} // namespace velmora::settingskeys
