#include "platform/win32/surface_window.h"

#include "platform/win32/accessible.h"
#include "platform/win32/automation.h"
#include "platform/win32/child_window.h"
#include "platform/win32/display.h"
#include "platform/win32/drop_target.h"
#include "platform/win32/gdi_canvas.h"
#include "platform/win32/handles.h"
#include "platform/win32/text_conversion.h"

#include <oleacc.h>

#include <algorithm>
#include <array>
#include <utility>

namespace obk::win32 {

namespace {

constexpr UINT dpiChangedAfterParent = 0x02E3;  // WM_DPICHANGED_AFTERPARENT, of Windows 10
constexpr DWORD childStyle = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
constexpr DWORD popupStyle = WS_POPUP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

PixelRect clientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return fromRect(area);
}

HCURSOR systemCursor(Cursor cursor) {
    const wchar_t* name = IDC_ARROW;
    switch (cursor) {
        case Cursor::arrow:
            break;
        case Cursor::hand:
            name = IDC_HAND;
            break;
        case Cursor::sizeColumn:
            name = IDC_SIZEWE;
            break;
    }
    return LoadCursorW(nullptr, name);
}

}  // namespace

SurfaceWindow::SurfaceWindow(std::shared_ptr<Environment> environment, SurfaceClient& client, Kind kind)
    : ClientWindow(std::move(environment), client),
      surfaceClient_(&client),
      kind_(kind),
      visible_(kind == Kind::control) {}

std::shared_ptr<SurfaceWindow> SurfaceWindow::create(const std::shared_ptr<Environment>& environment,
                                                     SurfaceClient& client,
                                                     const SurfacePlacement& placement) {
    const wchar_t* const className = environment->surfaceClass();
    const auto parent = reinterpret_cast<HWND>(placement.parent);
    if (!className || (placement.kind == Kind::control && !IsWindow(parent))) return nullptr;
    std::shared_ptr<SurfaceWindow> self(new SurfaceWindow(environment, client, placement.kind));

    const bool child = placement.kind == Kind::control;
    const bool panel = placement.kind == Kind::panel;
    const DWORD extended = panel ? WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE : child ? 0 : WS_EX_TOOLWINDOW;
    const RECT bounds = toRect(placement.bounds);
    // A panel above its owner belongs to the owner's top-level window, whatever child is named here.
    const HWND window = CreateWindowExW(
        extended, className, L"", child ? childStyle | WS_VISIBLE : popupStyle, bounds.left, bounds.top,
        std::max(0L, bounds.right - bounds.left), std::max(0L, bounds.bottom - bounds.top),
        placement.kind == Kind::parked ? nullptr : parent, nullptr, environment->module(), nullptr);
    if (!window) return nullptr;
    self->adopt(window);
    // The focus in a panel would take the activation from the host's window.
    if (panel) self->focusRefusal_.begin(window);
    self->reportedDpi_ = self->dpi();
    environment->service().addListener(
        std::shared_ptr<AppearanceListener>(self, static_cast<AppearanceListener*>(self.get())));
    self->show();
    return self;
}

void SurfaceWindow::closeSurface() {
    surfaceClient_ = nullptr;
    toolTip_.close();
    hostWatch_.end();
    pressWatch_.end();
    refuseDrops();
    close();
}

void SurfaceWindow::destroyed() {
    wantsCapture_ = false;
    toolTip_.close();
    hostWatch_.end();
    pressWatch_.end();
    focusRefusal_.end();
    // Screen readers in other processes let go of what no longer shows.
    if (accessible_) CoDisconnectObject(accessible_.get(), 0);
    accessible_.reset();
    if (provider_) disconnectProvider(provider_.get());
    provider_.reset();
}

void SurfaceWindow::show() {
    const HWND window = hwnd();
    if (!window) return;
    const bool shown = visible_ && kind_ != Kind::parked;
    if (shown == ((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0)) return;
    if (!shown) {
        // The system moves the focus out of this window, but not out of one inside it.
        giveFocusTo(GetParent(window));
        returnCaret();
        ShowWindow(window, SW_HIDE);
        return;
    }
    mouse_.windowShown();
    UINT flags = SWP_SHOWWINDOW | SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE;
    if (kind_ != Kind::panel) flags |= SWP_NOZORDER;
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, flags);
}

