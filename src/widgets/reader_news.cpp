#include "widgets/reader_news.h"

#include "base/attempt.h"
#include "widgets/surface_peer.h"

#include <algorithm>
#include <utility>

namespace obk {

void ReaderNews::add(News news) {
    // More than anyone listens to.
    constexpr size_t most = 64;
    if (!news.event || news.event == AccessibleEvent::focus) {
        const News moved{AccessibleEvent::focus, {}};
        const bool moves = std::erase(waiting_, moved) > 0 || news.event;
        std::erase(waiting_, News{});
        news = moves ? moved : News{};
    }
    std::erase(waiting_, news);
    if (waiting_.size() >= most) {
        waiting_.clear();
        news = {AccessibleEvent::structure, tree_.root()};
    }
    waiting_.push_back(news);
}

void ReaderNews::focusWent(bool expected) {
    focusWent_ = expected;
    if (!expected) toldFocus_ = {};
}

void ReaderNews::forget(const Widget& widget) {
    std::erase_if(waiting_, [&](const News& news) { return news.of.widget == &widget; });
    if (toldFocus_.widget == &widget) toldFocus_ = {};
}

void ReaderNews::clear() {
    waiting_.clear();
    toldFocus_ = {};
}

void ReaderNews::tell(bool inside, const std::unique_ptr<SurfacePeer>& peer) {
    if (std::exchange(focusWent_, false) && !inside) toldFocus_ = {};
    const auto waiting = std::exchange(waiting_, {});
    for (const News& news : waiting) tellOne(news, peer);
    // What has changed may have had the focus, or have moved what has it.
    const auto ofFocus = [](const News& news) { return !news.event || news.event == AccessibleEvent::focus; };
    if (toldFocus_ && std::none_of(waiting.begin(), waiting.end(), ofFocus)) tellOne({}, peer);
}

void ReaderNews::tellOne(const News& news, const std::unique_ptr<SurfacePeer>& peer) {
    if (!peer) return;
    const bool focus = !news.event || news.event == AccessibleEvent::focus;
    const AccessibleId of = focus ? tree_.focus() : tree_.nearest(news.of);
    if (!of) return;
    const bool known = focus && std::exchange(toldFocus_, of) == of && !news.event;
    attempt([&] {
        if (known)
            peer->focusStays(of);
        else
            peer->tellReaders(news.event.value_or(AccessibleEvent::focus), of);
    });
}

}  // namespace obk
