#include "server/module.h"

#include "platform/win32/win32_platform.h"

#include <oleauto.h>

#include <vector>

namespace obk::server::module {

namespace {

// Controls live on whatever threads their hosts create them on; what the threads share is behind this lock.
class Lock {
public:
    Lock() { AcquireSRWLockExclusive(&lock_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { ReleaseSRWLockExclusive(&lock_); }

private:
    static SRWLOCK lock_;
};
SRWLOCK Lock::lock_ = SRWLOCK_INIT;

struct ThreadPlatform {
    DWORD thread;
    std::weak_ptr<win32::Win32Platform> platform;
};

HINSTANCE ownHandle = nullptr;
LONG presences = 0;
ITypeLib* sharedTypeLibrary = nullptr;

std::vector<ThreadPlatform>& threadPlatforms() {
    static std::vector<ThreadPlatform> platforms;
    return platforms;
}

}  // namespace

void attach(HINSTANCE handle) {
    ownHandle = handle;
}

HINSTANCE handle() {
    return ownHandle;
}

std::wstring path() {
    std::wstring result(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ownHandle, result.data(), static_cast<DWORD>(result.size()));
        if (length < result.size()) {
            result.resize(length);
            return result;
        }
        result.resize(2 * result.size());
    }
}

void lock() {
    InterlockedIncrement(&presences);
}

void unlock() {
    ITypeLib* unused = nullptr;
    {
        // Counted down under the lock, so that a thread that just takes the type library finds it whole.
        const Lock lock;
        if (InterlockedDecrement(&presences) == 0) unused = std::exchange(sharedTypeLibrary, nullptr);
    }
    if (unused) unused->Release();
}

Presence::Presence() {
    lock();
}
Presence::~Presence() {
    unlock();
}

std::shared_ptr<void> presence() {
    return std::make_shared<Presence>();
}

bool idle() {
    return presences == 0;
}

std::shared_ptr<win32::Win32Platform> platform() {
    const DWORD thread = GetCurrentThreadId();
    const Lock lock;
    auto& platforms = threadPlatforms();
    std::erase_if(platforms, [](const ThreadPlatform& entry) { return entry.platform.expired(); });
    for (const ThreadPlatform& entry : platforms) {
        if (entry.thread != thread) continue;
        if (auto shared = entry.platform.lock()) return shared;
    }
    auto created = std::make_shared<win32::Win32Platform>(ownHandle, presence);
    platforms.push_back({thread, created});
    return created;
}

ComPtr<ITypeLib> typeLibrary() {
    {
        const Lock lock;
        if (sharedTypeLibrary) return ComPtr<ITypeLib>(sharedTypeLibrary);
    }
    ComPtr<ITypeLib> loaded;
    if (FAILED(LoadTypeLibEx(path().c_str(), REGKIND_NONE, loaded.put()))) return nullptr;
    const Lock lock;
    if (!sharedTypeLibrary && presences > 0) sharedTypeLibrary = loaded.share();
    return loaded;
}

ComPtr<ITypeInfo> typeInfo(const GUID& id) {
    ComPtr<ITypeInfo> result;
    if (const auto types = typeLibrary()) {
        if (FAILED(types->GetTypeInfoOfGuid(id, result.put()))) return nullptr;
    }
    return result;
}

}  // namespace obk::server::module
