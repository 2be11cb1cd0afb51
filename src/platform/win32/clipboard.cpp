#include "platform/win32/clipboard.h"

#include "platform/win32/handles.h"
#include "platform/win32/text_conversion.h"

namespace obk::win32 {

namespace {

class OpenedClipboard {
public:
    explicit OpenedClipboard(HWND owner) {
        constexpr int tries = 10;
        constexpr DWORD pause = 25;  // milliseconds
        for (int attempt = 0; attempt < tries && !opened_; ++attempt) {
            if (attempt > 0) Sleep(pause);
            opened_ = OpenClipboard(owner);
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (opened_) CloseClipboard();
    }
    explicit operator bool() const { return opened_ != FALSE; }

private:
    BOOL opened_ = FALSE;
};

}  // namespace

bool putOnClipboard(HWND owner, TextView text) {
    UniqueGlobalMemory memory = inGlobalMemory(asWide(text));
    if (!memory) return false;
    const OpenedClipboard clipboard(owner);
    // What the clipboard takes is its own.
    const bool put = clipboard && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory.get());
    if (put) static_cast<void>(memory.release());
    return put;
}

std::optional<Text> textOnClipboard(HWND owner) {
    const OpenedClipboard clipboard(owner);
    // What is on it stays the clipboard's own.
    const HANDLE memory = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const units = memory ? static_cast<const char16_t*>(GlobalLock(memory)) : nullptr;
    if (!units) return std::nullopt;
    struct Unlocking {
        HANDLE memory;
        ~Unlocking() { GlobalUnlock(memory); }
    } unlocking{memory};
    // Another program may have left out the terminating zero.
    const TextView all(units, GlobalSize(memory) / sizeof(char16_t));
    return Text(all.substr(0, all.find(u'\0')));
}

}  // namespace obk::win32
