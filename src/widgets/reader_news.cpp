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
    auto waiting = std::exchange(waiting_, {});
    const auto ofFocus = [](const News& news) { return !news.event || news.event == AccessibleEvent::focus; };
    auto focus = std::find_if(waiting.begin(), waiting.end(), ofFocus);
    const bool moves = focus != waiting.end();
    // Whoever comes to a thing is told all of it: what becomes of it afterwards would be heard twice.
    const AccessibleId at = moves ? tree_.focus() : AccessibleId{};
    for (auto each = focus; each != waiting.end(); ++each)
        if (each->of == at) std::rotate(focus++, each, each + 1);
    for (const News& news : waiting) tellOne(news, peer);
    // What has changed may have had the focus, or have moved what has it.
    if (toldFocus_ && !moves) tellOne({}, peer);
}

void ReaderNews::tellOne(const News& news, const std::unique_ptr<SurfacePeer>& peer) {
    if (!peer) return;
    const bool focus = !news.event || news.event == AccessibleEvent::focus;
    // Of a part that has gone there is no news.
    const AccessibleId of = focus                                        ? tree_.focus()
                            : news.of.part.whole() || tree_.has(news.of) ? tree_.nearest(news.of)
                                                                         : AccessibleId{};
    if (!of) return;
    const bool known = focus && std::exchange(toldFocus_, of) == of && !news.event;
    attempt([&] {
        AccessibleEvent event = news.event.value_or(AccessibleEvent::focus);
        if (of == toldFocus_) {
            const AccessibleItem item = tree_.item(of);
            const bool checks = item.is(AccessibleItem::checkable);
            Text value = checks && item.is(AccessibleItem::checked) ? u"checked" : item.value;
            const bool another = std::exchange(toldValue_, std::move(value)) != toldValue_;
            if (known) {
                peer->focusStays(of);
                // What stands in its place now may be another thing.
                if (!another || !peer || item.window != 0) return;
                event = checks ? AccessibleEvent::toggled : AccessibleEvent::value;
            }
        }
        peer->tellReaders(event, of);
    });
}

}  // namespace obk
