// The text edit window in memory: typing, selecting, undoing.
#pragma once

#include "platform/headless/headless_child.h"
#include "widgets/text_box_peer.h"

namespace obk::headless {

class HeadlessTextBox : public HeadlessChildPeer<TextBoxPeer> {
public:
    HeadlessTextBox(HeadlessPlatform& platform, TextBoxClient& client, HeadlessSurface& parent,
                    const TextBoxStart& start);

    void setText(TextView text) override;
    void setSelection(TextSelection selection) override;
    TextSelection selection() const override {
        work();
        return selection_;
    }
    void setFlow(TextFlow flow) override {
        work();
        flow_ = flow;
    }
    TextFlow flow() const { return flow_; }
    void setMaxLength(int32_t length) override {
        work();
        maxLength_ = length;
    }
    void perform(EditCommand command) override;
    bool enteredByKeys() const override { return !platform_.mouseActs(); }

    void keyEffect(const KeyEvent& event) override;
    void characterEffect(char16_t character) override;

private:
    void replaceSelection(TextView text);
    void report();

    TextBoxClient& textClient_;
    TextFlow flow_;
    Text text_;
    Text undoText_;
    TextSelection selection_;
    int32_t maxLength_ = 0;
};

}  // namespace obk::headless
