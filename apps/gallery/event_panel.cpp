#include "event_panel.h"

#include "value_text.h"

namespace obk::gallery {

namespace {

constexpr int mostRows = 500;

}  // namespace

EventList::EventList(const Theme& theme, HWND parent) : DrawnList(theme) {
    create(parent, L"Events");
}

void EventList::add(Row row) {
    const bool movement = row.kind == Kind::event && row.name == L"MouseMove";
    if (movement && !rows_.empty() && rows_.back().name == row.name && rows_.back().control == row.control) {
        rows_.back().text = std::move(row.text);
        ++rows_.back().repeated;
        redrawRow(count() - 1);
        return;
    }
    row.number = next_++;
    const int before = count();
    RECT view = {};
    GetClientRect(handle(), &view);
    const bool following = before == 0 || rowArea(before - 1).top < view.bottom;
    const std::wstring spoken = row.control + L' ' + row.name + L' ' + row.text;
    rows_.push_back(std::move(row));
    SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(spoken.c_str()));
    if (count() > mostRows) {
        rows_.pop_front();
        SendMessageW(handle(), LB_DELETESTRING, 0, 0);
    }
    if (following) SendMessageW(handle(), LB_SETTOPINDEX, static_cast<WPARAM>(count() - 1), 0);
    if (onCountChanged && before == 0) onCountChanged();
}

void EventList::clear() {
    rows_.clear();
    next_ = 1;
    SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
    if (onCountChanged) onCountChanged();
}

void EventList::drawRow(HDC dc, const RECT& area, int index, bool selected) {
    if (static_cast<size_t>(index) >= rows_.size()) return;
    const Row& row = rows_[static_cast<size_t>(index)];
    const COLORREF strong = selected ? theme().selectedText : theme().text;
    const COLORREF dim = selected ? theme().selectedText : theme().dimText;
    const int inset = theme().scale(14);
    // Where there is little room what an event tells comes before the name of its control.
    const bool narrow = area.right - area.left < theme().scale(330);
    const int name = narrow ? 36 : 150, arguments = name + 94;
    const auto column = [&](int from, int to) {
        return RECT{area.left + theme().scale(from), area.top,
                    to ? area.left + theme().scale(to) : area.right - inset, area.bottom};
    };
    drawText(dc, std::to_wstring(row.number), column(14, narrow ? name - 2 : 48), theme().body(), dim,
             oneLine);
    if (!narrow) drawText(dc, row.control, column(52, name - 4), theme().body(), dim, oneLine);
    if (row.kind != Kind::event) {
        drawText(dc, row.text, column(name, 0), theme().body(),
                 row.kind == Kind::problem ? theme().accent : strong, oneLine);
        return;
    }
    drawStrong(dc, theme(), row.name, column(name, arguments - 4), strong, oneLine);
    std::wstring text = row.text;
    if (row.repeated > 1) text += L"   \x00D7" + std::to_wstring(row.repeated);
    drawText(dc, text, column(arguments, 0), theme().body(), strong, oneLine);
}

EventPanel::EventPanel(const Theme& theme, HWND parent) : Window(theme) {
    create(L"Events", WS_CHILD | WS_VISIBLE, WS_EX_CONTROLPARENT, parent, {});
    clearButton_ = addChild(L"BUTTON", L"Clear", BS_PUSHBUTTON | WS_TABSTOP);
    list_ = std::make_unique<EventList>(theme, handle());
    list_->onCountChanged = [this] {
        ShowWindow(list_->handle(), list_->count() > 0 ? SW_SHOW : SW_HIDE);
        InvalidateRect(handle(), nullptr, FALSE);
    };
    list_->onCountChanged();
}

void EventPanel::setEmptyText(const std::wstring& text) {
    emptyText_ = text;
    InvalidateRect(handle(), nullptr, FALSE);
}

void EventPanel::log(const SceneControl& control, const container::EventCall& call) {
    EventList::Row row;
    row.control = control.name;
    row.name = call.name().empty() ? L"event " + std::to_wstring(call.number()) : call.name();
    const container::Member* member = control.members.event(call.number());
    for (size_t index = 0; index < call.count(); ++index) {
        row.text += index == 0 ? L"" : L", ";
        if (member && index < member->arguments.size()) row.text += member->arguments[index].name + L" = ";
        row.text += valueText(call.value(index), container::ValueKind::other, {});
    }
    list_->add(std::move(row));
}

void EventPanel::note(const std::wstring& control, const std::wstring& text, EventList::Kind kind) {
    EventList::Row row;
    row.kind = kind;
    row.control = control;
    row.text = text;
    list_->add(std::move(row));
}

void EventPanel::themeChanged() {
    setFont(clearButton_, theme().body());
    list_->themeChanged();
    layOut();
    InvalidateRect(handle(), nullptr, FALSE);
}

void EventPanel::layOut() {
    const RECT area = client();
    const RECT content = cardContent(theme(), area);
    const int height = theme().fieldHeight();
    const int width = theme().scale(76);
    const LONG right = area.right - theme().scale(8);
    const LONG top = (content.top - height) / 2;
    placeWindow(clearButton_, {right - width, top, right, top + height});
    placeWindow(list_->handle(), content);
}

void EventPanel::paint(HDC dc, const RECT& area) {
    RECT content = drawCard(dc, theme(), area, L"Events");
    if (list_->count() == 0) {
        InflateRect(&content, -theme().scale(14), -theme().scale(10));
        drawText(dc, emptyText_, content, theme().body(), theme().dimText, DT_WORDBREAK | DT_NOPREFIX);
    }
}

LRESULT EventPanel::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            if (list_) {
                layOut();
                InvalidateRect(handle(), nullptr, FALSE);
            }
            return 0;
        case WM_COMMAND:
            if (reinterpret_cast<HWND>(lParam) == clearButton_ && HIWORD(wParam) == BN_CLICKED) {
                clear();
                return 0;
            }
            break;
        default:
            break;
    }
    return Window::onMessage(message, wParam, lParam);
}

}  // namespace obk::gallery