void SurfaceWindow::setParent(HWND parent) {
    const HWND window = hwnd();
    if (!window || (parent && !IsWindow(parent))) return;
    if (kind_ == Kind::panel) {
        // Owners are top-level windows; the system does not look for the one above a child here.
        const HWND owner = parent ? GetAncestor(parent, GA_ROOT) : nullptr;
        SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
        checkDpi();
        return;
    }
    const auto restyle = [window](DWORD style, DWORD extended) {
        const auto kept =
            static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & (WS_VISIBLE | WS_DISABLED);
        SetWindowLongPtrW(window, GWL_STYLE, static_cast<LONG>(style | kept));
        SetWindowLongPtrW(window, GWL_EXSTYLE, static_cast<LONG>(extended));
    };
    if (parent) {
        restyle(childStyle, 0);
        if (!SetParent(window, parent)) {
            if (kind_ == Kind::parked) restyle(popupStyle, WS_EX_TOOLWINDOW);
            return;
        }
        kind_ = Kind::control;
        SetWindowPos(window, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
        show();
        checkDpi();
    } else if (kind_ == Kind::control) {
        kind_ = Kind::parked;
        show();
        SetParent(window, nullptr);
        restyle(popupStyle, WS_EX_TOOLWINDOW);
    }
}

void SurfaceWindow::setBounds(const PixelRect& bounds) {
    const HWND window = hwnd();
    if (!window) return;
    const RECT area = toRect(bounds);
    RECT present{};
    GetWindowRect(window, &present);
    if (kind_ != Kind::panel)
        MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&present), 2);
    if (!EqualRect(&area, &present))
        SetWindowPos(window, nullptr, area.left, area.top, std::max(0L, area.right - area.left),
                     std::max(0L, area.bottom - area.top), SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    checkDpi();
}

void SurfaceWindow::setVisible(bool visible) {
    visible_ = visible;
    show();
    watchHost();
}

void SurfaceWindow::watchHost() {
    if (kind_ != Kind::panel) return;
    if (visible_ && hwnd())
        hostWatch_.begin(GetWindow(hwnd(), GW_OWNER), HostWatch::moves, [this](UINT) { hostMoved(); });
    else
        hostWatch_.end();
}

void SurfaceWindow::hostMoved() {
    const Hold hold(*this);
    if (listening() && surfaceClient_) surfaceClient_->hostMoved();
}

void SurfaceWindow::focusIsInside(bool inside) {
    if (!inside && std::exchange(caret_, false)) DestroyCaret();
    const HWND top = inside && hwnd() ? GetAncestor(hwnd(), GA_ROOT) : nullptr;
    if (top)
        pressWatch_.begin(top, HostWatch::isPressed, [this](UINT message) { hostPressed(message); });
    else
        pressWatch_.end();
}

void SurfaceWindow::hostPressed(UINT message) {
    POINT at{};
    const bool byMouse = message != WM_ENTERMENULOOP;
    const HWND under = byMouse && GetCursorPos(&at) ? WindowFromPoint(at) : nullptr;
    if (under && hwnd() && (under == hwnd() || IsChild(hwnd(), under))) return;
    // One press comes as several messages. Where it goes may yet take the focus: that is told by itself.
    if (pressToTell_) return;
    pressToTell_ = environment().service().soon([weak = weak_from_this()] {
        const auto self = std::static_pointer_cast<SurfaceWindow>(weak.lock());
        if (!self) return;
        self->pressToTell_ = false;
        if (!self->holdsFocus()) return;
        const Hold hold(*self);
        if (self->listening() && self->surfaceClient_) self->surfaceClient_->pressedElsewhere();
    });
}

void SurfaceWindow::takeFocus() {
    if (kind_ == Kind::control) focus();
}

void SurfaceWindow::invalidate(const PixelRect& rect) {
    const RECT area = toRect(rect);
    if (hwnd() && !rect.empty()) InvalidateRect(hwnd(), &area, FALSE);
}

void SurfaceWindow::update() {
    if (hwnd()) UpdateWindow(hwnd());
}

void SurfaceWindow::scroll(const PixelRect& rect, int32_t x, int32_t y) {
    const HWND window = hwnd();
    if (!window || rect.empty()) return;
    const RECT area = toRect(rect);
    ScrollWindowEx(window, x, y, &area, &area, nullptr, nullptr, SW_INVALIDATE);
}

void SurfaceWindow::capture() {
    const HWND window = hwnd();
    if (!window) return;
    wantsCapture_ = true;
    SetCapture(window);
}

void SurfaceWindow::releaseCapture() {
    wantsCapture_ = false;
    if (!hasCapture()) return;
    releasing_ = true;
    ReleaseCapture();
    releasing_ = false;
}

