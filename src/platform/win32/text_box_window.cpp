#include "platform/win32/text_box_window.h"

#include "platform/win32/surface_window.h"
#include "platform/win32/text_conversion.h"

#include <imm.h>

#include <algorithm>
#include <string>

namespace obk::win32 {

namespace {

DWORD styleOf(HorizontalAlignment alignment) {
    switch (alignment) {
        case HorizontalAlignment::left:
            return ES_LEFT;
        case HorizontalAlignment::right:
            return ES_RIGHT;
        case HorizontalAlignment::centre:
            return ES_CENTER;
    }
    return ES_LEFT;
}

// What the keyboard's control characters are for single-line text. The system's window beeps at the first
// ones and writes the last one as a box.
namespace typed {
constexpr WPARAM selectAll = 1;
constexpr WPARAM tab = 9;
constexpr WPARAM lineFeed = 10;
constexpr WPARAM enter = 13;
constexpr WPARAM escape = 27;
constexpr WPARAM controlBackspace = 127;
}  // namespace typed

}  // namespace

TextBoxWindow::TextBoxWindow(const std::shared_ptr<Environment>& environment,
                             const std::shared_ptr<SurfaceWindow>& surface, TextBoxClient& client,
                             const TextBoxStart& start)
    : ChildWindow(environment, surface, client, start.placement),
      textBoxClient_(client),
      flow_(start.flow),
      maxLength_(start.maxLength),
      font_(start.font),
      fontDpi_(surface->dpi()) {}

std::shared_ptr<TextBoxWindow> TextBoxWindow::create(const std::shared_ptr<Environment>& environment,
                                                     const std::shared_ptr<SurfaceWindow>& surface,
                                                     TextBoxClient& client, const TextBoxStart& start) {
    const HWND parent = surface->hwnd();
    if (!parent) return nullptr;
    std::shared_ptr<TextBoxWindow> self(new TextBoxWindow(environment, surface, client, start));
    const HWND window = self->makeEdit(parent, start.text, self->styleAtFirst(start.placement.enabled));
    if (!window) return nullptr;
    self->adopt(window);
    surface->add(self);
    self->applyFont(false);
    self->setMaxLength(start.maxLength);
    self->cut(false);
    return self;
}

// The one that the host's own fields are: without a border there is nothing of a theme to see, and asking for
// one costs as much as the window.
HWND TextBoxWindow::makeEdit(HWND parent, TextView text, DWORD style) const {
    return makeWindow(L"EDIT", toWide(text), style | ES_AUTOHSCROLL | styleOf(flow_.alignment),
                      flow_.rightToLeft ? WS_EX_RTLREADING : 0, parent);
}

void TextBoxWindow::setFont(const FontDescription& font) {
    font_ = font;
    applyFont(shows());
}

void TextBoxWindow::dpiChanged(Dpi dpi) {
    fontDpi_ = dpi;
    applyFont(shows());
}

void TextBoxWindow::applyFont(bool paint) {
    const SharedGdiFont previous = std::exchange(gdiFont_, environment().fonts().get(font_, fontDpi_));
    send(WM_SETFONT, reinterpret_cast<WPARAM>(gdiFont_.get()), paint ? TRUE : FALSE);
    setMargins();
}

void TextBoxWindow::setMargins() {
    // Setting a font brings back the system's, which differ with the font.
    const auto margin = static_cast<WORD>(fontDpi_.scaled(textMargin));
    send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
}

void TextBoxWindow::setColours(Rgb text, Rgb background) {
    if (text == textColour_ && background == background_) return;
    textColour_ = text;
    background_ = background;
    if (shows()) InvalidateRect(hwnd(), nullptr, TRUE);
}

HBRUSH TextBoxWindow::prepareColours(HDC dc) const {
    SetTextColor(dc, textColour_.value);
    SetBkColor(dc, background_.value);
    SetDCBrushColor(dc, background_.value);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

Text TextBoxWindow::text() const {
    const auto length = static_cast<size_t>(send(WM_GETTEXTLENGTH));
    std::wstring buffer(length + 1, L'\0');
    buffer.resize(
        static_cast<size_t>(send(WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()))));
    return fromWide(buffer);
}

void TextBoxWindow::setText(TextView text) {
    const std::wstring terminated = toWide(text);
    send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(terminated.c_str()));
}

