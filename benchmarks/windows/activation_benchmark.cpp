#include "activation_benchmark.h"
#include "timing.h"

#include "container/control_form.h"
#include "container/control_site.h"

#include <commctrl.h>

#include <cstdio>

void measureActivation(const obk::container::ServerContext& server) {
    using namespace obk::container;
    const HWND host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 40, 40, 300, 200, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
    const double ours = medianMicroseconds(101, [&] {
        ControlForm form(host);
        ControlSite site(form);
        site.create(server, L"OBKCTRLS.UpDownTextBox");
        site.activate({10, 10, 110, 31});
    });
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS};
    InitCommonControlsEx(&classes);
    const double bare = medianMicroseconds(101, [&] {
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
