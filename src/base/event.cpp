#include "base/event.h"

namespace obk {

Connection ListenerList::add(std::shared_ptr<const void> listener) {
    auto live = std::make_shared<bool>(true);
    auto grown = std::make_shared<Entries>();
    if (entries_) {
        for (const Entry& entry : *entries_) {
            if (*entry.live) grown->push_back(entry);
        }
    }
    grown->push_back({live, std::move(listener)});
    entries_ = std::move(grown);
    return Connection(std::move(live));
}

}  // namespace obk
