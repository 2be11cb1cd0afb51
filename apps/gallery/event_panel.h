// The card with the log of the events that the controls raise.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "drawn_list.h"
#include "scene.h"

namespace obk::gallery {

class EventList final : public DrawnList {
public:
    enum class Kind { event, note, problem };
    struct Row {
        Kind kind = Kind::event;
        unsigned number = 0;
        std::wstring control;
        std::wstring name;  // of the event; empty for notes
        std::wstring text;  // arguments or the note
        unsigned repeated = 1;
    };

    EventList(const Theme& theme, HWND parent);
    // Shows the newest row when the newest was in view before. Equal moves of the mouse in a row
    // become one row with a count.
    void add(Row row);
    void clear();
    std::function<void()> onCountChanged;

protected:
    void drawRow(HDC dc, const RECT& area, int index, bool selected) override;

private:
    std::deque<Row> rows_;
    unsigned next_ = 1;
};

class EventPanel final : public Window {
public:
    EventPanel(const Theme& theme, HWND parent);

    // Shown while the log is empty.
    void setEmptyText(const std::wstring& text);
    void log(const SceneControl& control, const container::EventCall& call);
    void note(const std::wstring& control, const std::wstring& text,
              EventList::Kind kind = EventList::Kind::note);
    void clear() { list_->clear(); }

    HWND list() const { return list_->handle(); }
    HWND clearButton() const { return clearButton_; }
    void themeChanged() override;

protected:
    void paint(HDC dc, const RECT& area) override;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void layOut();

    std::unique_ptr<EventList> list_;
    HWND clearButton_ = nullptr;
    std::wstring emptyText_;
};

}  // namespace obk::gallery
