#include <velmora/input_bindings.h>

#include <utility>

#include "bindings/settings_store.h"
#include "support/no_throw.h"

namespace velmora {

using namespace Qt::StringLiterals;

namespace {

// Where every binding of every device and system lies, and nothing else of the shared store.
constexpr QStringView prefix = u"controls/";

QHash<QString, QVariant> storedBindings() {
    const QSettings store = openStore();
    QHash<QString, QVariant> bindings;
    for (const QString& key : keysUnder(store, prefix))
        bindings.insert(key, store.value(key));
    return bindings;
}

void replaceBindings(const QHash<QString, QVariant>& bindings) {
    QSettings store = openStore();
    removeUnder(store, prefix);
    for (auto entry = bindings.cbegin(); entry != bindings.cend(); ++entry)
        store.setValue(entry.key(), entry.value());
}

} // namespace

void InputBindings::beginEdit() {
    noThrow([this] {
        snapshot_ = storedBindings();
        editing_ = true;
    });
}

void InputBindings::commitEdit() {
    snapshot_.clear();
    editing_ = false;
}

void InputBindings::revertEdit() {
    if (!editing_)
        return;
    // The snapshot goes only when all of it is back in the store.
    noThrow([this] {
        replaceBindings(snapshot_);
        snapshot_.clear();
        editing_ = false;
    });
    cancelListen();
    Q_EMIT mappingChanged();
}

} // namespace velmora
