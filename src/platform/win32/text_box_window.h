// A text box: the system's own edit window, with our colours, our key order and no border.
#pragma once

#include "platform/win32/child_window.h"
#include "widgets/text_box_peer.h"

#include <memory>

namespace obk::win32 {

class TextBoxWindow final : public ChildWindow {
public:
    // Null when the system refuses.
    static std::shared_ptr<TextBoxWindow> create(const std::shared_ptr<Environment>& environment,
                                                 const std::shared_ptr<SurfaceWindow>& surface,
                                                 TextBoxClient& client, const TextBoxStart& start);

    void setFont(const FontDescription& font);
    void setColours(Rgb text, Rgb background);
    void setText(TextView text);
    void setSelection(TextSelection selection);
    TextSelection selection() const;
    // The system fixes an edit window's flow when it makes it: this makes another one in its place.
    void setFlow(TextFlow flow);
    void setMaxLength(int32_t length);
    void perform(EditCommand command);

    HBRUSH prepareColours(HDC dc) const override;
    void notified(WORD code) override;
    void dpiChanged(Dpi dpi) override;

private:
    TextBoxWindow(const std::shared_ptr<Environment>& environment,
                  const std::shared_ptr<SurfaceWindow>& surface, TextBoxClient& client,
                  const TextBoxStart& start);
    LRESULT handle(const Message& message) override;
    LRESULT systemDefault(const Message& message) override;

    HWND makeEdit(HWND parent, TextView text, DWORD style) const;
    // To a window that is shown it is to be told whether to paint itself anew.
    void applyFont(bool paint);
    void setMargins();
    LRESULT composition(const Message& message);
    Text text() const;

    TextBoxClient& textBoxClient_;  // only while listening()
    TextFlow flow_;
    int32_t maxLength_ = 0;
    FontDescription font_;
    Dpi fontDpi_;
    SharedGdiFont gdiFont_;
    Rgb textColour_{};
    Rgb background_ = Rgb::of(255, 255, 255);
};

}  // namespace obk::win32
