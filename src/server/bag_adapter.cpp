#include "server/bag_adapter.h"

#include "server/system_text.h"
#include "server/variant_value.h"

#include <algorithm>

namespace obk::server {

namespace {

// A stored value that no type of ours can hold: present, but convertible to nothing.
Value unreadable(ValueType expected) {
    if (expected == ValueType::font) return PictureRef();
    return FontRef();
}

HRESULT readExactly(IStream& stream, void* bytes, ULONG count) {
    ULONG got = 0;
    const HRESULT read = stream.Read(bytes, count, &got);
    if (FAILED(read)) return read;
    return got == count ? S_OK : STG_E_READFAULT;
}

}  // namespace

std::optional<Value> BagAdapter::read(TextView key, ValueType expected) {
    OwnedVariant stored;
    if (FAILED(bag_.Read(toWide(key).c_str(), &stored, log_)) || V_VT(&stored) == VT_EMPTY)
        return std::nullopt;
    const bool wantsObject = expected == ValueType::font || expected == ValueType::picture;
    Value value;
    if (FAILED(valueFromVariant(stored, wantsObject ? expected : ValueType::empty, value)))
        return unreadable(expected);
    return value;
}

void BagAdapter::write(TextView key, const Value& value) {
    OwnedVariant stored;
    if (SUCCEEDED(variantFromValue(value, stored))) bag_.Write(toWide(key).c_str(), &stored);
}

HRESULT writeBag(const MemoryBag& bag, IStream& stream) {
    const std::vector<std::byte> bytes = bag.serialized();
    const auto length = static_cast<uint32_t>(bytes.size());
    ULONG written = 0;
    if (const HRESULT header = stream.Write(&length, sizeof length, &written); FAILED(header)) return header;
    if (const HRESULT body = stream.Write(bytes.data(), length, &written); FAILED(body)) return body;
    return written == length ? S_OK : STG_E_MEDIUMFULL;
}

uint64_t storedSize(const MemoryBag& bag) {
    return sizeof(uint32_t) + bag.serialized().size();
}

HRESULT readBag(IStream& stream, MemoryBag& bag) {
    uint32_t length = 0;
    if (const HRESULT header = readExactly(stream, &length, sizeof length); FAILED(header)) return header;
    std::vector<std::byte> bytes;
    // In steps: a damaged length takes no more memory than the stream really has.
    constexpr uint32_t step = 64 * 1024;
    while (length > 0) {
        const uint32_t part = std::min(length, step);
        bytes.resize(bytes.size() + part);
        if (const HRESULT read = readExactly(stream, bytes.data() + bytes.size() - part, part); FAILED(read))
            return read;
        length -= part;
    }
    if (auto parsed = MemoryBag::parsed(bytes)) bag = std::move(*parsed);
    return S_OK;
}

}  // namespace obk::server