LRESULT SurfaceWindow::captureChanged(const Message& message) {
    const auto next = reinterpret_cast<HWND>(message.lParam);
    const bool own = next == message.window || (next && IsChild(message.window, next));
    if (!releasing_ && !own && wantsCapture_) {
        wantsCapture_ = false;
        if (listening() && surfaceClient_) surfaceClient_->captureLost();
    }
    return 0;
}

void SurfaceWindow::childReleasedCapture() {
    const HWND window = hwnd();
    if (!wantsCapture_ || !window) return;
    const HWND current = GetCapture();
    if (current && (current == window || IsChild(window, current))) return;
    if (!current) {
        SetCapture(window);
    } else {
        // It went on to a stranger from the child, where the surface did not see it go.
        wantsCapture_ = false;
        const Hold hold(*this);
        if (listening() && surfaceClient_) surfaceClient_->captureLost();
    }
}

void SurfaceWindow::setCursor(Cursor cursor) {
    if (cursor_ == cursor) return;
    cursor_ = cursor;
    POINT at{};
    if (hwnd() && GetCursorPos(&at) && (hasCapture() || WindowFromPoint(at) == hwnd()))
        SetCursor(systemCursor(cursor_));
}

void SurfaceWindow::setToolTip(const PixelRect& rect, TextView text, ToolTipShown shown) {
    toolTip_.set(environment(), hwnd(), rect, text, shown);
}

void SurfaceWindow::acceptDrops() {
    wantsDrops_ = !acceptsDrops_;
    if (wantsDrops_ && painted_) registerForDrops();
}

void SurfaceWindow::registerForDrops() {
    wantsDrops_ = false;
    const auto target = createDropTarget(std::static_pointer_cast<SurfaceWindow>(shared_from_this()),
                                         environment().lockModule());
    // Refused where the host's thread has not begun to use OLE.
    acceptsDrops_ = SUCCEEDED(RegisterDragDrop(hwnd(), target.get()));
}

// Before the window goes: the system forgets its target by it.
void SurfaceWindow::refuseDrops() {
    if (std::exchange(acceptsDrops_, false) && hwnd()) RevokeDragDrop(hwnd());
}

bool SurfaceWindow::takesDrop(POINT onScreen) {
    const Hold hold(*this);
    if (!listening() || !surfaceClient_ || !IsWindowEnabled(hwnd()) || !ScreenToClient(hwnd(), &onScreen))
        return false;
    return surfaceClient_->takesDrop({onScreen.x, onScreen.y});
}

void SurfaceWindow::drop(DropEvent& event, POINT onScreen) {
    const Hold hold(*this);
    if (!listening() || !surfaceClient_ || !ScreenToClient(hwnd(), &onScreen)) return;
    event.at = {onScreen.x, onScreen.y};
    surfaceClient_->drop(event);
}

void SurfaceWindow::add(const std::shared_ptr<ChildWindow>& child) {
    std::erase_if(children_, [](const auto& known) { return known.expired(); });
    children_.push_back(child);
}

void SurfaceWindow::closeSilently(ClientWindow& child) {
    const Silence silence(*this);
    child.close();
}

std::shared_ptr<ChildWindow> SurfaceWindow::child(HWND window) const {
    for (const auto& known : children_) {
        auto found = known.lock();
        if (found && window && found->hwnd() == window) return found;
    }
    return nullptr;
}

LRESULT SurfaceWindow::passWheelToHost(const Message& message) {
    const HWND window = hwnd();
    return window ? DefWindowProcW(window, message.code, message.wParam, message.lParam) : 0;
}

void SurfaceWindow::withTree(const std::function<void(const AccessibleTree&)>& use) {
    const Hold hold(*this);
    const AccessibleTree* const tree =
        hwnd() && listening() && surfaceClient_ ? surfaceClient_->accessibleTree() : nullptr;
    if (tree) use(*tree);
}

AccessibleItem SurfaceWindow::itemOf(const AccessibleId& id, const AccessibleTree& tree) const {
    AccessibleItem item = tree.item(id);
    if (!IsWindowEnabled(hwnd())) item.disable();
    return item;
}

LONG SurfaceWindow::nameFor(const AccessibleId& id) {
    constexpr size_t most = 256;
    LONG name = CHILDID_SELF;
    withTree([&](const AccessibleTree& tree) {
        if (id == tree.root()) return;
        auto found = std::find(named_.begin(), named_.end(), id);
        if (found == named_.end()) {
            if (named_.size() < most) named_.resize(named_.size() + 1);
            found = named_.begin() + static_cast<ptrdiff_t>(nextName_++ % most);
            *found = id;
        }
        name = -1 - static_cast<LONG>(found - named_.begin());
    });
    return name;
}

