// What the system may refuse, it refuses once: each window, timer, drawing object, text and the like that a
// control asks for while somebody works with it. Refusals come from the server's own table of imports.
#include "container/stored_value.h"
#include "container/text.h"
#include "panel_support.h"
#include "person_support.h"
#include "refused_import.h"
#include "server_support.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <olectl.h>
#include <shlwapi.h>

#include <climits>
#include <set>

namespace obk {
namespace {

using namespace testing_support;

std::vector<Refusable> refusables() {
    return {
        refusable<struct Window>("CreateWindowExW", CreateWindowExW, HWND{}),
        refusable<struct Timer>("SetTimer", SetTimer, UINT_PTR{}),
        refusable<struct Capture>("SetCapture", SetCapture, HWND{}),
        refusable<struct Focus>("SetFocus", SetFocus, HWND{}),
        refusable<struct Menu>("CreatePopupMenu", CreatePopupMenu, HMENU{}),
        refusable<struct MenuItem>("AppendMenuW", AppendMenuW, FALSE),
        refusable<struct ShownMenu>("TrackPopupMenuEx", TrackPopupMenuEx, FALSE),
        refusable<struct Clipboard>("OpenClipboard", OpenClipboard, FALSE),
        refusable<struct ClipboardText>("SetClipboardData", SetClipboardData, HANDLE{}),
        refusable<struct GlobalBlock>("GlobalAlloc", GlobalAlloc, HGLOBAL{}),
        refusable<struct Hook>("SetWindowsHookExW", SetWindowsHookExW, HHOOK{}),
        refusable<struct Subclass>("SetWindowSubclass", SetWindowSubclass, FALSE),
        refusable<struct Leaving>("TrackMouseEvent", TrackMouseEvent, FALSE),
        refusable<struct Painting>("BeginPaint", BeginPaint, HDC{}),
        refusable<struct MemoryDc>("CreateCompatibleDC", CreateCompatibleDC, HDC{}),
        refusable<struct Bitmap>("CreateDIBSection", CreateDIBSection, HBITMAP{}),
        refusable<struct Font>("CreateFontIndirectW", CreateFontIndirectW, HFONT{}),
        refusable<struct DropTarget>("RegisterDragDrop", RegisterDragDrop, HRESULT{E_OUTOFMEMORY}),
        refusable<struct Block>("CoTaskMemAlloc", CoTaskMemAlloc, LPVOID{}),
        refusable<struct String>("SysAllocStringLen", SysAllocStringLen, BSTR{}),
        refusable<struct OleFont>("OleCreateFontIndirect", OleCreateFontIndirect, HRESULT{E_OUTOFMEMORY}),
        refusable<struct Accelerators>("CreateAcceleratorTableW", CreateAcceleratorTableW, HACCEL{}),
        refusable<struct File>("CreateFileW", CreateFileW, INVALID_HANDLE_VALUE),
        refusable<struct Written>("WriteFile", WriteFile, FALSE),
        refusable<struct Read>("ReadFile", ReadFile, FALSE),
        refusable<struct Flushed>("FlushFileBuffers", FlushFileBuffers, FALSE),
        refusable<struct About>("SetFileInformationByHandle", SetFileInformationByHandle, FALSE),
        refusable<struct Moved>("MoveFileExW", MoveFileExW, FALSE),
    };
}

const std::wstring fileForSaving = temporaryFile(L"obk-refused.txt");

// Everything that asks the system for something, without waiting for it.
void useControl(HostedControl& hosted, const std::wstring& name) {
    const auto object = hosted.object();
    const HWND form = hosted.window.handle();
    SetForegroundWindow(form);
    SetFocus(form);
    if (name == L"PageTab") object.put(L"ActiveTabs", L"a,b,c,d,e,f,g,h,i,j,k,l,m");
    hosted.site.activate(placeOf(name));
    hosted.loop.pumpPending();
    hosted.site.uiActivate();
    const HWND window = hosted.site.window();
    if (window) UpdateWindow(window);
    RECT area{};
    GetClientRect(window, &area);
    for (const LPARAM at : {MAKELPARAM(10, 10), MAKELPARAM(area.right - 9, 5)}) {
        for (const UINT message :
             {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP}) {
            const MenuKeys menus{{VK_ESCAPE}};
            if (IsWindow(window)) SendMessageW(window, message, 0, at);
        }
    }
    object.call(L"ShowPopUp");
    hosted.loop.pumpPending();
    object.call(L"HidePopUp");
    if (name == L"GridEdit") {
        prepare(hosted, name);
        for (long col = 0; col < 7; ++col) {
            object.call(L"GridSetFocus", {col, 0});
            object.call(L"BoxShow");
            hosted.loop.pumpPending();
        }
        object.call(L"BoxHide");
        object.call(L"GridFocusShow");
        const HWND focus = GetFocus();
        {
            const AsIfHeld control(VK_CONTROL);
            for (const WPARAM letter : {0x43, 0x56, 0x5A})  // C, V, Z
                SendMessageW(focus, WM_KEYDOWN, letter, 1);
        }
        object.call(L"GridSave", {fileForSaving, L"x"});
        object.call(L"GridLoad", {fileForSaving});
    }
    object.value(L"Font");
    // Fonts are kept, so each has a size of its own.
    static double size = 30;
    object.putReference(L"Font", container::makeFont({.name = L"Arial", .size = size += 0.75}).get());
    hosted.loop.pumpPending();
    object.value(L"Text");
    LPOLESTR userType = nullptr;
    if (SUCCEEDED(hosted.site.query<IOleObject>()->GetUserType(USERCLASSTYPE_FULL, &userType)))
        CoTaskMemFree(userType);
    CONTROLINFO keys{};
    keys.cb = sizeof keys;
    hosted.site.query<IOleControl>()->GetControlInfo(&keys);
}

class Refusals : public testing::TestWithParam<Refusable> {};

INSTANTIATE_TEST_SUITE_P(Every, Refusals, testing::ValuesIn(refusables()),
                         [](const auto& row) { return row.param.name; });

TEST_P(Refusals, LeaveTheControlWhole) {
    const LoadedServer server;
    int refusals = 0;
    for (const std::wstring& name : serverClasses()) {
        const auto factory = server.factory(name);
        unsigned long calls = 1;
        for (refusedCall = 0; refusedCall < calls; ++refusedCall) {
            SCOPED_TRACE(container::toUtf8(name) + ": " + std::to_string(refusedCall));
            HostedControl hosted(name);
            callNumber = 0;
            {
                const RefusedImport refused(server.module(), GetParam());
                ASSERT_TRUE(refused.found());
                // Creation asks, too; what a refusal leaves of it goes at once.
                ComPtr<IUnknown> another;
                factory->CreateInstance(nullptr, __uuidof(IUnknown), another.putVoid());
                another.reset();
                useControl(hosted, name);
                calls = callNumber;
                refusals += callNumber > refusedCall;
            }
            // It works on.
            hosted.site.deactivate();
            hosted.activate();
            EXPECT_TRUE(hosted.site.window() && IsWindowVisible(hosted.site.window()));
            const ComPtr<IStream> stream(SHCreateMemStream(nullptr, 0));
            EXPECT_EQ(hosted.site.save(stream.get()), S_OK);
            hosted.site.close();
            hosted.loop.pumpPending();
            EXPECT_FALSE(openPanel());
            EXPECT_EQ(GetCapture(), nullptr);
        }
    }
    DeleteFileW(fileForSaving.c_str());
    EXPECT_GT(refusals, 0);
    EXPECT_TRUE(server.canUnload());
}

// Paths of what is opened for writing, and libraries that are loaded otherwise than from the system's folder.
std::vector<std::wstring> written, loaded;

HANDLE WINAPI openedFile(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                         DWORD disposition, DWORD flags, HANDLE like) {
    if (access != GENERIC_READ) written.emplace_back(path);
    return CreateFileW(path, access, share, security, disposition, flags, like);
}
HMODULE WINAPI loadedLibrary(LPCWSTR name, HANDLE file, DWORD flags) {
    if (flags != LOAD_LIBRARY_SEARCH_SYSTEM32) loaded.emplace_back(name);
    return LoadLibraryExW(name, file, flags);
}
HMODULE WINAPI bareLibrary(LPCWSTR name) {
    loaded.emplace_back(name);
    return LoadLibraryW(name);
}

TEST(ServerAccess, WritesTheFileThatAHostNamesAndLoadsTheSystemsLibraries) {
    const LoadedServer server;
    {
        const RefusedImport file(server.module(), {"CreateFileW", reinterpret_cast<void*>(&openedFile)});
        const RefusedImport library(server.module(),
                                    {"LoadLibraryExW", reinterpret_cast<void*>(&loadedLibrary)});
        const RefusedImport bare(server.module(), {"LoadLibraryW", reinterpret_cast<void*>(&bareLibrary)});
        for (const std::wstring& name : serverClasses()) {
            HostedControl hosted(name);
            useControl(hosted, name);
        }
    }
    EXPECT_FALSE(written.empty());
    for (const std::wstring& path : written)
        EXPECT_NE(path.find(L"obk-refused.txt"), std::wstring::npos) << container::toUtf8(path);
    EXPECT_TRUE(loaded.empty()) << container::toUtf8(loaded.front());
    DeleteFileW(fileForSaving.c_str());
}

TEST(ServerImports, ComeFromTheSystemOfWindows7) {
    const LoadedServer server;
    std::set<std::string> modules;
    eachImport(server.module(), [&](const char* from, const char* name, void**) {
        std::string module = from;
        CharLowerA(module.data());
        modules.insert(module);
        // What is newer is asked for at run time.
        for (const char* newer : {"ForWindow", "ForDpi", "DpiAwareness", "ForMonitor", "UiaReturn",
                                  "UiaRaise", "UiaHost", "Precise", "2FromUser"})
            EXPECT_EQ(std::strstr(name, newer), nullptr) << name;
    });
    for (const char* known : {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "imm32.dll",
                              "kernel32.dll", "msimg32.dll", "msvcrt.dll", "ole32.dll", "oleacc.dll",
                              "oleaut32.dll", "shell32.dll", "user32.dll"})
        modules.erase(known);
    EXPECT_TRUE(modules.empty()) << *modules.begin();
}

}  // namespace
}  // namespace obk
