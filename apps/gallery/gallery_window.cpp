#include "gallery_window.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <cstring>

#include "arrangement.h"
#include "code_text.h"
#include "container/text.h"
#include "container/window_metrics.h"
#include "page_catalog.h"

namespace obk::gallery {

using container::FormText;
using container::PictureSurface;

namespace {

constexpr SIZE openingSize = {1130, 700};  // of the client area, at 96 dots per inch
constexpr SIZE smallestSize = {620, 520};
constexpr int besideEachOther = 1060;  // from this width on the properties stand beside the controls
constexpr int withNames = 780;         // and from this one the pages have their names
constexpr UINT dpiChanged = 0x02E0;    // WM_DPICHANGED, newer than the headers' target
constexpr wchar_t formSection[] = L"Gallery";
constexpr wchar_t fileFilter[] = L"Forms (*.form)\0*.form\0Text files (*.txt)\0*.txt\0All files\0*.*\0";

const PageEntry& entry(int page) {
    return pages()[static_cast<size_t>(page)];
}

RECT workArea(HWND window) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

std::wstring openFileName(HWND owner, bool save) {
    wchar_t path[MAX_PATH] = L"";
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = fileFilter;
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrDefExt = L"form";
    dialog.Flags = OFN_NOCHANGEDIR | (save ? OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST : OFN_FILEMUSTEXIST);
    const bool chosen = save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
    return chosen ? path : L"";
}

// Another program may have the clipboard open for a moment.
bool openClipboard(HWND owner) {
    for (int attempt = 0; attempt < 10; ++attempt) {
        if (OpenClipboard(owner)) return true;
        Sleep(25);
    }
    return false;
}

bool putOnClipboard(HWND owner, const std::wstring& text) {
    if (!openClipboard(owner)) return false;
    EmptyClipboard();
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    void* const place = memory ? GlobalLock(memory) : nullptr;
    if (place) {
        std::memcpy(place, text.c_str(), bytes);
        GlobalUnlock(memory);
    }
    const bool taken = place && SetClipboardData(CF_UNICODETEXT, memory);
    if (memory && !taken) GlobalFree(memory);
    CloseClipboard();
    return taken;
}

}  // namespace

GalleryWindow::GalleryWindow(Theme& theme, const container::ServerContext& server)
    : Window(theme), mutableTheme_(theme), server_(server), index_(server) {}

GalleryWindow::~GalleryWindow() {
    if (scene_) {
        properties_->setScene(nullptr);
        loop_.remove(scene_->form());
    }
    scene_.reset();
}

bool GalleryWindow::open(int show) {
    if (!create(L"Orbek Controls", WS_OVERLAPPEDWINDOW, WS_EX_CONTROLPARENT, nullptr,
                {CW_USEDEFAULT, CW_USEDEFAULT, 0, 0}))
        return false;
    mutableTheme_.refresh(container::windowDpi(handle()));
    pageList_ = std::make_unique<PageList>(theme(), handle());
    pageList_->onPage = [this](int page) { showPage(page); };
    properties_ = std::make_unique<PropertyPanel>(theme(), handle());
    events_ = std::make_unique<EventPanel>(theme(), handle());
    properties_->onNote = [this](const std::wstring& control, const std::wstring& text) {
        events_->note(control, text);
    };
    found_ = std::make_unique<FoundList>(theme(), handle());
    found_->onChoose = [this](const FoundList::Row& row) { showFound(row); };
    found_->onLeave = [this] { SetFocus(searchField_); };
    searchField_ = addChild(L"EDIT", L"", ES_AUTOHSCROLL | WS_TABSTOP | WS_BORDER);
    SendMessageW(searchField_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Search (Ctrl+F)"));
    codeButton_ = addChild(L"BUTTON", L"Copy code\x2026", BS_PUSHBUTTON | WS_TABSTOP);
    viewButton_ = addChild(L"BUTTON", L"View\x2026", BS_PUSHBUTTON | WS_TABSTOP);
    saveButton_ = addChild(L"BUTTON", L"Save\x2026", BS_PUSHBUTTON | WS_TABSTOP);
    loadButton_ = addChild(L"BUTTON", L"Load\x2026", BS_PUSHBUTTON | WS_TABSTOP);
    loop_.onMessage = [this](MSG& message) { return handleKey(message); };

    RECT frame = theme().scale(RECT{0, 0, openingSize.cx, openingSize.cy});
    AdjustWindowRectEx(&frame, WS_OVERLAPPEDWINDOW, FALSE, 0);
    // Whole on the monitor, whatever its scale leaves room for.
    const RECT work = workArea(handle());
    RECT place = {};
    GetWindowRect(handle(), &place);
    const LONG width = std::min(frame.right - frame.left, work.right - work.left);
    const LONG height = std::min(frame.bottom - frame.top, work.bottom - work.top);
    SetWindowPos(handle(), nullptr, std::clamp(place.left, work.left, work.right - width),
                 std::clamp(place.top, work.top, work.bottom - height), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    showPage(0);
    ShowWindow(handle(), show);
    UpdateWindow(handle());
    SetFocus(pageList_->handle());
    return true;
}

int GalleryWindow::pageCount() const {
    return static_cast<int>(pages().size());
}

void GalleryWindow::showPage(int page) {
    if (page == page_ || page < 0 || page >= pageCount()) return;
    page_ = page;
    buildScene();
    if (pageList_->selection() != page)
        SendMessageW(pageList_->handle(), LB_SETCURSEL, static_cast<WPARAM>(page), 0);
    InvalidateRect(handle(), nullptr, FALSE);
}

void GalleryWindow::buildScene() {
    properties_->setScene(nullptr);
    if (scene_) {
        loop_.remove(scene_->form());
        scene_.reset();
    }
    events_->clear();
    scene_ = std::make_unique<Scene>(theme(), server_, handle());
    scene_->onControlCreated = [this](SceneControl& control) { watch(control); };
    entry(page_).build(*scene_);
    scene_->onPicked = [this](const std::wstring& name) { properties_->show(scene_->find(name)); };
    // The properties' rows refer to the controls' members.
    scene_->onChanging = [this] { properties_->setScene(nullptr); };
    scene_->onChanged = [this] {
        orderStops();
        properties_->setScene(scene_.get());
    };
    orderStops();
    loop_.add(scene_->form());
    scene_->place(layout().scene);
    scene_->layOut();
    ShowWindow(scene_->handle(), SW_SHOWNA);

    // What setting the scene up raised is not a person's doing.
    events_->clear();
    const bool silent = std::all_of(scene_->controls().begin(), scene_->controls().end(),
                                    [](const auto& control) { return control->members.events().empty(); });
    events_->setEmptyText(silent ? L"This control raises no events."
                                 : L"Use the controls above: their events appear here.");
    for (const auto& control : scene_->controls()) {
        if (!control->failure.empty())
            events_->note(control->name, control->failure, EventList::Kind::problem);
    }
    properties_->setScene(scene_.get());
    if (scene_->arrangement()) properties_->show(scene_->arrangement()->picked());
}

void GalleryWindow::watch(SceneControl& control) {
    // Both live as long as the control's site, also when loading makes the control anew.
    if (!control.site->changes().onChanged) {
        control.site->changes().onChanged = [this](DISPID) { properties_->refreshSoon(); };
        control.site->events().keepJournal(false);
        control.site->events().onAny([this, &control](container::EventCall& call) {
            events_->log(control, call);
            properties_->refreshSoon();
        });
        control.site->onFocus = [this, &control](bool gained) {
            if (gained) properties_->show(&control);
        };
    }
}

void GalleryWindow::orderStops() {
    auto& form = scene_->form();
    for (const HWND window :
         {properties_->chooser(), properties_->list(), events_->clearButton(), events_->list(), codeButton_,
          viewButton_, loadButton_, saveButton_, searchField_, found_->handle(), pageList_->handle()})
        form.add(window);
}

GalleryWindow::Layout GalleryWindow::layout() const {
    const RECT area = client();
    const auto scale = [this](int length) { return theme().scale(length); };
    const int margin = scale(20);
    const int gap = scale(14);
    const int button = theme().fieldHeight() + scale(2);
    Layout result = {};
    const bool beside = area.right >= scale(besideEachOther);
    const bool named = area.right >= scale(withNames);
    const int pagesWidth = scale(named ? 206 : 52);
    const int titleHeight = theme().lineHeight(theme().title());
    const int top = margin - scale(4);
    if (named) result.brand = {margin, top, pagesWidth - scale(8), top + titleHeight};
    const int body = top + titleHeight + theme().lineHeight(theme().body()) + scale(22);
    result.pages = {0, body, pagesWidth, area.bottom};

    const int left = pagesWidth + gap;
    const int propertiesWidth = std::max<int>(scale(330), (area.right - left) * 36 / 100);
    const int right = area.right - margin;
    const int buttonWidth = scale(88);
    if (named)
        result.search = {margin, result.brand.bottom + scale(2), pagesWidth - scale(12),
                         result.brand.bottom + scale(2) + theme().lineHeight(theme().body()) + scale(8)};
    result.save = {right - buttonWidth, top + scale(2), right, top + scale(2) + button};
    result.load = {result.save.left - scale(8) - buttonWidth, result.save.top, result.save.left - scale(8),
                   result.save.bottom};
    const auto before = [&](const RECT& next, int width) {
        return RECT{next.left - scale(8) - width, next.top, next.left - scale(8), next.bottom};
    };
    result.view = before(result.load, scale(72));
    result.code = before(result.view, scale(100));
    result.title = {left, top, result.code.left - gap, top + titleHeight};
    result.description = {left, result.title.bottom + scale(4), right, body - scale(8)};
    const int sceneHeight = scale(284);
    const int bottom = area.bottom - margin;
    const int below = std::min(body + sceneHeight, bottom) + gap;
    const int middleRight = beside ? right - propertiesWidth - gap : (left + right - gap) / 2;
    result.scene = {left + 1, body + 1, (beside ? middleRight : right) - 1, below - gap - 1};
    result.events = {left, below, middleRight, bottom};
    result.properties = {middleRight + gap, beside ? body : below, right, bottom};
    return result;
}

void GalleryWindow::layOut() {
    if (!scene_) return;
    const Layout places = layout();
    placeWindow(pageList_->handle(), places.pages);
    placeWindow(found_->handle(), places.pages);
    // Where the pages have no names there is no room to search.
    const bool searches = !IsRectEmpty(&places.search);
    if (!searches && GetWindowTextLengthW(searchField_) > 0) SetWindowTextW(searchField_, L"");
    ShowWindow(searchField_, searches ? SW_SHOWNA : SW_HIDE);
    placeWindow(searchField_, places.search);
    placeWindow(codeButton_, places.code);
    placeWindow(viewButton_, places.view);
    placeWindow(saveButton_, places.save);
    placeWindow(loadButton_, places.load);
    scene_->place(places.scene);
    properties_->place(places.properties);
    events_->place(places.events);
    InvalidateRect(handle(), nullptr, FALSE);
}

void GalleryWindow::applyTheme(int dpi) {
    mutableTheme_.refresh(dpi);
    for (const HWND child : {saveButton_, loadButton_, codeButton_, viewButton_, searchField_})
        setFont(child, theme().body());
    pageList_->themeChanged();
    found_->themeChanged();
    layOut();
    scene_->themeChanged();
    properties_->themeChanged();
    events_->themeChanged();
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void GalleryWindow::paint(HDC dc, const RECT& area) {
    if (page_ < 0) return;
    const Layout places = layout();
    const RECT edge = {places.pages.right, 0, places.pages.right + 1, area.bottom};
    fillRect(dc, edge, theme().border);
    drawText(dc, L"Orbek Controls", places.brand, theme().heading(), theme().text, oneLine);
    drawText(dc, entry(page_).name, places.title, theme().title(), theme().text, oneLine);
    drawText(dc, entry(page_).description, places.description, theme().body(), theme().dimText,
             DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    RECT frame = places.scene;
    InflateRect(&frame, 1, 1);
    frameRect(dc, frame, theme().border);
}

bool GalleryWindow::handleKey(MSG& message) {
    if (scene_ && scene_->arrangement() && scene_->arrangement()->handle(message)) return true;
    if (message.message != WM_KEYDOWN || GetAncestor(message.hwnd, GA_ROOT) != handle()) return false;
    const bool control = GetKeyState(VK_CONTROL) < 0;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (message.wParam == VK_F6 || (control && message.wParam == VK_TAB)) {
        nextPane(!shift);
    } else if (control && message.wParam == L'S') {
        askSave();
    } else if (control && message.wParam == L'O') {
        askLoad();
    } else if (control && message.wParam == L'F' && IsWindowVisible(searchField_)) {
        SetFocus(searchField_);
        SendMessageW(searchField_, EM_SETSEL, 0, -1);
    } else if (message.hwnd == searchField_ && message.wParam == VK_DOWN && found_->count() > 0) {
        SetFocus(found_->handle());
        found_->select(0);
    } else if (message.hwnd == searchField_ && message.wParam == VK_ESCAPE) {
        SetWindowTextW(searchField_, L"");
    } else if (message.wParam == VK_RETURN &&
               (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON)) {
        SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    } else {
        return false;
    }
    return true;
}

void GalleryWindow::nextPane(bool forward) {
    const HWND panes[] = {pageList_->handle(), scene_->handle(), properties_->handle(), events_->handle()};
    constexpr int count = 4;
    const HWND focus = GetFocus();
    int current = 0;
    for (int index = 0; index < count; ++index)
        current = panes[index] == focus || IsChild(panes[index], focus) ? index : current;
    for (int step = 1; step < count; ++step) {
        const int next = (current + (forward ? step : count - step)) % count;
        if (next == 1) {
            // Into the form by its first control.
            for (const auto& control : scene_->controls()) {
                if (scene_->form().enter(*control->site)) return;
            }
            // Controls that take no focus: its first ordinary field.
            if (const HWND first = GetNextDlgTabItem(scene_->handle(), nullptr, FALSE)) {
                scene_->form().enter(first);
                return;
            }
            continue;
        }
        const HWND target = next == 0   ? pageList_->handle()
                            : next == 2 ? properties_->list()
                                        : events_->list();
        if (IsWindowVisible(target)) {
            scene_->form().enter(target);
            return;
        }
    }
}

void GalleryWindow::followFocus() {
    if (SceneControl* control = scene_ ? scene_->focused() : nullptr) properties_->show(control);
}

bool GalleryWindow::saveForm(const std::wstring& path) const {
    FormText form;
    form.add(formSection, L"").bag->set(L"Page", container::Variant(entry(page_).name));
    scene_->save(form);
    return container::writeFile(path, container::toUtf8(form.write()));
}

bool GalleryWindow::loadForm(const std::wstring& path) {
    const auto bytes = container::readFile(path);
    if (!bytes) return false;
    std::vector<container::TextProblem> problems;
    FormText form = FormText::read(container::fromUtf8(*bytes), problems);
    if (form.sections().empty()) return false;
    if (const auto* head = form.find(formSection)) {
        const auto* name = head->bag->find(L"Page");
        for (int page = 0; name && page < pageCount(); ++page) {
            if (container::sameName(container::restored(*name).toText(), entry(page).name)) showPage(page);
        }
    }
    form.remove(formSection);
    events_->clear();
    for (const container::TextProblem& problem : problems)
        events_->note(L"Line " + std::to_wstring(problem.line), problem.reason, EventList::Kind::problem);
    // Its rows refer to the controls' members, which are read anew.
    properties_->setScene(nullptr);
    for (const std::wstring& problem : scene_->load(form))
        events_->note(L"", problem, EventList::Kind::problem);
    properties_->setScene(scene_.get());
    return true;
}

void GalleryWindow::askSave() {
    const std::wstring path = openFileName(handle(), true);
    if (!path.empty() && !saveForm(path))
        MessageBoxW(handle(), (path + L" could not be written.").c_str(), L"Orbek Controls", MB_ICONWARNING);
}

void GalleryWindow::askLoad() {
    const std::wstring path = openFileName(handle(), false);
    if (!path.empty() && !loadForm(path))
        MessageBoxW(handle(), (path + L" holds no form.").c_str(), L"Orbek Controls", MB_ICONWARNING);
}

int GalleryWindow::choose(HMENU menu, HWND button) const {
    RECT place = {};
    GetWindowRect(button, &place);
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, place.left, place.bottom, 0, handle(), nullptr);
    DestroyMenu(menu);
    return chosen;
}

void GalleryWindow::copyCode() {
    const HMENU menu = CreatePopupMenu();
    const wchar_t* const languages[] = {L"&Basic", L"&Pascal", L"&C#"};
    for (UINT number = 1; const wchar_t* language : languages)
        AppendMenuW(menu, MF_STRING, number++, language);
    const int chosen = choose(menu, codeButton_);
    if (chosen == 0) return;
    const bool copied = putOnClipboard(handle(), code(static_cast<CodeLanguage>(chosen - 1)));
    events_->note(L"Code", copied ? L"is on the clipboard" : L"could not be copied");
}

std::wstring GalleryWindow::code(CodeLanguage language) const {
    std::wstring code;
    scene_->withOwnColours([&] { code = codeFor(*scene_, server_, language); });
    return code;
}

void GalleryWindow::changeView() {
    ViewSettings& view = mutableTheme_.view();
    const bool classic = view.classic;
    const HMENU menu = CreatePopupMenu();
    std::vector<std::function<void()>> effects;
    const auto add = [&](const std::wstring& text, bool checked, std::function<void()> effect) {
        effects.push_back(std::move(effect));
        AppendMenuW(menu, MF_STRING | (checked ? MF_CHECKED : MF_UNCHECKED), effects.size(), text.c_str());
    };
    for (const int percent : {100, 125, 150, 200})
        add(std::to_wstring(percent) + L" %", view.percent == percent,
            [&view, percent] { view.percent = percent; });
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(L"&Right to left", view.rightToLeft, [&view] { view.rightToLeft = !view.rightToLeft; });
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    const wchar_t* const schemes[] = {L"&System's colours", L"&Paper", L"&Night"};
    for (int index = 0; const wchar_t* scheme : schemes) {
        const auto colours = static_cast<ColourScheme>(index++);
        add(scheme, view.colours == colours, [&view, colours] { view.colours = colours; });
    }
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(L"&Classic look", view.classic, [&view] { view.classic = !view.classic; });
    const int chosen = choose(menu, viewButton_);
    if (chosen == 0) return;
    effects[static_cast<size_t>(chosen) - 1]();
    applyView(view.classic != classic);
}

void GalleryWindow::applyView(bool otherLook) {
    if (otherLook) {
        // A control takes its look when it is made.
        FormText form;
        scene_->withOwnColours([&] { scene_->save(form); });
        buildScene();
        properties_->setScene(nullptr);
        scene_->load(form);
        properties_->setScene(scene_.get());
    }
    applyTheme(container::windowDpi(handle()));
}

void GalleryWindow::search() {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(searchField_)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(searchField_, text.data(), static_cast<int>(text.size()))));
    auto rows = index_.find(text);
    const bool searching = !text.empty();
    found_->setRows(std::move(rows));
    ShowWindow(found_->handle(), searching ? SW_SHOWNA : SW_HIDE);
    ShowWindow(pageList_->handle(), searching ? SW_HIDE : SW_SHOWNA);
}

void GalleryWindow::showFound(const FoundList::Row& row) {
    showPage(row.page);
    properties_->choose(row.member);
    events_->note(row.member.empty() ? row.control : row.member, row.help);
}

void GalleryWindow::copyPanels(PictureSurface& surface) const {
    // What a control has dropped down lies above the window, in a window of its own.
    for (HWND panel = GetTopWindow(nullptr); panel; panel = GetWindow(panel, GW_HWNDNEXT)) {
        if (GetWindow(panel, GW_OWNER) != handle() || !IsWindowVisible(panel)) continue;
        POINT place = {0, 0};
        ClientToScreen(panel, &place);
        ScreenToClient(handle(), &place);
        UpdateWindow(panel);
        surface.copyWindow(panel, place);
    }
}

std::wstring GalleryWindow::writePictures(const std::wstring& folder) {
    CreateDirectoryW(folder.c_str(), nullptr);
    for (int page = 0; page < pageCount(); ++page) {
        showPage(page);
        for (const auto& control : scene_->controls()) {
            if (!control->failure.empty()) return control->failure;
        }
        loop_.pumpPending();
        scene_->demonstrate();
        loop_.pumpPending();
        followFocus();
        loop_.pumpPending();
        // A caret blinks by inverting pixels, which a picture must not catch.
        HideCaret(nullptr);
        RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        loop_.pumpPending();
        const SIZE size = container::sizeOf(client());
        PictureSurface surface(static_cast<int>(size.cx), static_cast<int>(size.cy));
        surface.copyWindow(handle());
        copyPanels(surface);
        const std::wstring path = folder + L"\\" + entry(page).name + L".png";
        if (FAILED(surface.savePng(path))) return path + L" could not be written";
    }
    return {};
}

std::wstring GalleryWindow::writeCode(const std::wstring& folder) {
    constexpr std::pair<CodeLanguage, const wchar_t*> languages[] = {{CodeLanguage::classicBasic, L".bas"},
                                                                     {CodeLanguage::objectPascal, L".pas"},
                                                                     {CodeLanguage::csharp, L".cs"}};
    CreateDirectoryW(folder.c_str(), nullptr);
    for (int page = 0; page < pageCount(); ++page) {
        showPage(page);
        loop_.pumpPending();
        for (const auto& [language, ending] : languages) {
            const std::wstring path = folder + L"\\" + entry(page).name + ending;
            if (!container::writeFile(path, container::toUtf8(code(language))))
                return path + L" could not be written";
        }
    }
    return {};
}

LRESULT GalleryWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            layOut();
            return 0;
        case WM_GETMINMAXINFO: {
            auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
            const RECT work = workArea(handle());
            limits.ptMinTrackSize = {std::min<LONG>(theme().scale(smallestSize.cx), work.right - work.left),
                                     std::min<LONG>(theme().scale(smallestSize.cy), work.bottom - work.top)};
            return 0;
        }
        case WM_ACTIVATE:
            if (scene_) scene_->form().frameActivated(LOWORD(wParam) != WA_INACTIVE);
            break;
        case WM_SETFOCUS:
            if (pageList_) SetFocus(pageList_->handle());
            return 0;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED && reinterpret_cast<HWND>(lParam) == saveButton_) {
                askSave();
                return 0;
            }
            if (HIWORD(wParam) == BN_CLICKED && reinterpret_cast<HWND>(lParam) == loadButton_) {
                askLoad();
                return 0;
            }
            if (HIWORD(wParam) == BN_CLICKED && reinterpret_cast<HWND>(lParam) == codeButton_) {
                copyCode();
                return 0;
            }
            if (HIWORD(wParam) == BN_CLICKED && reinterpret_cast<HWND>(lParam) == viewButton_) {
                changeView();
                return 0;
            }
            if (HIWORD(wParam) == EN_CHANGE && reinterpret_cast<HWND>(lParam) == searchField_) {
                search();
                return 0;
            }
            break;
        case dpiChanged:
            place(*reinterpret_cast<const RECT*>(lParam));
            applyTheme(LOWORD(wParam));
            return 0;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            if (scene_) applyTheme(container::windowDpi(handle()));
            break;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    return Window::onMessage(message, wParam, lParam);
}

}  // namespace obk::gallery
