// A notification that any number of listeners may connect to, safe against every re-entry.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace obk {

// Ends one connection when it goes; an empty one ends nothing. May outlive the event.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::shared_ptr<bool> live) : live_(std::move(live)) {}
    Connection(Connection&&) noexcept = default;
    Connection& operator=(Connection&& other) noexcept {
        disconnect();
        live_ = std::move(other.live_);
        return *this;
    }
    ~Connection() { disconnect(); }

    void disconnect() {
        if (live_) *live_ = false;
        live_.reset();
    }

private:
    std::shared_ptr<bool> live_;
};

// The listeners of an event, whatever their arguments are.
class ListenerList {
public:
    struct Entry {
        std::shared_ptr<bool> live;
        std::shared_ptr<const void> listener;
    };
    using Entries = std::vector<Entry>;

    Connection add(std::shared_ptr<const void> listener);
    // Null while nobody has ever listened. It is replaced, never changed, so a copy stays whole.
    std::shared_ptr<const Entries> entries() const { return entries_; }

private:
    std::shared_ptr<const Entries> entries_;
};

// Raised by calling it. Arguments are passed on as declared, so a reference lets a listener answer.
// A listener may connect, disconnect, raise again or destroy the event itself while it is raised.
template <typename... Arguments>
class Event {
public:
    using Listener = std::function<void(Arguments...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Connection connect(Listener listener) {
        return listeners_.add(std::make_shared<const Listener>(std::move(listener)));
    }

    void operator()(Arguments... arguments) const {
        const auto entries = listeners_.entries();
        if (!entries) return;
        for (const ListenerList::Entry& entry : *entries) {
            if (*entry.live) (*static_cast<const Listener*>(entry.listener.get()))(arguments...);
        }
    }

private:
    ListenerList listeners_;
};

}  // namespace obk
