// Fonts: a plain description, and the shared object that hosts hold by reference.
#pragma once

#include "base/event.h"
#include "base/text.h"

#include <cstdint>
#include <memory>

namespace obk {

struct FontDescription {
    Text name = u"Tahoma";
    double size = 8.25;    // points
    int16_t weight = 400;  // 1 to 1000; 700 is bold
    int16_t charset = 0;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;

    friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

// A font that the host and the library share: it has identity, and whoever changes it tells the others.
class SharedFont {
public:
    // The same font as an object of another world (the system's own font object), kept with it so that
    // a host gets back the very object that it gave.
    class Counterpart {
    public:
        virtual ~Counterpart() = default;
        virtual void apply(const FontDescription& description) = 0;
    };

    explicit SharedFont(FontDescription description = {}) : description_(std::move(description)) {}

    const FontDescription& description() const { return description_; }
    // Tells the counterpart and then `changed`, unless nothing changes.
    void setDescription(const FontDescription& description) {
        if (description == description_) return;
        description_ = description;
        if (counterpart_) counterpart_->apply(description_);
        changed();
    }

    Counterpart* counterpart() const { return counterpart_.get(); }
    void setCounterpart(std::unique_ptr<Counterpart> counterpart) { counterpart_ = std::move(counterpart); }

    Event<> changed;

private:
    FontDescription description_;
    std::unique_ptr<Counterpart> counterpart_;
};

// Null means "no font"; what shows text then uses the description's defaults.
using FontRef = std::shared_ptr<SharedFont>;

}  // namespace obk
