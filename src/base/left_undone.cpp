#include "base/left_undone.h"

namespace obk {

constinit std::atomic<UndoneObserver> detail::undoneObserver{nullptr};

UndoneObserver observeUndone(UndoneObserver observer) noexcept {
    return detail::undoneObserver.exchange(observer);
}

bool refuseNumber(int64_t number, TextView wanted) noexcept {
    if (!undoneIsObserved()) return false;
    try {
        const Text came = decimalText(number);
        tellUndone({.kind = LeftUndone::Kind::argument, .came = came, .reason = wanted});
    } catch (...) {
        // Without memory there is nothing to tell it with.
    }
    return false;
}

}  // namespace obk
