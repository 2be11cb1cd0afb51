// A grid that a person works in: typed, walked and pressed with real input, on a form with another field.
#include "panel_support.h"
#include "person_support.h"
#include "server_support.h"
#include "test_window_support.h"

#include "container/text.h"
#include "platform/win32/dropped_data.h"

#include <gtest/gtest.h>

#include <olectl.h>
#include <shlobj.h>

#include <algorithm>
#include <map>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// A control of 480 x 240 pixels, with seven columns of 64 pixels: one of each type.
constexpr RECT place{10, 10, 490, 250};
constexpr int border = 2, colWidth = 64;
enum Column : long { textCol, dateCol, readOnlyCol, checkCol, listCol, numberCol, timeCol, allCols };
using Cell = std::pair<long, long>;

Variant answerOf(const container::Dispatch& object, const wchar_t* member,
                 const container::Arguments& arguments = {}) {
    Variant answer;
    object.call(member, arguments, &answer);
    return answer;
}

class GridEditing : public PersonAtControl {
protected:
    GridEditing() : PersonAtControl(L"GridEdit", place) {
        object().call(L"ColsSet", {allCols});
        for (long col = 0; col < allCols; ++col) object().call(L"ColTypeSet", {col, col});
        for (const wchar_t* item : {L"Desk", L"Bookcase", L"Lamp"}) object().call(L"ComboAdd", {item});
        fill({L"\t\tfixed", L"\t\tfixed", L"\t\tfixed"});
        object().call(L"RowSetFocus", {0});
        hosted.loop.pumpPending();
        takeEvents();
    }
    void fill(std::initializer_list<const wchar_t*> rows) const {
        object().call(L"RowsSet", {0});
        for (const wchar_t* row : rows) object().call(L"RowAddQuick", {row, number(L"RowsCurrent")});
    }
    std::wstring read(long row, long col) const {
        return answerOf(object(), L"CellTextRead", {row, col}).toText();
    }
    void set(long row, long col, const wchar_t* text) const {
        object().call(L"CellTextSet", {row, col, text});
    }
    Cell current() const { return {number(L"RowCurrent"), number(L"ColCurrent")}; }
    void goTo(const Cell& cell) const {
        object().call(L"RowSetFocus", {cell.first});
        object().call(L"ColSetFocus", {cell.second});
    }
    // The keyboard in a cell whose editor is closed.
    void enter(const Cell& cell) const {
        object().call(L"GridFocusShow");
        goTo(cell);
    }
    // The middle of a cell of the first rows, which becomes the current one.
    POINT middle(long row, long col) const {
        goTo({row, col});
        const long top = border + headerHeight();
        return {border + number(L"CellCurrentLeft") / 15 + colWidth / 2,
                top + (number(L"CellCurrentTop") + number(L"CellCurrentHeight") / 2) / 15};
    }
    long headerHeight() const {
        object().call(L"TopRowSet", {0});
        for (int y = 0; y < 60; ++y) {
            SendMessageW(face(), WM_MOUSEMOVE, 0, MAKELPARAM(20, y));
            if (number(L"MouseRow") == 0) return y - border;
        }
        return 0;
    }
    void keys(std::initializer_list<WORD> codes, UINT modifiers = 0) {
        for (const WORD code : codes) person.key(code, modifiers);
    }
    void click(POINT at) { person.click(face(), at.x, at.y); }
    void click(long row, long col) {
        const Cell before = current();
        const POINT at = middle(row, col);
        goTo(before);
        takeEvents();
        click(at);
    }
    RECT onFace(HWND window) const {
        RECT rect = windowRect(window);
        MapWindowPoints(nullptr, face(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
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
    for (const wchar_t* text : {L"oak.1", L"4 dec 2026", L" ", L"b", L"12.5"}) {
        person.type(text);
        person.key(VK_TAB);  // past what cannot be edited
    }
    keys({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(current(), Cell(1, timeCol)) << "Enter goes on";
    std::wstring row;
    for (long col = 0; col < allCols; ++col) row += read(0, col) + L"|";
    EXPECT_EQ(row, L"oak.1|Fri 4 Dec 2026|fixed|a|Bookcase|12.5|12:30:00 am|");
    person.key(VK_TAB);
    EXPECT_EQ(current(), Cell(2, textCol));
    person.key(VK_TAB, MOD_SHIFT);
    EXPECT_EQ(current(), Cell(1, timeCol));
}

// Each line of the reference page's table of keys but the menu's and the calendar's, which have tests of
// their own, and those that only walk from cell to cell or in the list, for which other keys stand here. The
// column begins as "a", "b", "c" with its second row current, the list's and the number's with what stands
// there.
TEST_F(GridEditing, EachKeyDoesWhatTheReferenceSays) {
    enum class In { cells, lastRow, untouched, line, mark, list, number };
    struct Key {
        WORD code;
        UINT held = 0;
    };
    constexpr UINT ctrl = MOD_CONTROL, shift = MOD_SHIFT, alt = MOD_ALT;
    struct Line {
        In in;
        std::vector<Key> keys;
        const wchar_t* left;  // the current cell, whether an editor is open, the texts of the column
    };
    const Line lines[] = {
        {In::line, {{VK_ESCAPE}}, L"1,0 a,bee,c"},
        {In::line, {{VK_RETURN, shift}}, L"0,0 open a,bee,c"},
        {In::cells, {{VK_RETURN, shift}}, L"0,0 open a,b,c"},
        {In::line, {{VK_RETURN}}, L"2,0 open a,bee,c"},
        {In::cells, {{VK_RETURN}}, L"2,0 open a,b,c"},
        {In::lastRow, {{VK_RETURN}}, L"3,0 open a,b,c,"},
        {In::line, {{VK_UP}}, L"0,0 a,bee,c"},
        {In::line, {{VK_DOWN}}, L"2,0 a,bee,c"},
        {In::line, {{VK_NEXT}}, L"2,0 a,bee,c"},
        {In::line, {{VK_PRIOR}}, L"0,0 a,bee,c"},
        {In::mark, {{VK_LEFT}}, L"1,2 ,,"},
        {In::mark, {{VK_RIGHT}}, L"1,4 ,,"},
        {In::mark, {{VK_UP}}, L"0,3 ,,"},
        {In::mark, {{VK_DOWN}}, L"2,3 ,,"},
        {In::mark, {{VK_NEXT}}, L"2,3 ,,"},
        {In::mark, {{VK_SPACE}, {VK_ESCAPE}}, L"1,3 ,a,"},
        {In::cells, {{VK_TAB}}, L"1,1 open a,b,c"},
        {In::cells, {{VK_TAB, shift}}, L"0,6 a,b,c"},
        {In::lastRow, {{VK_DOWN}}, L"3,0 a,b,c,"},
        {In::cells, {{VK_F2}, {'X'}, {VK_ESCAPE}}, L"1,0 a,bx,c"},
        {In::cells, {{VK_INSERT}}, L"1,0 a,,b,c"},
        {In::cells, {{VK_INSERT, shift}}, L"1,0 a,z,y"},
        {In::cells, {{'V', ctrl}}, L"1,0 a,z,y"},
        {In::cells, {{VK_DELETE}}, L"1,0 a,c"},
        {In::cells, {{VK_DOWN, shift}, {VK_DELETE}}, L"0,0 a"},
        {In::untouched, {{'V', ctrl}, {VK_ESCAPE}}, L"1,0 a,z,y"},
        {In::untouched, {{VK_INSERT, shift}, {VK_ESCAPE}}, L"1,0 a,z,y"},
        {In::cells, {{'X', ctrl}}, L"1,0 a,,c"},
        {In::cells, {{VK_DELETE, shift}}, L"1,0 a,,c"},
        {In::cells, {{'A', ctrl}, {VK_DELETE, shift}}, L"0,0 ,,"},
        {In::cells, {{'D', ctrl}}, L"1,0 a,a,c"},
        {In::cells, {{'X', ctrl}, {'Z', ctrl}}, L"1,0 a,b,c"},
        {In::cells, {{'X', ctrl}, {'Z', ctrl}, {'Y', ctrl}}, L"1,0 a,,c"},
        {In::cells, {{'X', ctrl}, {VK_F2}, {'Z', ctrl}}, L"1,0 a,b,c"},
        {In::cells, {{'X', ctrl}, {'Z', ctrl}, {VK_F2}, {'Y', ctrl}}, L"1,0 a,,c"},
        {In::cells, {{'Q'}}, L"1,0 open a,b,c"},
        {In::cells, {{'Q'}, {VK_ESCAPE}}, L"1,0 a,q,c"},
        {In::cells, {{VK_UP}}, L"0,0 a,b,c"},
        {In::cells, {{VK_RIGHT}}, L"1,1 a,b,c"},
        {In::cells, {{VK_DOWN, ctrl}}, L"2,0 a,b,c"},
        {In::cells, {{VK_END}, {VK_HOME}}, L"1,0 a,b,c"},
        {In::cells, {{VK_UP, shift}, {'C', ctrl}, {VK_DOWN}, {'V', ctrl}}, L"2,0 a,b,a,b"},
        {In::cells, {{VK_INSERT, ctrl}, {VK_UP}, {'V', ctrl}, {VK_ESCAPE}}, L"0,0 b,b,c"},
        {In::cells, {{VK_LEFT, alt}, {VK_RIGHT, alt}, {VK_RIGHT, alt}}, L"1,0 wider a,b,c"},
        {In::cells, {{VK_LEFT, alt}}, L"1,0 narrower a,b,c"},
        {In::cells, {{VK_ADD, ctrl}}, L"1,0 narrower a,b,c"},
        {In::cells, {{VK_OEM_PLUS, ctrl}}, L"1,0 narrower a,b,c"},
        {In::cells, {{VK_UP, alt}}, L"1,0 sorted a,b,c"},
        {In::line, {{VK_LEFT}, {'X'}, {VK_ESCAPE}}, L"1,0 a,bexe,c"},
        {In::line, {{VK_LEFT, shift}, {'X'}, {VK_ESCAPE}}, L"1,0 a,bex,c"},
        {In::line, {{VK_LEFT, ctrl}, {VK_RIGHT}, {'X'}, {VK_ESCAPE}}, L"1,0 a,bxee,c"},
        {In::line, {{VK_HOME}, {'X'}, {VK_END}, {'Y'}, {VK_ESCAPE}}, L"1,0 a,xbeey,c"},
        {In::line, {{VK_HOME}, {VK_DELETE}, {VK_ESCAPE}}, L"1,0 a,ee,c"},
        {In::line, {{'A', ctrl}, {'X'}, {VK_ESCAPE}}, L"1,0 a,x,c"},
        {In::line, {{'A', ctrl}, {'C', ctrl}, {VK_END}, {'V', ctrl}, {VK_ESCAPE}}, L"1,0 a,beebee,c"},
        {In::line,
         {{'A', ctrl}, {VK_INSERT, ctrl}, {VK_HOME}, {VK_INSERT, shift}, {VK_ESCAPE}},
         L"1,0 a,beebee,c"},
        {In::line, {{'A', ctrl}, {'X', ctrl}, {VK_ESCAPE}}, L"1,0 a,,c"},
        {In::line, {{'A', ctrl}, {VK_DELETE, shift}, {VK_ESCAPE}}, L"1,0 a,,c"},
        {In::line, {{'A', ctrl}, {VK_DELETE}, {'Z', ctrl}, {VK_ESCAPE}}, L"1,0 a,bee,c"},
        {In::line, {{'A', ctrl}, {VK_DELETE}, {VK_BACK, alt}, {VK_ESCAPE}}, L"1,0 a,bee,c"},
        {In::number, {{VK_UP, alt}, {VK_ESCAPE}}, L"1,5 7,8.25,7"},
        {In::number, {{VK_DOWN, alt}, {VK_ESCAPE}}, L"1,5 7,6.25,7"},
        {In::list, {{'L'}, {VK_ESCAPE}}, L"1,4 Desk,Lamp,Desk"},
        {In::list, {{VK_DOWN}, {VK_ESCAPE}}, L"1,4 Desk,Lamp,Desk"},
        {In::list, {{VK_F4}}, L"1,4 dropped Desk,Bookcase,Desk"},
        {In::list, {{VK_DOWN, alt}}, L"1,4 dropped Desk,Bookcase,Desk"},
        {In::list, {{VK_F4}, {VK_NEXT}, {VK_RETURN}, {VK_ESCAPE}}, L"1,4 Desk,Lamp,Desk"},
        {In::list, {{VK_F4}, {VK_PRIOR}, {VK_F4}, {VK_ESCAPE}}, L"1,4 Desk,Desk,Desk"},
        {In::list, {{VK_F4}, {VK_DOWN}, {VK_ESCAPE}, {VK_ESCAPE}}, L"1,4 Desk,Bookcase,Desk"},
    };
    for (const Line& line : lines) {
        object().call(L"BoxHide");
        fill({L"a\t\t\t\tDesk\t7", L"b\t\t\t\tBookcase\t7.25", L"c\t\t\t\tDesk\t7"});
        putOnClipboard({{CF_UNICODETEXT, std::wstring(L"z\r\ny\0", 5)}});
        const Column col = line.in == In::mark     ? checkCol
                           : line.in == In::list   ? listCol
                           : line.in == In::number ? numberCol
                                                   : textCol;
        enter({line.in == In::lastRow ? 2 : 1, col});
        const long width = number(L"CellCurrentWidth");
        if (line.in == In::line || line.in == In::untouched) person.key(VK_F2);
        if (line.in == In::line) person.type(L"ee");
        if (line.in == In::mark || line.in == In::list || line.in == In::number) object().call(L"BoxShow");
        takeEvents();
        for (const Key& key : line.keys) person.key(key.code, key.held);
        std::wstring left = std::to_wstring(current().first) + L"," + std::to_wstring(current().second);
        if (!openWindows().empty()) left += L" open";
        if (openPanel()) left += L" dropped";
        if (takeEvents().find(L"SortClick") != std::wstring::npos) left += L" sorted";
        if (col == textCol && current().second == col && number(L"CellCurrentWidth") != width)
            left += number(L"CellCurrentWidth") < width ? L" narrower" : L" wider";
        for (long row = 0; row < number(L"RowsCurrent"); ++row)
            left += (row == 0 ? L" " : L",") + read(row, col);
        EXPECT_EQ(left, line.left) << "line " << &line - lines;
        object().call(L"ColWidth", {textCol, 960.0});
    }
}

// As programs do that keep what was copied, or bring it to another computer.
TEST_F(GridEditing, AProgramThatLooksAtTheClipboardForAMomentIsWaitedFor) {
    constexpr std::chrono::milliseconds moment(100);
    const OtherApplication program;
    const Person back(hosted.loop, hosted.window.handle());  // its window came to the front
    fill({L"a", L"b", L"c"});
    enter({0, textCol});
    putOnClipboard({{CF_UNICODETEXT, std::wstring(L"z\r\ny\0", 5)}});
    ASSERT_TRUE(program.holdClipboard(moment));
    person.key('V', MOD_CONTROL);
    EXPECT_EQ(read(0, textCol) + read(1, textCol), L"zy");
    ASSERT_TRUE(person.waitFor([] { return OpenClipboard(nullptr) && CloseClipboard(); }));
    goTo({1, textCol});
    person.key(VK_UP, MOD_SHIFT);
    ASSERT_TRUE(program.holdClipboard(moment));
    person.key('C', MOD_CONTROL);
    person.key(VK_DOWN);
    person.key('V', MOD_CONTROL);
    EXPECT_EQ(read(2, textCol) + read(3, textCol), L"zy");
}

TEST_F(GridEditing, EveryEditorOpensOverItsCellAndEveryWayOutKeepsItsValue) {
    object().call(L"RowsSet", {40});
    const POINT elsewhere = middle(3, readOnlyCol), caption{border + 20, border + 5};
    const std::function<void()> ways[] = {
        [this] { person.key(VK_ESCAPE); },
        [this] { person.key(VK_RETURN); },
        [this] { person.key(VK_TAB); },
        [&] { click(elsewhere); },
        [&] { click(caption); },
        [this] { SetFocus(other), hosted.loop.pumpPending(); },
        [this] { object().call(L"BoxHide"); },
        [this] { object().call(L"TopRowSet", {1}); },
    };
    struct Edit {
        Column col;
        const wchar_t* typed;
        const wchar_t* kept;
        bool drawn = false;
    };
    constexpr Edit edits[] = {{textCol, L"xyz", L"xyz"},     {dateCol, L"4 dec 2026", L"Fri 4 Dec 2026"},
                              {checkCol, L" ", L"a"},        {listCol, L"b", L"Bookcase", true},
                              {numberCol, L"12.5", L"12.5"}, {timeCol, L"2", L"2:00:00 am", true}};
    for (const Edit& edit : edits) {
        for (const auto& leave : ways) {
            SCOPED_TRACE(std::to_string(edit.col) + " way " + std::to_string(&leave - ways));
            object().call(L"BoxHide");
            object().call(L"TopRowSet", {0});
            set(0, edit.col, L"");
            enter({0, edit.col});
            person.type(edit.typed);
            const auto open = openWindows();
            ASSERT_EQ(open.size(), edit.drawn ? 0u : 1u);
            if (!edit.drawn) {
                EXPECT_TRUE(GetFocus() == open[0] || IsChild(open[0], GetFocus()));
                const long left = border + number(L"CellCurrentLeft") / 15;
                EXPECT_GE(onFace(open[0]).left, left);
                EXPECT_LE(onFace(open[0]).right, left + number(L"CellCurrentWidth") / 15);
            }
            takeEvents();
            leave();
            EXPECT_NE(takeEvents().find(L"ChangeEdited Change ChangePost"), std::wstring::npos);
            EXPECT_EQ(read(0, edit.col), edit.kept);
        }
    }
}

TEST_F(GridEditing, ATextStandsWhereItIsWhenItsEditorOpens) {
    // Fits its row, and is too high for it.
    for (const wchar_t* size : {L"8.25", L"16"}) {
        object().call(L"BoxHide");
        set(1, textCol, L"EEEE");
        object().call(L"CellFontSet", {1, textCol, L"Tahoma", size, false, false, 0L});
        const POINT cell = middle(1, textCol);
        goTo({2, textCol});
        UpdateWindow(face());
        // Of the first letter, on the control; the caret is further to the right.
        const auto letter = [&](HWND window) {
            POINT origin{};
            MapWindowPoints(window, face(), &origin, 1);
            const HDC dc = GetDC(window);
            std::vector<std::pair<LONG, LONG>> dark;
            for (LONG y = cell.y - 7; y < cell.y + 7; ++y) {
                for (LONG x = cell.x - colWidth / 2 + 1; x < cell.x - colWidth / 2 + 9; ++x)
                    if (GetPixel(dc, x - origin.x, y - origin.y) == 0) dark.emplace_back(x, y);
            }
            ReleaseDC(window, dc);
            return dark;
        };
        const auto before = letter(face());
        EXPECT_GT(before.size(), 10u);
        click(1, textCol);
        ASSERT_EQ(openWindows().size(), 1u);
        const HWND editor = openWindows()[0];
        SendMessageW(editor, EM_SETSEL, 4, 4);
        UpdateWindow(editor);
        EXPECT_EQ(letter(editor), before) << container::toUtf8(size);
    }
}

TEST_F(GridEditing, ADoubleClickIsOneAlsoWhereTheEditorHasComeInBetween) {
    const UINT usual = GetDoubleClickTime();
    SetDoubleClickTime(3000);
    set(1, textCol, L"oak");
    const auto toldOfTwoClicks = [this](POINT at) {
        takeEvents();
        click(at);
        click(at);
        return takeEvents();
    };
    const POINT text = middle(1, textCol), fixed = middle(0, readOnlyCol);
    EXPECT_NE(toldOfTwoClicks(text).find(L"DblClickExt"), std::wstring::npos);
    person.key(VK_ESCAPE);
    const std::wstring told = toldOfTwoClicks(fixed);
    EXPECT_NE(told.find(L"DblClick"), std::wstring::npos);
    EXPECT_EQ(told.find(L"DblClickExt"), std::wstring::npos);
    SetDoubleClickTime(usual);
}

TEST_F(GridEditing, TheWheelOverAnOpenNumberScrollsAndLeavesItAsItWas) {
    object().call(L"RowsSet", {100});
    set(1, numberCol, L"12.34");
    click(1, numberCol);
    EXPECT_EQ(openWindows().size(), 1u);
    person.turnWheel(-WHEEL_DELTA);
    EXPECT_GT(number(L"TopRowRead"), 0);
    EXPECT_EQ(read(1, numberCol), L"12.34");
}

TEST_F(GridEditing, AListDropsDownAndTheKeyboardStays) {
    for (int item = 0; item < 10000; ++item)
        object().call(L"ComboAdd", {(L"R&D " + std::to_wstring(item)).c_str()});
    set(0, listCol, L"R&D 9000");
    click(0, listCol);
    EXPECT_EQ(openPanel(), nullptr);
    const HWND focus = GetFocus();
    const ULONGLONG before = GetTickCount64();
    person.key(VK_F4);
    const HWND list = openPanel();
    ASSERT_NE(list, nullptr);
    EXPECT_LT(GetTickCount64() - before, 500u) << "with all that a key takes under way";
    const RECT shown = windowRect(list);
    EXPECT_GT(shown.right - shown.left, 64) << "as wide as its items need";
    EXPECT_LT(shown.bottom - shown.top, 500);
    EXPECT_TRUE(keepsFocusFromPanel(list, focus));
    person.moveTo(list, 10, 10);
    person.turnWheel(-WHEEL_DELTA);
    EXPECT_EQ(openPanel(), list);
    EXPECT_EQ(number(L"TopRowRead"), 0);
    takeEvents();
    person.click(list, 10, 5);
    EXPECT_EQ(openPanel(), nullptr);
    EXPECT_NE(takeEvents().find(L"CboClick"), std::wstring::npos);
    person.key(VK_F4);
    person.key(VK_ESCAPE);
    EXPECT_EQ(openPanel(), nullptr);
    EXPECT_EQ(GetFocus(), focus);
    keys({VK_F4, VK_END, VK_RETURN, VK_RETURN});
    EXPECT_EQ(read(0, listCol), L"R&D 9999");
    EXPECT_EQ(current().first, 1);
}

TEST_F(GridEditing, OneClickOnItsBoxTurnsACheckMark) {
    click(middle(1, checkCol));
    EXPECT_EQ(openWindows().size(), 1u);
    person.key(VK_DOWN);
    EXPECT_EQ(read(1, checkCol), L"a");
}

TEST_F(GridEditing, TheRightButtonOpensAMenuUnlessTheHostHasOpenedOne) {
    set(1, textCol, L"oak");
    object().call(L"GridFocusShow");
    const POINT cell = middle(1, textCol);
    {
        const MenuKeys keys{{L'T'}, {L'U'}, {VK_ESCAPE}};
        const auto seen = [&](int menus) {
            return person.waitFor([&] { return keys.menusSeen() == menus && keys.gone(); });
        };
        person.rightClick(face(), cell.x, cell.y);
        EXPECT_TRUE(seen(1));
        EXPECT_EQ(read(1, textCol), L"") << "cut";
        person.key(VK_APPS);
        EXPECT_TRUE(seen(2));
        EXPECT_EQ(read(1, textCol), L"oak");
        person.key(VK_F10, MOD_SHIFT);
        EXPECT_TRUE(seen(3));
    }
    const MenuKeys keys{{VK_ESCAPE}, {VK_ESCAPE}};
    bool discards = false;
    hosted.site.events().on(L"MouseUp", [&](container::EventCall& call) {
        if (discards) {
            call.set(0, short{0});
            return;
        }
        const HMENU own = CreatePopupMenu();
        AppendMenuW(own, MF_STRING, 1, L"The host's");
        TrackPopupMenu(own, TPM_RETURNCMD, 0, 0, 0, hosted.window.handle(), nullptr);
        DestroyMenu(own);
    });
    for (const bool discarded : {false, true}) {
        discards = discarded;
        person.rightClick(face(), cell.x, cell.y);
        hosted.loop.pumpPending();
        EXPECT_EQ(keys.menusSeen(), 1);
    }
}

TEST_F(GridEditing, TextsAreSortedByTheUsersAlphabet) {
    const wchar_t* const sorted[] = {L"-", L"\x00C4pfel", L"apple", L"co-op", L"coop", L"Zebra"};
    object().call(L"RowsSet", {6});
    for (long row = 0; row < 6; ++row) set(row, textCol, sorted[(row * 5 + 2) % 6]);
    object().call(L"ColSetFocus", {textCol});
    object().call(L"GridColSort", {textCol});
    object().call(L"GridColSort", {textCol});
    for (long row = 0; row < 6; ++row) EXPECT_EQ(read(row, textCol), sorted[row]) << row;
}

TEST_F(GridEditing, ARightToLeftFormHasTheFirstColumnAtTheRight) {
    const POINT cell = middle(1, textCol);
    // All of it is on the form.
    hosted.site.moveTo({10, 10, 350, 250});
    hosted.site.setAmbient(DISPID_AMBIENT_RIGHTTOLEFT, true);
    hosted.loop.pumpPending();
    RECT area{};
    GetClientRect(face(), &area);
    click({area.right - 1 - cell.x, cell.y});
    EXPECT_EQ(current(), Cell(1, textCol));
    ASSERT_EQ(openWindows().size(), 1u);
    EXPECT_EQ(onFace(openWindows()[0]).right, area.right - border);
}

std::string bytesOf(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

std::string droppedFiles(const std::string& names, BOOL wide = FALSE, DWORD start = sizeof(DROPFILES)) {
    DROPFILES header{};
    header.pFiles = start;
    header.fWide = wide;
    return std::string(reinterpret_cast<const char*>(&header), sizeof header) + names;
}

// What a program drops, byte by byte.
class Offered final : public ComObject<IDataObject> {
public:
    explicit Offered(std::map<CLIPFORMAT, std::string> contents) : contents_(std::move(contents)) {}
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (QueryGetData(format) != S_OK) return DV_E_FORMATETC;
        const std::string& content = contents_.at(format->cfFormat);
        *medium = {};
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = GlobalAlloc(GMEM_FIXED, content.size());
        content.copy(static_cast<char*>(medium->hGlobal), content.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
        return contents_.contains(format->cfFormat) ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

private:
    const std::map<CLIPFORMAT, std::string> contents_;
};

// What a script hears of what was dropped: its text in both formats, whether there is text and a picture, and
// the files.
std::wstring askedOf(const container::Dispatch& data) {
    const auto text = [&](long format) { return answerOf(data, L"GetData", {format}).toText() + L" "; };
    const auto flag = [&](long format) {
        return *answerOf(data, L"GetFormat", {format}).toLong() != 0 ? L"1 " : L"0 ";
    };
    const container::Dispatch files(answerOf(data, L"Files").toObject().get());
    const long count = *answerOf(files, L"Count").toLong();
    std::wstring all =
        text(CF_UNICODETEXT) + text(CF_TEXT) + flag(CF_TEXT) + flag(CF_DIB) + std::to_wstring(count);
    for (long at = 1; at <= count; ++at) all += L" " + answerOf(files, L"Item", {at}).toText();
    return all;
}

// The same of what is offered.
std::wstring dropped(const std::map<CLIPFORMAT, std::string>& contents) {
    const auto object = win32::createDroppedData(ComPtr<IDataObject>(new Offered(contents)), nullptr);
    return askedOf(container::Dispatch(object.get()));
}

TEST_F(GridEditing, ADropTellsTheHostWhatWasDroppedAndWhere) {
    const ComPtr<IDataObject> data(
        new Offered({{CF_UNICODETEXT, bytesOf({L"oak\0", 4})},
                     {CF_HDROP, droppedFiles(bytesOf({L"C:\\a.txt\0C:\\b.txt\0\0", 19}), TRUE)}}));
    std::wstring asked;
    std::vector<Variant> told;
    bool holdsData = false;
    hosted.site.events().on(L"OLEDragDrop", [&](container::EventCall& call) {
        for (size_t at = 0; at < call.count(); ++at) told.push_back(call.value(at));
        holdsData = static_cast<bool>(call.value(0).toObject().query<IDataObject>());
        asked = askedOf(container::Dispatch(call.value(0).toObject().get()));
        call.set(1, DROPEFFECT_COPY);
    });
    const POINT target = middle(2, 0);
    const int top = border + headerHeight();
    person.moveTo(face(), target.x, target.y);
    EXPECT_EQ(person.dropHere(data.get(), MOUSEEVENTF_RIGHTDOWN), static_cast<DWORD>(DROPEFFECT_COPY))
        << "as the host has answered";
    ASSERT_EQ(told.size(), 6u);
    EXPECT_TRUE(holdsData);
    EXPECT_EQ(asked, L"oak oak 1 0 2 C:\\a.txt C:\\b.txt");
    EXPECT_EQ(told[1].toLong(), static_cast<long>(DROPEFFECT_COPY | DROPEFFECT_MOVE));
    EXPECT_EQ(told[2].toLong(), 2) << "the button that is no longer held";
    EXPECT_EQ(told[4].toLong(), (target.x - border + 1) * 15);
    EXPECT_EQ(told[5].toLong(), (target.y - top) * 15);
    EXPECT_EQ(number(L"MouseRow"), 2);
}

TEST(DroppedData, ItsMembersAreFoundInAnyCaseInAnyCountry) {
    const LCID before = GetThreadLocale();
    ASSERT_TRUE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_TURKISH, SUBLANG_DEFAULT), SORT_DEFAULT)));
    const ComPtr<IDataObject> data(new Offered({{CF_HDROP, droppedFiles({"a\0b\0\0", 5})}}));
    const auto object = win32::createDroppedData(data, nullptr);
    const Variant files = answerOf(container::Dispatch(object.get()), L"FILES");
    EXPECT_EQ(container::Dispatch(files.toObject().get()).value(L"count").toLong(), 2);
    SetThreadLocale(before);
}

TEST(DroppedData, EitherFormatOfTextsStandsForTheOther) {
    EXPECT_EQ(dropped({{CF_TEXT, {"oak\0", 4}}}), L"oak oak 1 0 0");
    EXPECT_EQ(dropped({{CF_UNICODETEXT, bytesOf({L"oak\0", 4})}}), L"oak oak 1 0 0");
}

TEST(DroppedData, FilesAreThoseOfTheBlockWhateverItClaims) {
    constexpr DWORD start = sizeof(DROPFILES);
    const auto filesOf = [](const std::string& block) {
        return container::toUtf8(dropped({{CF_HDROP, block}}));
    };
    EXPECT_EQ(filesOf(droppedFiles({"C:\\a\0C:\\b\0\0", 11})), "  0 0 2 C:\\a C:\\b");
    EXPECT_EQ(filesOf(droppedFiles(bytesOf({L"a\0b", 3}), TRUE)), "  0 0 2 a b") << "no end";
    EXPECT_EQ(filesOf(droppedFiles("C:\\abc")), "  0 0 1 C:\\abc") << "no end";
    EXPECT_EQ(filesOf(droppedFiles("")), "  0 0 0");
    for (const DWORD beyond : {start + 100, 0x7FFFFFFFul, 0xFFFFFFFFul})
        EXPECT_EQ(filesOf(droppedFiles(std::string(40, 'x'), TRUE, beyond)), "  0 0 0") << beyond;
    EXPECT_EQ(filesOf("short"), "  0 0 0");
}

// A window of another program, as far as what is dropped there goes.
class TextTarget final : public ComObject<IDropTarget> {
public:
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD keys, POINTL at, DWORD* effect) override {
        return DragOver(keys, at, effect);
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
        *effect &= DROPEFFECT_COPY;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override {
        ComPtr<IEnumFORMATETC> formats;
        FORMATETC format{};
        EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.put()), S_OK);
        while (formats && formats->Next(1, &format, nullptr) == S_OK) {
            STGMEDIUM medium{};
            EXPECT_EQ(data->GetData(&format, &medium), S_OK);
            const auto* const bytes = static_cast<const char*>(GlobalLock(medium.hGlobal));
            if (format.cfFormat == CF_UNICODETEXT) text = reinterpret_cast<const wchar_t*>(bytes);
            if (format.cfFormat == CF_TEXT) narrow = bytes;
            GlobalUnlock(medium.hGlobal);
            ReleaseStgMedium(&medium);
        }
        return DragOver(keys, at, effect);
    }
    std::wstring text;
    std::string narrow;
};

TEST_F(GridEditing, ADragOfSelectedCellsBringsTheirTextsToAnotherWindow) {
    set(0, textCol, L"\x00C4pfel");
    set(1, textCol, L"oak");
    const POINT second = middle(1, textCol), first = middle(0, textCol);
    const auto select = [this] {
        enter({0, textCol});
        keys({VK_DOWN, VK_RIGHT}, MOD_SHIFT);
    };
    select();
    const ComPtr<TextTarget> target(new TextTarget);
    ASSERT_EQ(RegisterDragDrop(other, target.get()), S_OK);
    POINT there{20, 8};
    ClientToScreen(other, &there);
    for (const bool givenUp : {true, false}) {
        person.moveTo(face(), first.x, first.y);
        person.press();
        EXPECT_EQ(takeEvents().find(L"Click"), std::wstring::npos);
        // The drag finds what follows in the queue.
        SetCursorPos(there.x, there.y);
        if (givenUp) mouse_event(MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        if (givenUp) {
            const MenuKeys menuOfTheOther{{VK_ESCAPE}};
            person.release(MOUSEEVENTF_RIGHTUP);
            EXPECT_EQ(target->text, L"");
            EXPECT_EQ(GetCapture(), nullptr);
        } else {
            EXPECT_TRUE(person.waitFor([&] { return !target->text.empty(); }));
        }
    }
    EXPECT_EQ(target->text, L"\x00C4pfel\t\r\noak\t\r\n");
    EXPECT_EQ(target->narrow, "\xC4pfel\t\r\noak\t\r\n");
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(openWindows().empty());
    // A press that does not move goes to its cell and opens it.
    select();
    click(second);
    EXPECT_EQ(openWindows().size(), 1u);
    EXPECT_EQ(current(), Cell(1, textCol));
    RevokeDragDrop(other);
}

// A setting of the user's while it lives.
class UserSetting {
public:
    UserSetting(LCTYPE type, const wchar_t* value) : type_(type) {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, before_, 80);
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value));
    }
    UserSetting(const UserSetting&) = delete;
    UserSetting& operator=(const UserSetting&) = delete;
    ~UserSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, before_); }

