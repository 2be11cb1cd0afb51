// The system's own windows on a surface: their place, their clip, their end.
#pragma once

#include "platform/win32/client_window.h"
#include "widgets/child_peer.h"

#include <memory>
#include <string>

namespace obk::win32 {

class SurfaceWindow;

class ChildWindow : public ClientWindow {
public:
    void closeChild();
    void setBounds(const PixelRect& bounds, const PixelRect& clip);
    void setVisible(bool visible);

    // For the surface, which hears of them in the child's stead.
    virtual HBRUSH prepareColours(HDC dc) const = 0;
    virtual void notified(WORD code) = 0;
    virtual void dpiChanged(Dpi) {}

protected:
    ChildWindow(const std::shared_ptr<Environment>& environment,
                const std::shared_ptr<SurfaceWindow>& surface, PeerClient& client,
                const ChildPlacement& placement);

    // How a window begins that is made where it is to be; whether it is cut is said right after.
    DWORD styleAtFirst(bool enabled) const;
    HWND makeWindow(const wchar_t* type, const std::wstring& text, DWORD style, DWORD extended,
                    HWND parent) const;

    LRESULT handle(const Message& message) override;
    LRESULT passWheelOn(const Message& message) override;
    void focusIsInside(bool inside) override;
    bool hasOwnMouse() const override { return true; }

    std::shared_ptr<SurfaceWindow> surfaceWindow() const { return surface_.lock(); }
    // Whether it is there and not hidden.
    bool shows() const;
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void place();
    void cut(bool paint);
    void showOrHide();
    // Of a window made anew, which shows whole.
    void forgetClip() { clipped_ = false; }
    void forgetToldName() { toldName_.clear(); }

private:
    void tellName();

    std::weak_ptr<SurfaceWindow> surface_;
    Text toldName_;  // to screen readers
    PixelRect bounds_;
    PixelRect clip_;
    bool visible_ = true;
    bool clipped_ = false;
};

}  // namespace obk::win32
