#pragma once

#include <string>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace velmora::test {

// A settings store of the process's own, so that no test meets another's bindings or the user's:
// the whole of the user's registry is another key meanwhile.
class OwnSettings {
public:
    OwnSettings() : place(L"Software\\VelmoraTests\\" + std::to_wstring(GetCurrentProcessId())) {
        HKEY key = nullptr;
        RegDeleteTreeW(HKEY_CURRENT_USER, place.c_str());
        RegCreateKeyExW(HKEY_CURRENT_USER, place.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &key, nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, key);
        RegCloseKey(key);
    }
    ~OwnSettings() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, place.c_str());
    }
    OwnSettings(const OwnSettings&) = delete;
    OwnSettings& operator=(const OwnSettings&) = delete;

private:
    const std::wstring place;
};

} // namespace velmora::test
