// What a test decides about the system around the windows: dialogs, menus, formats, the clipboard and
// refusals.
#pragma once

#include "widgets/platform.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace obk::headless {

class PlannedAnswers {
public:
    // What the next colour chooser answers; it is told what was asked, and may do what a person does
    // meanwhile. Without one it is cancelled.
    using ColourAnswer = std::function<std::optional<Rgb>(const ColourQuestion&)>;
    void answerColour(ColourAnswer answer) { colourAnswer_ = std::move(answer); }
    // What the next menus answer; may do what a person does meanwhile. Without one, menus are dismissed.
    using MenuAnswer =
        std::function<std::optional<size_t>(std::span<const MenuItem>, const PixelRect& beside)>;
    void answerMenu(MenuAnswer answer) { menuAnswer_ = std::move(answer); }

    // Where the next texts that are dragged are let go: what is done with them there. Without one they are
    // given up.
    using DragAnswer = std::function<int32_t(TextView)>;
    void answerDrag(DragAnswer answer) { dragAnswer_ = std::move(answer); }

    void setRegionalFormats(const RegionalFormats& formats) { regionalFormats_ = formats; }
    const Text& clipboard() const { return clipboard_; }
    void setClipboard(Text text) { clipboard_ = std::move(text); }
    // Each time that work was said to begin or to end.
    const std::vector<bool>& waitCursors() const { return waitCursors_; }
    // The next windows are refused, as by a system without resources.
    void refuseWindows(bool refuse) { refusesWindows_ = refuse; }
    // Of the windows, timers, tool tips, menus, choosers, drags, the capture, the focus and the clipboard
    // that the system is asked for, it refuses one: that with this number, counted from 0.
    void refuseRequest(uint64_t number) { requestsUntilRefusal_ = number; }
    bool hasRefused() const { return requestsUntilRefusal_ == refused; }
    // For the platform: counts a request, and answers whether it is refused.
    bool refusesRequest() {
        if (requestsUntilRefusal_ == never || requestsUntilRefusal_ == refused) return false;
        if (requestsUntilRefusal_-- != 0) return false;
        requestsUntilRefusal_ = refused;
        return true;
    }
    // Everything that child windows are asked for ends in an exception.
    void failChildWindows(bool fail) { childWindowsFail_ = fail; }
    bool childWindowsFail() const { return childWindowsFail_; }

protected:
    static constexpr uint64_t never = UINT64_MAX, refused = UINT64_MAX - 1;
    uint64_t requestsUntilRefusal_ = never;
    ColourAnswer colourAnswer_;
    MenuAnswer menuAnswer_;
    DragAnswer dragAnswer_;
    RegionalFormats regionalFormats_;
    Text clipboard_;
    std::vector<bool> waitCursors_;
    bool refusesWindows_ = false;
    bool childWindowsFail_ = false;
};

}  // namespace obk::headless
