// Counts what a module takes from the system and gives back by pairs of calls: drop targets, hooks, menus and
// the like, which the system itself does not count.
#pragma once

#include "refused_import.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <ole2.h>

#include <list>
#include <map>
#include <string>
#include <type_traits>

namespace obk::testing_support {

// One function of such a pair: `change` is what a call that succeeds adds to `balance`.
template <typename Tag, typename Result, typename... Arguments>
struct Counting {
    static inline Result(WINAPI* original)(Arguments...) = nullptr;
    static inline int change = 0;
    static inline int* balance = nullptr;
    static Result WINAPI call(Arguments... arguments) {
        const Result result = original(arguments...);
        bool done = result != Result{};
        if constexpr (std::is_same_v<Result, HRESULT>) done = SUCCEEDED(result);
        if (done) *balance += change;
        return result;
    }
};

class CountedPairs {
public:
    explicit CountedPairs(HMODULE module) : module_(module) {
        count<struct Register>("drop targets", 1, "RegisterDragDrop", RegisterDragDrop);
        count<struct Revoke>("drop targets", -1, "RevokeDragDrop", RevokeDragDrop);
        count<struct Hook>("hooks", 1, "SetWindowsHookExW", SetWindowsHookExW);
        count<struct Unhook>("hooks", -1, "UnhookWindowsHookEx", UnhookWindowsHookEx);
        count<struct Menu>("menus", 1, "CreatePopupMenu", CreatePopupMenu);
        count<struct NoMenu>("menus", -1, "DestroyMenu", DestroyMenu);
        count<struct Keys>("tables of keys", 1, "CreateAcceleratorTableW", CreateAcceleratorTableW);
        count<struct NoKeys>("tables of keys", -1, "DestroyAcceleratorTable", DestroyAcceleratorTable);
        count<struct Class>("classes", 1, "RegisterClassExW", RegisterClassExW);
        count<struct NoClass>("classes", -1, "UnregisterClassW", UnregisterClassW);
    }

    void expectAllGone() const {
        for (const auto& [what, balance] : balances_) EXPECT_EQ(balance, 0) << what;
    }

private:
    template <typename Tag, typename Result, typename... Arguments>
    void count(const char* what, int change, const char* name, Result(WINAPI* function)(Arguments...)) {
        using Call = Counting<Tag, Result, Arguments...>;
        Call::original = function;
        Call::change = change;
        Call::balance = &balances_[what];
        const Refusable counting{name, reinterpret_cast<void*>(&Call::call)};
        EXPECT_TRUE(imports_.emplace_back(module_, counting).found()) << name;
    }

    HMODULE module_;
    std::map<std::string, int> balances_;
    std::list<RefusedImport> imports_;
};

}  // namespace obk::testing_support
