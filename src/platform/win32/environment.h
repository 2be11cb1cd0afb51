// What all windows of one platform share; lives until the last of them has gone.
#pragma once

#include "platform/win32/away_focus.h"
#include "platform/win32/fonts.h"
#include "platform/win32/key_router.h"
#include "platform/win32/paint_buffer.h"
#include "platform/win32/service_window.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

namespace obk::win32 {

// Each call answers a holder that keeps the module loaded.
using ModuleLock = std::function<std::shared_ptr<void>()>;

class Environment {
public:
    Environment(HINSTANCE module, ModuleLock lockModule);
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment();

    HINSTANCE module() const { return module_; }
    // For objects that others may hold longer than the control lives.
    std::shared_ptr<void> lockModule() const { return lockModule_ ? lockModule_() : nullptr; }
    FontCache& fonts() { return fonts_; }
    KeyRouter& keys() { return keys_; }
    ServiceWindow& service() { return service_; }
    AwayFocus& away() { return away_; }
    PaintBuffer& paintBuffer() { return paintBuffer_; }
    // Registered on first use; null when the system refuses.
    const wchar_t* surfaceClass();

    // Windows made within the scope get the common controls that the module's manifest asks for.
    class ActivationScope {
    public:
        explicit ActivationScope(const Environment& environment);
        ActivationScope(const ActivationScope&) = delete;
        ActivationScope& operator=(const ActivationScope&) = delete;
        ~ActivationScope();

    private:
        ULONG_PTR cookie_ = 0;
        bool active_ = false;
    };

private:
    HINSTANCE module_;
    ModuleLock lockModule_;
    std::wstring surfaceClassName_;
    bool surfaceClassRegistered_ = false;
    FontCache fonts_;
    KeyRouter keys_;
    ServiceWindow service_;
    AwayFocus away_{service_};
    PaintBuffer paintBuffer_;
};

}  // namespace obk::win32
