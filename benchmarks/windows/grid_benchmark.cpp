#include "grid_benchmark.h"
#include "timing.h"

#include "container/control_form.h"
#include "container/control_site.h"
#include "flexgrid/grid_model.h"

#include <commctrl.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string>

namespace {

using namespace obk::container;

constexpr int cols = 12;
constexpr SIZE frame{1280, 800};

std::wstring cellText(long row, int col) {
    return col == 0 ? std::to_wstring(row) : L"text " + std::to_wstring((row * 31 + col * 7) % 9973);
}

std::wstring rowText(long row) {
    std::wstring text = cellText(row, 0);
    for (int col = 1; col < cols; ++col) text += L'\t' + cellText(row, col);
    return text;
}

// A window on the screen that paints nothing itself.
class Host {
public:
    Host()
        : window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, frame.cx, frame.cy, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr)) {}
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() { DestroyWindow(window_); }
    HWND get() const { return window_; }

private:
    HWND window_;
};

// A grid on a form, by dispatch numbers as a compiled host calls it.
class Grid {
public:
    Grid(const ServerContext& server, HWND host) : form_(host), site_(form_) {
        site_.create(server, L"OBKCTRLS.GridEdit");
        site_.activate({0, 0, frame.cx, frame.cy});
        site_.events().keepJournal(false);
    }
    DISPID number(const wchar_t* name) const { return MemberName(name).resolve(site_.object().get()); }
    void call(DISPID member, const Arguments& arguments = {}, Variant* result = nullptr) const {
        site_.object().invoke(member, DISPATCH_METHOD, arguments, result);
    }
    void call(const wchar_t* name, const Arguments& arguments = {}) const { call(number(name), arguments); }
    void fill(long rows) const {
        const DISPID add = number(L"RowAddQuick");
        call(L"GridRedraw", {false});
        call(L"ColsSet", {cols});
        call(L"RowsSet", {0});
        for (long row = 0; row < rows; ++row) call(add, {rowText(row), row});
        call(L"GridRedraw", {true});
    }
    HWND window() const { return site_.window(); }

private:
    ControlForm form_;
    ControlSite site_;
};

double ownFrame(const ServerContext& server, HWND host, long rows) {
    const Grid grid(server, host);
    grid.fill(rows);
    std::mt19937 random(1);
    const DISPID top = grid.number(L"TopRowSet");
    return medianMicroseconds(200, [&] {
        grid.call(top, {static_cast<long>(random() % static_cast<unsigned long>(rows - 50))});
        UpdateWindow(grid.window());
    });
}

double listViewFrame(HWND host, long rows) {
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                      frame.cx, frame.cy, host, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (int col = 0; col < cols; ++col) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = 64;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(col), reinterpret_cast<LPARAM>(&column));
    }
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            std::wstring text = cellText(row, col);
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = row;
            item.iSubItem = col;
            item.pszText = text.data();
            SendMessageW(list, col == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    RECT row{};
    row.left = LVIR_BOUNDS;
    SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    std::mt19937 random(1);
    const double took = medianMicroseconds(200, [&] {
        const auto wanted = static_cast<long>(random() % static_cast<unsigned long>(rows - 50));
        const auto top = static_cast<long>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
        SendMessageW(list, LVM_SCROLL, 0, LPARAM{wanted - top} * (row.bottom - row.top));
        UpdateWindow(list);
    });
    DestroyWindow(list);
    return took;
}

void measureFrames(const ServerContext& server, HWND host) {
    const double list = listViewFrame(host, 1000);
    double least = 0, most = 0;
    for (const long rows : {1000L, 100000L, 1000000L}) {
        const double took = ownFrame(server, host, rows);
        least = least == 0 ? took : std::min(least, took);
        most = std::max(most, took);
        std::printf("frame, %7ld rows     %8.1f us, the list view's with 1000 %8.1f us: %.2f times\n", rows,
                    took, list, took / list);
    }
    std::printf("frame, slowest against fastest: %.2f times (wanted: at most 1.25)\n", most / least);
}

void printCalls(const char* what, double model, double called, int calls) {
    std::printf("%-6s through the interface %8.1f ns a call, %5.1f times as long as the model alone\n", what,
                called * 1000 / calls, called / model);
}

