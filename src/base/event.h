// A notification that any number of listeners may connect to, safe against every re-entry.
#pragma once

#include <cstddef>
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
        auto live = std::make_shared<bool>(true);
        auto grown = std::make_shared<Listeners>();
        for (const Entry& entry : *listeners_) {
            if (*entry.live) grown->push_back(entry);
        }
        grown->push_back({live, std::make_shared<Listener>(std::move(listener))});
        listeners_ = std::move(grown);
        return Connection(std::move(live));
    }

    void operator()(Arguments... arguments) const {
        // The list is replaced, never changed, so this copy stays whole whatever a listener does.
        const auto listeners = listeners_;
        for (const Entry& entry : *listeners) {
            if (*entry.live) (*entry.listener)(arguments...);
        }
    }

private:
    struct Entry {
        std::shared_ptr<bool> live;
        std::shared_ptr<Listener> listener;
    };
    using Listeners = std::vector<Entry>;

    std::shared_ptr<const Listeners> listeners_ = std::make_shared<const Listeners>();
};

}  // namespace obk