private:
    LCTYPE type_;
    wchar_t before_[80]{};
};

TEST_F(GridEditing, DatesAndNumbersAreTypedAsTheUsersSystemWritesThem) {
    const UserSetting dates(LOCALE_SSHORTDATE, L"dd.MM.yyyy"), comma(LOCALE_SDECIMAL, L",");
    const auto typed = [&](Column col, const wchar_t* text) {
        set(0, col, L"");
        enter({0, col});
        person.type(text);
        person.key(VK_RETURN);
        return read(0, col);
    };
    EXPECT_EQ(typed(dateCol, L"2.3.2026"), L"Mon 2 Mar 2026");
    EXPECT_EQ(typed(dateCol, L"2.3.31"), L"Sun 2 Mar 2031");
    EXPECT_EQ(typed(dateCol, L"2.3.60"), L"Wed 2 Mar 1960") << "by the system's pivot";
    EXPECT_EQ(typed(numberCol, L"1,5"), L"1.5");
    const UserSetting american(LOCALE_SSHORTDATE, L"M/d/yyyy");
    EXPECT_EQ(typed(dateCol, L"2.3.2026"), L"Tue 3 Feb 2026");
    // Other calendars (of Japanese eras, Hijri, Thai, Um al-Qura) and other digits, which the system shows
    // and no cell holds. Two digits are a year of theirs.
    const UserSetting arabic(LOCALE_IDIGITSUBSTITUTION, L"2");
    const UserSetting digits(LOCALE_SNATIVEDIGITS,
                             L"\x0660\x0661\x0662\x0663\x0664\x0665\x0666\x0667\x0668\x0669");
    for (const wchar_t* calendar : {L"3", L"6", L"7", L"23"}) {
        const UserSetting used(LOCALE_ICALENDARTYPE, calendar);
        EXPECT_EQ(typed(dateCol, L"2.3.2026"), L"Tue 3 Feb 2026");
        EXPECT_EQ(typed(dateCol, L"2.3.47"), L"2.3.47");
    }
    EXPECT_EQ(typed(numberCol, L"1,5"), L"1.5");
}

TEST(GridEditScript, AFileIsSavedAndLoadedWithoutAWindow) {
    const std::wstring path = temporaryFile(L"obk-orders.txt");
    const LoadedServer server;
    const auto control = server.create(L"GridEdit");
    const container::Dispatch grid(control.get());
    grid.call(L"ColsSet", {12});
    grid.call(L"CellTextSet", {1, 11, L"oak, 160 \x00D7 80"});
    grid.call(L"GridSave", {path, L"Orders"});
    grid.call(L"GridReset");
    EXPECT_EQ(answerOf(grid, L"GridLoad", {path}).toText(), L"Orders");
    EXPECT_EQ(answerOf(grid, L"CellTextRead", {1, 11}).toText(), L"oak, 160 \x00D7 80");
    DeleteFileW(path.c_str());
}

}  // namespace
}  // namespace obk
