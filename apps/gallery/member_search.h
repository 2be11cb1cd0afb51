// Finding a control or one of its members by what it is called or does.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "drawn_list.h"
#include "scene.h"

namespace obk::gallery {

// The rows that were found, each with the control it belongs to.
class FoundList final : public DrawnList {
public:
    struct Row {
        int page = 0;
        std::wstring control;
        std::wstring member;  // empty: the control itself
        std::wstring kind;    // "property of GridEdit"
        std::wstring help;
    };

    FoundList(const Theme& theme, HWND parent);
    void setRows(std::vector<Row> rows);

    std::function<void(const Row&)> onChoose;
    std::function<void()> onLeave;

protected:
    int rowHeight() const override;
    void drawRow(HDC dc, const RECT& area, int row, bool selected) override;
    COLORREF background() const override { return theme().page; }
    void selectionChanged(int row) override;
    bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::vector<Row> rows_;
};

// Everything that there is to find, read when it is first asked.
class MemberIndex {
public:
    explicit MemberIndex(const container::ServerContext& server) : server_(server) {}

    // All words of `text` occur in the name, in the name of the control or, after those, in the help; what
    // begins with it comes first.
    std::vector<FoundList::Row> find(const std::wstring& text);

private:
    void read();

    const container::ServerContext& server_;
    std::vector<FoundList::Row> all_;
};

}  // namespace obk::gallery
