#include "platform/win32/environment.h"

#include "platform/win32/client_window.h"
#include "platform/win32/text_conversion.h"

#include <cstdint>

namespace obk::win32 {

namespace {

// No two environments of a process share a class, even where two copies of the module are loaded.
std::wstring uniqueName(const wchar_t* purpose, const void* owner) {
    return std::wstring(L"Orbek.") + purpose + L"." + wideNumber(reinterpret_cast<uintptr_t>(owner));
}

// Made once for all threads, when a window first needs it, and kept until the module goes.
class ModuleContext {
public:
    explicit ModuleContext(HINSTANCE module) : handle_(contextOf(module)) {}
    ModuleContext(const ModuleContext&) = delete;
    ModuleContext& operator=(const ModuleContext&) = delete;
    ~ModuleContext() {
        if (handle_ != INVALID_HANDLE_VALUE) ReleaseActCtx(handle_);
    }
    HANDLE get() const { return handle_; }

private:
    static HANDLE contextOf(HINSTANCE module);

    HANDLE handle_;
};

HANDLE ModuleContext::contextOf(HINSTANCE module) {
    constexpr DWORD longestPath = 32'768;  // of any file, with its zero
    std::wstring path(longestPath, L'\0');
    if (!GetModuleFileNameW(module, path.data(), longestPath)) return INVALID_HANDLE_VALUE;
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    context.lpSource = path.c_str();
    context.lpResourceName = MAKEINTRESOURCEW(2);
    context.hModule = module;
    return CreateActCtxW(&context);
}

}  // namespace

Environment::Environment(HINSTANCE module, ModuleLock lockModule)
    : module_(module),
      lockModule_(std::move(lockModule)),
      surfaceClassName_(uniqueName(L"Surface", this)),
      service_(module, uniqueName(L"Service", this), fonts_) {}

Environment::~Environment() {
    if (surfaceClassRegistered_) UnregisterClassW(surfaceClassName_.c_str(), module_);
}

const wchar_t* Environment::surfaceClass() {
    if (!surfaceClassRegistered_) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = ClientWindow::procedure;
        description.hInstance = module_;
        description.lpszClassName = surfaceClassName_.c_str();
        surfaceClassRegistered_ = RegisterClassExW(&description) != 0;
    }
    return surfaceClassRegistered_ ? surfaceClassName_.c_str() : nullptr;
}

Environment::ActivationScope::ActivationScope(const Environment& environment) {
    static const ModuleContext context(environment.module_);
    active_ = context.get() != INVALID_HANDLE_VALUE && ActivateActCtx(context.get(), &cookie_);
}

Environment::ActivationScope::~ActivationScope() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace obk::win32
