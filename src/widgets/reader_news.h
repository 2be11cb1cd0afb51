// What screen readers are still to be told of a surface.
#pragma once

#include "widgets/accessible_tree.h"

#include <memory>
#include <optional>
#include <vector>

namespace obk {

class SurfacePeer;

// Collected while something is at work, and told once it is done: the same news but once, the focus where it
// is by then.
class ReaderNews {
public:
    // Borrowed.
    explicit ReaderNews(const AccessibleTree& tree) : tree_(tree) {}

    bool empty() const { return waiting_.empty(); }
    // Of more than anyone listens to nothing is left but that all may be another.
    void add(AccessibleEvent event, const AccessibleId& of) { add(News{event, of}); }
    // The focus is in the surface's own window again, which is news only if readers know it elsewhere.
    void focusCameBack() { add(News{}); }
    // It has left that window. Unless readers are `expected` to be told, they will hear of its next place.
    void focusWent(bool expected);
    void forget(const Widget& widget);
    void clear();
    // `inside` says whether the surface's own window has the focus. Whoever listens may close the surface,
    // which empties `peer`.
    void tell(bool inside, const std::unique_ptr<SurfacePeer>& peer);

private:
    struct News {
        std::optional<AccessibleEvent> event;  // none for a focus that came back
        AccessibleId of;
        friend bool operator==(const News&, const News&) = default;
    };
    void add(News news);
    void tellOne(const News& news, const std::unique_ptr<SurfacePeer>& peer);

    const AccessibleTree& tree_;
    std::vector<News> waiting_;  // in the order in which they will be told
    AccessibleId toldFocus_;     // as readers know it; none while it is elsewhere
    Text toldValue_;             // what it had by then
    bool focusWent_ = false;     // since they were told
};

}  // namespace obk
