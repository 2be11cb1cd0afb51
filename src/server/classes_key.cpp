#include "server/classes_key.h"

#include "platform/win32/text_conversion.h"

#include <vector>

namespace obk::server {

namespace {

using win32::toWide;

std::wstring path(const Text& key) {
    return L"Software\\Classes\\" + toWide(key);
}

REGSAM viewFlag(Architecture view) {
    return view == Architecture::x64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
}

bool missing(LSTATUS status) {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

}  // namespace

class ClassesKey::OpenKey {
public:
    enum class Missing { stays, isMade };

    OpenKey(const ClassesKey& classes, Architecture view, const Text& key, REGSAM access,
            Missing what = Missing::stays) {
        const std::wstring name = path(key);
        access |= viewFlag(view);
        status_ = what == Missing::isMade ? RegCreateKeyExW(classes.root_, name.c_str(), 0, nullptr, 0,
                                                            access, nullptr, &key_, nullptr)
                                          : RegOpenKeyExW(classes.root_, name.c_str(), 0, access, &key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    LSTATUS status() const { return status_; }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
    LSTATUS status_;
};

std::optional<Text> ClassesKey::read(Architecture view, const Text& key, const Text& name) const {
    const OpenKey opened(*this, view, key, KEY_READ);
    if (opened.status() != ERROR_SUCCESS) return std::nullopt;
    const std::wstring value = toWide(name);
    DWORD bytes = 0;
    if (RegGetValueW(opened.get(), nullptr, value.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS)
        return std::nullopt;
    std::vector<wchar_t> text(bytes / sizeof(wchar_t) + 1);
    if (RegGetValueW(opened.get(), nullptr, value.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS)
        return std::nullopt;
    return Text(reinterpret_cast<const char16_t*>(text.data()));
}

bool ClassesKey::empty(Architecture view, const Text& key) const {
    const OpenKey opened(*this, view, key, KEY_READ);
    DWORD keys = 0, values = 0;
    return opened.status() == ERROR_SUCCESS &&
           RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

bool ClassesKey::createKey(Architecture view, const Text& key) {
    return OpenKey(*this, view, key, KEY_SET_VALUE, OpenKey::Missing::isMade).status() == ERROR_SUCCESS;
}

bool ClassesKey::write(Architecture view, const Text& key, const Text& name, const Text& text) {
    const OpenKey opened(*this, view, key, KEY_SET_VALUE, OpenKey::Missing::isMade);
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
    return opened.status() == ERROR_SUCCESS &&
           RegSetValueExW(opened.get(), toWide(name).c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(text.c_str()), bytes) == ERROR_SUCCESS;
}

bool ClassesKey::removeValue(Architecture view, const Text& key, const Text& name) {
    const OpenKey opened(*this, view, key, KEY_SET_VALUE);
    if (opened.status() != ERROR_SUCCESS) return missing(opened.status());
    const LSTATUS removed = RegDeleteValueW(opened.get(), toWide(name).c_str());
    return removed == ERROR_SUCCESS || missing(removed);
}

bool ClassesKey::removeEmptyKey(Architecture view, const Text& key) {
    return RegDeleteKeyExW(root_, path(key).c_str(), viewFlag(view), 0) == ERROR_SUCCESS;
}

}  // namespace obk::server
