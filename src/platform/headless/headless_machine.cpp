#include "platform/headless/headless_machine.h"

#include <algorithm>
#include <cmath>

namespace obk::headless {

namespace {

// The tick count is defined modulo 2^32.
int32_t wrapped(int32_t ticks, int64_t by) {
    return static_cast<int32_t>(static_cast<uint32_t>(ticks) + static_cast<uint32_t>(by));
}

class MemoryKey : public RegistryKey {
public:
    explicit MemoryKey(const std::map<Text, MemoryRegistry::Entry>& values) : values_(values) {}

    bool query(TextView name, std::string& buffer, uint32_t& size, uint32_t& type) const override {
        const auto found = values_.find(upperAscii(name));
        if (found == values_.end()) return false;
        const std::string& bytes = found->second.bytes;
        type = found->second.type;
        const bool fits = bytes.size() <= size;
        size = static_cast<uint32_t>(bytes.size());
        if (fits) std::copy(bytes.begin(), bytes.end(), buffer.begin());
        return fits;
    }

private:
    const std::map<Text, MemoryRegistry::Entry>& values_;
};

}  // namespace

int32_t ManualClock::tickCount() {
    const int32_t now = ticks_;
    advance(pace_);
    return now;
}

void ManualClock::advance(std::chrono::milliseconds time) {
    ticks_ = wrapped(ticks_, time.count());
}

std::unique_ptr<RegistryKey> MemoryRegistry::open(int32_t rootKey, TextView subKey, uint32_t access) {
    constexpr int32_t localMachine = -2147483646;
    constexpr uint32_t reading = 0x20019;
    if (rootKey != localMachine || (refusesWriting_ && (access & ~reading) != 0)) return nullptr;
    const auto key = keys_.find(upperAscii(subKey));
    return key == keys_.end() ? nullptr : std::make_unique<MemoryKey>(key->second);
}

void MemoryRegistry::set(TextView subKey, TextView name, Entry entry) {
    keys_[upperAscii(subKey)][upperAscii(name)] = std::move(entry);
}

void MemoryRegistry::setString(TextView subKey, TextView name, std::string text) {
    text.push_back('\0');
    set(subKey, name, {1, std::move(text)});
}

FixedAppearance::FixedAppearance() {
    constexpr Rgb grey = Rgb::of(128, 128, 128);
    colours_.fill(grey);
    setSystemColour(SystemColour::window, Rgb::of(255, 255, 255));
    setSystemColour(SystemColour::windowText, Rgb::of(0, 0, 0));
    setSystemColour(SystemColour::highlight, Rgb::of(0, 120, 215));
    setSystemColour(SystemColour::highlightText, Rgb::of(255, 255, 255));
    setSystemColour(SystemColour::buttonFace, Rgb::of(240, 240, 240));
    setSystemColour(SystemColour::buttonShadow, Rgb::of(160, 160, 160));
    setSystemColour(SystemColour::greyText, Rgb::of(109, 109, 109));
    setSystemColour(SystemColour::buttonText, Rgb::of(0, 0, 0));
    setSystemColour(SystemColour::buttonHighlight, Rgb::of(255, 255, 255));
    setSystemColour(SystemColour::darkShadow3d, Rgb::of(105, 105, 105));
    setSystemColour(SystemColour::light3d, Rgb::of(227, 227, 227));
}

std::optional<Rgb> FixedAppearance::systemColour(uint8_t index) {
    if (index >= colours_.size()) return std::nullopt;
    return colours_[index];
}

FontMetrics FixedAppearance::metrics(const FontDescription& font, Dpi dpi) {
    const auto em = static_cast<int32_t>(std::lround(font.size * dpi.dotsPerInch() / 72.0));
    return {em, (em + 3) / 4};
}

PixelSize FixedAppearance::measure(TextView text, const FontDescription& font, Dpi dpi) {
    // Every character is half as wide as the font is high: layout can be worked out by hand.
    const FontMetrics line = metrics(font, dpi);
    const auto count = static_cast<int32_t>(std::min<size_t>(text.size(), 100000));
    return {count * (line.ascent + 1) / 2, line.height()};
}

}  // namespace obk::headless
