// The page of the palettes: all of them as pictures of their swatches, with their names.
#include "palette/colour_palette.h"

#include "server/property_page.h"
#include "server/system_text.h"

#include <algorithm>

namespace obk::server {

namespace {

constexpr int listNumber = 100;
constexpr TextView subject = u"Palette";

class PaletteList final : public PropertyPageContent {
public:
    explicit PaletteList(PropertyPage& page) : page_(page) {}

    void build(HWND page, SIZE size, HFONT font) override {
        const int gap = size.cy / 40;
        list_ = addPageControl(
            page, L"LISTBOX", L"",
            WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
            {gap, gap, size.cx - gap, size.cy - gap}, listNumber, font);
        SendMessageW(list_, LB_SETITEMHEIGHT, 0, size.cy / 4);
    }

    void read() override {
        SendMessageW(list_, LB_RESETCONTENT, 0, 0);
        const Member* const property = member();
        if (!property) return;
        for (const EnumerationValue& value : property->enumeration->values) {
            const std::wstring text = toWide(Text(value.name).append(u": ").append(value.help));
            SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
        const auto present = page_.value(*property);
        const auto number = present ? toLong(*present) : std::nullopt;
        SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(number.value_or(-1)), 0);
    }

    HRESULT apply() override {
        const LRESULT at = SendMessageW(list_, LB_GETCURSEL, 0, 0);
        const Member* const property = member();
        return at >= 0 && property ? page_.put(*property, Value(static_cast<int32_t>(at))) : S_OK;
    }

    void command(int control, int notification) override {
        if (control == listNumber && notification == LBN_SELCHANGE) page_.changed();
    }

    bool draw(const DRAWITEMSTRUCT& item) override {
        const auto kind = paletteFromNumber(static_cast<int32_t>(item.itemID));
        if (item.CtlID != listNumber || !kind) return false;
        const bool chosen = (item.itemState & ODS_SELECTED) != 0;
        FillRect(item.hDC, &item.rcItem, GetSysColorBrush(chosen ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        const int height = item.rcItem.bottom - item.rcItem.top, edge = std::max(height / 12, 2);
        const RECT place{item.rcItem.left + edge, item.rcItem.top + edge, item.rcItem.left + 2 * height,
                         item.rcItem.bottom - edge};
        drawSwatches(item.hDC, *kind, place);
        wchar_t text[100] = L"";
        if (SendMessageW(list_, LB_GETTEXTLEN, item.itemID, 0) < 100)
            SendMessageW(list_, LB_GETTEXT, item.itemID, reinterpret_cast<LPARAM>(text));
        SetBkMode(item.hDC, TRANSPARENT);
        SetTextColor(item.hDC, GetSysColor(chosen ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        RECT beside{place.right + edge, item.rcItem.top, item.rcItem.right, item.rcItem.bottom};
        DrawTextW(item.hDC, text, -1, &beside, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
        if (item.itemState & ODS_FOCUS) DrawFocusRect(item.hDC, &item.rcItem);
        return true;
    }

private:
    const Member* member() const { return page_.table() ? page_.table()->member(subject) : nullptr; }

    static void drawSwatches(HDC context, enQUILLPalette kind, const RECT& place) {
        const ColourPalette palette(kind);
        int32_t width = 1, height = 1;
        for (const PaletteCell& cell : palette.cells()) {
            width = std::max(width, cell.rect.right);
            height = std::max(height, cell.rect.bottom);
        }
        // As large as the place allows, in the palette's own proportions.
        const int across = place.right - place.left, down = place.bottom - place.top;
        const double scale =
            std::min(static_cast<double>(across) / width, static_cast<double>(down) / height);
        for (const PaletteCell& cell : palette.cells()) {
            const RECT at{place.left + static_cast<LONG>(cell.rect.left * scale),
                          place.top + static_cast<LONG>(cell.rect.top * scale),
                          place.left + static_cast<LONG>(cell.rect.right * scale),
                          place.top + static_cast<LONG>(cell.rect.bottom * scale)};
            const HBRUSH brush = CreateSolidBrush(cell.Color.value);
            FillRect(context, &at, brush);
            DeleteObject(brush);
        }
    }

    PropertyPage& page_;
    HWND list_ = nullptr;
};

}  // namespace

std::unique_ptr<PropertyPageContent> paletteList(PropertyPage& page) {
    return std::make_unique<PaletteList>(page);
}

}  // namespace obk::server
