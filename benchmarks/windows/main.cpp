// Compares with the system's own automation and bare controls, in one process and one run.
#include "activation_benchmark.h"
#include "dispatch_benchmark.h"
#include "grid_benchmark.h"
#include "timing.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

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
        if (wanted("windows")) measureActivation(server);
        if (wanted("grid")) measureGrid(server);
        WIN32_FILE_ATTRIBUTE_DATA file{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &file);
        printAmount("size of the server", file.nFileSizeLow / 1e6, "MB", 1.8);
    }
    OleUninitialize();
    return measured ? 0 : 1;
}
