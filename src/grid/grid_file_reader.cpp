#include "grid/grid_file_reader.h"

#include "framework/value.h"

#include <algorithm>

namespace obk {

namespace {

// What a check mark stands off the cell's edge by. It is kept in the text, and written with it; loading trims
// before it pads, so that it does not grow.
constexpr TextView checkPadding = u"  ";

// `text` has the padding before it, and blanks of its own are as good.
TextView padded(TextView text) {
    const TextView mark = trimmed(text);
    const char16_t* const start = mark.empty() ? text.data() : mark.data();
    return {start - checkPadding.size(), checkPadding.size() + mark.size()};
}

}  // namespace

GridFileReader::GridFileReader(FileSystem& files, TextView path, WaitCursor& waitCursor)
    : fields_(files.openForReading(path), files.codePage(), waitCursor) {}

GridFileHeader GridFileReader::header() {
    constexpr size_t cut = 3;
    Text line;
    fields_.read(line);
    GridFileHeader header;
    if (const size_t bar = line.find(u'|'); bar != Text::npos)
        header.cols = toLong(Value(line.substr(0, bar)));
    header.caption = line.substr(std::min(cut, line.size()));
    return header;
}

std::span<const TextView> GridFileReader::row(int32_t cols, const ColumnTypes& types) {
    units_.clear();
    places_.clear();
    texts_.clear();
    for (int32_t col = 0; col < cols; ++col) {
        const size_t before = units_.size();
        units_ += checkPadding;
        const size_t start = units_.size();
        if (fields_.read(units_))
            places_.push_back({start, units_.size() - start});
        else if (units_.resize(before); !places_.empty())
            places_.push_back(places_.back());
    }
    const TextView units = units_;
    for (const auto& [start, length] : places_) {
        const TextView text = units.substr(start, length);
        const auto col = static_cast<int32_t>(texts_.size());
        texts_.push_back(types.type(col) == ColumnType::checkBox ? padded(text) : text);
    }
    return texts_;
}

}  // namespace obk
