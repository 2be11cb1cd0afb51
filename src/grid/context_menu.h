// The menu of a right click in the cells: what it offers, and whether the host has left it room.
#pragma once

#include "grid/edit_session.h"
#include "widgets/platform.h"

#include <span>
#include <utility>
#include <vector>

namespace obk {

struct MenuState {
    bool editable = true;
    bool hasClipboard = false, hasUndo = false, hasRedo = false;
};

// One line of it; without a caption what stands between groups.
struct MenuLine {
    EditAction action = EditAction::none;
    TextView caption;
};
std::span<const MenuLine> contextMenuLines();
std::vector<MenuItem> contextMenu(const MenuState& state);

// From the press of the right button to its release.
class RightClick {
public:
    void pressed() { ours_ = true; }
    // What the host left of the button when it was told of press or release, and whether it opened a menu.
    void told(int16_t button, bool menuOpened) { ours_ = ours_ && button != 0 && !menuOpened; }
    // Whether the click asks for the menu; once.
    bool take() { return std::exchange(ours_, false); }

private:
    bool ours_ = false;
};

}  // namespace obk
