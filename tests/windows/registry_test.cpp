#include <array>
#include <string>

#include <gtest/gtest.h>

#include "bindings/stored_bindings.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace velmora::test {
namespace {

std::wstring registryValue(const std::wstring& key, const wchar_t* name) {
    std::array<wchar_t, 64> text = {};
    DWORD size = sizeof text;
    RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return text.data();
}

// Where administrators and other programs look for it.
TEST(Registry, HoldsTheBindings) {
    InputBindings bindings;
    bindings.setSystemId("snes");
    bindings.setDevice("keyboard");
    bindings.clearButton(8);
    const QString key = "Software\\" + settingskeys::org() + "\\" + settingskeys::app() +
                        "\\controls\\keyboard\\snes";
    const std::wstring value = registryValue(key.toStdWString(), L"8");
    EXPECT_FALSE(value.empty());
    EXPECT_EQ(QString::fromStdWString(value).toStdString(), stored("controls/keyboard/snes/8"));
}

} // namespace
} // namespace velmora::test
