// Where in its row a cell's text is, in four bytes.
#pragma once

#include <cstdint>

namespace obk {

// Where the text begins, in units from where the row's places do, and how long it is.
class TextPlace {
public:
    static constexpr uint32_t mostUnits = 0xFFFFFF;
    // As a length: the text is out of line, and its address stands in the row.
    static constexpr uint32_t outOfLineMark = 0xFF;

    TextPlace(uint32_t start, uint32_t length) : bits_(start << 8 | length) {}
    uint32_t start() const { return bits_ >> 8; }
    uint32_t length() const { return bits_ & 0xFF; }
    bool outOfLine() const { return length() == outOfLineMark; }
    void setLength(uint32_t length) { bits_ = (bits_ & ~0xFFu) | length; }
    void move(uint32_t by) { bits_ += by << 8; }

private:
    uint32_t bits_;
};

}  // namespace obk
