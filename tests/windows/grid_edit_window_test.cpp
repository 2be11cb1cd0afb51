// The editable grid as a person meets it: real keys, presses and wheel in our own container; and as a script
// does, without a window.
#include "container_probe_support.h"
#include "person_support.h"
#include "server_support.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// A control of 400 x 240 pixels, in pixels at 96 DPI.
constexpr RECT place{10, 10, 410, 250};
constexpr int border = 2;

class GridEditWindow : public PersonAtControl {
protected:
    GridEditWindow() : PersonAtControl(L"GridEdit", place) {
        // The cells alone; how they are edited is told apart.
        object().put(L"AllowGridEdit", false);
        fill(100);
        hosted.loop.pumpPending();
    }
    std::wstring read(long row, long col) const {
        Variant text;
        object().call(L"CellTextRead", {row, col}, &text);
        return text.toText();
    }
    void fill(long rows) const {
        object().call(L"GridRedraw", {false});
        object().call(L"ColsSet", {3});
        object().call(L"RowsSet", {0});
        for (long row = 0; row < rows; ++row) {
            const std::wstring name = std::to_wstring(row);
            object().call(L"RowAddQuick",
                          {L"row " + name + L"\t" + std::to_wstring(rows - row) + L"\tx", row});
        }
        object().call(L"RowSetFocus", {0});
        object().call(L"GridRedraw", {true});
    }
    // The middle of a cell that shows, where its column begins at that many pixels.
    POINT cell(long row, int x) const {
        object().call(L"RowSetFocus", {row});
        Variant top, height;
        object().call(L"CellCurrentTop", {}, &top);
        object().call(L"CellCurrentHeight", {}, &height);
        return {border + x,
                border + barHeight() + static_cast<int>(*top.toLong() + *height.toLong() / 2) / 15};
    }
    int barHeight() const {
        // Where the first row begins, as the mouse finds it.
        Variant row;
        for (int y = 0; y < 60; ++y) {
            SendMessageW(face(), WM_MOUSEMOVE, 0, MAKELPARAM(20, y));
            object().call(L"MouseRow", {}, &row);
            if (row.toLong() == number(L"TopRowRead")) return y - border;
        }
        ADD_FAILURE() << "no row shows";
        return 0;
    }
    static std::wstring clipboardText() {
        std::wstring text;
        if (!OpenClipboard(nullptr)) return text;
        if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
            if (const auto* units = static_cast<const wchar_t*>(GlobalLock(memory))) text = units;
            GlobalUnlock(memory);
        }
        CloseClipboard();
        return text;
    }
};

TEST_F(GridEditWindow, AClickMakesACellTheCurrentOneAndTellsTheHost) {
    const POINT second = cell(2, 70);
    object().call(L"RowSetFocus", {0});
    takeEvents();
    person.click(face(), second.x, second.y);
    EXPECT_EQ(takeEvents(), L"MouseDown ChangeEdited CellSelected NewRowSelected SelChange MouseUp Click");
    EXPECT_EQ(number(L"RowCurrent"), 2);
    EXPECT_EQ(number(L"ColCurrent"), 1);
    EXPECT_EQ(GetFocus(), face());
}

TEST_F(GridEditWindow, KeysSelectAndCopy) {
    const POINT first = cell(0, 10);
    person.click(face(), first.x, first.y);
    takeEvents();
    person.key(VK_DOWN);
    EXPECT_EQ(takeEvents(), L"KeyDown ChangeEdited CellSelected NewRowSelected SelChange KeyUp");
    person.key(VK_RIGHT, MOD_SHIFT);
    person.key(VK_DOWN, MOD_SHIFT);
    person.key('C', MOD_CONTROL);
    EXPECT_EQ(clipboardText(), L"row 1\t99\r\nrow 2\t98\r\n");
    person.key(VK_END, MOD_CONTROL);
    EXPECT_EQ(number(L"RowCurrent"), 99);
    EXPECT_GT(number(L"TopRowRead"), 80);
    person.key(VK_HOME, MOD_CONTROL);
    EXPECT_EQ(number(L"TopRowRead"), 0);
    hosted.site.events().on(L"KeyDown", [](container::EventCall& call) { call.set(0, 0); });
    person.key(VK_DOWN);
    EXPECT_EQ(number(L"RowCurrent"), 0) << "the host has taken the key";
}

TEST_F(GridEditWindow, TheWheelScrolls) {
    const POINT middle = cell(3, 100);
    person.moveTo(face(), middle.x, middle.y);
    person.turnWheel(-WHEEL_DELTA);
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    EXPECT_EQ(number(L"TopRowRead"), static_cast<long>(lines));
    person.turnWheel(WHEEL_DELTA);
    EXPECT_EQ(number(L"TopRowRead"), 0);
}

TEST_F(GridEditWindow, ADraggedBorderSizesAColumnAndASelectionScrollsAtTheEdge) {
    object().call(L"ColSetFocus", {0});
    const long before = number(L"CellCurrentWidth");
    const POINT inFirst = cell(1, 10);
    const auto edge = static_cast<int>(before / 15);
    person.moveTo(face(), border + edge - 1, inFirst.y);
    person.press();
    person.moveTo(face(), border + edge + 39, inFirst.y);
    person.release();
    EXPECT_EQ(number(L"CellCurrentWidth"), before + 40 * 15);
    person.moveTo(face(), inFirst.x, inFirst.y);
    person.press();
    person.moveTo(face(), inFirst.x, place.bottom - place.top + 30);
    EXPECT_TRUE(person.waitFor([&] { return number(L"TopRowRead") > 5; }));
    person.release();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(number(L"RowCurrent"), 1);
}

