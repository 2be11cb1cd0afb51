// The grid as an order desk: every kind of column, sorted by its captions, kept in a text file.
#include "page_catalog.h"

#include <iterator>

namespace obk::gallery {

namespace {

enum Column : long { stateCol, numberCol, customerCol, articleCol, deliveryCol, timeCol, piecesCol, paidCol };

struct ColumnEntry {
    const wchar_t* caption;
    double width;  // twips
    long type;
};
constexpr ColumnEntry columns[] = {{L"", 330, 2},         {L"No.", 480, 2},       {L"Customer", 1300, 0},
                                   {L"Article", 1200, 4}, {L"Delivery", 1500, 1}, {L"Time", 1060, 6},
                                   {L"Qty", 600, 5},      {L"Paid", 450, 3}};
constexpr const wchar_t* articles[] = {L"Writing desk", L"Bookcase", L"Dining chair", L"Sideboard", L"Lamp"};

constexpr const wchar_t* orders[] = {
    L"\t4711\tLindqvist AB\tWriting desk\tMon 23 Nov 2026\t9:30:00 am\t4\ta",
    L"\t4712\tSolberg, Oslo\tBookcase\tTue 24 Nov 2026\t8:00:00 am\t2\t",
    L"\t4713\tHotel Aurora\tDining chair\tTue 24 Nov 2026\t1:00:00 pm\t48\ta",
    L"\t4714\tDr. M. Ferro\tLamp\tThu 26 Nov 2026\t10:00:00 am\t1\t",
    L"\t4715\tBrandt & Co.\tSideboard\tFri 27 Nov 2026\t3:30:00 pm\t1\ta",
    L"\t4716\tNordic Freight\tDining chair\tFri 27 Nov 2026\t11:30:00 am\t12\t",
    L"\t4717\tCaf\x00E9 Iris\tLamp\tMon 30 Nov 2026\t9:00:00 am\t6\t",
};

std::wstring cell(const container::Dispatch& grid, long row, long col) {
    container::Variant text;
    grid.call(L"CellTextRead", {row, col}, &text);
    return text.toText();
}

long count(const container::Dispatch& grid, const wchar_t* member) {
    container::Variant answer;
    grid.call(member, {}, &answer);
    return answer.toLong().value_or(0);
}

// What follows from a row's texts: its icon, and a check mark in the font that draws it.
void dress(const container::Dispatch& grid, long row) {
    const std::wstring paid = cell(grid, row, paidCol);
    const bool isPaid = paid.find(L'a') != std::wstring::npos;
    grid.call(L"CellChkSet", {row, paidCol, isPaid ? L"1" : L"0"});
    grid.call(L"CellFormatSet", {row, paidCol, L"webdings", L"12", false, false,
                                 static_cast<long>(0x80000000u | COLOR_WINDOWTEXT)});
    grid.call(L"CellSetIcon", {stateCol, row, isPaid ? L"Home - Money" : L"Work - Clock"});
}

// All rows, with the current cell where it was.
void dressAll(const container::Dispatch& grid) {
    const long row = count(grid, L"RowCurrent"), col = count(grid, L"ColCurrent");
    const COLORREF band = mixed(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_WINDOW), 24);
    grid.call(L"RowsRefreshColors", {static_cast<long>(band)});
    for (long each = 0; each < count(grid, L"RowsCurrent"); ++each) dress(grid, each);
    grid.call(L"ColSetFocus", {col});
    grid.call(L"RowSetFocus", {row});
    grid.call(L"GridRedraw", {true});
}

void setUp(const container::Dispatch& grid) {
    grid.call(L"GridRedraw", {false});
    grid.call(L"ColsSet", {static_cast<long>(std::size(columns))});
    grid.call(L"RowsSet", {0});
    for (long col = 0; col < static_cast<long>(std::size(columns)); ++col) {
        grid.call(L"ColTypeSet", {col, columns[col].type});
        grid.call(L"ColWidth", {col, columns[col].width});
        grid.call(L"BarHeaderCaptionSet", {col, columns[col].caption});
    }
    for (const wchar_t* article : articles) grid.call(L"ComboAdd", {article});
    long row = 0;
    for (const wchar_t* order : orders) grid.call(L"RowAddQuick", {order, row++});
    grid.call(L"RowSetFocus", {0});
    grid.call(L"ColSetFocus", {customerCol});
    dressAll(grid);
}

std::wstring ordersFile() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + L"obkctrls-orders.txt";
}

}  // namespace

void buildOrderDesk(Scene& scene) {
    scene.text({20, 14, 466, fieldHeight}, L"Order desk", TextLook::heading);
    SceneControl& control = scene.control(L"Orders", L"OBKCTRLS.GridEdit", {20, 44, 466, 164});
    const size_t told = scene.text({20, 218, 200, fieldHeight}, L"", TextLook::dim);
    setUp(control.object());

    const auto total = [&scene, &control, told] {
        const auto grid = control.object();
        long pieces = 0;
        for (long row = 0; row < count(grid, L"RowsCurrent"); ++row)
            pieces += container::Variant(cell(grid, row, piecesCol)).toLong().value_or(0);
        scene.setText(told, std::to_wstring(count(grid, L"RowsCurrent")) + L" orders, " +
                                std::to_wstring(pieces) + L" pieces");
    };
    auto& events = control.site->events();
    events.on(L"SortClick", [&control](container::EventCall&) {
        control.object().call(L"BarHeaderSort");
        dressAll(control.object());
    });
    events.on(L"ChangePost", [&control, total](container::EventCall&) {
        dressAll(control.object());
        total();
    });
    events.on(L"DelRow", [total](container::EventCall&) { total(); });
    events.on(L"NewRow", [&control, total](container::EventCall&) {
        dressAll(control.object());
        total();
    });
    total();
    scene.derived(total);

    scene.button({226, 216, 84, 28}, L"By date",
                 [&control] { control.object().call(L"GridColSortInitialDate"); });
    scene.button({314, 216, 84, 28}, L"Save", [&scene, &control, told] {
        // The file begins with the number of columns; loading takes three characters off its first line.
        control.object().call(L"GridSave", {ordersFile(), L" Orders"});
        scene.setText(told, L"Saved.");
    });
    scene.button({402, 216, 84, 28}, L"Load", [&control, total] {
        control.object().call(L"GridLoad", {ordersFile()});
        control.object().call(L"GridShow");
        dressAll(control.object());
        total();
    });
    scene.demonstration([&scene, &control] {
        if (!scene.form().enter(*control.site)) return;
        control.object().call(L"ColSetFocus", {customerCol});
        control.object().call(L"GridColSort", {customerCol});
        dressAll(control.object());
        control.object().call(L"GridSetFocus", {articleCol, 2});
    });
}

}  // namespace obk::gallery
