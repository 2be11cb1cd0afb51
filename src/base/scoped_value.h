// A value that holds for a scope and comes back at its end, however that ends.
#pragma once

#include <utility>

namespace obk {

template <typename T>
class ScopedValue {
public:
    // `place` is borrowed and outlives the scope.
    ScopedValue(T& place, T value) : place_(place), before_(std::exchange(place, std::move(value))) {}
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;
    ~ScopedValue() { place_ = std::move(before_); }

private:
    T& place_;
    T before_;
};

// Set for a scope: a guard against being entered again, or a mark that something is under way.
class ScopedFlag : public ScopedValue<bool> {
public:
    explicit ScopedFlag(bool& flag) : ScopedValue(flag, true) {}
};

}  // namespace obk
