#include "library/property_pages.h"

#include "library/property_text.h"

namespace obk {

namespace {

using Kind = PropertyPageFacts::Kind;

// By the position of their kind.
constexpr PropertyPageFacts pages[] = {
    {Kind::properties,
     u"Properties",
     {0x3f0c9a52, 0x7d1e, 0x4b86, {0x9a, 0x41, 0x6e, 0x20, 0xd5, 0x83, 0x1c, 0x07}}},
    {Kind::tabs, u"Tabs", {0x8b2e6f14, 0x05c3, 0x4d9a, {0xb7, 0x5e, 0x13, 0xf8, 0x64, 0x2a, 0x90, 0xcd}}},
    {Kind::palettes,
     u"Palette",
     {0xd47a1be9, 0x62f8, 0x4c35, {0x8f, 0x0d, 0xa9, 0x57, 0x3e, 0xc1, 0x48, 0x6b}}},
};

// The property that a page of a control's own is about; null where it has none.
const Member* subjectOf(const ControlTable& table, Kind kind) {
    if (kind == Kind::tabs && table.name == u"PageTab") return table.member(u"ActiveTabs");
    if (kind == Kind::palettes && table.name == u"ButtonPalette") return table.member(u"Palette");
    return nullptr;
}

}  // namespace

std::span<const PropertyPageFacts> propertyPages() {
    return pages;
}

const PropertyPageFacts& propertyPage(Kind kind) {
    return pages[static_cast<size_t>(kind)];
}

std::vector<const PropertyPageFacts*> pagesOf(const ControlTable& table) {
    std::vector<const PropertyPageFacts*> found;
    for (const PropertyPageFacts& page : pages) {
        if (subjectOf(table, page.kind)) found.push_back(&page);
    }
    if (!editableProperties(table).empty()) found.push_back(&propertyPage(Kind::properties));
    return found;
}

const PropertyPageFacts* pageOf(const ControlTable& table, const Member& property) {
    if (!property.get || !property.put) return nullptr;
    for (const PropertyPageFacts& page : pages) {
        if (subjectOf(table, page.kind) == &property) return &page;
    }
    const bool object = property.type == ValueType::font || property.type == ValueType::picture ||
                        property.type == ValueType::colour;
    return object ? &propertyPage(Kind::properties) : nullptr;
}

}  // namespace obk
