// What edits the cells of one type of column: a widget over the cell, and what goes into it and comes out.
#pragma once

#include "base/event.h"
#include "framework/hosted_control.h"
#include "widgets/canvas.h"

#include <memory>
#include <utility>
#include <vector>

namespace obk {

class DropList;
class FlexGrid;

// How a cell looks that an editor stands over.
struct EditorLook {
    OleColour back, fore;
    FontRef font;
    HorizontalAlignment alignment = HorizontalAlignment::left;
};

// What a person does in an editor. Listeners may set `code` or the character to 0: the editor then does
// nothing with it.
struct CellEditorEvents {
    Event<KeyEvent&> keyWentDown, keyWentUp;
    Event<int16_t&> characterTyped;
    Event<> doubleClicked;
};

// Knows neither its cell nor whether it is open. What an editor has no use for does nothing.
class CellEditor {
public:
    virtual ~CellEditor() = default;

    virtual Widget& widget() = 0;
    // Shows the text of a cell.
    virtual void load(TextView text) = 0;
    // As far as it can: a field of the system's keeps its own.
    virtual void wear(const EditorLook& look) = 0;
    // The text that the cell gets.
    virtual Text value() const = 0;

    virtual void setLook(Look) {}
    virtual void selectText() {}
    virtual void putCaretAtEnd() {}
    virtual void toggle() {}
    // Whether a panel of its own has the keys, and the end of that.
    virtual bool droppedDown() const { return false; }
    // Whether what is dropped down goes from part to part by Tab.
    virtual bool usesTab() const { return false; }
    virtual void closePanel() {}

protected:
    // The events are borrowed.
    explicit CellEditor(const CellEditorEvents& events) : events_(events) {}

    template <typename E, typename Handler>
    void on(E& event, Handler handler) {
        connections_.push_back(event.connect(std::move(handler)));
    }
    template <typename W>
    void passOnKeys(W& widget) {
        on(widget.keyWentDown, [this](KeyEvent& event) { events_.keyWentDown(event); });
        on(widget.keyWentUp, [this](KeyEvent& event) { events_.keyWentUp(event); });
        on(widget.characterTyped, [this](int16_t& character) { events_.characterTyped(character); });
    }
    template <typename C>
    void passOnKeys(Hosted<C>& hosted) {
        const auto passOn = [](const Event<KeyEvent&>& event) {
            return [&event](int16_t& code, int16_t& state) {
                KeyEvent key{code, state, false};
                event(key);
                code = key.code;
                state = key.shift;
            };
        };
        on(hosted->KeyDown, passOn(events_.keyWentDown));
        on(hosted->KeyUp, passOn(events_.keyWentUp));
        on(hosted->KeyPress, [this](int16_t& character) { events_.characterTyped(character); });
    }
    void passOnDoubleClick(Event<>& event) {
        on(event, [this] { events_.doubleClicked(); });
    }

private:
    const CellEditorEvents& events_;
    std::vector<Connection> connections_;
};

// The editors are children of the grid. All arguments are borrowed.
std::unique_ptr<CellEditor> makeTextEditor(const CellEditorEvents& events, FlexGrid& grid);
std::unique_ptr<CellEditor> makeDateEditor(const CellEditorEvents& events, Control& outer, Container& grid);
std::unique_ptr<CellEditor> makeCheckEditor(const CellEditorEvents& events, Control& outer, Container& grid);
std::unique_ptr<CellEditor> makeNumberEditor(const CellEditorEvents& events, Control& outer, Container& grid);
// Of the items of a list, which is a child of the grid already.
std::unique_ptr<CellEditor> makeListEditor(const CellEditorEvents& events, DropList& list);

}  // namespace obk
