// Compares with the system's own automation and bare controls, in one process and one run.
#include "activation_benchmark.h"
#include "dispatch_benchmark.h"
#include "grid_benchmark.h"

#include <windows.h>

#include <string>

int main() {
    OleInitialize(nullptr);
    bool measured = false;
    {
        const std::string folder = OBK_DIST_DIR;
        const auto server = obk::container::ServerContext::fromLibrary(
            L"Z:" + std::wstring(folder.begin(), folder.end()) + L"/OBKCTRLS.ocx");
        measured = measureDispatch(server);
        measureActivation(server);
        measureGrid(server);
    }
    OleUninitialize();
    return measured ? 0 : 1;
}
