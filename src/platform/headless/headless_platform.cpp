#include "platform/headless/headless_platform.h"

#include "base/letter_case.h"
#include "base/scoped_value.h"
#include "platform/headless/headless_surface.h"
#include "platform/headless/headless_timer.h"

#include <algorithm>
#include <utility>

namespace obk::headless {

namespace {

int16_t keyOf(char16_t character) {
    if ((character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'Z'))
        return static_cast<int16_t>(character);
    if (character >= u'a' && character <= u'z') return static_cast<int16_t>(character - u'a' + u'A');
    switch (character) {
        case u'.':
            return 190;
        case u',':
            return 188;
        case u'-':
            return 189;
        case key::backspace:
        case key::tab:
        case key::enter:
        case key::escape:
        case key::space:
            return static_cast<int16_t>(character);
        default:
            return 231;  // a packet key: some input method's character
    }
}

// The character that a key of a US keyboard makes; 0 for none.
char16_t characterOf(int16_t code, int16_t state) {
    if (state == shift::control && code >= 'A' && code <= 'Z') return static_cast<char16_t>(code - 'A' + 1);
    if ((state & (shift::control | shift::alt)) != 0) return 0;
    if (code >= 'A' && code <= 'Z')
        return static_cast<char16_t>((state & shift::shift) != 0 ? code : code - 'A' + 'a');
    if ((code >= '0' && code <= '9' && state == 0) || code == key::backspace || code == key::tab ||
        code == key::enter || code == key::escape || code == key::space)
        return static_cast<char16_t>(code);
    switch (code) {
        case 190:
            return u'.';
        case 188:
            return u',';
        case 189:
            return u'-';
        default:
            return 0;
    }
}

}  // namespace

std::unique_ptr<TimerPeer> HeadlessPlatform::createTimer(KeepAlive keepAlive, std::function<void()> tick) {
    if (refusesRequest()) return nullptr;
    return std::make_unique<HeadlessTimer>(*this, std::move(keepAlive), std::move(tick));
}

std::unique_ptr<SurfacePeer> HeadlessPlatform::createSurface(SurfaceClient& client,
                                                             const SurfacePlacement& placement) {
    if (refusesWindows_ || refusesRequest() ||
        (placement.kind == SurfacePlacement::Kind::control && placement.parent == 0))
        return nullptr;
    return std::make_unique<HeadlessSurface>(*this, client, placement);
}

std::optional<Rgb> HeadlessPlatform::chooseColour(NativeWindow, const ColourQuestion& question) {
    if (refusesRequest()) return std::nullopt;
    const ColourAnswer answer = colourAnswer_;
    return answer ? answer(question) : std::nullopt;
}

std::optional<size_t> HeadlessPlatform::chooseFromMenu(NativeWindow, std::span<const MenuItem> items,
                                                       const PixelRect& beside) {
    if (refusesRequest()) return std::nullopt;
    ++menusOpened_;
    takeCapture(0);  // the menu has it
    const MenuAnswer answer = menuAnswer_;
    const auto chosen = answer ? answer(items, beside) : std::nullopt;
    const bool possible =
        chosen && *chosen < items.size() && items[*chosen].enabled && !items[*chosen].caption.empty();
    return possible ? chosen : std::nullopt;
}

void HeadlessPlatform::pressHost() {
    HeadlessWindow* const focused = find(focus_);
    if (!focused) return;
    const HeadlessSurface* const on = focused->parent() ? focused->parent() : surface(focus_);
    if (const auto alive = focused->client().keepAlive(); alive && on) on->surfaceClient().pressedElsewhere();
}

void HeadlessPlatform::moveHost() {
    std::vector<NativeWindow> panels;
    for (const auto& [id, window] : windows_) panels.push_back(id);
    for (const NativeWindow id : panels) {
        HeadlessSurface* panel = surface(id);
        if (!panel || panel->kind() != SurfacePlacement::Kind::panel || !panel->visible()) continue;
        if (const auto alive = panel->client().keepAlive()) panel->surfaceClient().hostMoved();
    }
}

void HeadlessPlatform::setMonitors(std::vector<Monitor> monitors, ScaleTold told) {
    monitors_ = std::move(monitors);
    scaleTold_ = told;
    for (const NativeWindow id : windows()) {
        HeadlessSurface* const shown = surface(id);
        if (shown && shown->visible()) shown->followMonitor();
    }
}

bool HeadlessPlatform::putOnClipboard(NativeWindow, TextView text) {
    if (refusesRequest()) return false;
    clipboard_ = text;
    return true;
}

std::optional<Text> HeadlessPlatform::textOnClipboard(NativeWindow) {
    return refusesRequest() ? std::nullopt : std::optional(clipboard_);
}

int32_t HeadlessPlatform::dragText(TextView text) {
    if (refusesRequest()) return drop_effect::none;
    stealCapture();
    return dragAnswer_ ? dragAnswer_(text) : 0;
}

void HeadlessPlatform::pressKey(int16_t code, int16_t shift) {
    keyDown(code, shift);
    keyUp(code, shift);
}

void HeadlessPlatform::keyDown(int16_t code, int16_t shift, bool repeated) {
    HeadlessWindow* window = find(focus_);
    if (!window) return;
    const NativeWindow id = focus_;
    PeerClient& client = window->client();
    const auto alive = client.keepAlive();
    if (!alive) return;
    KeyEvent event{code, shift, repeated};
    const KeyRoute route = client.preTranslate(event);
    if (route == KeyRoute::handled || !find(id)) return;
    if (route == KeyRoute::container && client.offerToContainer(event)) return;
    if (!find(id)) return;
    client.keyDown(event);
    if (event.code == 0 || find(id) != window) return;
    if (event.code == key::f10 && event.shift == shift::shift) {
        client.contextMenu(std::nullopt);
        return;
    }
    window->keyEffect(event);
    // The character goes to whoever has the focus by then.
    HeadlessWindow* typedInto = find(focus_);
    if (const char16_t character = characterOf(code, shift); character != 0 && typedInto)
        typeInto(*typedInto, character);
}

void HeadlessPlatform::typeInto(HeadlessWindow& window, char16_t character) {
    const NativeWindow id = window.id();
    const auto alive = window.client().keepAlive();
    if (!alive) return;
    const auto kept = static_cast<char16_t>(window.client().keyPress(static_cast<int16_t>(character)));
    if (kept == 0 || find(id) != &window) return;
    // A surface that answers by giving the focus to a child leaves the character to that.
    HeadlessWindow* const child = find(focus_);
    if (child && child->parent() == &window) return typeInto(*child, kept);
    window.characterEffect(kept);
}

void HeadlessPlatform::keyUp(int16_t code, int16_t shift) {
    // The release goes to whoever has the focus by then.
    HeadlessWindow* last = find(focus_);
    if (!last) return;
    const auto alive = last->client().keepAlive();
    KeyEvent release{code, shift, false};
    if (!alive) return;
    const NativeWindow id = last->id();
    last->client().keyUp(release);
    if (release.code != 0 && find(id) == last) last->keyUpEffect(release);
    if (release.code == key::menu && find(id) == last) last->client().contextMenu(std::nullopt);
}

void HeadlessPlatform::type(TextView text) {
    for (const char16_t character : text) {
        const int16_t code = keyOf(character);
        const auto state = static_cast<int16_t>(character >= u'A' && character <= u'Z' ? shift::shift : 0);
        if (characterOf(code, state) == character) {
            pressKey(code, state);
            continue;
        }
        HeadlessWindow* window = find(focus_);
        if (!window) return;
        typeInto(*window, character);
    }
}

void HeadlessPlatform::mouse(NativeWindow surfaceWindow, const MouseEvent& event) {
    const ScopedFlag acts(mouseActs_);
    HeadlessSurface* target = surface(surfaceWindow);
    if (!target) return;
    MouseEvent own = event;
    if (HeadlessSurface* holder = surface(capture_); holder && holder != target) {
        const PixelPoint screen = target->toScreen(event.at);
        const PixelPoint origin = holder->toScreen({0, 0});
        own.at = {screen.x - origin.x, screen.y - origin.y};
        target = holder;
    }
    // A disabled window is none for the mouse; the host would get it.
    if (!target->enabled()) return;
    HeadlessWindow* const child = target->hasCapture() ? nullptr : target->childAt(own.at);
    HeadlessWindow* const receiver = child ? child : target;
    const NativeWindow id = receiver->id();
    const auto alive = receiver->client().keepAlive();
    if (!alive) return;
    if (child) own.at = {own.at.x - child->bounds().left, own.at.y - child->bounds().top};
    if (capture_ == 0) moveOnto(own.kind == MouseEvent::Kind::leave ? 0 : id, event);
    // A press brings the focus before it is reported.
    if (child && own.kind == MouseEvent::Kind::down && own.button == button::left && find(id) &&
        child->canTakeFocus())
        setFocus(id);
    if (find(id)) receiver->client().mouse(own);
    if (find(id) == receiver) receiver->mouseEffect(own);
    if (own.kind == MouseEvent::Kind::up && own.button == button::right && find(id))
        receiver->client().contextMenu(own.at);
}

void HeadlessPlatform::moveOnto(NativeWindow window, const MouseEvent& event) {
    const NativeWindow before = std::exchange(hovered_, window);
    HeadlessWindow* left = before == window ? nullptr : find(before);
    if (!left || event.kind == MouseEvent::Kind::leave) return;
    const auto alive = left->client().keepAlive();
    if (alive) left->client().mouse({MouseEvent::Kind::leave, 0, event.shift, event.at});
}

void HeadlessPlatform::click(NativeWindow surfaceWindow, PixelPoint at, int16_t mouseButton) {
    mouse(surfaceWindow, {MouseEvent::Kind::move, 0, 0, at});
    mouse(surfaceWindow, {MouseEvent::Kind::down, mouseButton, 0, at});
    mouse(surfaceWindow, {MouseEvent::Kind::up, mouseButton, 0, at});
}

void HeadlessPlatform::wheel(NativeWindow surfaceWindow, const WheelEvent& event) {
    HeadlessSurface* target = surface(surfaceWindow);
    if (!target) return;
    HeadlessWindow* const child = target->hasCapture() ? nullptr : target->childAt(event.at);
    HeadlessWindow* const receiver = child ? child : target;
    const auto alive = receiver->client().keepAlive();
    WheelEvent own = event;
    if (child) own.at = {own.at.x - child->bounds().left, own.at.y - child->bounds().top};
    if (alive) receiver->client().wheel(own);
}

void HeadlessPlatform::appendSortKey(TextView text, std::string& key) {
    for (const char16_t unit : text) {
        const char16_t capital = upperSimple(unit);
        key.push_back(static_cast<char>(capital >> 8));
        key.push_back(static_cast<char>(capital & 0xFF));
    }
}

bool HeadlessPlatform::opensMenu(const std::function<void()>& work) {
    const uint32_t before = menusOpened_;
    work();
    return menusOpened_ != before;
}

int32_t HeadlessPlatform::drop(NativeWindow surfaceWindow, DropEvent event) {
    HeadlessSurface* target = surface(surfaceWindow);
    if (!target || !target->acceptsDrops() || !target->enabled()) return drop_effect::none;
    const auto alive = target->client().keepAlive();
    if (!alive || !target->surfaceClient().takesDrop(event.at)) return drop_effect::none;
    target->surfaceClient().drop(event);
    return event.effect;
}

void HeadlessPlatform::setFocus(NativeWindow window) {
    if (window == focus_) return;
    const HeadlessWindow* const wanted = find(window);
    if (wanted && wanted->inPanel()) return;
    HeadlessWindow* losing = find(focus_);
    focus_ = window;
    if (losing) {
        if (const auto alive = losing->client().keepAlive()) losing->client().focusLost();
    }
    HeadlessWindow* gaining = find(window);
    if (gaining && focus_ == window) {
        if (const auto alive = gaining->client().keepAlive()) gaining->client().focusGained();
    }
}

void HeadlessPlatform::stealCapture() {
    takeCapture(0);
}

void HeadlessPlatform::takeCapture(NativeWindow window) {
    HeadlessSurface* loser = surface(capture_);
    capture_ = window;
    if (loser && loser->id() != window) {
        if (const auto alive = loser->client().keepAlive()) loser->surfaceClient().captureLost();
    }
}

void HeadlessPlatform::advance(std::chrono::milliseconds time) {
    while (true) {
        HeadlessTimer* next = nullptr;
        for (HeadlessTimer* timer : timers_) {
            if (timer->running() && (!next || timer->left() < next->left())) next = timer;
        }
        const auto step = next ? std::min(next->left(), time) : time;
        for (HeadlessTimer* timer : timers_) timer->pass(step);
        clock_.advance(step);
        time -= step;
        if (!next || next->left().count() > 0) return;
        next->tick();
    }
}

std::vector<NativeWindow> HeadlessPlatform::windows() const {
    std::vector<NativeWindow> ids;
    for (const auto& [id, window] : windows_) ids.push_back(id);
    return ids;
}

void HeadlessPlatform::paintInvalid() {
    for (const NativeWindow id : windows()) {
        if (HeadlessSurface* shown = surface(id)) shown->update();
    }
}

std::vector<std::string> HeadlessPlatform::takeHeard() {
    while (!toTellReaders_.empty()) {
        for (const NativeWindow id : std::exchange(toTellReaders_, {})) {
            HeadlessSurface* const telling = surface(id);
            const auto alive = telling ? telling->surfaceClient().keepAlive() : nullptr;
            if (alive) telling->surfaceClient().tellReaders();
        }
    }
    return std::exchange(heard_, {});
}

HeadlessSurface* HeadlessPlatform::surface(NativeWindow window) const {
    return dynamic_cast<HeadlessSurface*>(find(window));
}

void HeadlessPlatform::setDpi(NativeWindow window, Dpi dpi) {
    if (HeadlessSurface* target = surface(window)) target->setDpi(dpi);
}

NativeWindow HeadlessPlatform::add(HeadlessWindow& window) {
    const NativeWindow id = nextWindow_++;
    windows_[id] = &window;
    return id;
}

void HeadlessPlatform::remove(HeadlessWindow& window) {
    if (window.id() == 0) return;
    windows_.erase(window.id());
    // The focus of a window that goes falls to its parent, which is not told.
    if (focus_ == window.id()) focus_ = window.parent() ? window.parent()->id() : 0;
}

HeadlessWindow* HeadlessPlatform::find(NativeWindow window) const {
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : found->second;
}

}  // namespace obk::headless
