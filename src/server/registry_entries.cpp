#include "server/registry_entries.h"

namespace obk::server {

namespace {

class OpenKey {
public:
    OpenKey() = default;
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    HKEY* put() { return &key_; }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

bool missing(LSTATUS status) {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

bool removeValue(const ClassesKey& classes, const std::wstring& key, const std::wstring& name) {
    OpenKey opened;
    const LSTATUS found =
        RegOpenKeyExW(classes.root(), ClassesKey::path(key).c_str(), 0, KEY_SET_VALUE, opened.put());
    if (found != ERROR_SUCCESS) return missing(found);
    const LSTATUS removed = RegDeleteValueW(opened.get(), name.c_str());
    return removed == ERROR_SUCCESS || missing(removed);
}

bool isEmpty(const ClassesKey& classes, const std::wstring& key) {
    OpenKey opened;
    DWORD subKeys = 0, values = 0;
    return RegOpenKeyExW(classes.root(), ClassesKey::path(key).c_str(), 0, KEY_READ, opened.put()) ==
               ERROR_SUCCESS &&
           RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, &values,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           subKeys == 0 && values == 0;
}

bool removeEmptyKeys(const ClassesKey& classes, std::wstring key) {
    while (!key.empty() && isEmpty(classes, key)) {
        if (RegDeleteKeyW(classes.root(), ClassesKey::path(key).c_str()) != ERROR_SUCCESS) return false;
        const size_t end = key.rfind(L'\\');
        key.resize(end == std::wstring::npos ? 0 : end);
    }
    return true;
}

}  // namespace

std::wstring ClassesKey::text(const std::wstring& key) const {
    wchar_t buffer[256];
    DWORD size = sizeof buffer;
    const LSTATUS read =
        RegGetValueW(root_, path(key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr, buffer, &size);
    return read == ERROR_SUCCESS ? buffer : std::wstring();
}

void RegistryEntries::add(std::wstring key, std::wstring text, std::wstring name) {
    entries_.push_back({std::move(key), std::move(name), std::move(text)});
}

bool RegistryEntries::present(const ClassesKey& classes) const {
    for (const Entry& entry : entries_) {
        OpenKey key;
        if (RegOpenKeyExW(classes.root(), ClassesKey::path(entry.key).c_str(), 0, KEY_READ, key.put()) !=
            ERROR_SUCCESS)
            return false;
    }
    return true;
}

bool RegistryEntries::write(const ClassesKey& classes) const {
    bool written = true;
    for (const Entry& entry : entries_) {
        OpenKey key;
        const auto bytes = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
        // A key that only has to exist gets no value.
        const bool valued = !entry.text.empty() || !entry.name.empty();
        const bool done =
            RegCreateKeyExW(classes.root(), ClassesKey::path(entry.key).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                            nullptr, key.put(), nullptr) == ERROR_SUCCESS &&
            (!valued ||
             RegSetValueExW(key.get(), entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(entry.text.c_str()), bytes) == ERROR_SUCCESS);
        written = written && done;
    }
    return written;
}

bool RegistryEntries::remove(const ClassesKey& classes) const {
    bool removed = true;
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
        removed = removeValue(classes, entry->key, entry->name) && removed;
        removed = removeEmptyKeys(classes, entry->key) && removed;
    }
    return removed;
}

}  // namespace obk::server
