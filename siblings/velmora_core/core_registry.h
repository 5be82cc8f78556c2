#pragma once

#include <QList>
#include <QString>

#include <velmora_core/core_descriptor.h>

namespace velmora {

// Stands in for the application's own catalogue of cores, with one entry for each system. A build
// that has the real VelmoraCore takes that in place of this directory.
class CoreRegistry {
public:
    // One descriptor for each system, in the order in which a page lists them.
    static QList<CoreDescriptor> uniqueBySystem();

    // The system's name in few letters, for a narrow tab; the id itself for an unknown system.
    static QString shortName(const QString& systemId);
};

} // namespace velmora
