#include "base/event.h"

namespace obk {

Connection& Connection::operator=(Connection&& other) noexcept {
    disconnect();
    entry_ = std::move(other.entry_);
    return *this;
}

Connection::~Connection() {
    disconnect();
}

void Connection::disconnect() {
    if (const auto entry = entry_.lock()) entry->live = false;
    entry_.reset();
}

// One by one: a long list that let go of itself from its head would need as much stack.
ListenerList::~ListenerList() {
    while (first_ && first_.use_count() == 1) first_ = std::exchange(first_->next, nullptr);
}

uint32_t ListenerList::last() const {
    const ListenerEntry* entry = first_.get();
    while (entry && entry->next) entry = entry->next.get();
    return entry ? entry->number : 0;
}

Connection ListenerList::add(std::shared_ptr<ListenerEntry> added) {
    added->number = last() + 1;
    std::shared_ptr<ListenerEntry>* place = &first_;
    while (*place) {
        if ((*place)->live)
            place = &(*place)->next;
        else
            *place = std::shared_ptr<ListenerEntry>((*place)->next);
    }
    Connection made(added);
    *place = std::move(added);
    return made;
}

ListenerWalk::ListenerWalk(const ListenerList& list) : coming_(list.first_), last_(list.last()) {}

ListenerWalk::~ListenerWalk() = default;

const ListenerEntry* ListenerWalk::next() {
    do {
        present_ = std::move(coming_);
        if (!present_ || present_->number > last_) return nullptr;
        coming_ = present_->next;
    } while (!present_->live);
    return present_.get();
}

}  // namespace obk
