#include <velmora/input_bindings.h>

#include <QMap>

#include <velmora_core/core_registry.h>

#include "bindings/catalogue.h"
#include "support/no_throw.h"

namespace velmora {

using namespace Qt::StringLiterals;

namespace {

QVariant row(int id, const QString& name, const QString& binding) {
    return QVariantMap{{u"id"_s, id}, {u"name"_s, name}, {u"binding"_s, binding}};
}

} // namespace

QString InputBindings::padStyle() const {
    return noThrowOr(QString(), [this] { return padStyleFor(systemId_); });
}

QList<QVariant> InputBindings::systems() const {
    return noThrowOr(QList<QVariant>(), [] {
        QList<QVariant> list;
        for (const CoreDescriptor& core : CoreRegistry::uniqueBySystem())
            list.append(QVariantMap{{u"id"_s, core.systemId},
                                    {u"label"_s, core.systemLabel},
                                    {u"short"_s, CoreRegistry::shortName(core.systemId)},
                                    {u"accent"_s, core.accent},
                                    {u"pad"_s, padStyleFor(core.systemId)}});
        return list;
    });
}

QList<QVariant> InputBindings::buttons() const {
    return noThrowOr(QList<QVariant>(), [this] {
        QList<QVariant> list;
        for (const int id : catalogue::buttonsOf(padStyleFor(systemId_)))
            list.append(row(id, buttonName(id), bindingLabel(id)));
        return list;
    });
}

QList<QVariant> InputBindings::specials() const {
    return noThrowOr(QList<QVariant>(), [this] {
        QList<QVariant> list;
        for (const catalogue::Button& button : catalogue::buttons)
            if (catalogue::isSpecial(button.id))
                list.append(row(button.id, button.name.toString(), bindingLabel(button.id)));
        return list;
    });
}

} // namespace velmora