AccessibleId SurfaceWindow::named(LONG name) const {
    const auto at = static_cast<size_t>(-1 - int64_t{name});
    return name < 0 && at < named_.size() ? named_[at] : AccessibleId{};
}

void SurfaceWindow::readersSoon() {
    environment().service().soon([weak = weak_from_this()] {
        const auto self = std::static_pointer_cast<SurfaceWindow>(weak.lock());
        if (!self) return;
        const Hold hold(*self);
        if (self->listening() && self->surfaceClient_) self->surfaceClient_->tellReaders();
    });
}

void SurfaceWindow::tellReaders(AccessibleEvent event, const AccessibleId& of) {
    withTree([&](const AccessibleTree& tree) {
        const auto self = std::static_pointer_cast<SurfaceWindow>(shared_from_this());
        const AccessibleItem item = tree.item(of);
        if (event == AccessibleEvent::focus) placeCaret(of);
        raiseAutomation(self, event, of, item);
        notifyAccessible(*this, event, of, item);
    });
}

// The system's caret, which is not shown, is where the drawn focus is: magnifiers follow it. A panel, which
// never has the focus, moves the caret of the window that has it.
void SurfaceWindow::placeCaret(const AccessibleId& of) {
    withTree([&](const AccessibleTree& tree) {
        const AccessibleItem item = tree.item(of);
        const HWND focus = GetFocus();
        if (item.window != 0 || item.bounds.empty()) return;
        POINT at{item.bounds.left, item.bounds.top};
        if (focus == hwnd()) {
            caret_ = CreateCaret(hwnd(), nullptr, 1, item.bounds.height()) != FALSE;
        } else {
            GUITHREADINFO gui{};
            gui.cbSize = sizeof gui;
            if (kind_ != Kind::panel || !visible_ || !focus || !isOne(focus) ||
                !GetGUIThreadInfo(GetCurrentThreadId(), &gui) || gui.hwndCaret != focus)
                return;
            caret_ = true;
            MapWindowPoints(hwnd(), focus, &at, 1);
        }
        SetCaretPos(at.x, at.y);
    });
}

// A field that had its caret moved by a panel puts it back where its text is selected.
void SurfaceWindow::returnCaret() {
    const HWND focus = GetFocus();
    if (kind_ != Kind::panel || !std::exchange(caret_, false) || !focus || !isOne(focus)) return;
    DWORD first = 0, end = 0;
    SendMessageW(focus, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&end));
    SendMessageW(focus, EM_SETSEL, first, static_cast<LPARAM>(end));
}

// As the system finds one for a window of its own. Some hosts put each control into a window made for it.
Text SurfaceWindow::labelBefore() const {
    const auto has = [](HWND window, DWORD style) {
        return (static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & style) != 0;
    };
    const auto fillsParent = [](HWND window) {
        RECT own{}, around{};
        GetWindowRect(window, &own);
        GetClientRect(GetParent(window), &around);
        return own.right - own.left == around.right && own.bottom - own.top == around.bottom;
    };
    HWND at = kind_ == Kind::control ? hwnd() : nullptr;
    while (at && has(at, WS_CHILD) && fillsParent(at)) at = GetParent(at);
    HWND before = at && has(at, WS_CHILD) ? GetWindow(at, GW_HWNDPREV) : nullptr;
    while (before && !has(before, WS_VISIBLE)) before = GetWindow(before, GW_HWNDPREV);
    std::array<wchar_t, 256> text{};
    if (!before || !RealGetWindowClassW(before, text.data(), static_cast<UINT>(text.size())) ||
        _wcsicmp(text.data(), L"static") != 0)
        return {};
    const int length = InternalGetWindowText(before, text.data(), static_cast<int>(text.size()));
    Text label = fromWide({text.data(), static_cast<size_t>(std::max(length, 0))});
    if (has(before, SS_NOPREFIX)) {
        // Each of its marks is one that shows.
        for (size_t mark = 0; (mark = label.find(u'&', mark)) != Text::npos; mark += 2)
            label.insert(mark, 1, u'&');
    }
    return label;
}

void SurfaceWindow::appearanceChanged() {
    const HWND window = hwnd();
    if (!window) return;
    const Hold hold(*this);
    InvalidateRect(window, nullptr, FALSE);
    if (listening() && surfaceClient_) surfaceClient_->appearanceChanged();
}

