// A widget's font: shared with the host, watched for changes.
#pragma once

#include "base/attempt.h"
#include "base/font.h"

#include <functional>
#include <utility>

namespace obk {

class FontHolder {
public:
    // `changed` is called when another font comes or the present one changes.
    explicit FontHolder(std::function<void()> changed)
        : changed_(std::move(changed)), font_(std::make_shared<SharedFont>()), connection_(connect()) {}

    const FontRef& font() const { return font_; }
    const FontDescription& description() const { return font_->description(); }
    // A null font is refused.
    void set(FontRef font) {
        if (!font || font == font_) return;
        font_ = std::move(font);
        connection_.disconnect();
        attempt([&] { connection_ = connect(); });
        attempt([&] { changed_(); });
    }

private:
    Connection connect() {
        return font_->changed.connect([this] { changed_(); });
    }

    std::function<void()> changed_;
    FontRef font_;
    Connection connection_;
};

}  // namespace obk
