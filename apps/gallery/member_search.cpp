#include "member_search.h"

#include <algorithm>
#include <sstream>

#include "page_catalog.h"

namespace obk::gallery {

using container::Member;

namespace {

std::wstring lowered(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

// 0 is best; nothing where a word does not occur.
std::optional<int> rank(const FoundList::Row& row, const std::vector<std::wstring>& words) {
    const std::wstring own = lowered(row.member.empty() ? row.control : row.member);
    const std::wstring name = own + L" " + lowered(row.control);
    const std::wstring help = lowered(row.help);
    int worst = own.starts_with(words.front()) ? 0 : 1;
    for (const std::wstring& word : words) {
        if (name.find(word) != std::wstring::npos) continue;
        if (help.find(word) == std::wstring::npos) return std::nullopt;
        worst = 2;
    }
    return worst;
}

}  // namespace

FoundList::FoundList(const Theme& theme, HWND parent) : DrawnList(theme) {
    create(parent, L"Found");
    ShowWindow(handle(), SW_HIDE);
}

void FoundList::setRows(std::vector<Row> rows) {
    rows_ = std::move(rows);
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
    for (const Row& row : rows_) {
        const std::wstring name = (row.member.empty() ? row.control : row.member) + L", " + row.kind;
        SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handle(), nullptr, TRUE);
}

int FoundList::rowHeight() const {
    return theme().lineHeight(theme().strong()) + theme().lineHeight(theme().body()) + theme().scale(10);
}

void FoundList::drawRow(HDC dc, const RECT& area, int row, bool selected) {
    if (row < 0 || static_cast<size_t>(row) >= rows_.size()) return;
    const Row& found = rows_[static_cast<size_t>(row)];
    RECT place = {area.left + theme().scale(16), area.top + theme().scale(4), area.right - theme().scale(8),
                  0};
    place.bottom = place.top + theme().lineHeight(theme().strong());
    drawStrong(dc, theme(), found.member.empty() ? found.control : found.member, place,
               selected ? theme().selectedText : theme().text, oneLine);
    place.top = place.bottom + theme().scale(1);
    place.bottom = place.top + theme().lineHeight(theme().body());
    drawText(dc, found.kind, place, theme().body(), selected ? theme().selectedText : theme().dimText,
             oneLine);
}

void FoundList::selectionChanged(int row) {
    if (row < 0 || static_cast<size_t>(row) >= rows_.size() || !onChoose) return;
    const Row chosen = rows_[static_cast<size_t>(row)];
    onChoose(chosen);
}

bool FoundList::onMessage(UINT message, WPARAM wParam, LPARAM) {
    const bool leaves =
        message == WM_KEYDOWN && (wParam == VK_ESCAPE || (wParam == VK_UP && selection() <= 0));
    if (leaves && onLeave) onLeave();
    return leaves;
}

void MemberIndex::read() {
    int page = 0;
    for (const PageEntry& entry : pages()) {
        ComPtr<IUnknown> object;
        if (entry.toolboxPicture != 0 &&
            SUCCEEDED(server_.create(std::wstring(L"OBKCTRLS.") + entry.name, object))) {
            const std::wstring control = entry.name;
            const auto members = container::TypeMembers::of(object.get());
            all_.push_back({page, control, {}, entry.kind, entry.description});
            const auto add = [&](const std::vector<Member>& list, const wchar_t* kind) {
                for (const Member& member : list) {
                    if (!member.hidden)
                        all_.push_back({page, control, member.name, kind + control, member.help});
                }
            };
            add(members.properties(), L"property of ");
            add(members.methods(), L"method of ");
            add(members.events(), L"event of ");
        }
        ++page;
    }
}

std::vector<FoundList::Row> MemberIndex::find(const std::wstring& text) {
    if (all_.empty()) read();
    std::vector<std::wstring> words;
    std::wistringstream stream(lowered(text));
    for (std::wstring word; stream >> word;) words.push_back(word);
    std::vector<FoundList::Row> found;
    for (int wanted = 0; !words.empty() && wanted < 3; ++wanted) {
        for (const FoundList::Row& row : all_) {
            if (rank(row, words) == wanted) found.push_back(row);
        }
    }
    return found;
}

}  // namespace obk::gallery
