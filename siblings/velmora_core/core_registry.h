#pragma once

#include <QList>
#include <QString>

#include <velmora_core/core_descriptor.h>

namespace velmora {

// Stands in for the application's own catalogue of cores, with one entry for each system. To
// build with the real VelmoraCore, put it in this directory's place.
class CoreRegistry {
public:
    // One descriptor for each system, in the order in which a page lists them.
    static QList<CoreDescriptor> uniqueBySystem();

    // The system's name in few letters, for a narrow tab; the id itself for an unknown system.
    static QString shortName(const QString& systemId);
};

} // namespace velmora
