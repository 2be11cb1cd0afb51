// The server as a whole: its file, what keeps it loaded, and what its objects share.
#pragma once

#include "com/com_ptr.h"

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <string>

namespace obk::win32 {
class Win32Platform;
}  // namespace obk::win32

namespace obk::server::module {

void attach(HINSTANCE handle);
HINSTANCE handle();
// The full path of the server's file.
std::wstring path();

// Keeps the server loaded while it lives: every object has one, and every lock of a class factory.
class Presence {
public:
    Presence();
    Presence(const Presence&) = delete;
    Presence& operator=(const Presence&) = delete;
    ~Presence();
};
// One for an object that does not hold it as a member.
std::shared_ptr<void> presence();
void lock();
void unlock();
// Whether nothing of the server is in use.
bool idle();

// The calling thread's window system; it goes with the last control that holds it.
std::shared_ptr<win32::Win32Platform> platform();

// The type library in the server's own resources; empty when the system cannot read it. Kept while there are
// objects.
ComPtr<ITypeLib> typeLibrary();
ComPtr<ITypeInfo> typeInfo(const GUID& id);

}  // namespace obk::server::module
