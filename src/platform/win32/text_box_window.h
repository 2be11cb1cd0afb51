// A text box: the system's own edit window, with our colours, our key order and no border.
#pragma once

#include "platform/win32/client_window.h"

#include <memory>

namespace obk::win32 {

class SurfaceWindow;

class TextBoxWindow final : public ClientWindow {
public:
    // Null when the system refuses.
    static std::shared_ptr<TextBoxWindow> create(const std::shared_ptr<Environment>& environment,
                                                 const std::shared_ptr<SurfaceWindow>& surface,
                                                 TextBoxClient& client);

    void closeTextBox();
    void setBounds(const PixelRect& bounds, const PixelRect& clip);
    void setVisible(bool visible);
    void setFont(const FontDescription& font);
    void setColours(Rgb text, Rgb background);
    void setAccessibleName(TextView name);
    void setText(TextView text);
    void setSelection(TextSelection selection);
    TextSelection selection() const;
    // The system fixes an edit window's alignment when it makes it: this makes another one in its place.
    void setAlignment(HorizontalAlignment alignment);
    void setMaxLength(int32_t length);
    void setReadOnly(bool readOnly);
    void perform(EditCommand command);

    // For the surface.
    HBRUSH prepareColours(HDC dc) const;
    void reportText();
    void dpiChanged(Dpi dpi);

private:
    TextBoxWindow(const std::shared_ptr<Environment>& environment,
                  const std::shared_ptr<SurfaceWindow>& surface, TextBoxClient& client);
    LRESULT handle(const Message& message) override;
    LRESULT systemDefault(const Message& message) override;
    LRESULT passWheelOn(const Message& message) override;
    bool hasOwnMouse() const override { return true; }

    HWND makeWindow(HWND parent) const;
    void place();
    void applyFont();
    void applyAccessibleName();
    void setMargins();
    LRESULT composition(const Message& message);
    Text text() const;
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    std::weak_ptr<SurfaceWindow> surface_;
    TextBoxClient* textBoxClient_;
    HorizontalAlignment alignment_ = HorizontalAlignment::left;
    int32_t maxLength_ = 0;
    bool readOnly_ = false;
    bool visible_ = true;
    PixelRect bounds_;
    PixelRect clip_;
    FontDescription font_;
    Dpi fontDpi_;
    SharedGdiFont gdiFont_;
    Rgb textColour_{};
    Rgb background_ = Rgb::of(255, 255, 255);
    Text accessibleName_;
    bool clipped_ = false;
};

}  // namespace obk::win32
