#include "activation_benchmark.h"

#include "container/control_form.h"
#include "container/control_site.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

double medianMicroseconds(const std::function<void()>& cycle) {
    constexpr int cycles = 101;
    LARGE_INTEGER frequency, begin, end;
    QueryPerformanceFrequency(&frequency);
    std::vector<double> times;
    cycle();  // warm
    for (int at = 0; at < cycles; ++at) {
        QueryPerformanceCounter(&begin);
        cycle();
        QueryPerformanceCounter(&end);
        times.push_back(static_cast<double>(end.QuadPart - begin.QuadPart) * 1e6 /
                        static_cast<double>(frequency.QuadPart));
    }
    std::nth_element(times.begin(), times.begin() + cycles / 2, times.end());
    return times[cycles / 2];
}

}  // namespace

void measureActivation(const obk::container::ServerContext& server) {
    using namespace obk::container;
    const HWND host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 40, 40, 300, 200, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
    const double ours = medianMicroseconds([&] {
        ControlForm form(host);
        ControlSite site(form);
        site.create(server, L"OBKCTRLS.UpDownTextBox");
        site.activate({10, 10, 110, 31});
    });
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS};
    InitCommonControlsEx(&classes);
    const double bare = medianMicroseconds([&] {
        const HWND plain = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 21, host,
                                           nullptr, GetModuleHandleW(nullptr), nullptr);
        const HWND edit = CreateWindowExW(0, L"EDIT", L"1", WS_CHILD | WS_VISIBLE, 0, 0, 80, 21, plain,
                                          nullptr, GetModuleHandleW(nullptr), nullptr);
        const HWND spin = CreateWindowExW(0, UPDOWN_CLASSW, L"", WS_CHILD | WS_VISIBLE, 80, 0, 20, 21, plain,
                                          nullptr, GetModuleHandleW(nullptr), nullptr);
        SendMessageW(spin, UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit), 0);
        DestroyWindow(plain);
    });
    DestroyWindow(host);
    std::printf(
        "create, activate, destroy %8.1f us, a bare edit with an up-down control %8.1f us: %.2f times\n",
        ours, bare, ours / bare);
}
