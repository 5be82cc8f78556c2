#pragma once

#include <QList>
#include <QString>

namespace velmora {

// One core as the registry describes it.
struct CoreDescriptor {
    QString id;
    QString name;
    QString systemId;    // short lower-case word, "snes"
    QString systemLabel; // for the user, "Super Nintendo"
    QList<QString> extensions;
    QString module;
    QString accent; // "#rrggbb"
};

} // namespace velmora