// The same calls on a grid without an interface between.
void measureCalls(const ServerContext& server, HWND host) {
    constexpr long rows = 100000;
    constexpr int calls = 1000000;
    std::vector<std::wstring> items;
    for (long row = 0; row < rows; ++row) items.push_back(rowText(row));
    const auto asText = [](const std::wstring& text) {
        return obk::TextView(reinterpret_cast<const char16_t*>(text.data()), text.size());
    };
    std::unique_ptr<obk::GridModel> model;
    const double modelFill = medianMicroseconds(
        5, [&] { model = std::make_unique<obk::GridModel>(0, cols, obk::Dpi(96)); },
        [&] {
            for (int32_t row = 0; row < rows; ++row) model->addItem(asText(items[size_t(row)]), row);
        });
    const Grid grid(server, host);
    const DISPID add = grid.number(L"RowAddQuick"), read = grid.number(L"CellTextRead");
    const DISPID write = grid.number(L"CellTextSet"), colour = grid.number(L"CellColorSetx");
    grid.call(L"ColsSet", {cols});
    grid.call(L"GridRedraw", {false});
    const double fill = medianMicroseconds(
        5, [&] { grid.call(L"RowsSet", {0}); },
        [&] {
            for (long row = 0; row < rows; ++row) grid.call(add, {items[size_t(row)], row});
        });
    printCalls("fill", modelFill, fill, rows);
    std::mt19937 random(1);
    std::vector<std::pair<long, long>> cells(calls);
    for (auto& [row, col] : cells) row = long(random() % rows), col = long(random() % cols);
    size_t units = 0;
    const double modelRead = medianMicroseconds(3, [&] {
        for (const auto& [row, col] : cells)
            units += obk::Text(model->text({int32_t(row), int32_t(col)})).size();
    });
    const double ownRead = medianMicroseconds(3, [&] {
        for (const auto& [row, col] : cells) {
            Variant text;
            grid.call(read, {row, col}, &text);
            units += SysStringLen(V_BSTR(&text.get()));
        }
    });
    if (units == 0) std::printf("nothing was read\n");
    printCalls("read", modelRead, ownRead, calls);
    // Texts that fit where those of these cells are.
    const auto written = [](long row) { return std::to_wstring(row % 997); };
    const double modelWrite = medianMicroseconds(3, [&] {
        for (const auto& [row, col] : cells)
            model->setText({int32_t(row), int32_t(col)}, asText(written(row)));
    });
    const double ownWrite = medianMicroseconds(3, [&] {
        for (const auto& [row, col] : cells) grid.call(write, {row, col, written(row)});
    });
    printCalls("write", modelWrite, ownWrite, calls);
    constexpr long band = 0xFFFF, ground = 0xC0C0C0;
    const double modelColour = medianMicroseconds(3, [&] {
        for (int32_t cell = 0; cell < rows * cols; ++cell)
            model->setAttribute<&obk::CellStyle::backColour>({cell / cols, cell % cols},
                                                             obk::OleColour(cell / cols % 2 ? ground : band));
    });
    const double ownColour = medianMicroseconds(3, [&] {
        for (long cell = 0; cell < rows * cols; ++cell)
            grid.call(colour, {cell / cols % 2 ? ground : band, cell / cols, cell % cols});
    });
    printCalls("colour", modelColour, ownColour, rows * cols);
}

// Opening and closing a text editor against a bare EDIT window that is made, shown and destroyed.
void measureEditing(const ServerContext& server, HWND host) {
    const Grid grid(server, host);
    grid.fill(50);
    const DISPID show = grid.number(L"BoxShow"), hide = grid.number(L"BoxHide");
    const double own = medianMicroseconds(101, [&] {
        grid.call(show);
        grid.call(hide);
    });
    const double bare = medianMicroseconds(101, [&] {
        const HWND edit = CreateWindowExW(0, L"EDIT", L"text", WS_CHILD, 10, 10, 64, 18, host, nullptr,
                                          GetModuleHandleW(nullptr), nullptr);
        ShowWindow(edit, SW_SHOW);
        DestroyWindow(edit);
    });
    std::printf("open and close an editor  %8.1f us, a bare edit %8.1f us: %.2f times (wanted: at most 3)\n",
                own, bare, own / bare);
}

}  // namespace

void measureGrid(const ServerContext& server) {
    const Host host;
    measureFrames(server, host.get());
    measureCalls(server, host.get());
    measureEditing(server, host.get());
}
