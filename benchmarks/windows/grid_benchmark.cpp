#include "grid_benchmark.h"
#include "timing.h"

#include "container/control_form.h"
#include "container/control_site.h"
#include "flexgrid/grid_model.h"
#include "platform/win32/win32_platform.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace obk::container;

constexpr int cols = 12;
constexpr long rows = 100000;
constexpr SIZE frame{1280, 800};

std::wstring cellText(long row, int col) {
    return col == 0 ? std::to_wstring(row) : L"text " + std::to_wstring((row * 31 + col * 7) % 9973);
}

std::wstring rowText(long row) {
    std::wstring text = cellText(row, 0);
    for (int col = 1; col < cols; ++col) text += L'\t' + cellText(row, col);
    return text;
}

std::vector<std::wstring> rowTexts() {
    std::vector<std::wstring> texts;
    for (long row = 0; row < rows; ++row) texts.push_back(rowText(row));
    return texts;
}

obk::TextView asText(const std::wstring& text) {
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
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
    IDispatch* dispatch() const { return site_.object().get(); }
    void fill(long count) const {
        const DISPID add = number(L"RowAddQuick");
        call(L"GridRedraw", {false});
        call(L"ColsSet", {cols});
        call(L"RowsSet", {0});
        for (long row = 0; row < count; ++row) call(add, {rowText(row), row});
        call(L"GridRedraw", {true});
    }
    HWND window() const { return site_.window(); }

private:
    ControlForm form_;
    ControlSite site_;
};

// One call by number with arguments that stay where they are, as compiled code makes it. Each text is a new
// one of the system's, which the caller frees.
class Call {
public:
    Call(const Grid& grid, const wchar_t* name, UINT count, WORD flags = DISPATCH_METHOD)
        : grid_(grid.dispatch()), number_(grid.number(name)), count_(count), flags_(flags) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
        for (VARIANT& argument : arguments_) VariantClear(&argument);
    }
    // Arguments in their declared order.
    Call& number(UINT at, long value) {
        VARIANT& argument = arguments_[count_ - 1 - at];
        V_VT(&argument) = VT_I4;
        V_I4(&argument) = value;
        return *this;
    }
    Call& text(UINT at, const std::wstring& value) {
        VARIANT& argument = arguments_[count_ - 1 - at];
        VariantClear(&argument);
        V_VT(&argument) = VT_BSTR;
        V_BSTR(&argument) = SysAllocStringLen(value.data(), UINT(value.size()));
        return *this;
    }
    // Units of the text that it answers; 0 where it answers something else.
    UINT make() {
        VARIANT result;
        VariantInit(&result);
        DISPPARAMS parameters{arguments_, nullptr, count_, 0};
        if (FAILED(grid_->Invoke(number_, IID_NULL, LOCALE_USER_DEFAULT, flags_, &parameters, &result,
                                 nullptr, nullptr)))
            std::printf("a call failed\n");
        const UINT units = V_VT(&result) == VT_BSTR ? SysStringLen(V_BSTR(&result)) : 0;
        VariantClear(&result);
        return units;
    }

private:
    IDispatch* grid_;
    DISPID number_;
    UINT count_;
    WORD flags_;
    VARIANT arguments_[4]{};
};

double ownFrame(const ServerContext& server, HWND host, long count) {
    const Grid grid(server, host);
    grid.fill(count);
    std::mt19937 random(1);
    const DISPID top = grid.number(L"TopRowSet");
    return medianOf(200, [&] {
        return microseconds([&] {
            grid.call(top, {static_cast<long>(random() % static_cast<unsigned long>(count - 50))});
            UpdateWindow(grid.window());
        });
    });
}

double listViewFrame(HWND host, long count) {
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                      frame.cx, frame.cy, host, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (int col = 0; col < cols; ++col) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = 64;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(col), reinterpret_cast<LPARAM>(&column));
    }
    for (int row = 0; row < count; ++row) {
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
    const double took = medianOf(200, [&] {
        return microseconds([&] {
            const auto wanted = static_cast<long>(random() % static_cast<unsigned long>(count - 50));
            const auto top = static_cast<long>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
            SendMessageW(list, LVM_SCROLL, 0, LPARAM{wanted - top} * (row.bottom - row.top));
            UpdateWindow(list);
        });
    });
    DestroyWindow(list);
    return took;
}

void measureFrames(const ServerContext& server, HWND host) {
    const double list = listViewFrame(host, 1000);
    for (const long count : {1000L, 100000L, 1000000L}) {
        const SideBySide frames{ownFrame(server, host, count), list};
        char work[80];
        std::snprintf(work, sizeof work, "frame after a jump, %ld rows", count);
        printRatio(work, frames, "us", 0.4);
    }
}

// What a call itself costs is allowed as often as a property's getting takes.
void printCalls(const char* what, const SideBySide& microseconds, int calls, double get) {
    printRatio(what, {microseconds.own * 1000 / calls, microseconds.other * 1000 / calls + 5 * get}, "ns", 1);
}

