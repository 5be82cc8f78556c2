#include <QSettings>

#include <gtest/gtest.h>

#include "bindings/stored_bindings.h"

namespace velmora::test {
namespace {

// Where administrators and other programs look for it.
TEST(Registry, HoldsTheBindings) {
    InputBindings bindings;
    bindings.setSystemId("snes");
    bindings.setDevice("keyboard");
    bindings.clearButton(8);
    const QSettings place("HKEY_CURRENT_USER\\Software\\" + settingskeys::org() + "\\" +
                              settingskeys::app() + "\\controls\\keyboard\\snes",
                          QSettings::NativeFormat);
    const std::string value = place.value("8").toString().toStdString();
    EXPECT_FALSE(value.empty());
    EXPECT_EQ(value, stored("controls/keyboard/snes/8"));
}

} // namespace
} // namespace velmora::test
