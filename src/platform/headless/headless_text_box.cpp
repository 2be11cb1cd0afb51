#include "platform/headless/headless_text_box.h"

#include <algorithm>

namespace obk::headless {

HeadlessTextBox::HeadlessTextBox(HeadlessPlatform& platform, TextBoxClient& client, HeadlessSurface& parent,
                                 const TextBoxStart& start)
    : HeadlessChildPeer(platform, client, parent, start.placement),
      textClient_(client),
      flow_(start.flow),
      text_(start.text),
      maxLength_(start.maxLength) {}

void HeadlessTextBox::setText(TextView text) {
    work();
    text_ = text;
    selection_ = {};
    report();
}

void HeadlessTextBox::setSelection(TextSelection selection) {
    work();
    const auto length = static_cast<int32_t>(text_.size());
    const int32_t start = std::clamp(selection.start, 0, length);
    selection_ = {start, std::clamp(selection.length, 0, length - start)};
}

void HeadlessTextBox::perform(EditCommand command) {
    const Text selected =
        text_.substr(static_cast<size_t>(selection_.start), static_cast<size_t>(selection_.length));
    switch (command) {
        case EditCommand::selectAll:
            selection_ = {0, static_cast<int32_t>(text_.size())};
            break;
        case EditCommand::copy:
            if (!selected.empty()) platform_.setClipboard(selected);
            break;
        case EditCommand::cut:
            if (!selected.empty()) {
                platform_.setClipboard(selected);
                replaceSelection(u"");
            }
            break;
        case EditCommand::paste:
            replaceSelection(platform_.clipboard());
            break;
        case EditCommand::undo:
            std::swap(text_, undoText_);
            selection_ = {};
            report();
            break;
    }
}

void HeadlessTextBox::keyEffect(const KeyEvent& event) {
    const auto length = static_cast<int32_t>(text_.size());
    switch (event.code) {
        case key::home:
            selection_ = {0, 0};
            break;
        case key::end:
            selection_ = {length, 0};
            break;
        case key::left:
            selection_ = {std::max(selection_.start - 1, 0), 0};
            break;
        case key::right:
            selection_ = {std::min(selection_.start + selection_.length + 1, length), 0};
            break;
        case key::deleteKey:
            if (selection_.length == 0 && selection_.start == length) break;
            if (selection_.length == 0) selection_.length = 1;
            replaceSelection(u"");
            break;
        default:
            break;
    }
}

void HeadlessTextBox::characterEffect(char16_t character) {
    if (character == key::backspace) {
        if (selection_.length == 0 && selection_.start > 0) selection_ = {selection_.start - 1, 1};
        if (selection_.length > 0) replaceSelection(u"");
    } else if (character >= u' ') {
        replaceSelection(TextView(&character, 1));
    }
}

void HeadlessTextBox::replaceSelection(TextView text) {
    Text rest = text_;
    rest.erase(static_cast<size_t>(selection_.start), static_cast<size_t>(selection_.length));
    const size_t room = maxLength_ == 0 ? Text::npos
                        : rest.size() >= static_cast<size_t>(maxLength_)
                            ? 0
                            : static_cast<size_t>(maxLength_) - rest.size();
    const TextView inserted = text.substr(0, room);
    if (inserted.empty() && selection_.length == 0) return;
    undoText_ = text_;
    rest.insert(static_cast<size_t>(selection_.start), inserted);
    text_ = std::move(rest);
    selection_ = {selection_.start + static_cast<int32_t>(inserted.size()), 0};
    report();
}

void HeadlessTextBox::report() {
    // Nothing of this object may be used after the call: the client may have destroyed it.
    if (id() == 0) return;
    if (const auto alive = textClient_.keepAlive()) textClient_.textChanged(text_);
}

}  // namespace obk::headless
