#include "palette/button_arrow.h"

#include "base/scoped_value.h"
#include "framework/kxlib_system.h"
#include "framework/table_builder.h"
#include "framework/value.h"

namespace obk {

namespace {

constexpr Twips fixedWidth{185};
constexpr Twips fixedHeight{210};

}  // namespace

ButtonArrow::ButtonArrow(Platform& platform) : Control(platform), lblARROW(root()) {}

void ButtonArrow::initialize() {
    // Read and compared, though this control has nothing that depends on the system.
    [[maybe_unused]] const bool newerSystem = leadingNumber(GetWindowsVersion(platform())) >= 4.99;
    fixSize();
}

void ButtonArrow::EnabledCol(bool) {
    // Hosts may call it; it does nothing on purpose.
}

void ButtonArrow::fixSize() {
    if (fixingSize_) return;
    const ScopedFlag fixing(
        fixingSize_);  // a container that answers with yet another size is not asked again
    const Dpi dpi = root().dpi();
    const bool wrongOnScreen = dpi.toPixels(width()) != dpi.toPixels(fixedWidth) ||
                               dpi.toPixels(height()) != dpi.toPixels(fixedHeight);
    setSize(fixedWidth, fixedHeight);
    lblARROW.move({{0}, {0}, fixedWidth, fixedHeight});
    // Whole pixels that already show the fixed size are left alone, or the two sides would ask for ever.
    if (wrongOnScreen) requestSize(fixedWidth, fixedHeight);
    setSize(fixedWidth, fixedHeight);
}

const ControlTable& ButtonArrow::memberTable() {
    static const ControlTable table =
        TableBuilder<ButtonArrow>(
            {.name = u"ButtonArrow",
             .help = u"A small arrow of fixed size",
             .classId = {0xa1a4dfdd, 0x1b38, 0x4333, {0xa4, 0x9a, 0x46, 0xdd, 0x10, 0x3c, 0xa0, 0x93}},
             .interfaceId = {0xd2c0ca84, 0x65ed, 0x4307, {0xbc, 0x5a, 0x86, 0xcf, 0xd6, 0xfa, 0xad, 0x98}},
             .eventInterfaceId =
                 {0xc88e1db8, 0x0294, 0x4237, {0x89, 0x42, 0xae, 0x5a, 0xce, 0xe0, 0x47, 0x11}},
             .toolboxPicture = 104,
             .takesFocus = false})
            .method<&ButtonArrow::EnabledCol>(1, u"EnabledCol", u"Accepted and ignored", {u"changeVal"})
            .build();
    return table;
}

}  // namespace obk
