// The port's text edit window.
#pragma once

#include "widgets/canvas.h"
#include "widgets/child_peer.h"
#include "widgets/peer_client.h"

#include <cstdint>

namespace obk {

struct TextSelection {
    int32_t start = 0, length = 0;  // UTF-16 units
    friend bool operator==(TextSelection, TextSelection) = default;
};

enum class EditCommand { undo, cut, copy, paste, selectAll };

class TextBoxClient : public PeerClient {
public:
    // Every change of the window's text, whoever made it; may report a text that is not new.
    virtual void textChanged(Text text) = 0;

protected:
    ~TextBoxClient() = default;
};

// The air at both sides of an edit's text, in pixels at 96 DPI.
constexpr int32_t textMargin = 2;

// Where an edit's text stands, and the order in which its words follow each other.
struct TextFlow {
    HorizontalAlignment alignment = HorizontalAlignment::left;
    bool rightToLeft = false;
    friend bool operator==(TextFlow, TextFlow) = default;
};

// What an edit's window shows from the beginning: telling a window costs more than making it with that.
struct TextBoxStart {
    TextFlow flow;
    FontDescription font;
    Text text;  // which is not reported as a change
    int32_t maxLength = 0;
    ChildPlacement placement;
};

// A single-line text edit window without border. The caret stands before its text.
class TextBoxPeer : public ChildPeer {
public:
    virtual void setText(TextView text) = 0;
    virtual void setSelection(TextSelection selection) = 0;
    virtual TextSelection selection() const = 0;
    virtual void setFlow(TextFlow flow) = 0;
    // What a person may type or paste; 0 is no limit. Does not shorten the present text.
    virtual void setMaxLength(int32_t length) = 0;
    virtual void perform(EditCommand command) = 0;
    // Asked when the focus has come: whether that was neither by the mouse nor because the form, which had
    // lost the focus to another one, has it again.
    virtual bool enteredByKeys() const = 0;
};

}  // namespace obk
