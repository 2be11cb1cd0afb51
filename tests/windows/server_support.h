// The server as a host meets it: its file, objects of its classes, and a form to put them on.
#pragma once

#include "container/control_site.h"
#include "container/message_loop.h"
#include "container/server_context.h"
#include "container/text.h"
#include "test_window_support.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace obk::testing_support {

// The names of all classes that the server's type library offers.
const std::vector<std::wstring>& serverClasses();
// A path of this system's as the programs of the other one know it.
std::wstring windowsPath(const std::string& path);
std::wstring serverFile();
std::wstring typeName(ITypeInfo* type);
GUID typeId(ITypeInfo* type);

// The size in 1/100 mm that a control has by its own account.
std::pair<LONG, LONG> extentOf(IUnknown* control);
HRESULT setExtent(IUnknown* control, SIZEL size);

// Holds the server loaded, without registration.
class LoadedServer {
public:
    LoadedServer();
    LoadedServer(const LoadedServer&) = delete;
    LoadedServer& operator=(const LoadedServer&) = delete;
    ~LoadedServer();

    HMODULE module() const { return module_; }
    // An exported function.
    template <typename... Arguments>
    HRESULT call(const char* name, Arguments... arguments) const {
        using Function = HRESULT(WINAPI*)(Arguments...);
        const auto function = reinterpret_cast<Function>(GetProcAddress(module_, name));
        return function ? function(arguments...) : E_NOTIMPL;
    }
    bool canUnload() const;
    ComPtr<IClassFactory> factory(const std::wstring& className) const;
    ComPtr<IUnknown> create(const std::wstring& className) const;

private:
    HMODULE module_;
};

// Does something with a new control of each class. Failures say which one it was.
template <typename Work>
void withEachControl(Work&& work) {
    const LoadedServer server;
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        work(server.create(name), name);
    }
}

// Registered for the machine while it lives.
class RegisteredServer {
public:
    RegisteredServer() { EXPECT_EQ(server_.call("DllRegisterServer"), S_OK); }
    RegisteredServer(const RegisteredServer&) = delete;
    RegisteredServer& operator=(const RegisteredServer&) = delete;
    ~RegisteredServer() { EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK); }

private:
    LoadedServer server_;
};

// The path of a file in the system's folder for those that do not last.
std::wstring temporaryFile(const std::wstring& name);
// What the system's script host writes for a script.
std::string scriptSays(const std::wstring& script);

// A visible window with a form and one control on it.
class HostedControl {
public:
    explicit HostedControl(const std::wstring& className, container::SiteSettings settings = {},
                           const container::InitialState& state = {});

    LoadedServer server;
    TestWindow window;
    container::ControlForm form;
    container::ControlSite site;
    container::MessageLoop loop;

    container::Dispatch object() const { return site.object(); }
    // The names of the events since the last call, without those of the mouse's way, which the system reports
    // as often as it likes.
    std::wstring takeEvents();
    // How often the control has called its container so since the last call of this for the same name.
    ptrdiff_t takeCalls(const char* name);
    void activate(RECT bounds = {10, 10, 130, 34});
};

// Where a control of this class stands on a form, in pixels.
RECT placeOf(const std::wstring& className);
// Gives a control something to work on.
void prepare(const HostedControl& hosted, const std::wstring& className);
// Another value of the same type; empty for objects.
container::Variant otherThan(const container::Variant& value);

}  // namespace obk::testing_support
