#include "grid/cell_rules.h"

#include "framework/value.h"

#include <memory>

namespace obk {

Text checkText(TextView value) {
    TextView number = trimmed(value);
    if (number.starts_with(u'+')) number = trimmed(number.substr(1));
    const bool checked =
        value == checkedText || equalIgnoringCase(value, u"TRUE") || leadingNumber(number) == 1;
    return checked ? Text(checkedText) : Text();
}

std::optional<int32_t> usableColumnWidth(double twips) {
    constexpr double tooNarrow = 200;
    return twips > tooNarrow ? roundedLong(twips) : std::nullopt;
}

std::optional<float> fontSizeFromText(TextView text) {
    return toSingle(Value(Text(text)));
}

CellStyle loadedStyle(ColumnType type) {
    CellStyle style;
    style.alignment = CellAlignment::leftCentre;
    if (type == ColumnType::checkBox) {
        style.fontName = std::make_shared<Text>(checkFontName);
        style.fontSize = checkFontSize;
    }
    return style;
}

}  // namespace obk