void SurfaceWindow::checkDpi() {
    const Dpi now = dpi();
    if (!hwnd() || now == reportedDpi_) return;
    reportedDpi_ = now;
    const auto children = children_;
    for (const auto& known : children) {
        if (const auto each = known.lock()) each->dpiChanged(now);
    }
    InvalidateRect(hwnd(), nullptr, FALSE);
    const Hold hold(*this);
    if (listening() && surfaceClient_) surfaceClient_->dpiChanged(now);
}

void SurfaceWindow::paint(HWND window) {
    PAINTSTRUCT painting{};
    // What nobody can have needed before there was something to see.
    painted_ = true;
    environment().service().listen();
    if (wantsDrops_) registerForDrops();
    const HDC dc = BeginPaint(window, &painting);
    if (!dc) return;
    paintOn(dc, fromRect(painting.rcPaint));
    // The client may have destroyed the window; the system has then ended the painting.
    if (IsWindow(window)) EndPaint(window, &painting);
}

void SurfaceWindow::paintOn(HDC dc, const PixelRect& dirty) {
    if (dirty.empty()) return;
    const PaintBuffer::Use buffer(environment().paintBuffer(), {dirty.width(), dirty.height()});
    const HDC memory = buffer.dc();
    if (!memory) return;
    SetViewportOrgEx(memory, -dirty.left, -dirty.top, nullptr);
    try {
        GdiCanvas canvas(memory, dpi(), &environment().fonts());
        if (listening() && surfaceClient_) surfaceClient_->paint(canvas, dirty);
    } catch (...) {
        // What was painted so far is shown.
    }
    BitBlt(dc, dirty.left, dirty.top, dirty.width(), dirty.height(), memory, dirty.left, dirty.top, SRCCOPY);
}

LRESULT SurfaceWindow::accessible(const Message& message) {
    const auto object = static_cast<LONG>(message.lParam);
    AccessibleId all;
    if (object == OBJID_CLIENT || object == automationRoot)
        withTree([&](const AccessibleTree& tree) { all = tree.root(); });
    if (!all) return defaultFor(message);
    const auto self = std::static_pointer_cast<SurfaceWindow>(shared_from_this());
    if (object == automationRoot) {
        if (!provider_) provider_ = createProvider(self, all);
        const LRESULT answer =
            returnProvider(message.window, message.wParam, message.lParam, provider_.get());
        return answer != 0 ? answer : defaultFor(message);
    }
    if (!accessible_) accessible_ = createAccessible(self, all);
    return LresultFromObject(IID_IAccessible, message.wParam, accessible_.get());
}

LRESULT SurfaceWindow::handle(const Message& message) {
    switch (message.code) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint(message.window);
            return 0;
        case WM_PRINTCLIENT:
            paintOn(reinterpret_cast<HDC>(message.wParam), clientArea(message.window));
            return 0;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            if (const auto asking = child(reinterpret_cast<HWND>(message.lParam)))
                return reinterpret_cast<LRESULT>(
                    asking->prepareColours(reinterpret_cast<HDC>(message.wParam)));
            return defaultFor(message);
        case WM_COMMAND:
            if (const auto telling = child(reinterpret_cast<HWND>(message.lParam))) {
                telling->notified(HIWORD(message.wParam));
                return 0;
            }
            return defaultFor(message);
        case WM_CAPTURECHANGED:
            return captureChanged(message);
        case WM_MOUSEMOVE:
            // What a panel opens beneath the mouse, or brings there by keys, is not what the person points
            // at.
            if (kind_ == Kind::panel && !mouse_.moved(message.window, message.wParam, message.lParam))
                return 0;
            return ClientWindow::handle(message);
        case WM_LBUTTONDOWN:
            mouse_.pressed();
            return ClientWindow::handle(message);
        case WM_MOUSEACTIVATE:
            return kind_ == Kind::panel ? MA_NOACTIVATE : defaultFor(message);
        case WM_SETCURSOR:
            if (LOWORD(message.lParam) != HTCLIENT ||
                reinterpret_cast<HWND>(message.wParam) != message.window)
                return defaultFor(message);
            SetCursor(systemCursor(cursor_));
            return TRUE;
        case WM_DPICHANGED:
        case dpiChangedAfterParent:
            checkDpi();
            return 0;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            // Hosts that pass these on do so for each control; all are told together.
            environment().service().appearanceChangedSoon();
            return defaultFor(message);
        case WM_GETOBJECT:
            return accessible(message);
        case WM_DESTROY:
            refuseDrops();
            return defaultFor(message);
        default:
            return ClientWindow::handle(message);
    }
}

}  // namespace obk::win32
