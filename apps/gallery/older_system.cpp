#include "older_system.h"

#include <cwchar>

namespace obk::gallery {

OlderSystem::OlderSystem(bool wanted) {
    constexpr auto version = L"4.0";
    constexpr auto place = L"Software\\OrbekGallery.OlderSystem";
    constexpr auto inside = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    const auto open = [](HKEY under, const wchar_t* name) -> HKEY {
        HKEY key = nullptr;
        const LSTATUS status = RegCreateKeyExW(under, name, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                                               nullptr, &key, nullptr);
        return status == ERROR_SUCCESS ? key : nullptr;
    };
    if (wanted) key_ = open(HKEY_CURRENT_USER, place);
    const HKEY versions = key_ ? open(key_, inside) : nullptr;
    if (!versions) return;
    RegSetValueExW(versions, L"CurrentVersion", 0, REG_SZ, reinterpret_cast<const BYTE*>(version),
                   static_cast<DWORD>((std::wcslen(version) + 1) * sizeof(wchar_t)));
    RegCloseKey(versions);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_);
}

OlderSystem::~OlderSystem() {
    if (!key_) return;
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegDeleteTreeW(key_, nullptr);
    RegCloseKey(key_);
}

}  // namespace obk::gallery