TEST_F(GridEditWindow, APressOnACaptionSortsByItsColumn) {
    hosted.site.events().on(L"SortClick", [this](container::EventCall&) { object().call(L"BarHeaderSort"); });
    object().call(L"BarHeaderCaptionSet", {1, L"Left"});
    takeEvents();
    person.click(face(), border + 80, border + 6);
    EXPECT_EQ(takeEvents(), L"ChangeEdited SortClick ChangeEdited");
    EXPECT_EQ(read(0, 1), L"1");
    person.click(face(), border + 80, border + 6);
    EXPECT_EQ(read(0, 1), L"100");
}

TEST_F(GridEditWindow, ABorderIsDraggedInTheCaptionBar) {
    object().call(L"ColSetFocus", {0});
    const long before = number(L"CellCurrentWidth");
    const auto edge = static_cast<int>(before / 15);
    takeEvents();
    person.moveTo(face(), border + edge - 1, border + 6);
    person.press();
    person.moveTo(face(), border + edge + 24, border + 6);
    person.release();
    EXPECT_EQ(number(L"CellCurrentWidth"), before + 25 * 15);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(takeEvents(), L"");
}

// What a drag asks: it goes on until the button is let go.
class DragSource final : public ComObject<IDropSource> {
public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD keys) override {
        return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

TEST_F(GridEditWindow, ADropTellsTheHostWhatWasDroppedAndWhere) {
    ComPtr<IDataObject> data;
    OleSetClipboard(nullptr);
    ASSERT_EQ(OleGetClipboard(data.put()), S_OK);
    std::vector<Variant> told;
    bool holdsData = false;
    hosted.site.events().on(L"OLEDragDrop", [&](container::EventCall& call) {
        for (size_t at = 0; at < call.count(); ++at) told.push_back(call.value(at));
        holdsData = static_cast<bool>(call.value(0).toObject().query<IDataObject>());
        call.set(1, DROPEFFECT_COPY);
    });
    const POINT target = cell(3, 30);
    const int top = border + barHeight();
    person.moveTo(face(), target.x, target.y);
    person.press();
    const auto source = ComPtr<DragSource>(new DragSource);
    mouse_event(MOUSEEVENTF_MOVE, 1, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    DWORD effect = DROPEFFECT_NONE;
    EXPECT_EQ(DoDragDrop(data.get(), source.get(), DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect),
              DRAGDROP_S_DROP);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY)) << "as the host has answered";
    ASSERT_EQ(told.size(), 6u);
    EXPECT_TRUE(holdsData);
    EXPECT_EQ(told[1].toLong(), static_cast<long>(DROPEFFECT_COPY | DROPEFFECT_MOVE));
    EXPECT_EQ(told[2].toLong(), 1);
    EXPECT_EQ(told[4].toLong(), (target.x - border + 1) * 15);
    EXPECT_EQ(told[5].toLong(), (target.y - top) * 15);
    EXPECT_EQ(number(L"MouseRow"), 3);
}

TEST_F(GridEditWindow, AMillionRowsAreFilledAndReachedAtOnce) {
    object().call(L"RowsSet", {1000000});
    object().call(L"TopRowSet", {999000});
    hosted.loop.pumpPending();
    const POINT there = cell(999003, 10);
    person.click(face(), there.x, there.y);
    EXPECT_EQ(number(L"RowCurrent"), 999003);
    person.key(VK_END, MOD_CONTROL);
    EXPECT_EQ(number(L"RowCurrent"), 999999);
}

// A file that is gone when the test is over.
class TemporaryFile {
public:
    TemporaryFile() {
        wchar_t folder[MAX_PATH], name[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        GetTempFileNameW(folder, L"obk", 0, name);
        path_ = name;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { DeleteFileW(path_.c_str()); }
    const std::wstring& path() const { return path_; }

private:
    std::wstring path_;
};

TEST(GridEditScript, AFileIsSavedAndLoadedWithoutAWindow) {
    const TemporaryFile file;
    const LoadedServer server;
    {
        const auto control = server.create(L"GridEdit");
        const container::Dispatch grid(control.get());
        grid.call(L"ColsSet", {12});
        grid.call(L"RowsSet", {0});
        for (long row = 0; row < 3; ++row)
            grid.call(L"RowAddQuick", {L"oak, 160 \x00D7 80\t\u20AC 5\t\u4E2D", row});
        grid.call(L"GridSave", {file.path(), L"Orders"});
    }
    const auto control = server.create(L"GridEdit");
    const container::Dispatch grid(control.get());
    Variant caption, rows, text, outside;
    EXPECT_EQ(grid.call(L"GridLoad", {file.path()}, &caption), S_OK);
    EXPECT_EQ(caption.toText(), L"Orders");
    grid.call(L"RowsCurrent", {}, &rows);
    EXPECT_EQ(rows.toLong(), 3);
    grid.call(L"CellTextRead", {2, 0}, &text);
    EXPECT_EQ(text.toText(), L"oak, 160 \x00D7 80");
    grid.call(L"CellTextRead", {2, 2}, &outside);
    if (GetACP() == 1252) {
        EXPECT_EQ(outside.toText(), L"?");
    }
    EXPECT_EQ(grid.call(L"GridLoad", {L"Z:\\no such folder\\orders.txt"}, &caption), S_OK);
    EXPECT_EQ(caption.toText(), L"");
}

}  // namespace
}  // namespace obk
