#include "grid/column_types.h"

namespace obk {

namespace {

bool inTable(int32_t col) {
    return col >= 0 && col < ColumnTypes::count;
}

}  // namespace

bool ColumnTypes::set(int32_t col, int32_t code) {
    if (!inTable(col)) return false;
    const auto at = static_cast<size_t>(col);
    if (at >= codes_.size() && code != 0) codes_.resize(at + 1);
    if (at < codes_.size()) codes_[at] = code;
    return true;
}

int32_t ColumnTypes::code(int32_t col) const {
    const auto at = static_cast<size_t>(col);
    return at < codes_.size() ? codes_[at] : 0;
}

Text ColumnTypes::read(int32_t col) const {
    return inTable(col) ? decimalText(code(col)) : Text();
}

ColumnType ColumnTypes::type(int32_t col) const {
    if (!inTable(col)) return ColumnType::readOnly;
    const int32_t kept = code(col);
    const bool known = kept >= 0 && kept <= static_cast<int32_t>(ColumnType::time);
    return known ? static_cast<ColumnType>(kept) : ColumnType::readOnly;
}

}  // namespace obk
