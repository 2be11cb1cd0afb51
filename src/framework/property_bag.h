// Named, typed values in which a container keeps a control's settings.
#pragma once

#include "framework/value.h"

#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace obk {

class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    // `expected` helps bags that must name a type to read. Nothing when the key is absent or cannot be read.
    virtual std::optional<Value> read(TextView key, ValueType expected) = 0;
    // A value that cannot be written is lost, the next one is written all the same.
    virtual void write(TextView key, const Value& value) = 0;
};

// A bag in memory that keeps the order of writing; keys are looked up without regard to case.
class MemoryBag : public PropertyBag {
public:
    using Entry = std::pair<Text, Value>;

    std::optional<Value> read(TextView key, ValueType expected) override;
    void write(TextView key, const Value& value) override;

    const std::vector<Entry>& entries() const { return entries_; }

    // The bag as bytes and back. Bytes from anywhere are safe: damaged ones give nothing, and no more memory
    // is taken than they warrant. Fonts are written by description and pictures by their pixels. A font whose
    // size cannot be is missing from the bag; all else is read.
    std::vector<std::byte> serialized() const;
    static std::optional<MemoryBag> parsed(std::span<const std::byte> bytes);

private:
    std::vector<Entry> entries_;
};

}  // namespace obk
