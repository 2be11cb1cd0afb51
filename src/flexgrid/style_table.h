// The styles of a grid's cells, each one once however many cells have it.
#pragma once

#include "flexgrid/cell_style.h"

#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace obk {

class StyleTable;

// What a table keeps with a style.
struct StyleUse {
    StyleTable* table = nullptr;
    uint32_t references = 0;
};

// A style that a table keeps; it goes with the last reference to it. Empty: nothing is set.
class StyleRef {
public:
    using Entry = std::pair<const CellStyle, StyleUse>;

    StyleRef() = default;
    explicit StyleRef(Entry* entry) : entry_(entry) {
        if (entry_) ++entry_->second.references;
    }
    StyleRef(const StyleRef& other) : StyleRef(other.entry_) {}
    StyleRef(StyleRef&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
    StyleRef& operator=(StyleRef other) noexcept {
        std::swap(entry_, other.entry_);
        return *this;
    }
    ~StyleRef() {
        if (entry_ && --entry_->second.references == 0) drop();
    }

    const CellStyle& operator*() const { return entry_ ? entry_->first : unset(); }
    const CellStyle* operator->() const { return &**this; }
    explicit operator bool() const { return entry_ != nullptr; }

private:
    friend class StyleTable;

    static const CellStyle& unset();
    void drop() const noexcept;

    Entry* entry_ = nullptr;
};

// Outlives its references.
class StyleTable {
public:
    StyleTable() = default;
    StyleTable(const StyleTable&) = delete;
    StyleTable& operator=(const StyleTable&) = delete;

    // Empty for a style in which nothing is set.
    StyleRef shared(const CellStyle& style);
    size_t size() const { return entries_.size(); }

    // Does a change that changes nothing, or one of the latest: cells that are set one after the other mostly
    // come from one style and go to another. False, and nothing changed, where it is another change.
    template <auto Attribute, typename Setting>
    bool repeatChange(StyleRef& style, const Setting& setting) const {
        if (style && (*style).*Attribute == setting) return true;
        for (const Change& change : latest_) {
            if (change.attribute == &mark<Attribute> && change.from == style.entry_ &&
                change.to->first.*Attribute == setting) {
                style = StyleRef(change.to);
                return true;
            }
        }
        return false;
    }
    template <auto Attribute>
    void rememberChange(const StyleRef& from, const StyleRef& to) {
        if (to) latest_ = {Change{&mark<Attribute>, from.entry_, to.entry_}, latest_[0]};
    }

private:
    friend class StyleRef;
    template <auto Attribute>
    static constexpr char mark{};
    struct Change {
        const void* attribute = nullptr;        // the address of its mark
        const StyleRef::Entry* from = nullptr;  // none where nothing was set
        StyleRef::Entry* to = nullptr;
    };
    struct Hash {
        size_t operator()(const CellStyle& style) const noexcept { return style.hash(); }
    };

    std::unordered_map<CellStyle, StyleUse, Hash> entries_;
    std::array<Change, 2> latest_;  // two colours take turns where rows are coloured alternately
};

}  // namespace obk
