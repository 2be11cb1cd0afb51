#include "grid/column_types.h"

namespace obk {

namespace {

bool inTable(int32_t col) {
    return col >= 0 && col < ColumnTypes::count;
}

}  // namespace

bool ColumnTypes::set(int32_t col, int32_t code) {
    if (!inTable(col)) return false;
    codes_[static_cast<size_t>(col)] = code;
    return true;
}

Text ColumnTypes::read(int32_t col) const {
    return inTable(col) ? decimalText(codes_[static_cast<size_t>(col)]) : Text();
}

ColumnType ColumnTypes::type(int32_t col) const {
    if (!inTable(col)) return ColumnType::readOnly;
    const int32_t code = codes_[static_cast<size_t>(col)];
    const bool known = code >= 0 && code <= static_cast<int32_t>(ColumnType::time);
    return known ? static_cast<ColumnType>(code) : ColumnType::readOnly;
}

}  // namespace obk
