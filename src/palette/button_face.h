// How ButtonPalette's button looks: its parts, their places and its states in both looks.
#pragma once

#include "base/event.h"
#include "widgets/font_holder.h"
#include "widgets/widget.h"

namespace obk {

// Takes the mouse and the keyboard for the whole button and draws all of it but the arrow.
class ButtonFace final : public Widget {
public:
    explicit ButtonFace(Container& parent);

    // What is shown; call `show` after changing any of it.
    struct State {
        Look look = Look::flat;
        Text caption;
        OleColour background{SystemColour::buttonFace};
        OleColour textColour{SystemColour::buttonText};
        OleColour swatch;
        OleColour mask{SystemColour::buttonFace};  // pixels of this colour are left out of the pictures
        PictureRef picture, pictureDisabled;
        bool showsSwatch = true;
        bool showsPicture = false;
        bool showsFocus = true;  // the focus rectangle, while the button has the focus
        bool hot = false, pressed = false, focused = false;
    };
    State state;
    void show();
    FontHolder font;

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

    // A picture as it is drawn: without its mask colour, grey when it stands in for a missing disabled one.
    struct Prepared {
        PictureRef source;
        Rgb mask;
        bool grey = false;
        PictureRef picture;
    };
    const PictureRef& prepared(const PictureRef& source, bool grey);
    Prepared prepared_;
};

}  // namespace obk
