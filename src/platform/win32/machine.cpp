#include "platform/win32/machine.h"

#include "platform/win32/text_conversion.h"

#include <windows.h>

namespace obk::win32 {

namespace {

class OpenKey final : public RegistryKey {
public:
    explicit OpenKey(HKEY key) : key_(key) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() override { RegCloseKey(key_); }

    bool query(TextView name, std::string& buffer, uint32_t& size, uint32_t& type) const override {
        auto bytes = static_cast<DWORD>(buffer.size());
        DWORD kind = 0;
        const LSTATUS status = RegQueryValueExA(key_, toSystemCodePage(name).c_str(), nullptr, &kind,
                                                reinterpret_cast<BYTE*>(buffer.data()), &bytes);
        if (status != ERROR_SUCCESS || bytes > buffer.size()) return false;
        size = bytes;
        type = kind;
        return true;
    }

private:
    HKEY key_;
};

}  // namespace

int32_t SystemClock::tickCount() {
    return static_cast<int32_t>(GetTickCount());
}

std::chrono::year_month_day SystemClock::today() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return std::chrono::year(now.wYear) / std::chrono::month(now.wMonth) / std::chrono::day(now.wDay);
}

std::unique_ptr<RegistryKey> SystemRegistry::open(int32_t rootKey, TextView subKey, uint32_t access) {
    // Predefined roots are sign-extended to the width of a handle.
    const auto root = reinterpret_cast<HKEY>(static_cast<intptr_t>(rootKey));
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, toSystemCodePage(subKey).c_str(), 0, access, &key) != ERROR_SUCCESS || !key)
        return nullptr;
    return std::make_unique<OpenKey>(key);
}

}  // namespace obk::win32
