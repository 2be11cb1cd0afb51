// Creates the library's controls without registration, from the files beside the program.
#pragma once

#include <windows.h>

#include <string>

#include "com/com_object.h"

namespace obk::container {

// Where the controls come from: an activation context made from a manifest, the server's file
// itself, or the registry. Objects must be released before the context that created them.
class ServerContext {
public:
    enum class Route { registry, manifest, library };

    // The registry only.
    ServerContext() = default;
    ServerContext(ServerContext&& other) noexcept;
    ServerContext& operator=(ServerContext other) noexcept;
    ~ServerContext();

    // The manifest; `valid` is false when it does not make a context.
    static ServerContext fromManifest(const std::wstring& path);
    // The server's file; its classes are found by the names in its type library.
    static ServerContext fromLibrary(const std::wstring& path);
    // OBKCTRLS in `folder`: its manifest, else its file, else the registry.
    static ServerContext inFolder(const std::wstring& folder);
    static ServerContext besideProgram();

    Route route() const { return route_; }
    bool valid() const { return route_ == Route::registry || context_ != INVALID_HANDLE_VALUE || library_; }
    // For a message: "OBKCTRLS.manifest in Z:\dist\x64"
    const std::wstring& source() const { return source_; }

    // The class of a ProgID.
    HRESULT classId(const std::wstring& progId, CLSID& result) const;
    HRESULT create(const std::wstring& progId, ComPtr<IUnknown>& result) const;
    HRESULT classFactory(REFCLSID classId, ComPtr<IClassFactory>& result) const;

    // Folder of the running program, without a closing backslash.
    static std::wstring programFolder();

private:
    void swap(ServerContext& other) noexcept;

    HANDLE context_ = INVALID_HANDLE_VALUE;
    HMODULE library_ = nullptr;
    Route route_ = Route::registry;
    std::wstring source_ = L"the registry";
};

}  // namespace obk::container