// The same calls on a grid without an interface between.
void measureCalls(const ServerContext& server, HWND host) {
    constexpr int calls = 1000000;
    const std::vector<std::wstring> items = rowTexts();
    std::unique_ptr<obk::GridModel> model;
    const Grid grid(server, host);
    grid.call(L"ColsSet", {cols});
    grid.call(L"GridRedraw", {false});
    Call add(grid, L"RowAddQuick", 2);
    const SideBySide fill = sideBySide(
        [&] {
            grid.call(L"RowsSet", {0});
            return microseconds([&] {
                for (long row = 0; row < rows; ++row) add.text(0, items[size_t(row)]).number(1, row).make();
            });
        },
        [&] {
            model = std::make_unique<obk::GridModel>(0, cols, obk::Dpi(96));
            return microseconds([&] {
                for (int32_t row = 0; row < rows; ++row) model->addItem(asText(items[size_t(row)]), row);
            });
        });
    printRatio("fill 100,000 rows by RowAddQuick", fill, "us", 3);

    std::mt19937 random(1);
    std::vector<std::pair<long, long>> cells(calls);
    for (auto& [row, col] : cells) row = long(random() % rows), col = long(random() % cols);
    Call get(grid, L"MousePosn", 0, DISPATCH_PROPERTYGET);
    const double gotten = medianOf(5, [&] {
        return microseconds([&] {
                   for (int call = 0; call < calls; ++call) get.make();
               }) *
               1000 / calls;
    });
    Call read(grid, L"CellTextRead", 2);
    size_t units = 0;
    const SideBySide reading = sideBySide(
        [&] {
            return microseconds([&] {
                for (const auto& [row, col] : cells) units += read.number(0, row).number(1, col).make();
            });
        },
        [&] {
            return microseconds([&] {
                for (const auto& [row, col] : cells)
                    units += obk::Text(model->text({int32_t(row), int32_t(col)})).size();
            });
        });
    if (units == 0) std::printf("nothing was read\n");
    printCalls("CellTextRead, the model and 5 gets", reading, calls, gotten);

    // Texts that fit where those of these cells are.
    std::vector<std::wstring> texts;
    texts.reserve(997);
    for (int text = 0; text < 997; ++text) texts.push_back(std::to_wstring(text));
    Call write(grid, L"CellTextSet", 3);
    const SideBySide writing = sideBySide(
        [&] {
            return microseconds([&] {
                for (const auto& [row, col] : cells)
                    write.number(0, row).number(1, col).text(2, texts[size_t(row % 997)]).make();
            });
        },
        [&] {
            return microseconds([&] {
                for (const auto& [row, col] : cells)
                    model->setText({int32_t(row), int32_t(col)}, asText(texts[size_t(row % 997)]));
            });
        });
    printCalls("CellTextSet, the model and 5 gets", writing, calls, gotten);

    constexpr long band = 0xFFFF, ground = 0xC0C0C0;
    Call colour(grid, L"CellColorSetx", 3);
    const SideBySide colouring = sideBySide(
        [&] {
            return microseconds([&] {
                for (long cell = 0; cell < rows * cols; ++cell)
                    colour.number(0, cell / cols % 2 ? ground : band)
                        .number(1, cell / cols)
                        .number(2, cell % cols)
                        .make();
            });
        },
        [&] {
            return microseconds([&] {
                for (int32_t cell = 0; cell < rows * cols; ++cell)
                    model->setAttribute<&obk::CellStyle::backColour>(
                        {cell / cols, cell % cols}, obk::OleColour(cell / cols % 2 ? ground : band));
            });
        });
    printCalls("CellColorSetx, the model and 5 gets", colouring, rows * cols, gotten);
}

void measureRowAdd(const ServerContext& server, HWND host) {
    constexpr int added = 10000;
    const Grid grid(server, host);
    const std::wstring text = rowText(1);
    const auto adding = [&](const wchar_t* name) {
        return [&grid, &text, name] {
            Call add(grid, name, 2);
            const double took = microseconds([&] {
                for (int row = 0; row < added; ++row) add.text(0, text).number(1, 0).make();
            });
            grid.call(L"RowsSet", {1});
            return took / added;
        };
    };
    grid.fill(1);
    grid.call(L"GridRedraw", {false});
    printRatio("RowAdd at row 0, not drawn, and RowAddQuick",
               sideBySide(adding(L"RowAdd"), adding(L"RowAddQuick")), "us", 2);
    grid.call(L"GridRedraw", {true});
    printAmount("RowAdd at row 0, drawn", medianOf(5, adding(L"RowAdd")) / 1000, "ms", 0.1);
}

// The file's bytes split and widened, and written through a buffer and flushed.
struct PlainFile {
    std::wstring path;

