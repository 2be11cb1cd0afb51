// Counts what a module takes from the system and gives back by pairs of calls: drop targets, hooks, menus and
// the like, which the system itself does not count.
#pragma once

#include "refused_import.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <ole2.h>

#include <list>
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
        bool done = true;
        if constexpr (std::is_same_v<Result, HRESULT>)
            done = SUCCEEDED(result);
        else if constexpr (!std::is_void_v<Result>)
            done = result != Result{};
        if (done) *balance += change;
        return result;
    }
};

class CountedPairs {
public:
    explicit CountedPairs(HMODULE module) : module_(module) {
        count<struct Dropping>("RegisterDragDrop", RegisterDragDrop, "RevokeDragDrop", RevokeDragDrop);
        count<struct Hooks>("SetWindowsHookExW", SetWindowsHookExW, "UnhookWindowsHookEx",
                            UnhookWindowsHookEx);
        count<struct Menus>("CreatePopupMenu", CreatePopupMenu, "DestroyMenu", DestroyMenu);
        count<struct Keys>("CreateAcceleratorTableW", CreateAcceleratorTableW, "DestroyAcceleratorTable",
                           DestroyAcceleratorTable);
        count<struct Classes>("RegisterClassExW", RegisterClassExW, "UnregisterClassW", UnregisterClassW);
    }
    CountedPairs(const CountedPairs&) = delete;
    CountedPairs& operator=(const CountedPairs&) = delete;

    void expectAllGone() const {
        for (const Pair& pair : pairs_) EXPECT_EQ(pair.balance, 0) << pair.name;
    }

private:
    struct Pair {
        Pair(HMODULE module, const Refusable& first, const Refusable& second)
            : name(first.name), made(module, first), gone(module, second) {}
        const char* name;
        int balance = 0;
        RefusedImport made, gone;
    };

    template <typename Tag, typename Made, typename... MadeOf, typename Gone, typename... GoneOf>
    void count(const char* made, Made(WINAPI* make)(MadeOf...), const char* gone,
               Gone(WINAPI* end)(GoneOf...)) {
        using First = Counting<Tag, Made, MadeOf...>;
        using Second = Counting<std::add_pointer_t<Tag>, Gone, GoneOf...>;
        First::original = make;
        First::change = 1;
        Second::original = end;
        Second::change = -1;
        Pair& pair = pairs_.emplace_back(module_, Refusable{made, reinterpret_cast<void*>(&First::call)},
                                         Refusable{gone, reinterpret_cast<void*>(&Second::call)});
        EXPECT_TRUE(pair.made.found() && pair.gone.found()) << made;
        First::balance = Second::balance = &pair.balance;
    }

    HMODULE module_;
    std::list<Pair> pairs_;
};

}  // namespace obk::testing_support
