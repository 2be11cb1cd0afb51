#include "window.h"

#include "drawn_list.h"

namespace obk::gallery {

namespace {

constexpr wchar_t windowClass[] = L"OrbekGalleryWindow";

}  // namespace

void placeWindow(HWND window, const RECT& pixels) {
    SetWindowPos(window, nullptr, pixels.left, pixels.top, pixels.right - pixels.left,
                 pixels.bottom - pixels.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

Window::~Window() {
    if (handle_) {
        SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
        DestroyWindow(handle_);
    }
}

bool Window::create(const std::wstring& title, DWORD style, DWORD extendedStyle, HWND parent,
                    const RECT& pixels) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    if (!GetClassInfoExW(instance, windowClass, &description)) {
        description = {};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = &Window::procedure;
        description.hInstance = instance;
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(1));
        description.lpszClassName = windowClass;
        RegisterClassExW(&description);
    }
    // A place that is up to the system leaves it the size as well.
    const bool anywhere = pixels.left == CW_USEDEFAULT;
    CreateWindowExW(extendedStyle, windowClass, title.c_str(), style | WS_CLIPCHILDREN, pixels.left,
                    pixels.top, anywhere ? CW_USEDEFAULT : pixels.right - pixels.left,
                    anywhere ? 0 : pixels.bottom - pixels.top, parent, nullptr, instance, this);
    return handle_ != nullptr;
}

RECT Window::client() const {
    RECT area = {};
    GetClientRect(handle_, &area);
    return area;
}

HWND Window::addChild(const wchar_t* className, const wchar_t* text, DWORD style, DWORD extendedStyle,
                      int id) {
    const HWND child = CreateWindowExW(extendedStyle, className, text, style | WS_CHILD | WS_VISIBLE, 0, 0, 0,
                                       0, handle_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                       GetModuleHandleW(nullptr), nullptr);
    setFont(child, theme_.body());
    return child;
}

void Window::setFont(HWND child, HFONT font) const {
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

LRESULT Window::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            const PaintSurface surface(handle_);
            fillRect(surface.dc(), surface.client(), theme_.page);
            paint(surface.dc(), surface.client());
            return 0;
        }
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (DrawnList* list = DrawnList::of(item.hwndItem)) {
                list->draw(item);
                return TRUE;
            }
            break;
        }
        case WM_COMMAND:
            if (DrawnList* list = DrawnList::of(reinterpret_cast<HWND>(lParam))) {
                list->notify(HIWORD(wParam));
                return 0;
            }
            break;
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            SetTextColor(reinterpret_cast<HDC>(wParam), theme_.text);
            SetBkColor(reinterpret_cast<HDC>(wParam), theme_.card);
            return reinterpret_cast<LRESULT>(theme_.cardBrush());
        default:
            break;
    }
    return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        self->handle_ = window;
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    const LRESULT result = self->onMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
    }
    return result;
}

RECT cardContent(const Theme& theme, const RECT& area) {
    const int head = theme.lineHeight(theme.heading()) + theme.scale(20);
    return {area.left + 1, area.top + head, area.right - 1, area.bottom - 1};
}

RECT drawCard(HDC dc, const Theme& theme, const RECT& area, std::wstring_view heading) {
    const RECT content = cardContent(theme, area);
    fillRect(dc, area, theme.card);
    frameRect(dc, area, theme.border);
    const RECT line = {area.left, content.top - 1, area.right, content.top};
    fillRect(dc, line, theme.border);
    const RECT head = {area.left + theme.scale(14), area.top, area.right - theme.scale(14), content.top - 1};
    drawText(dc, heading, head, theme.heading(), theme.text, oneLine);
    return content;
}

}  // namespace obk::gallery
