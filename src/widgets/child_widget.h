// Between a widget's own window and the surface that this stands on: focus, keys and name.
#pragma once

#include "widgets/surface.h"
#include "widgets/windowed_widget.h"

#include <memory>

namespace obk {

// `Peer` is the port's window, `Client` what that reports to.
template <typename Client, typename Peer>
class ChildWidget : public WindowedWidget, protected Client {
protected:
    using WindowedWidget::WindowedWidget;

    Peer& window() const { return static_cast<Peer&>(peer()); }  // only inside `ask`

    void focusGained() override {
        if (Surface* shownOn = surface()) shownOn->childFocusGained(*this);
    }
    void focusLost() override {
        if (Surface* shownOn = surface()) shownOn->childFocusLost(*this);
    }

private:
    std::shared_ptr<void> keepAlive() override { return Widget::keepAlive(); }
    KeyRoute preTranslate(const KeyEvent& event) override {
        Surface* shownOn = surface();
        return shownOn ? shownOn->preTranslate(event) : KeyRoute::child;
    }
    bool offerToContainer(const KeyEvent& event) override {
        Surface* shownOn = surface();
        return shownOn && shownOn->offerToContainer(event);
    }
    Text accessibleName() override {
        const Surface* shownOn = surface();
        return shownOn ? shownOn->readersTree().item({this, {}}).name : Text();
    }
};

}  // namespace obk
