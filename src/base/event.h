// A notification that any number of listeners may connect to, safe against every re-entry.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace obk {

// What an event knows of one listener, and of the one that connected after it.
struct ListenerEntry {
    std::shared_ptr<ListenerEntry> next;
    uint32_t number = 0;  // in the order of connecting
    bool live = true;
};

// Ends one connection when it goes; an empty one ends nothing. May outlive the event.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::weak_ptr<ListenerEntry> entry) : entry_(std::move(entry)) {}
    Connection(Connection&&) noexcept = default;
    Connection& operator=(Connection&& other) noexcept;
    ~Connection();

    void disconnect();

private:
    std::weak_ptr<ListenerEntry> entry_;
};

// The listeners of an event, whatever their arguments are. An entry that is taken out leads on to those after
// it, so whoever has come to it goes on from there.
class ListenerList {
public:
    ListenerList() = default;
    ListenerList(const ListenerList&) = delete;
    ListenerList& operator=(const ListenerList&) = delete;
    ~ListenerList();

    // Takes out those that have disconnected.
    Connection add(std::shared_ptr<ListenerEntry> added);
    bool empty() const { return !first_; }

private:
    friend class ListenerWalk;
    uint32_t last() const;

    std::shared_ptr<ListenerEntry> first_;
};

// From one listener to the next, through those that had connected when it began. The one it has come to
// stays.
class ListenerWalk {
public:
    explicit ListenerWalk(const ListenerList& list);
    ListenerWalk(const ListenerWalk&) = delete;
    ListenerWalk& operator=(const ListenerWalk&) = delete;
    ~ListenerWalk();

    // Null at the end.
    const ListenerEntry* next();

private:
    std::shared_ptr<ListenerEntry> coming_, present_;
    uint32_t last_;
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
        return listeners_.add(std::make_shared<Entry>(std::move(listener)));
    }

    void operator()(Arguments... arguments) const {
        if (listeners_.empty()) return;
        ListenerWalk walk(listeners_);
        while (const ListenerEntry* entry = walk.next())
            static_cast<const Entry*>(entry)->listener(arguments...);
    }

private:
    struct Entry : ListenerEntry {
        explicit Entry(Listener heard) : listener(std::move(heard)) {}
        const Listener listener;
    };

    ListenerList listeners_;
};

}  // namespace obk
