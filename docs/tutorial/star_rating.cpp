#include "tutorial/star_rating.h"

#include "framework/table_builder.h"

namespace obk::tutorial {

StarRating::StarRating(Platform& platform) : Control(platform), row_(root(), rating_) {
    wanted_ = row_.wanted.connect([this](int32_t stars) { SetStars(stars); });
}

void StarRating::SetStars(int32_t Stars) {
    if (!rating_.setStars(Stars)) return;
    row_.invalidate();
    PropertyChanged<&StarRating::Stars>();
    // Last: the host may call back, or let go of the control, inside its event.
    Change();
}

std::span<const KeyGroup> StarRating::keyGroups() const {
    static constexpr KeyClaim keys[] = {keyClaim(key::left, shifts::none, u"takes a star back"),
                                        keyClaim(key::right, shifts::none, u"gives one more")};
    static constexpr KeyGroup groups[] = {{{}, 0, keys}};
    return groups;
}

const ControlTable& StarRating::memberTable() {
    static const ControlTable table =
        TableBuilder<StarRating>(
            {.name = u"StarRating",
             .help = u"A rating of up to five stars",
             .classId = {0x3c5a4bd2, 0x6b1e, 0x4f0e, {0x9a, 0x51, 0x0c, 0x7d, 0x2e, 0x94, 0xb8, 0x61}},
             .interfaceId = {0x81f7e09d, 0x25c3, 0x4a7b, {0xb4, 0x6e, 0x93, 0x1f, 0x58, 0xa0, 0xcd, 0x27}},
             .eventInterfaceId =
                 {0xe64d1b38, 0x9f72, 0x4d85, {0x8d, 0x1a, 0xf6, 0x40, 0x3b, 0xc9, 0x72, 0x5e}}})
            .property<&StarRating::Stars, &StarRating::SetStars>(1, u"Stars",
                                                                 u"How many stars are given, 0 to 5")
            .method<&StarRating::Clear>(2, u"Clear", u"Takes all stars back")
            .event<&StarRating::Change>(1, u"Change", u"Another number of stars is given")
            .persisted<&StarRating::Stars, &StarRating::SetStars>({u"Stars", int32_t{0}})
            .build();
    return table;
}

}  // namespace obk::tutorial
