// A grid that a person works in: typed, walked and pressed with real input, on a form with another field.
#include "container_probe_support.h"
#include "panel_support.h"
#include "person_support.h"
#include "resource_count.h"
#include "server_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// A control of 480 x 240 pixels, with seven columns of 64 pixels: one of each type.
constexpr RECT place{10, 10, 490, 250};
constexpr int border = 2, colWidth = 64;
enum Column : long { textCol, dateCol, readOnlyCol, checkCol, listCol, numberCol, timeCol, allCols };

class GridEditing : public PersonAtControl {
protected:
    GridEditing() : PersonAtControl(L"GridEdit", place) {
        fill(hosted);
        hosted.loop.pumpPending();
        takeEvents();
    }
    static void fill(HostedControl& form) {
        const auto grid = form.object();
        grid.call(L"ColsSet", {static_cast<long>(allCols)});
        grid.call(L"RowsSet", {0});
        for (long col = 0; col < allCols; ++col) grid.call(L"ColTypeSet", {col, col});
        for (const wchar_t* item : {L"Desk", L"Bookcase", L"Lamp"}) grid.call(L"ComboAdd", {item});
        for (long row = 0; row < 3; ++row) grid.call(L"RowAddQuick", {L"\t\tfixed", row});
        grid.call(L"RowSetFocus", {0});
    }
    static long asked(const HostedControl& form, const wchar_t* member) {
        Variant answer;
        form.object().call(member, {}, &answer);
        return answer.toLong().value_or(-999);
    }
    std::wstring read(long row, long col) const {
        Variant text;
        object().call(L"CellTextRead", {row, col}, &text);
        return text.toText();
    }
    std::pair<long, long> current() const { return {number(L"RowCurrent"), number(L"ColCurrent")}; }
    // The middle of a cell that shows.
    static POINT middle(const HostedControl& form, long row, long col) {
        form.object().call(L"RowSetFocus", {row});
        form.object().call(L"ColSetFocus", {col});
        RECT face{};
        GetClientRect(form.site.window(), &face);
        Variant top, height, left;
        form.object().call(L"CellCurrentTop", {}, &top);
        form.object().call(L"CellCurrentHeight", {}, &height);
        form.object().call(L"CellCurrentLeft", {}, &left);
        const long header = headerHeight(form);
        return {border + *left.toLong() / 15 + colWidth / 2,
                border + header + (*top.toLong() + *height.toLong() / 2) / 15};
    }
    static long headerHeight(const HostedControl& form) {
        form.object().call(L"TopRowSet", {0});
        for (int y = 0; y < 60; ++y) {
            SendMessageW(form.site.window(), WM_MOUSEMOVE, 0, MAKELPARAM(20, y));
            if (asked(form, L"MouseRow") == 0) return y - border;
        }
        return 0;
    }
    void click(long row, long col) {
        const long rowBefore = number(L"RowCurrent"), colBefore = number(L"ColCurrent");
        const POINT at = middle(hosted, row, col);
        object().call(L"RowSetFocus", {rowBefore});
        object().call(L"ColSetFocus", {colBefore});
        takeEvents();
        person.click(face(), at.x, at.y);
    }
    // The editors that show are windows of their own, or the control's window draws them.
    std::vector<HWND> openWindows() const {
        std::vector<HWND> open;
        for (HWND child = GetWindow(face(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (IsWindowVisible(child)) open.push_back(child);
        return open;
    }
};

TEST_F(GridEditing, ARowIsTypedThroughAllItsEditors) {
    click(0, textCol);
    EXPECT_EQ(openWindows().size(), 1u);
    person.type(L"oak.1");
    person.key(VK_TAB);
    EXPECT_EQ(read(0, textCol), L"oak.1");
    EXPECT_EQ(current(), std::pair(0L, static_cast<long>(dateCol)));
    person.type(L"4 dec 2026");
    person.key(VK_TAB);
    EXPECT_EQ(read(0, dateCol), L"Fri 4 Dec 2026");
    EXPECT_EQ(current(), std::pair(0L, static_cast<long>(checkCol)))
        << "what cannot be edited is passed over";
    person.key(VK_SPACE);
    person.key(VK_TAB);
    EXPECT_EQ(read(0, checkCol), L"a");
    person.type(L"b");
    person.key(VK_TAB);
    EXPECT_EQ(read(0, listCol), L"Bookcase");
    person.type(L"12.5");
    person.key(VK_TAB);
    EXPECT_EQ(read(0, numberCol), L"12.5");
    person.key(VK_DOWN);
    person.key(VK_DOWN);
    person.key(VK_RETURN);
    EXPECT_EQ(read(0, timeCol), L"12:30:00 am");
    EXPECT_EQ(current(), std::pair(1L, static_cast<long>(timeCol))) << "Enter goes on";
    person.key(VK_TAB);
    EXPECT_EQ(current(), std::pair(2L, static_cast<long>(textCol)));
    person.key(VK_TAB, MOD_SHIFT);
    EXPECT_EQ(current(), std::pair(1L, static_cast<long>(timeCol)));
    EXPECT_EQ(read(0, readOnlyCol), L"fixed");
}

TEST_F(GridEditing, WhatIsTypedOpensTheEditorOverItsCellAndEveryWayOutKeepsIt) {
    struct Way {
        const char* name;
        std::function<void()> leave;
    };
    object().call(L"RowsSet", {40});
    const POINT elsewhere = middle(hosted, 2, numberCol);
    const Way ways[] = {
        {"Escape", [this] { person.key(VK_ESCAPE); }},
        {"Enter", [this] { person.key(VK_RETURN); }},
        {"another cell", [&] { person.click(face(), elsewhere.x, elsewhere.y); }},
        {"a caption", [this] { person.click(face(), border + 20, border + 5); }},
        {"another field", [this] { SetFocus(other), hosted.loop.pumpPending(); }},
        {"the host closes", [this] { object().call(L"BoxHide"); }},
        {"the host scrolls", [this] { object().call(L"TopRowSet", {1}); }},
        {"the host adds a row",
         [this] {
             object().call(L"RowAdd", {L"", 3});
         }},
    };
    for (const Way& way : ways) {
        object().call(L"CellTextSet", {0, 0, L"before"});
        object().call(L"GridFocusShow");
        person.key(VK_ESCAPE);
        takeEvents();
        person.type(L"x");
        const auto open = openWindows();
        ASSERT_EQ(open.size(), 1u) << way.name;
        EXPECT_EQ(GetFocus(), open[0]) << way.name;
        RECT editor{};
        GetWindowRect(open[0], &editor);
        MapWindowPoints(nullptr, face(), reinterpret_cast<POINT*>(&editor), 2);
        EXPECT_EQ(editor.left, border + number(L"CellCurrentLeft") / 15) << way.name;
        EXPECT_EQ(editor.right - editor.left, number(L"CellCurrentWidth") / 15) << way.name;
        person.type(L"yz");
        EXPECT_EQ(read(0, 0), L"before") << way.name;
        takeEvents();
        way.leave();
        hosted.loop.pumpPending();
        const std::wstring told = takeEvents();
        EXPECT_NE(told.find(L"ChangeEdited Change ChangePost"), std::wstring::npos) << way.name;
        EXPECT_EQ(read(0, 0), L"xyz") << way.name;
        object().call(L"BoxHide");
        object().call(L"TopRowSet", {0});
    }
}

TEST_F(GridEditing, EveryEditorKeepsItsValueWhicheverWayItIsLeft) {
    object().call(L"RowsSet", {40});
    const POINT elsewhere = middle(hosted, 3, readOnlyCol);
    const std::function<void()> ways[] = {
        [this] { person.key(VK_ESCAPE); },
        [this] { person.key(VK_RETURN); },
        [this] { person.key(VK_TAB); },
        [&] { person.click(face(), elsewhere.x, elsewhere.y); },
        [this] { object().call(L"TopRowSet", {1}); },
        [this] { SetFocus(other), hosted.loop.pumpPending(); },
    };
    struct Edit {
        Column col;
        const wchar_t* typed;  // "v" is the Down key
        const wchar_t* kept;
    };
    constexpr Edit edits[] = {{dateCol, L"4 dec 2026", L"Fri 4 Dec 2026"},
                              {checkCol, L" ", L"a"},
                              {listCol, L"b", L"Bookcase"},
                              {numberCol, L"12.5", L"12.5"},
                              {timeCol, L"vv", L"12:30:00 am"}};
    for (const Edit& edit : edits) {
        for (const auto& leave : ways) {
            object().call(L"BoxHide");
            object().call(L"TopRowSet", {0});
            object().call(L"CellTextSet", {0, edit.col, L""});
            object().call(L"GridFocusShow");
            object().call(L"GridSetFocus", {edit.col, 0});
            for (const wchar_t unit : std::wstring(edit.typed)) {
                if (unit == L'v')
                    person.key(VK_DOWN);
                else
                    person.type(std::wstring(1, unit));
            }
            leave();
            EXPECT_EQ(read(0, edit.col), edit.kept) << edit.col << " way " << &leave - ways;
        }
    }
}

TEST_F(GridEditing, RowsComeAndGoAndTheLastChangeIsTakenBack) {
    click(2, textCol);
    person.type(L"last");
    person.key(VK_RETURN);
    EXPECT_EQ(number(L"RowsCurrent"), 4) << "Enter on the last row adds one";
    EXPECT_EQ(current(), std::pair(3L, static_cast<long>(textCol)));
    person.key(VK_ESCAPE);
    takeEvents();
    person.key(VK_DELETE);
    EXPECT_EQ(number(L"RowsCurrent"), 3);
    EXPECT_NE(takeEvents().find(L"Change DelRow"), std::wstring::npos);
    person.key('Z', MOD_CONTROL);
    EXPECT_EQ(number(L"RowsCurrent"), 4);
    person.key(VK_UP);
    person.key(VK_INSERT);
    EXPECT_EQ(read(3, textCol), L"last");
    EXPECT_NE(takeEvents().find(L"NewRow"), std::wstring::npos);
    object().put(L"AllowGridEdit", false);
    person.type(L"x");
    person.key(VK_DELETE);
    EXPECT_EQ(number(L"RowsCurrent"), 5);
    EXPECT_TRUE(openWindows().empty());
}

void putOnClipboard(HWND owner, std::wstring_view text) {
    ASSERT_TRUE(OpenClipboard(owner));
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* const units = static_cast<wchar_t*>(GlobalLock(memory));
    std::copy(text.begin(), text.end(), units);
    units[text.size()] = 0;
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

TEST_F(GridEditing, OneValueIsPastedIntoTheEditorAndSeveralOverTheCells) {
    click(0, textCol);
    person.key(VK_ESCAPE);
    putOnClipboard(hosted.window.handle(), L"oak\t4 dec 2026\tx\t1\r\nash\tnot a date\ty\t0\r\n");
    person.key('V', MOD_CONTROL);
    EXPECT_EQ(
        read(0, textCol) + L"," + read(0, dateCol) + L"," + read(0, readOnlyCol) + L"," + read(0, checkCol),
        L"oak,Fri 4 Dec 2026,fixed,a");
    EXPECT_EQ(read(1, textCol) + L"," + read(1, dateCol) + L"," + read(1, checkCol), L"ash,,");
    EXPECT_TRUE(openWindows().empty());
    putOnClipboard(hosted.window.handle(), L"elm");
    person.key('V', MOD_CONTROL);
    ASSERT_EQ(openWindows().size(), 1u);
    person.key(VK_ESCAPE);
    EXPECT_EQ(read(0, textCol), L"elm");
    person.key('Z', MOD_CONTROL);
    EXPECT_EQ(read(0, textCol), L"oak");
}

TEST_F(GridEditing, ATextStandsWhereItIsWhenItsEditorOpens) {
    object().call(L"CellTextSet", {1L, static_cast<long>(textCol), L"HHHH"});
    const POINT cell = middle(hosted, 1, textCol);
    object().call(L"RowSetFocus", {2});
    UpdateWindow(face());
    // The first letter's edges, on the control; the caret is further to the right.
    const auto letter = [&](HWND window) {
        POINT origin{};
        MapWindowPoints(window, face(), &origin, 1);
        const HDC dc = GetDC(window);
        RECT ink{LONG_MAX, LONG_MAX, 0, 0};
        for (LONG y = cell.y - 7; y < cell.y + 7; ++y) {
            for (LONG x = cell.x - colWidth / 2 + 1; x < cell.x - colWidth / 2 + 9; ++x) {
                if (GetPixel(dc, x - origin.x, y - origin.y) != 0) continue;
                ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
                       std::max(ink.bottom, y)};
            }
        }
        ReleaseDC(window, dc);
        return ink;
    };
    const RECT before = letter(face());
    EXPECT_LT(before.top, before.bottom);
    click(1, textCol);
    ASSERT_EQ(openWindows().size(), 1u);
    const HWND editor = openWindows()[0];
    SendMessageW(editor, EM_SETSEL, 4, 4);
    UpdateWindow(editor);
    const RECT after = letter(editor);
    EXPECT_EQ(after.top, before.top);
    EXPECT_EQ(after.bottom, before.bottom);
    EXPECT_NEAR(after.left, before.left, 1);
}

TEST_F(GridEditing, ADoubleClickIsOneAlsoWhereTheEditorHasComeInBetween) {
    const UINT usual = GetDoubleClickTime();
    SetDoubleClickTime(3000);
    object().call(L"CellTextSet", {1, textCol, L"oak"});
    const POINT text = middle(hosted, 1, textCol), fixed = middle(hosted, 0, readOnlyCol);
    takeEvents();
    person.click(face(), text.x, text.y);
    person.click(face(), text.x, text.y);
    EXPECT_NE(takeEvents().find(L"DblClickExt"), std::wstring::npos);
    person.key(VK_ESCAPE);
    person.click(face(), fixed.x, fixed.y);
    person.click(face(), fixed.x, fixed.y);
    const std::wstring told = takeEvents();
    EXPECT_NE(told.find(L"DblClick"), std::wstring::npos);
    EXPECT_EQ(told.find(L"DblClickExt"), std::wstring::npos);
    SetDoubleClickTime(usual);
}

TEST_F(GridEditing, AHostDoesWhatItLikesInsideEveryEventOfAnEdit) {
    using Act = void (*)(HostedControl&);
    const std::pair<const char*, Act> acts[] = {
        {"sorts", [](HostedControl& form) { form.object().call(L"GridColSort", {0}); }},
        {"deletes the row", [](HostedControl& form) { form.object().call(L"RowDel", {0}); }},
        {"empties the grid", [](HostedControl& form) { form.object().call(L"RowsSet", {0}); }},
        {"reloads", [](HostedControl& form) { form.object().call(L"GridLoad", {L"Z:\\nothing"}); }},
        {"closes the editor", [](HostedControl& form) { form.object().call(L"BoxHide"); }},
        {"opens another",
         [](HostedControl& form) {
             form.object().call(L"GridSetFocus", {5, 1});
         }},
        {"destroys the control", [](HostedControl& form) { form.site.close(); }},
    };
    for (const wchar_t* event : {L"MouseDown", L"MouseUp", L"Click", L"KeyDown", L"KeyPress", L"KeyUp",
                                 L"ChangeEdited", L"Change", L"ChangePost", L"CellSelected",
                                 L"NewRowSelected", L"SelChange", L"NewRow", L"DelRow", L"SortClick"}) {
        for (const auto& [name, act] : acts) {
            HostedControl form(L"GridEdit");
            form.activate(place);
            fill(form);
            bool heard = false;
            form.site.events().on(event, [&](container::EventCall&) {
                // Once: whatever a host does, it does not do it for ever.
                if (!std::exchange(heard, true)) act(form);
            });
            Person someone(form.loop, form.window.handle());
            const HWND window = form.site.window();
            const POINT at = middle(form, 1, 0);
            const auto key = [&](WORD code) {
                if (IsWindow(window)) someone.key(code);
            };
            someone.click(window, at.x, at.y);
            for (const WORD code : {WORD{'X'}, WORD{VK_TAB}, WORD{VK_TAB}, WORD{VK_SPACE}, WORD{VK_RETURN},
                                    WORD{VK_ESCAPE}, WORD{VK_INSERT}, WORD{VK_DELETE}, WORD{VK_DOWN}})
                key(code);
            if (IsWindow(window)) someone.click(window, border + 20, border + 5);
            form.loop.pumpPending();
            EXPECT_TRUE(heard) << event << " " << name;
            EXPECT_EQ(GetCapture(), nullptr) << event << " " << name;
        }
    }
}

// Random keys, presses and calls; a failure names its step, and the seed is always the same.
TEST_F(GridEditing, NothingAPersonOrAHostDoesBreaksIt) {
    std::mt19937 random(20261121);
    const auto below = [&random](long limit) {
        return static_cast<long>(random() % static_cast<unsigned long>(limit));
    };
    hosted.site.events().keepJournal(false);
    object().call(L"GridFocusShow");
    const MenuKeys dismissed(std::initializer_list<std::vector<WORD>>{});  // lists that drop down
    constexpr WORD keys[] = {VK_UP,    VK_DOWN, VK_LEFT, VK_RIGHT, VK_TAB, VK_RETURN,    VK_ESCAPE, VK_SPACE,
                             VK_PRIOR, VK_NEXT, VK_HOME, VK_END,   VK_F2,  VK_INSERT,    VK_DELETE, VK_BACK,
                             'A',      'Z',     '1',     '9',      VK_F4,  VK_OEM_PERIOD};
    const auto call = [this](const wchar_t* name, const container::Arguments& arguments = {}) {
        object().call(name, arguments);
    };
    constexpr int steps = 20000;
    for (int step = 0; step < steps && !HasFailure(); ++step) {
        const long rows = number(L"RowsCurrent");
        switch (below(12)) {
            case 0: {
                const LPARAM at = MAKELPARAM(below(480), below(240));
                const bool twice = below(6) == 0;
                PostMessageW(face(), twice ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, at);
                PostMessageW(face(), WM_LBUTTONUP, 0, at);
                break;
            }
            case 1: {
                // Through the real queue, with its characters, is a hundred times slower: some go that way.
                if (step % 20 == 0) person.key(keys[below(std::size(keys))]);
                break;
            }
            case 2:
                switch (below(8)) {
                    case 0:
                        call(L"RowAdd", {L"a\t\tb\ta\tLamp\t7\t9:30:00 am", below(rows + 2) - 1});
                        break;
                    case 1:
                        if (rows > 6) call(L"RowDel", {below(rows)});
                        break;
                    case 2:
                        call(L"GridSetFocus", {below(allCols), below(rows + 1)});
                        break;
                    case 3:
                        call(L"CellTextSet", {below(rows + 1), below(allCols), L"set"});
                        break;
                    case 4:
                        call(L"GridColSort", {below(allCols)});
                        break;
                    case 5:
                        call(L"ColWidth", {below(allCols), static_cast<double>(300 + below(1500))});
                        break;
                    case 6:
                        call(L"TopRowSet", {below(rows + 1)});
                        break;
                    default:
                        call(L"RowsSet", {below(30)});
                        call(L"GridShow");
                        break;
                }
                break;
            default: {
                const HWND focus = GetFocus();
                if (!focus || !IsChild(hosted.window.handle(), focus)) {
                    call(L"GridFocusShow");
                    break;
                }
                const WORD code = keys[below(std::size(keys))];
                PostMessageW(focus, WM_KEYDOWN, code, 1);
                PostMessageW(focus, WM_KEYUP, code, static_cast<LPARAM>(0xC0000001u));
            }
        }
        hosted.loop.pumpPending();
        const auto open = openWindows();
        EXPECT_LE(open.size(), 1u) << "step " << step;
        const long row = number(L"RowCurrent"), all = number(L"RowsCurrent");
        EXPECT_TRUE(all == 0 ? row == -1 : row >= 0 && row < all) << "step " << step;
        EXPECT_TRUE(number(L"ColCurrent") >= 0 && number(L"ColCurrent") < allCols) << "step " << step;
    }
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST(GridEditingResources, EditingLeavesNothing) {
    expectNothingIsLeft([] {
        HostedControl hosted(L"GridEdit");
        hosted.activate(place);
        hosted.object().call(L"ColsSet", {static_cast<long>(allCols)});
        for (long col = 0; col < allCols; ++col) hosted.object().call(L"ColTypeSet", {col, col});
        for (long col = 0; col < allCols; ++col) {
            hosted.object().call(L"GridSetFocus", {col, 0});
            hosted.loop.pumpPending();
        }
        hosted.object().call(L"BoxHide");
    });
}

}  // namespace
}  // namespace obk
