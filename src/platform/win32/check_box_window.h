// A check box: the system's own button, whose mark its client decides on.
#pragma once

#include "platform/win32/child_window.h"
#include "widgets/check_box_peer.h"

#include <memory>

namespace obk::win32 {

class CheckBoxWindow final : public ChildWindow {
public:
    // Null when the system refuses.
    static std::shared_ptr<CheckBoxWindow> create(const std::shared_ptr<Environment>& environment,
                                                  const std::shared_ptr<SurfaceWindow>& surface,
                                                  CheckBoxClient& client, const ChildPlacement& placement);

    void setChecked(bool checked) { send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }
    void setBackground(Rgb background);

    HBRUSH prepareColours(HDC dc) const override;
    void notified(WORD code) override;

private:
    CheckBoxWindow(const std::shared_ptr<Environment>& environment,
                   const std::shared_ptr<SurfaceWindow>& surface, CheckBoxClient& client,
                   const ChildPlacement& placement);

    CheckBoxClient& checkBoxClient_;  // only while listening()
    Rgb background_{};
};

}  // namespace obk::win32
