// The page whose form a person makes.
#include "arrangement.h"
#include "page_catalog.h"

namespace obk::gallery {

void buildOwnForm(Scene& scene) {
    Arrangement& arrangement = scene.arrange();
    constexpr int buttonWidth = 100;
    scene.button({20, 14, buttonWidth, 28}, L"Add\x2026", [&scene, &arrangement] {
        const HMENU menu = CreatePopupMenu();
        UINT number = 0;
        for (const PageEntry& page : pages()) {
            ++number;
            if (page.toolboxPicture != 0)
                AppendMenuW(menu, MF_STRING, number, (L"&" + std::wstring(page.name)).c_str());
        }
        RECT button = scene.pixels({20, 14, buttonWidth, 28});
        MapWindowPoints(scene.handle(), nullptr, reinterpret_cast<POINT*>(&button), 2);
        const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, button.left, button.bottom, 0,
                                          scene.handle(), nullptr);
        DestroyMenu(menu);
        if (chosen > 0) arrangement.add(pages()[static_cast<size_t>(chosen) - 1].name);
    });
    scene.button({28 + buttonWidth, 14, buttonWidth, 28}, L"Remove",
                 [&arrangement] { arrangement.removePicked(); });
    const HWND arrange = scene.checkBox({44 + 2 * buttonWidth, 14, 200, 28}, L"Arrange with the mouse", true);
    scene.onPressed(arrange, [&arrangement, arrange] {
        arrangement.turn(SendMessageW(arrange, BM_GETCHECK, 0, 0) == BST_CHECKED);
    });
    arrangement.add(L"DateCalendar");
    arrangement.add(L"GridEdit");
    arrangement.turn(true);
}

}  // namespace obk::gallery
