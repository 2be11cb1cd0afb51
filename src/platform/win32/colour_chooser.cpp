#include "platform/win32/colour_chooser.h"

#include "platform/win32/text_conversion.h"

#include <commdlg.h>

#include <string>

namespace obk::win32 {

namespace {

UINT_PTR CALLBACK setTitle(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* chooser = reinterpret_cast<const CHOOSECOLORW*>(lParam);
        const auto* title = reinterpret_cast<const std::wstring*>(chooser->lCustData);
        if (!title->empty()) SetWindowTextW(dialog, title->c_str());
    }
    return 0;
}

}  // namespace

std::optional<Rgb> ColourChooser::choose(HWND owner, const ColourQuestion& question) {
    const std::wstring title = toWide(question.title);
    auto mixed = mixed_;
    CHOOSECOLORW chooser{};
    chooser.lStructSize = sizeof chooser;
    chooser.hwndOwner = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    chooser.rgbResult = question.start.value;
    chooser.lpCustColors = mixed.data();
    chooser.Flags = CC_RGBINIT | CC_ENABLEHOOK | (question.full ? CC_FULLOPEN : 0);
    chooser.lCustData = reinterpret_cast<LPARAM>(&title);
    chooser.lpfnHook = setTitle;
    const bool chosen = ChooseColorW(&chooser) != FALSE;
    mixed_ = mixed;
    if (!chosen) return std::nullopt;
    return Rgb{static_cast<uint32_t>(chooser.rgbResult) & 0xFFFFFFu};
}

}  // namespace obk::win32
