#include "framework/property_bag.h"

#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

namespace obk {

namespace {

// "OBKB", then a version: a stream of something else is told apart at once.
constexpr uint32_t magic = 0x424B424F;
constexpr uint16_t version = 1;

class Writer {
public:
    template <typename T>
    void number(T value) {
        static_assert(std::is_integral_v<T>);
        for (size_t at = 0; at < sizeof(T); ++at)
            bytes.push_back(static_cast<std::byte>(static_cast<std::make_unsigned_t<T>>(value) >> (8 * at)));
    }
    void text(TextView text) {
        number(static_cast<uint32_t>(text.size()));
        for (const char16_t unit : text) number(static_cast<uint16_t>(unit));
    }
    void value(const Value& value);

    std::vector<std::byte> bytes;
};

// Every read fails alike once the bytes have ended; nothing is allocated beyond what they hold.
class Reader {
public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    template <typename T>
    T number() {
        static_assert(std::is_integral_v<T>);
        if (bytes_.size() < sizeof(T)) {
            failed_ = true;
            return {};
        }
        std::make_unsigned_t<T> value = 0;
        for (size_t at = 0; at < sizeof(T); ++at)
            value = static_cast<std::make_unsigned_t<T>>(
                value | static_cast<std::make_unsigned_t<T>>(
                            std::to_integer<std::make_unsigned_t<T>>(bytes_[at]) << (8 * at)));
        bytes_ = bytes_.subspan(sizeof(T));
        return static_cast<T>(value);
    }
    Text text() {
        const auto length = number<uint32_t>();
        if (failed_ || bytes_.size() / 2 < length) {
            failed_ = true;
            return {};
        }
        Text text(length, u'\0');
        for (char16_t& unit : text) unit = number<uint16_t>();
        return text;
    }
    // Nothing also for a value that is whole and useless, after which the next one can be read.
    std::optional<Value> value();
    bool failed() const { return failed_; }
    bool atEnd() const { return bytes_.empty(); }

private:
    PictureRef picture();
    std::optional<Value> font();

    std::span<const std::byte> bytes_;
    bool failed_ = false;
};

void Writer::value(const Value& value) {
    number(static_cast<uint8_t>(typeOf(value)));
    std::visit(
        [this](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, NoValue>) {
            } else if constexpr (std::is_same_v<T, bool>) {
                number(static_cast<uint8_t>(held));
            } else if constexpr (std::is_integral_v<T>) {
                number(held);
            } else if constexpr (std::is_same_v<T, float>) {
                number(std::bit_cast<uint32_t>(held));
            } else if constexpr (std::is_same_v<T, double>) {
                number(std::bit_cast<uint64_t>(held));
            } else if constexpr (std::is_same_v<T, Text>) {
                text(held);
            } else if constexpr (std::is_same_v<T, OleColour>) {
                number(held.value);
            } else if constexpr (std::is_same_v<T, FontRef>) {
                number(static_cast<uint8_t>(held ? 1 : 0));
                if (!held) return;
                const FontDescription& font = held->description();
                text(font.name);
                number(std::bit_cast<uint64_t>(font.size));
                number(font.weight);
                number(font.charset);
                number(static_cast<uint8_t>((font.italic ? 1 : 0) | (font.underline ? 2 : 0) |
                                            (font.strikethrough ? 4 : 0)));
            } else if constexpr (std::is_same_v<T, PictureRef>) {
                number(static_cast<uint8_t>(held ? 1 : 0));
                if (!held) return;
                number(held->size().width);
                number(held->size().height);
                for (const uint32_t pixel : held->pixels()) number(pixel);
            }
        },
        value);
}

std::optional<Value> Reader::font() {
    if (number<uint8_t>() == 0) return FontRef();
    FontDescription font;
    font.name = text();
    font.size = std::bit_cast<double>(number<uint64_t>());
    font.weight = number<int16_t>();
    font.charset = number<int16_t>();
    const auto styles = number<uint8_t>();
    font.italic = (styles & 1) != 0;
    font.underline = (styles & 2) != 0;
    font.strikethrough = (styles & 4) != 0;
    // No font can have another size, whatever a host has set: the control takes its default.
    constexpr double largestSize = 8192;
    if (!(font.size > 0 && font.size <= largestSize)) return std::nullopt;
    return std::make_shared<SharedFont>(std::move(font));
}

PictureRef Reader::picture() {
    if (number<uint8_t>() == 0) return nullptr;
    const auto width = number<int32_t>();
    const auto height = number<int32_t>();
    if (failed_ || width < 0 || height < 0 ||
        static_cast<uint64_t>(width) * static_cast<uint64_t>(height) > bytes_.size() / sizeof(uint32_t)) {
        failed_ = true;
        return nullptr;
    }
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
    for (uint32_t& pixel : pixels) pixel = number<uint32_t>();
    return std::make_shared<SharedPicture>(PixelSize{width, height}, std::move(pixels));
}

std::optional<Value> Reader::value() {
    const auto type = number<uint8_t>();
    if (failed_) return std::nullopt;
    std::optional<Value> value = Value();
    switch (static_cast<ValueType>(type)) {
        case ValueType::empty:
            break;
        case ValueType::boolean:
            value = number<uint8_t>() != 0;
            break;
        case ValueType::byte:
            value = number<uint8_t>();
            break;
        case ValueType::integer:
            value = number<int16_t>();
            break;
        case ValueType::longInteger:
            value = number<int32_t>();
            break;
        case ValueType::single:
            value = std::bit_cast<float>(number<uint32_t>());
            break;
        case ValueType::doubleFloat:
            value = std::bit_cast<double>(number<uint64_t>());
            break;
        case ValueType::text:
            value = text();
            break;
        case ValueType::colour:
            value = OleColour(number<uint32_t>());
            break;
        case ValueType::font:
            value = font();
            break;
        case ValueType::picture:
            value = picture();
            break;
        default:
            failed_ = true;
    }
    return failed_ ? std::nullopt : std::move(value);
}

}  // namespace

std::optional<Value> MemoryBag::read(TextView key, ValueType) {
    for (const Entry& entry : entries_) {
        if (equalIgnoringCase(entry.first, key)) return entry.second;
    }
    return std::nullopt;
}

void MemoryBag::write(TextView key, const Value& value) {
    if (typeOf(value) == ValueType::object) return;  // nobody knows what is in it
    for (Entry& entry : entries_) {
        if (equalIgnoringCase(entry.first, key)) {
            entry.second = value;
            return;
        }
    }
    entries_.emplace_back(key, value);
}

std::vector<std::byte> MemoryBag::serialized() const {
    Writer writer;
    writer.number(magic);
    writer.number(version);
    writer.number(static_cast<uint32_t>(entries_.size()));
    for (const auto& [key, value] : entries_) {
        writer.text(key);
        writer.value(value);
    }
    return std::move(writer.bytes);
}

std::optional<MemoryBag> MemoryBag::parsed(std::span<const std::byte> bytes) {
    Reader reader(bytes);
    if (reader.number<uint32_t>() != magic || reader.number<uint16_t>() != version) return std::nullopt;
    MemoryBag bag;
    for (auto left = reader.number<uint32_t>(); left > 0; --left) {
        Text key = reader.text();
        std::optional<Value> value = reader.value();
        if (reader.failed()) return std::nullopt;
        if (value) bag.entries_.emplace_back(std::move(key), std::move(*value));
    }
    if (reader.failed() || !reader.atEnd()) return std::nullopt;
    return bag;
}

}  // namespace obk
