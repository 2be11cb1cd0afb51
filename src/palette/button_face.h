// How ButtonPalette's button looks: its parts, their places and its states in both looks.
#pragma once

#include "palette/button_state.h"
#include "widgets/font_holder.h"
#include "widgets/widget.h"

namespace obk {

// Takes the mouse and the keyboard for the whole button and draws all of it but the arrow.
class ButtonFace final : public Widget {
public:
    // `state` is borrowed and outlives the widget; whoever changes it invalidates.
    ButtonFace(Container& parent, const ButtonState& state);

    const FontRef& font() const { return font_.font(); }
    void setFont(const FontRef& font) { font_.set(font); }

    // The ground between the edges in the present state, on which the arrow stands.
    Rgb ground() const;
    // Where the arrow goes, of this size.
    static TwipsRect arrowPlace(Twips width, Twips height, Twips arrowWidth, Twips arrowHeight);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override { mouseReported(event); }
    void captureLost() override { captureTaken(); }
    bool takeFocus() override;

    Event<const MouseEvent&> mouseReported;
    Event<> captureTaken;  // by another window
    Event<> fontChanged;

private:
    Rgb colour(SystemColour index) const;
    void paintEdges(Canvas& canvas, const PixelRect& bounds) const;
    // The pictures' common place at the left of `content`; answers what is left for the caption.
    PixelRect paintPicture(Canvas& canvas, const PixelRect& content);
    PixelRect paintSwatch(Canvas& canvas, const PixelRect& content) const;
    void paintSeparator(Canvas& canvas, const PixelRect& bounds) const;
    void paintCaption(Canvas& canvas, const PixelRect& content) const;

    // A picture as it is drawn: without its mask colour, on its ground grey when it stands in for a missing
    // disabled one.
    struct Prepared {
        PictureRef source;
        Rgb mask, ground;
        bool grey = false;
        PictureRef picture;
    };
    const PictureRef& prepared(const PictureRef& source, bool grey);

    const ButtonState& state_;
    const Look look_;
    FontHolder font_;
    Prepared prepared_;
};

}  // namespace obk