void TextBoxWindow::setSelection(TextSelection selection) {
    const auto length = static_cast<int32_t>(send(WM_GETTEXTLENGTH));
    const int32_t start = std::clamp(selection.start, 0, length);
    const int32_t end = start + std::clamp(selection.length, 0, length - start);
    send(EM_SETSEL, static_cast<WPARAM>(start), end);
    send(EM_SCROLLCARET);
    // All of a text that is too long for the window: its beginning says more than its end.
    if (start == 0 && end == length && static_cast<int16_t>(LOWORD(send(EM_POSFROMCHAR))) < 0)
        send(EM_SETSEL, static_cast<WPARAM>(end), 0);
}

TextSelection TextBoxWindow::selection() const {
    DWORD start = 0;
    DWORD end = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int32_t>(start), static_cast<int32_t>(end - start)};
}

void TextBoxWindow::setFlow(TextFlow flow) {
    if (flow == flow_) return;
    flow_ = flow;
    const HWND old = hwnd();
    const auto surface = surfaceWindow();
    if (!old || !surface || !surface->hwnd()) return;
    const TextSelection selected = selection();
    DWORD style = WS_CHILD | WS_CLIPSIBLINGS;
    if (!IsWindowEnabled(old)) style |= WS_DISABLED;
    const HWND made = makeEdit(surface->hwnd(), text(), style);
    if (!made) return;
    const Silence silence(*this);
    SetWindowPos(made, old, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    // In place before the old one goes, so that the focus has somewhere to go.
    const bool hadFocus = GetFocus() == old;
    const bool shown = shows();
    if (shown && hadFocus) ShowWindow(made, SW_SHOWNA);
    replace(made);
    forgetClip();
    applyFont(shows());
    send(EM_LIMITTEXT, static_cast<WPARAM>(maxLength_));
    setSelection(selected);
    place();
    forgetToldName();
}

void TextBoxWindow::setMaxLength(int32_t length) {
    maxLength_ = std::max(0, length);
    send(EM_LIMITTEXT, static_cast<WPARAM>(maxLength_));
}

void TextBoxWindow::perform(EditCommand command) {
    switch (command) {
        case EditCommand::undo:
            send(WM_UNDO);
            break;
        case EditCommand::cut:
            send(WM_CUT);
            break;
        case EditCommand::copy:
            send(WM_COPY);
            break;
        case EditCommand::paste:
            send(WM_PASTE);
            break;
        case EditCommand::selectAll:
            send(EM_SETSEL, 0, -1);
            break;
    }
}

void TextBoxWindow::notified(WORD code) {
    if (code != EN_CHANGE) return;
    const Hold hold(*this);
    if (listening()) textBoxClient_.textChanged(text());
}

LRESULT TextBoxWindow::composition(const Message& message) {
    if (!(message.lParam & GCS_RESULTSTR)) return defaultFor(message);
    std::wstring committed;
    if (const HIMC context = ImmGetContext(message.window)) {
        const LONG bytes = ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0);
        if (bytes > 0) {
            committed.resize(static_cast<size_t>(bytes) / sizeof(wchar_t));
            ImmGetCompositionStringW(context, GCS_RESULTSTR, committed.data(), static_cast<DWORD>(bytes));
        }
        ImmReleaseContext(message.window, context);
    }
    if (committed.empty()) return defaultFor(message);
    // What an input method commits is typed, unit by unit, so that the client filters it as it filters keys.
    for (const wchar_t unit : committed) {
        if (!open()) return 0;
        SendMessageW(hwnd(), WM_IME_CHAR, unit, 1);
    }
    return defaultFor(
        {message.window, message.code, message.wParam, message.lParam & ~LPARAM{GCS_RESULTSTR}});
}

LRESULT TextBoxWindow::systemDefault(const Message& message) {
    if (message.code == WM_CHAR) {
        switch (message.wParam) {
            case typed::tab:
            case typed::lineFeed:
            case typed::enter:
            case typed::escape:
            case typed::controlBackspace:
                return 0;
            case typed::selectAll:
                send(EM_SETSEL, 0, -1);
                return 0;
            default:
                break;
        }
    }
    return ClientWindow::systemDefault(message);
}

LRESULT TextBoxWindow::handle(const Message& message) {
    return message.code == WM_IME_COMPOSITION ? composition(message) : ChildWindow::handle(message);
}

}  // namespace obk::win32
