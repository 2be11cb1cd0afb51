// A grid without a form: fills it, reads it back, and hears the events of a number field. Only what stands
// beside it is needed:
//
//   g++ -std=c++17 -static -I ../../imports order.cpp -lole32 -loleaut32 -luuid      (or any other compiler
//   for C++17)
//
// It runs where the controls are registered.
#include "obkctrls.h"

#include <iostream>

namespace {

// COM, for as long as it lives.
struct Automation {
    Automation() { CoInitialize(nullptr); }
    ~Automation() { CoUninitialize(); }
};

// How often the quantity changed.
int run() {
    const wchar_t* const articles[][2] = {{L"Pencil", L"12"}, {L"Eraser", L"3"}, {L"Ruler", L"7"}};
    OBKCTRLS::GridEdit grid;
    grid.RowsSet(3);
    grid.ColsSet(2);
    for (long row = 0; row < 3; ++row) {
        for (long column = 0; column < 2; ++column) grid.CellTextSet(row, column, articles[row][column]);
    }
    std::wcout << grid.RowsCurrent() << L" rows, the second article is " << grid.CellTextRead(1, 0) << L'\n';

    int changes = 0;
    OBKCTRLS::UpDownTextBox quantity;
    quantity.onChange = [&] {
        ++changes;
        std::wcout << L"quantity: " << quantity.Text() << L'\n';
    };
    quantity.Max(100);
    quantity.Text(grid.CellTextRead(0, 1));

    std::wstring extra;
    if (quantity.KeyLock('7', false, extra) == '7') std::wcout << L"a digit is taken\n";
    return changes;
}

}  // namespace

int main() {
    Automation automation;
    try {
        if (run() == 1) std::wcout << L"ok\n";
    } catch (const OBKCTRLS::Error& error) {
        std::cerr << error.what() << " was refused: " << std::hex << error.result() << '\n';
        return 1;
    }
    return 0;
}
