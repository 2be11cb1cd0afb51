#include "page_list.h"

#include "page_catalog.h"

namespace obk::gallery {

PageList::PageList(const Theme& theme, HWND parent) : DrawnList(theme) {
    create(parent, L"Controls");
    for (const PageEntry& page : pages()) {
        SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(page.name));
        pictures_.emplace_back(LoadBitmapW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(page.toolboxPicture)));
    }
}

int PageList::rowHeight() const {
    return theme().lineHeight(theme().strong()) + theme().lineHeight(theme().body()) + theme().scale(16);
}

void PageList::drawRow(HDC dc, const RECT& area, int row, bool selected) {
    const PageEntry& page = pages()[static_cast<size_t>(row)];
    if (selected) {
        const RECT mark = {area.left, area.top, area.left + theme().scale(4), area.bottom};
        fillRect(dc, mark, theme().accent);
    }
    BITMAP picture = {};
    const HBITMAP bitmap = pictures_[static_cast<size_t>(row)].get();
    if (bitmap && GetObjectW(bitmap, sizeof picture, &picture)) {
        const HDC source = CreateCompatibleDC(dc);
        const HGDIOBJ old = SelectObject(source, bitmap);
        // Whole multiples only: the pictures are drawn pixel by pixel.
        const int factor = (theme().dpi() + 48) / 96;
        const int width = static_cast<int>(picture.bmWidth) * factor;
        const int height = static_cast<int>(picture.bmHeight) * factor;
        const COLORREF transparent = GetPixel(source, 0, 0);
        const int left = area.left + theme().scale(16);
        const int top = (area.bottom - height) / 2;
        TransparentBlt(dc, left, top, width, height, source, 0, 0, static_cast<int>(picture.bmWidth),
                       static_cast<int>(picture.bmHeight), transparent);
        SelectObject(source, old);
        DeleteDC(source);
    }
    if (!bitmap) {
        // A form with nothing on it yet.
        const int side = theme().scale(14);
        const int left = area.left + theme().scale(17), top = (area.bottom - side) / 2;
        const RECT sheet = {left, top, left + side, top + side};
        fillRect(dc, sheet, theme().card);
        frameRect(dc, sheet, theme().dimText);
        fillRect(dc, {left, top, left + side, top + theme().scale(4)}, theme().dimText);
    }
    const COLORREF name = selected ? theme().selectedText : theme().text;
    const COLORREF kind = selected ? theme().selectedText : theme().dimText;
    RECT place = {area.left + theme().scale(46), area.top + theme().scale(7), area.right - theme().scale(8),
                  0};
    if (place.left >= place.right) return;
    place.bottom = place.top + theme().lineHeight(theme().strong());
    drawStrong(dc, theme(), page.name, place, name, oneLine);
    place.top = place.bottom + theme().scale(1);
    place.bottom = place.top + theme().lineHeight(theme().body());
    drawText(dc, page.kind, place, theme().body(), kind, oneLine);
}

void PageList::selectionChanged(int row) {
    if (onPage) onPage(row);
}

}  // namespace obk::gallery
