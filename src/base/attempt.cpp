#include "base/attempt.h"

#include <atomic>
#include <functional>
#include <new>
#include <optional>
#include <stdexcept>
#include <typeinfo>
#include <variant>

namespace obk {

namespace {

std::atomic<SkippedObserver> currentObserver{nullptr};

}  // namespace

SkippedObserver observeSkipped(SkippedObserver observer) noexcept {
    return currentObserver.exchange(observer);
}

void detail::tellSkipped(const Place& place) noexcept {
    using Cause = SkippedStatement::Cause;
    const SkippedObserver told = currentObserver.load(std::memory_order_relaxed);
    if (!told) return;
    const auto tell = [&](Cause cause, const char* reason) { told({place, cause, reason}); };
    try {
        throw;
    } catch (const StatementFailed& failed) {
        tell(Cause::expected, failed.what());
    } catch (const std::bad_alloc& ended) {
        tell(Cause::memory, ended.what());
    } catch (const std::logic_error& fault) {
        tell(Cause::logic, fault.what());
    } catch (const std::bad_variant_access& fault) {
        tell(Cause::logic, fault.what());
    } catch (const std::bad_optional_access& fault) {
        tell(Cause::logic, fault.what());
    } catch (const std::bad_function_call& fault) {
        tell(Cause::logic, fault.what());
    } catch (const std::bad_cast& fault) {
        tell(Cause::logic, fault.what());
    } catch (const std::exception& thrown) {
        tell(Cause::other, thrown.what());
    } catch (...) {
        tell(Cause::other, "something that is no exception");
    }
}

}  // namespace obk
