// The system registry, as far as the port reads it.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <memory>
#include <string>

namespace obk {

// One opened key of the system registry; closed when it goes.
class RegistryKey {
public:
    virtual ~RegistryKey() = default;
    // Reads a value in the system's single-byte code page. `buffer` keeps its length and content beyond what
    // the value fills; `size` comes back as the bytes the value has, its terminating zero included. False
    // when the value does not exist or does not fit.
    virtual bool query(TextView name, std::string& buffer, uint32_t& size, uint32_t& type) const = 0;
};

class Registry {
public:
    virtual ~Registry() = default;
    // Null when the key does not exist or the access is refused.
    virtual std::unique_ptr<RegistryKey> open(int32_t rootKey, TextView subKey, uint32_t access) = 0;
};

}  // namespace obk
