#include "pagetab/lns.h"

#include "framework/colours.h"
#include "framework/table_builder.h"

namespace obk {

namespace {

// Wider than any control, so that the lines reach the right edge at every size.
constexpr Twips lineEnd{48000};

}  // namespace

lns::lns(Platform& platform) : Control(platform), lneSHADOW(root()), lneHIGHLIGHT(root()) {
    lneSHADOW.setColour(SystemColour::buttonShadow);
    lneHIGHLIGHT.setColour(SystemColour::buttonHighlight);
}

void lns::initialize() {
    setSize({2400}, {30});
}

void lns::resize() {
    lneSHADOW.setLine({0}, lineEnd, {0});
    lneHIGHLIGHT.setLine({0}, lineEnd, {15});
}

void lns::ColorRefresh() {
    Appearance& appearance = platform().appearance();
    const Rgb tint = BlendColors(appearance, clrLINEBASE, Rgb{}, 150);
    lneSHADOW.setColour(BlendColors(appearance, tint, clrLINEBASE, 90));
    lneHIGHLIGHT.setColour(BlendColors(appearance, clrLINEBASE, SystemColour::buttonHighlight, 90));
}

const ControlTable& lns::memberTable() {
    static const ControlTable table =
        TableBuilder<lns>(
            {.name = u"lns",
             .help = u"An etched horizontal separator line",
             .classId = {0xb2d1f051, 0x31b4, 0x412b, {0x98, 0x45, 0xc9, 0xcd, 0xa8, 0x4a, 0xba, 0x7c}},
             .interfaceId = {0xf81911b9, 0x10c4, 0x4b29, {0xbf, 0x2d, 0x8b, 0x90, 0x39, 0x22, 0xf8, 0x16}},
             .eventInterfaceId =
                 {0x67184f1d, 0x40c6, 0x4f6f, {0x83, 0x0c, 0x99, 0xc8, 0x1c, 0x63, 0xe1, 0x00}},
             .toolboxPicture = 107,
             .takesFocus = false})
            .method<&lns::ColorRefresh>(1, u"ColorRefresh", u"Tints both lines from the base colour")
            .build();
    return table;
}

}  // namespace obk
