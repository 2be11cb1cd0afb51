// Controls that are made, placed and closed against the system's own windows, and what one at rest costs.
#include "activation_benchmark.h"
#include "timing.h"

#include "container/control_form.h"
#include "container/control_site.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace obk::container;

struct Class {
    const wchar_t* progId;
    bool hasTextLine;
};
constexpr Class classes[] = {
    {L"OBKCTRLS.UpDownTextBox", true}, {L"OBKCTRLS.DateCalendar", true}, {L"OBKCTRLS.ButtonPalette", false},
    {L"OBKCTRLS.ButtonArrow", false},  {L"OBKCTRLS.GridEdit", false},    {L"OBKCTRLS.PageTab", false},
    {L"OBKCTRLS.lns", false},
};
constexpr RECT place{10, 10, 110, 31};
constexpr int controlsOnForm = 40;

HWND newForm(DWORD style) {
    return CreateWindowExW(0, L"STATIC", L"", WS_POPUP | style, 40, 40, 800, 600, nullptr, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

HWND newChild(HWND parent, const wchar_t* type, const RECT& at) {
    return CreateWindowExW(0, type, L"1", WS_CHILD | WS_VISIBLE, at.left, at.top, at.right - at.left,
                           at.bottom - at.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
}

RECT placeOf(int at) {
    const LONG left = 10 + at % 5 * 150, top = 10 + at / 5 * 40;
    return {left, top, left + 100, top + 21};
}

// Nothing is left to do for a form that is shown.
void paint() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// As a form makes its controls: looking their names up in a type library is not part of it.
class Factory {
public:
    Factory(const ServerContext& server, const wchar_t* progId) {
        CLSID id{};
        if (SUCCEEDED(server.classId(progId, id))) server.classFactory(id, factory_);
    }
    bool usable() const { return static_cast<bool>(factory_); }
    void place(ControlSite& site, const RECT& at) const {
        obk::ComPtr<IUnknown> control;
        factory_->CreateInstance(nullptr, IID_IUnknown, control.putVoid());
        site.adopt(std::move(control));
        site.activate(at);
    }

private:
    obk::ComPtr<IClassFactory> factory_;
};

void measureOne(const ServerContext& server, ControlForm& form, const Class& measured) {
    constexpr int repeats = 20;
    const Factory factory(server, measured.progId);
    if (!factory.usable()) return;
    const auto own = [&] {
        return microseconds([&] {
                   for (int repeat = 0; repeat < repeats; ++repeat) {
                       ControlSite site(form);
                       factory.place(site, place);
                   }
               }) /
               repeats;
    };
    const auto bare = [&] {
        return microseconds([&] {
                   for (int repeat = 0; repeat < repeats; ++repeat)
                       DestroyWindow(
                           newChild(form.window(), measured.hasTextLine ? L"EDIT" : L"STATIC", place));
               }) /
               repeats;
    };
    char work[80];
    std::snprintf(work, sizeof work, "create, activate, destroy: %ls", measured.progId + 9);
    printRatio(work, sideBySide(own, bare), "us", 2);
}

void measureForm(const ServerContext& server) {
    std::vector<Factory> factories;
    for (const Class& each : classes) factories.emplace_back(server, each.progId);
    const auto own = [&] {
        return microseconds([&] {
            const HWND window = newForm(0);
            {
                ControlForm form(window);
                std::vector<std::unique_ptr<ControlSite>> sites;
                for (int at = 0; at < controlsOnForm; ++at) {
                    ControlSite& site = *sites.emplace_back(std::make_unique<ControlSite>(form));
                    factories[static_cast<size_t>(at) % factories.size()].place(site, placeOf(at));
                }
                ShowWindow(window, SW_SHOWNOACTIVATE);
                paint();
                // As hosts close a form: what is on it goes when nobody sees it any more.
                ShowWindow(window, SW_HIDE);
            }
            DestroyWindow(window);
        });
    };
    const auto bare = [&] {
        return microseconds([&] {
            const HWND window = newForm(0);
            for (int at = 0; at < controlsOnForm; ++at)
                newChild(window, at % 2 ? L"EDIT" : L"BUTTON", placeOf(at));
            ShowWindow(window, SW_SHOWNOACTIVATE);
            paint();
            ShowWindow(window, SW_HIDE);
            DestroyWindow(window);
        });
    };
    printRatio("a form of 40 controls opened, shown, closed", sideBySide(own, bare), "us", 2);
}

// In all heaps of the process: the C library has one of its own.
size_t heapInUse() {
    size_t bytes = 0;
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(std::size(heaps), heaps), std::size(heaps));
    for (const HANDLE heap : std::span(heaps, count)) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (HeapWalk(heap, &entry)) {
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        }
        HeapUnlock(heap);
    }
    return bytes;
}

void measureMemory(const ServerContext& server, const Class& measured) {
    constexpr size_t count = 50;
    std::vector<obk::ComPtr<IUnknown>> controls(count + 1);
    server.create(measured.progId, controls[count]);  // with what all of its class share
    const size_t before = heapInUse();
    for (size_t at = 0; at < count; ++at) {
        server.create(measured.progId, controls[at]);
        if (const auto state = controls[at].query<IPersistStreamInit>()) state->InitNew();
    }
    char work[80];
    std::snprintf(work, sizeof work, "memory at rest: %ls", measured.progId + 9);
    printAmount(work, static_cast<double>(heapInUse() - before) / count / 1024, "KB", 32);
}

}  // namespace

void measureActivation(const ServerContext& server) {
    const HWND host = newForm(WS_VISIBLE);
    {
        // What the controls of a form share is there: forms have more than one.
        ControlForm form(host);
        ControlSite beside(form);
        beside.create(server, L"OBKCTRLS.UpDownTextBox");
        beside.activate({300, 10, 400, 31});
        for (const Class& measured : classes) measureOne(server, form, measured);
    }
    DestroyWindow(host);
    measureForm(server);
    for (const Class& measured : classes) measureMemory(server, measured);
}
