// The server as a host meets it: its file, objects of its classes, and a form to put them on.
#pragma once

#include "container/control_site.h"
#include "container/message_loop.h"
#include "container/server_context.h"
#include "test_window_support.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace obk::testing_support {

// The names of all classes that the server's type library offers.
const std::vector<std::wstring>& serverClasses();
std::wstring serverFile();
ComPtr<ITypeLib> serverTypes();
// The type information of an interface or class by its name; empty when there is none.
ComPtr<ITypeInfo> serverType(const std::wstring& name);

// Holds the server loaded, without registration.
class LoadedServer {
public:
    LoadedServer();
    LoadedServer(const LoadedServer&) = delete;
    LoadedServer& operator=(const LoadedServer&) = delete;
    ~LoadedServer();

    HMODULE module() const { return module_; }
    bool canUnload() const;
    ComPtr<IClassFactory> factory(const std::wstring& className) const;
    ComPtr<IUnknown> create(const std::wstring& className) const;

private:
    HMODULE module_;
};

// Registered for the machine while it lives.
class RegisteredServer {
public:
    RegisteredServer() { EXPECT_EQ(call("DllRegisterServer"), S_OK); }
    RegisteredServer(const RegisteredServer&) = delete;
    RegisteredServer& operator=(const RegisteredServer&) = delete;
    ~RegisteredServer() { EXPECT_EQ(call("DllUnregisterServer"), S_OK); }

private:
    HRESULT call(const char* name) const;
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
    void activate(RECT bounds = {10, 10, 130, 34});
};

// Where a control of this class stands on a form, in pixels.
RECT placeOf(const std::wstring& className);
// Gives a control something to work on.
void prepare(const HostedControl& hosted, const std::wstring& className);
// Another value of the same type; empty for objects.
container::Variant otherThan(const container::Variant& value);

}  // namespace obk::testing_support
