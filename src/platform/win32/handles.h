// Owners of the system's handles.
#pragma once

#include <windows.h>

#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace obk::win32 {

struct GdiObjectDeleter {
    void operator()(void* object) const { DeleteObject(static_cast<HGDIOBJ>(object)); }
};
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiObjectDeleter>;
using UniqueBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiObjectDeleter>;
using UniqueRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, GdiObjectDeleter>;

struct MenuDeleter {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using UniqueMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDeleter>;

struct GlobalMemoryDeleter {
    void operator()(void* memory) const { GlobalFree(memory); }
};
using UniqueGlobalMemory = std::unique_ptr<void, GlobalMemoryDeleter>;

// A text with its terminating zero, as the clipboard and drop targets take it; null when memory is short.
template <typename Unit>
UniqueGlobalMemory inGlobalMemory(std::basic_string_view<Unit> text) {
    UniqueGlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(Unit)));
    auto* const units = memory ? static_cast<Unit*>(GlobalLock(memory.get())) : nullptr;
    if (!units) return nullptr;
    units[text.copy(units, text.size())] = 0;
    GlobalUnlock(memory.get());
    return memory;
}

// A device context in memory.
struct MemoryDcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using UniqueMemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, MemoryDcDeleter>;

struct FileDeleter {
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using UniqueFile = std::unique_ptr<std::remove_pointer_t<HANDLE>, FileDeleter>;

// Selects an object for one scope.
class Selection {
public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(object ? SelectObject(dc, object) : nullptr) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { end(); }

    void end() {
        if (HGDIOBJ previous = std::exchange(previous_, nullptr)) SelectObject(dc_, previous);
    }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

// The screen's device context for one scope.
class ScreenDc {
public:
    ScreenDc() : dc_(GetDC(nullptr)) {}
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    ~ScreenDc() {
        if (dc_) ReleaseDC(nullptr, dc_);
    }
    HDC get() const { return dc_; }

private:
    HDC dc_;
};

}  // namespace obk::win32
