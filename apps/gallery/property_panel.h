// The card with the properties and methods of one control.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "drawn_list.h"
#include "property_editor.h"
#include "scene.h"

namespace obk::gallery {

// The list itself: a heading, then a row for each property and each method.
class PropertyList final : public DrawnList {
public:
    struct Row {
        const container::Member* member = nullptr;  // null: a heading
        std::wstring name;
        std::wstring value;
        bool swatch = false;
        COLORREF colour = 0;
    };

    PropertyList(const Theme& theme, HWND parent);
    // Keeps the selection where the rows have the same names.
    void setRows(std::vector<Row> rows);
    const Row* row(int index) const;
    // Where the value of a row stands, in pixels of the list.
    RECT valueArea(int row) const;

    std::function<void(int)> onSelect;
    std::function<void(int)> onEdit;
    std::function<void()> onScroll;

protected:
    void drawRow(HDC dc, const RECT& area, int index, bool selected) override;
    COLORREF rowBackground(int index, bool selected) const override;
    void selectionChanged(int row) override;
    void doubleClicked(int row) override;
    bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    int nameWidth(int width) const { return width * 44 / 100; }

    std::vector<Row> rows_;
};

class PropertyPanel final : public Window {
public:
    PropertyPanel(const Theme& theme, HWND parent);

    // The controls to choose from; the first one is shown.
    void setScene(Scene* scene);
    void show(SceneControl* control);
    // Makes a member's row the chosen one, where it has one.
    void choose(const std::wstring& member);
    // Reads all values again, soon and once for many calls.
    void refreshSoon();
    void refreshNow();

    HWND chooser() const { return chooser_; }
    HWND list() const { return list_->handle(); }

    // Told of results and refusals, as one line for the log.
    std::function<void(const std::wstring& control, const std::wstring& text)> onNote;

    void themeChanged() override;

protected:
    void paint(HDC dc, const RECT& area) override;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void layOut();
    PropertyList::Row describe(const container::Member& member) const;
    const std::vector<container::Choice>& choicesOf(const container::Member& member) const;
    void edit(int index);
    void editColour(const container::Member& member, const RECT& area);
    void editFont(const container::Member& member);
    void editMethod(const container::Member& member, const RECT& area);
    void call(const container::Member& member, const std::wstring& arguments);
    void put(const container::Member& member, const container::Variant& value);
    RECT editorArea(int row) const;
    RECT helpArea() const;
    void note(const std::wstring& text) const;

    Scene* scene_ = nullptr;
    SceneControl* control_ = nullptr;
    HWND chooser_ = nullptr;
    std::unique_ptr<PropertyList> list_;
    PropertyEditor editor_;
    // What was asked of the control shown.
    mutable std::vector<std::pair<DISPID, std::vector<container::Choice>>> proposed_;
    bool refreshPosted_ = false;
};

}  // namespace obk::gallery
