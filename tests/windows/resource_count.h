// Counts what a process has taken from the window system, to prove that nothing is left behind.
#pragma once

#include "../support/from_environment.h"
#include "system_blocks_support.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <set>

namespace obk::testing_support {

// Drawing objects of this process. Where the system's own counter does not count, the process's table of
// handles does: 65,536 entries of 24 bytes, an object's kind in byte 14, 0 in free ones.
inline int gdiObjectCount() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(counted);
#ifdef _WIN64
    const auto* block = reinterpret_cast<const uint8_t*>(__readgsqword(0x60));
    const uint8_t* const table = *reinterpret_cast<const uint8_t* const*>(block + 0xF8);
#else
    const auto* block = reinterpret_cast<const uint8_t*>(__readfsdword(0x30));
    const uint8_t* const table = *reinterpret_cast<const uint8_t* const*>(block + 0x94);
#endif
    if (!table) return 0;
    int count = 0;
    for (size_t entry = 0; entry < 65536; ++entry) count += table[entry * 24 + 14] != 0;
    return count;
}

// Named, because what the system calls back has its own calling convention on 32-bit systems.
inline BOOL CALLBACK addWindow(HWND window, LPARAM windows) {
    reinterpret_cast<std::set<HWND>*>(windows)->insert(window);
    return TRUE;
}

// Windows of this thread, hidden, message-only and child windows included.
inline int windowCount() {
    std::set<HWND> found;  // some systems list message-only windows among the thread's, others do not
    const auto windows = reinterpret_cast<LPARAM>(&found);
    EnumThreadWindows(GetCurrentThreadId(), addWindow, windows);
    for (HWND each = nullptr; (each = FindWindowExW(HWND_MESSAGE, each, nullptr, nullptr)) != nullptr;) {
        if (GetWindowThreadProcessId(each, nullptr) == GetCurrentThreadId()) found.insert(each);
    }
    const std::set<HWND> topLevel = found;
    for (const HWND each : topLevel) EnumChildWindows(each, addWindow, windows);
    return static_cast<int>(found.size());
}

// Blocks of the server's own heap, where it is one that counts them.
inline int serverBlockCount() {
    const HMODULE server = GetModuleHandleW(L"OBKCTRLS.ocx");
    const auto count =
        reinterpret_cast<int (*)()>(server ? GetProcAddress(server, "guardedBlocks") : nullptr);
    return count ? count() : 0;
}

struct ResourceCount {
    int windows = 0;
    int gdiObjects = 0;
    int userObjects = 0;  // where the system counts them
    int systemBlocks = 0;
    int serverBlocks = 0;

    static ResourceCount now() {
        return {windowCount(), gdiObjectCount(),
                static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)), systemBlockCount(),
                serverBlockCount()};
    }
    friend bool operator==(const ResourceCount&, const ResourceCount&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const ResourceCount& count) {
        return stream << count.windows << " windows, " << count.gdiObjects << " drawing objects, "
                      << count.userObjects << " user objects, " << count.systemBlocks
                      << " texts and blocks of the system's, " << count.serverBlocks << " of the server's";
    }
};

// That work which makes something and lets go of it ends with as much as it began with. What the system makes
// once and keeps comes in the first two turns, which do not count. OBK_CYCLES says how many do.
inline void expectNothingIsLeft(const std::function<void()>& cycle) {
    systemBlockCount();
    cycle();
    cycle();
    const ResourceCount before = ResourceCount::now();
    const int32_t turns = test::fromEnvironment("OBK_CYCLES", 10);
    for (int32_t turn = 0; turn < turns; ++turn) cycle();
    EXPECT_EQ(ResourceCount::now(), before);
}

}  // namespace obk::testing_support
