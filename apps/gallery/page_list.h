// The list of pages at the left.
#pragma once

#include <functional>
#include <vector>

#include "drawn_list.h"

namespace obk::gallery {

class PageList final : public DrawnList {
public:
    PageList(const Theme& theme, HWND parent);
    std::function<void(int)> onPage;

protected:
    int rowHeight() const override;
    void drawRow(HDC dc, const RECT& area, int row, bool selected) override;
    COLORREF background() const override { return theme().page; }
    void selectionChanged(int row) override;

private:
    // Toolbox pictures by page; without a picture the row shows none.
    std::vector<BitmapHandle> pictures_;
};

}  // namespace obk::gallery
