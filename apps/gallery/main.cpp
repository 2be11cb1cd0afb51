// The gallery: shows every control live, with its properties and its events.
//
//     Gallery.exe                  opens the window
//     Gallery.exe --form FILE      opens a saved form
//     Gallery.exe --pictures DIR   writes a picture of each page and ends
//     Gallery.exe --code DIR       writes each page's code in Basic, Pascal and C# and ends
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "container/server_context.h"
#include "container/text.h"
#include "gallery_window.h"

namespace {

using obk::gallery::GalleryWindow;

struct Options {
    std::wstring pictures;
    std::wstring code;
    std::wstring form;
    std::wstring problem;
};

Options readOptions() {
    Options options;
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int index = 1; words && index < count; ++index) {
        const std::wstring word = words[index];
        const bool more = index + 1 < count;
        if (word == L"--pictures" && more) {
            options.pictures = words[++index];
        } else if (word == L"--code" && more) {
            options.code = words[++index];
        } else if (word == L"--form" && more) {
            options.form = words[++index];
        } else {
            options.problem = L"not understood: " + word +
                              L"\nuse: Gallery.exe [--form FILE] [--pictures DIR] [--code DIR]";
        }
    }
    LocalFree(words);
    return options;
}

// On the console it was started from, else in a window for a person to read.
void say(const std::wstring& text, bool person) {
    const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
    const std::string bytes = obk::container::toUtf8(L"Gallery: " + text + L"\n");
    DWORD written = 0;
    const bool said = error && error != INVALID_HANDLE_VALUE &&
                      WriteFile(error, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    if (!said && person) MessageBoxW(nullptr, text.c_str(), L"Orbek Controls", MB_ICONWARNING);
}

int run(const Options& options, int show) {
    const auto server = obk::container::ServerContext::besideProgram();
    obk::gallery::Theme theme(96);
    GalleryWindow window(theme, server);
    const bool person = options.pictures.empty() && options.code.empty();
    if (!window.open(person ? show : SW_SHOWNOACTIVATE)) {
        say(L"the window could not be opened", person);
        return 1;
    }
    if (!options.form.empty() && !window.loadForm(options.form)) {
        say(options.form + L" holds no form", person);
        return 1;
    }
    if (person) return window.loop().run();
    std::wstring problem;
    if (!options.pictures.empty()) problem = window.writePictures(options.pictures);
    if (!options.code.empty() && problem.empty()) problem = window.writeCode(options.code);
    if (!problem.empty()) say(problem, false);
    return problem.empty() ? 0 : 1;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int nShowCmd) {
    const Options options = readOptions();
    if (!options.problem.empty()) {
        say(options.problem, true);
        return 2;
    }
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    if (FAILED(OleInitialize(nullptr))) {
        say(L"COM is not available", true);
        return 1;
    }
    const int code = run(options, nShowCmd);
    OleUninitialize();
    return code;
}
