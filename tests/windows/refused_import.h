// What a module imports from the system: listed, refused call by call, or the end of the process at a call.
#pragma once

#include <windows.h>

#include <climits>
#include <cstring>
#include <utility>

namespace obk::testing_support {

// Counted from 0; the call with this number is refused.
inline unsigned long callNumber = 0, refusedCall = ULONG_MAX;
// Not only that one.
inline bool refusesAll = false;
// Instead of being refused the call ends the process, with this as its code.
constexpr UINT endedAtCall = 72;
inline bool endsAtCall = false;

template <typename Tag, typename Result, typename... Arguments>
struct Refusing {
    static inline Result(WINAPI* original)(Arguments...) = nullptr;
    static inline Result refusal{};
    static Result WINAPI call(Arguments... arguments) {
        if (!refusesAll && callNumber++ != refusedCall) return original(arguments...);
        if (endsAtCall) TerminateProcess(GetCurrentProcess(), endedAtCall);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return refusal;
    }
};

struct Refusable {
    const char* name;
    void* replacement;
};

template <typename Tag, typename Result, typename... Arguments>
Refusable refusable(const char* name, Result(WINAPI* function)(Arguments...), Result refusal) {
    using Call = Refusing<Tag, Result, Arguments...>;
    Call::original = function;
    Call::refusal = refusal;
    return {name, reinterpret_cast<void*>(&Call::call)};
}

// Calls use(module, name, place) for everything that a module imports by name.
template <typename Use>
void eachImport(HMODULE module, Use&& use) {
    auto* const base = reinterpret_cast<BYTE*>(module);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; from->Name; ++from) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
        auto* places = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++places) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto* const named =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            use(reinterpret_cast<const char*>(base + from->Name), reinterpret_cast<const char*>(named->Name),
                reinterpret_cast<void**>(&places->u1.Function));
        }
    }
}

// While it lives, one import of a module is replaced.
class RefusedImport {
public:
    RefusedImport(HMODULE module, const Refusable& refusable) {
        eachImport(module, [&](const char*, const char* name, void** place) {
            if (std::strcmp(name, refusable.name) == 0) place_ = place;
        });
        if (place_) before_ = put(refusable.replacement);
    }
    RefusedImport(const RefusedImport&) = delete;
    RefusedImport& operator=(const RefusedImport&) = delete;
    ~RefusedImport() {
        if (place_) put(before_);
    }
    bool found() const { return place_ != nullptr; }

private:
    void* put(void* function) {
        DWORD access = 0;
        VirtualProtect(place_, sizeof *place_, PAGE_READWRITE, &access);
        void* const before = std::exchange(*place_, function);
        VirtualProtect(place_, sizeof *place_, access, &access);
        return before;
    }

    void** place_ = nullptr;
    void* before_ = nullptr;
};

}  // namespace obk::testing_support
