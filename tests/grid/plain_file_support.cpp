#include "grid/plain_file.h"

#include <algorithm>
#include <string_view>

namespace obk::test {

namespace {

// From 0x80 on; the five blanks stand for the bytes without a character.
constexpr TextView special = u"€ ‚ƒ„…†‡ˆ‰Š‹Œ Ž  ‘’“”•–—˜™š›œ žŸ";
constexpr unsigned firstSpecial = 0x80;

}  // namespace

char plainByte(char16_t unit) {
    const size_t found = special.find(unit);
    if (unit != u' ' && found != TextView::npos) return static_cast<char>(firstSpecial + found);
    const bool same = unit < 0x100 && plainUnit(static_cast<char>(unit)) == unit;
    return same ? static_cast<char>(unit) : '?';
}

char16_t plainUnit(char byte) {
    const unsigned number = static_cast<unsigned char>(byte);
    if (number < firstSpecial || number >= firstSpecial + special.size())
        return static_cast<char16_t>(number);
    const char16_t unit = special[number - firstSpecial];
    return unit == u' ' ? static_cast<char16_t>(number) : unit;
}

std::string plainBytes(const PlainTexts& cells, int32_t cols, TextView caption) {
    std::string bytes;
    const auto line = [&bytes](const std::string& text) { bytes += "\"" + text + "\"\r\n"; };
    const auto encoded = [](TextView text) {
        std::string all;
        for (const char16_t unit : text) all += plainByte(unit);
        return all;
    };
    line(std::to_string(cols) + "|" + encoded(caption));
    for (const auto& row : cells) {
        for (const Text& text : row) line(encoded(text));
    }
    return bytes;
}

std::vector<Text> plainFields(const std::string& bytes) {
    std::vector<Text> fields;
    std::string_view rest = bytes;
    while (!rest.empty()) {
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        std::string_view field;
        const bool quoted = !rest.empty() && rest[0] == '"';
        if (quoted) {
            rest.remove_prefix(1);
            const size_t quote = std::min(rest.find('"'), rest.size());
            field = rest.substr(0, quote);
            rest.remove_prefix(quote);
        }
        const size_t end = std::min(rest.find_first_of(",\r\n"), rest.size());
        if (!quoted) {
            field = rest.substr(0, end);
            field = field.substr(0, field.find_last_not_of(' ') + 1);
        }
        rest.remove_prefix(end);
        if (!rest.empty()) rest.remove_prefix(rest.substr(0, 2) == "\r\n" ? 2 : 1);
        Text text;
        for (const char byte : field) text += plainUnit(byte);
        fields.push_back(text);
    }
    return fields;
}

PlainTexts plainRows(const std::vector<Text>& fields, size_t cols) {
    PlainTexts rows;
    for (size_t at = 1; at < fields.size(); ++at) {
        if ((at - 1) % cols == 0) rows.emplace_back();
        rows.back().push_back(fields[at]);
    }
    if (!rows.empty()) rows.back().resize(cols, fields.back());
    return rows;
}

std::unique_ptr<GridModel> gridOf(const PlainTexts& cells, int32_t cols) {
    auto grid = std::make_unique<GridModel>(0, cols, Dpi(96));
    for (const auto& row : cells) grid->addTexts(std::vector<TextView>(row.begin(), row.end()), grid->rows());
    return grid;
}

PlainTexts textsOf(const GridModel& grid) {
    PlainTexts rows(static_cast<size_t>(grid.rows()));
    for (CellAddress cell; cell.row < grid.rows(); ++cell.row) {
        for (cell.col = 0; cell.col < grid.cols(); ++cell.col)
            rows[static_cast<size_t>(cell.row)].emplace_back(grid.text(cell));
    }
    return rows;
}

bool GridFiles::save(const GridModel& grid, TextView caption, TextView to) {
    WaitCursor waitCursor(clock, [this](bool shown) { signs.push_back(shown); });
    GridFileWriter file(files, to, waitCursor);
    file.writeHeader(grid.cols(), caption);
    writeRows(grid, file);
    return file.close();
}

Text GridFiles::load(GridModel& grid) {
    grid.setRows(0);
    WaitCursor waitCursor(clock, [this](bool shown) { signs.push_back(shown); });
    GridFileReader file(files, path, waitCursor);
    const GridFileHeader header = file.header();
    if (header.cols) grid.setCols(*header.cols);
    readRows(grid, file, types);
    return header.caption;
}

}  // namespace obk::test
