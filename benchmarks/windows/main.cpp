// Compares with the system's own automation and bare controls, in one process and one run.
#include "activation_benchmark.h"
#include "dispatch_benchmark.h"
#include "grid_benchmark.h"
#include "timing.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// As an installer has it done, for one user.
void measureRegistration(const std::wstring& path) {
    const HMODULE module = LoadLibraryW(path.c_str());
    const auto install = reinterpret_cast<HRESULT(WINAPI*)(BOOL, PCWSTR)>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllInstall")));
    if (!install) return;
    HRESULT result = S_OK;
    const double registering = microseconds([&] { result = install(TRUE, L"user"); });
    const double removing = microseconds([&] { result |= install(FALSE, L"user"); });
    FreeLibrary(module);
    if (FAILED(result)) return;
    printAmount("registered for one user", registering / 1000, "ms", 0);
    printAmount("and removed", removing / 1000, "ms", 0);
}

}  // namespace

// Named are the parts to measure; all without a name.
int main(int count, char** names) {
    const std::vector<std::string> parts(names + 1, names + count);
    const auto wanted = [&parts](const char* name) {
        return parts.empty() || std::find(parts.begin(), parts.end(), name) != parts.end();
    };
    OleInitialize(nullptr);
    bool measured = false;
    {
        const std::string folder = OBK_DIST_DIR;
        const std::wstring path = L"Z:" + std::wstring(folder.begin(), folder.end()) + L"/OBKCTRLS.ocx";
        printHeading();
        obk::container::ServerContext server;
        const double start = microseconds([&] {
            server = obk::container::ServerContext::fromLibrary(path);
            obk::ComPtr<IUnknown> first;
            server.create(L"OBKCTRLS.GridEdit", first);
        });
        printAmount("loaded, and the first control made", start / 1000, "ms", 0);
        measured = !wanted("calls") || measureDispatch(server);
        if (wanted("windows")) {
            measureActivation(server);
            measureRegistration(path);
        }
        if (wanted("grid")) measureGrid(server);
        WIN32_FILE_ATTRIBUTE_DATA file{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &file);
        printAmount("size of the server", file.nFileSizeLow / 1e6, "MB", 1.8);
    }
    OleUninitialize();
    return measured ? 0 : 1;
}
