#pragma once

#include <QSettings>

#include "support/scratch_directory.h"

namespace velmora::test {

// A settings store of the process's own, so that no test meets another's bindings or the user's.
class OwnSettings {
public:
    OwnSettings() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(directory.path().string()));
    }

private:
    const ScratchDirectory directory;
};

} // namespace velmora::test
