// Counts what a process has taken from the window system, to prove that nothing is left behind.
#pragma once

#include "../support/from_environment.h"
#include "system_blocks_support.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <winternl.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace obk::testing_support {

// Drawing objects of this process. Where the system's own counter does not count, the process's table of
// handles does: 65,536 entries of 24 bytes, an object's kind in byte 14, 0 in free ones.
inline int gdiObjectCount() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(counted);
    constexpr size_t place = sizeof(void*) == 8 ? 0xF8 : 0x94;
    const auto* const block = reinterpret_cast<const uint8_t*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const uint8_t* const table = *reinterpret_cast<const uint8_t* const*>(block + place);
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

// By what they are; user objects where the system counts them.
inline std::map<std::string, int> resourceCounts() {
    return {{"windows", windowCount()},
            {"drawing objects", gdiObjectCount()},
            {"user objects", static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS))},
            {"texts and blocks of the system's", systemBlockCount()},
            {"blocks of the server's", serverBlockCount()}};
}

// That work which makes something and lets go of it ends with as much as it began with. What the system makes
// once and keeps comes in the first two turns, which do not count. OBK_CYCLES says how many do.
inline void expectNothingIsLeft(const std::function<void()>& cycle) {
    systemBlockCount();
    cycle();
    cycle();
    const auto before = resourceCounts();
    const int32_t turns = test::fromEnvironment("OBK_CYCLES", 10);
    for (int32_t turn = 0; turn < turns; ++turn) cycle();
    EXPECT_EQ(resourceCounts(), before);
}

}  // namespace obk::testing_support
