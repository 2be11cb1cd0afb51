// The container's font, which a control follows as long as it shows that one and nobody else's.
#pragma once

#include "base/font.h"
#include "base/scoped_value.h"

namespace obk {

class FollowedFont {
public:
    // The control took this font when it was placed or loaded. A font that a bag holds differs from the
    // container's, or it would not have been written: what equals `ambient` is the container's.
    void took(const FontRef& font, const FontRef& ambient) {
        followed_ = font && ambient && font->description() == ambient->description() ? font : nullptr;
    }
    // The font that is shown has changed; when a host did that, it has a font of its own from then on.
    void changed() {
        if (!following_) followed_.reset();
    }
    // The container has another font now: `shown` takes it, if it still is the one that was followed.
    void follow(const FontRef& ambient, const FontRef& shown) {
        if (!followed_ || followed_ != shown) return;
        const ScopedFlag following(following_);
        const FontRef kept = followed_;
        kept->setDescription(ambient->description());
    }

private:
    FontRef followed_;
    bool following_ = false;
};

}  // namespace obk
