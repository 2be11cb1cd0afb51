// A container's property bags and streams, seen as the library's own bags.
#pragma once

#include "framework/property_bag.h"

#include <windows.h>

#include <ocidl.h>

namespace obk::server {

// Borrows the container's bag for the time of one call.
class BagAdapter final : public PropertyBag {
public:
    BagAdapter(IPropertyBag& bag, IErrorLog* log) : bag_(bag), log_(log) {}

    std::optional<Value> read(TextView key, ValueType expected) override;
    void write(TextView key, const Value& value) override;

private:
    IPropertyBag& bag_;
    IErrorLog* log_;
};

// A bag behind its own length, so that whatever follows it in the stream is found even when the bag is
// damaged.
HRESULT writeBag(const MemoryBag& bag, IStream& stream);
uint64_t storedSize(const MemoryBag& bag);
// A damaged bag is read as an empty one. An error is the stream's: it ended too early, or cannot be read.
HRESULT readBag(IStream& stream, MemoryBag& bag);

}  // namespace obk::server