    void save(const std::string& bytes) const {
        constexpr size_t block = 65536;
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        std::vector<char> buffer;
        buffer.reserve(2 * block);
        DWORD written = 0;
        const auto flush = [&] {
            WriteFile(file, buffer.data(), DWORD(buffer.size()), &written, nullptr);
            buffer.clear();
        };
        for (size_t from = 0; from < bytes.size();) {
            const size_t end = std::min(bytes.find('\n', from), bytes.size() - 1) + 1;
            buffer.insert(buffer.end(), bytes.begin() + long(from), bytes.begin() + long(end));
            if (buffer.size() >= block) flush();
            from = end;
        }
        flush();
        FlushFileBuffers(file);
        CloseHandle(file);
    }
    std::string load() const {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        std::string bytes(GetFileSize(file, nullptr), '\0');
        DWORD read = 0;
        ReadFile(file, bytes.data(), DWORD(bytes.size()), &read, nullptr);
        CloseHandle(file);
        return bytes;
    }
};

void measureFiles(const ServerContext& server, HWND host) {
    const Grid grid(server, host);
    grid.fill(rows);
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"obk_benchmark.txt";
    const PlainFile plain{std::wstring(folder) + L"obk_benchmark_plain.txt"};
    grid.call(L"GridSave", {path, L"Orders"});
    const std::string bytes = PlainFile{path}.load();
    printRatio("GridSave of 100,000 rows",
               sideBySide([&] { return microseconds([&] {
                                    grid.call(L"GridSave", {path, L"Orders"});
                                }); },
                          [&] { return microseconds([&] { plain.save(bytes); }); }),
               "us", 2);
    size_t ends = 0;
    printRatio("GridLoad of 100,000 rows",
               sideBySide([&] { return microseconds([&] { grid.call(L"GridLoad", {path}); }); },
                          [&] {
                              return microseconds([&] {
                                  const std::string read = plain.load();
                                  std::vector<wchar_t> wide;
                                  std::vector<size_t> cells;
                                  wide.reserve(read.size());
                                  cells.reserve(size_t{rows} * cols);
                                  std::string_view rest = read;
                                  while (!rest.empty()) {
                                      const size_t end = std::min(rest.find('"', 1), rest.size());
                                      const auto* text = reinterpret_cast<const unsigned char*>(rest.data());
                                      wide.insert(wide.end(), text + 1, text + end);
                                      cells.push_back(wide.size());
                                      rest.remove_prefix(std::min(end + 3, rest.size()));
                                  }
                                  ends += cells.size();
                              });
                          }),
               "us", 3);
    if (ends == 0) std::printf("nothing was loaded\n");
    DeleteFileW(path.c_str());
    DeleteFileW(plain.path.c_str());
}

// 100,000 texts in the order of the user's alphabet, against that of their units.
void measureSort() {
    constexpr uint32_t count = 100000;
    std::vector<obk::Text> texts;
    std::mt19937 random(1);
    for (uint32_t at = 0; at < count; ++at) {
        obk::Text& text = texts.emplace_back();
        for (uint32_t letters = 6 + random() % 10; letters > 0; --letters)
            text += static_cast<char16_t>(u'a' + random() % 26);
    }
    obk::win32::Win32Platform platform(GetModuleHandleW(nullptr));
    const auto sort = [&](const obk::SortKeyOf& keyOf) {
        return microseconds([&] {
            obk::sortedOrder(
                count, [&](uint32_t at) { return obk::TextView(texts[at]); }, obk::SortDirection::ascending,
                keyOf);
        });
    };
    printRatio(
        "sort 100,000 texts by the alphabet, by units",
        sideBySide(
            [&] {
                return sort([&](obk::TextView text, std::string& key) { platform.appendSortKey(text, key); });
            },
            [&] { return sort({}); }),
        "us", 4);
}

HWND dropped() {
    HWND found = nullptr;
    const auto look = [](HWND window, LPARAM result) -> BOOL {
        if (IsWindowVisible(window) && GetWindow(window, GW_OWNER)) *reinterpret_cast<HWND*>(result) = window;
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&found));
    return found;
}

// A list of 10,000 items dropped down, with the frame that shows it.
void measureList(const ServerContext& server, HWND host) {
    const Grid grid(server, host);
    grid.fill(50);
    constexpr long listType = 4;
    grid.call(L"ColTypeSet", {1, listType});
    for (long item = 0; item < 10000; ++item) grid.call(L"ComboAdd", {cellText(item, 1)});
    grid.call(L"GridSetFocus", {1, 0});
    const DISPID key = grid.number(L"cboLIST_KeyDown");
    bool shown = true;
    const double took = medianOf(21, [&] {
        grid.call(L"BoxHide");
        grid.call(L"BoxShow");
        return microseconds([&] {
            grid.call(key, {short{VK_F4}, short{0}});
            const HWND list = dropped();
            shown = shown && list;
            UpdateWindow(list);
        });
    });
    if (!shown) std::printf("nothing dropped down\n");
    printAmount("drop down 10,000 items", took / 1000, "ms", 16.7);
}

}  // namespace

void measureGrid(const ServerContext& server) {
    const Host host;
    measureCalls(server, host.get());
    measureRowAdd(server, host.get());
    measureFiles(server, host.get());
    measureFrames(server, host.get());
    measureSort();
    measureList(server, host.get());
}
