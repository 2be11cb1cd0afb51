// Widgets that only draw: frames, labels, horizontal lines.
#pragma once

#include "widgets/container.h"
#include "widgets/font_holder.h"

namespace obk {

// The border of a one-line field, the same for all controls; it also shows that the field has the focus.
class Frame final : public Widget {
public:
    explicit Frame(Container& parent) : Widget(parent) {}

    int32_t borderStyle() const { return borderStyle_; }
    // 0 none, 1 a border. False, and nothing changed, for any other number.
    bool setBorderStyle(int32_t style);
    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);
    void setLook(Look look);
    void setFocused(bool focused);

    void paint(Canvas& canvas, const PixelRect& bounds) override;

private:
    OleColour backColour_{SystemColour::window};
    uint8_t borderStyle_ = 1;
    Look look_ = Look::flat;
    bool focused_ = false;
};

// A filled rectangle, with a line of text where there is one.
class Label final : public Widget {
public:
    explicit Label(Container& parent) : Widget(parent), font_([this] { invalidate(); }) {}

    void setCaption(TextView caption);
    const Text& caption() const { return caption_; }
    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);
    void setForeColour(OleColour colour);
    void setAlignment(HorizontalAlignment alignment);
    void setFont(FontRef font) { font_.set(std::move(font)); }
    const FontRef& font() const { return font_.font(); }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    bool accessibleWhole() const override { return !caption_.empty(); }
    AccessibleItem accessible(AccessiblePart part) const override;

private:
    Text caption_;
    OleColour backColour_{SystemColour::buttonFace};
    OleColour foreColour_{SystemColour::buttonText};
    HorizontalAlignment alignment_ = HorizontalAlignment::left;
    FontHolder font_;
};

// The arrow of a small button, drawn so that no font has to have it.
class ArrowLabel final : public Widget {
public:
    explicit ArrowLabel(Container& parent) : Widget(parent) {}

    void paint(Canvas& canvas, const PixelRect& bounds) override;
};

// A horizontal line as thick as one pixel is at 96 DPI. Lines 15 twips apart touch at every scale.
class LineShape final : public Widget {
public:
    explicit LineShape(Container& parent) : Widget(parent) {}

    // Ends in twips, relative to the parent.
    void setLine(Twips x1, Twips x2, Twips y);
    OleColour colour() const { return colour_; }
    void setColour(OleColour colour);

    void paint(Canvas& canvas, const PixelRect& bounds) override;

private:
    OleColour colour_{SystemColour::windowText};
};

// A drop-down list that is never shown: it keeps the font that a one-line field is measured by.
class ReferenceCombo final : public Widget {
public:
    explicit ReferenceCombo(Container& parent) : Widget(parent) { setVisible(false); }

    const FontDescription& font() const { return font_; }
    void setFont(const FontDescription& font);

private:
    FontDescription font_;
};

}  // namespace obk
