#include "arrangement.h"

#include <windowsx.h>

#include <algorithm>

namespace obk::gallery {

namespace {

constexpr int step = 4;      // places are multiples of it
constexpr int smallest = 8;  // side of a control
constexpr int corner = 10;   // from the right bottom corner: there a drag sizes
constexpr Place first = {20, 60, 120, fieldHeight};
constexpr Place grid = {20, 60, 280, 140};

int rounded(int length) {
    return (length + step / 2) / step * step;
}

// Or nearly.
bool overlap(Place one, const Place& other) {
    constexpr int gap = 8;
    one = {one.x - gap, one.y - gap, one.width + 2 * gap, one.height + 2 * gap};
    return one.x < other.x + other.width && other.x < one.x + one.width && one.y < other.y + other.height &&
           other.y < one.y + one.height;
}

}  // namespace

void Arrangement::turn(bool on) {
    on_ = on;
    drag_ = Drag::none;
    if (on && !picked() && !scene_.controls().empty()) pick(scene_.controls().front().get());
    InvalidateRect(scene_.handle(), nullptr, FALSE);
}

SceneControl* Arrangement::picked() const {
    return on_ ? scene_.find(picked_) : nullptr;
}

void Arrangement::pick(const SceneControl* control) {
    picked_ = control ? control->name : L"";
    if (control && scene_.onPicked) scene_.onPicked(control->name);
    InvalidateRect(scene_.handle(), nullptr, FALSE);
}

SceneControl& Arrangement::add(const std::wstring& className) {
    std::wstring name;
    for (int number = 1; name.empty() || scene_.find(name); ++number)
        name = className + std::to_wstring(number);
    Place place = className == L"GridEdit" ? grid : first;
    const auto taken = [&] {
        return std::any_of(scene_.controls().begin(), scene_.controls().end(),
                           [&](const auto& other) { return overlap(place, other->place); });
    };
    while (taken() && place.y < 400) place.y += step;
    SceneControl& added = scene_.addControl(name, L"OBKCTRLS." + className, place);
    pick(&added);
    return added;
}

void Arrangement::removePicked() {
    SceneControl* const control = picked();
    if (!control) return;
    scene_.remove(*control);
    pick(scene_.controls().empty() ? nullptr : scene_.controls().back().get());
}

SceneControl* Arrangement::at(POINT place) const {
    const auto found =
        std::find_if(scene_.controls().rbegin(), scene_.controls().rend(), [&](const auto& each) {
            const Place& own = each->place;
            return place.x >= own.x && place.x < own.x + own.width && place.y >= own.y &&
                   place.y < own.y + own.height;
        });
    return found == scene_.controls().rend() ? nullptr : found->get();
}

POINT Arrangement::placeOf(const MSG& message) const {
    POINT place = {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    MapWindowPoints(message.hwnd, scene_.handle(), &place, 1);
    return scene_.placeAt(place);
}

bool Arrangement::handle(const MSG& message) {
    if (!on_) return false;
    if (message.message == WM_KEYDOWN) return GetFocus() == scene_.handle() && key(message.wParam);
    const bool ours = message.hwnd == scene_.handle() || scene_.form().siteOf(message.hwnd);
    if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST || !ours) return false;
    switch (message.message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            press(placeOf(message));
            break;
        case WM_MOUSEMOVE:
            if (drag_ != Drag::none) drag(placeOf(message));
            break;
        case WM_LBUTTONUP:
            if (std::exchange(drag_, Drag::none) != Drag::none) ReleaseCapture();
            break;
        default:
            break;
    }
    return true;
}

void Arrangement::press(POINT place) {
    SetFocus(scene_.handle());
    const SceneControl* const control = at(place);
    pick(control);
    if (!control) return;
    before_ = control->place;
    start_ = place;
    const bool sizes =
        place.x >= before_.x + before_.width - corner && place.y >= before_.y + before_.height - corner;
    drag_ = sizes ? Drag::size : Drag::move;
    SetCapture(scene_.handle());
}

void Arrangement::drag(POINT place) {
    SceneControl* const control = picked();
    if (!control) return;
    const int x = rounded(place.x - start_.x), y = rounded(place.y - start_.y);
    Place wanted = before_;
    (drag_ == Drag::move ? wanted.x : wanted.width) += x;
    (drag_ == Drag::move ? wanted.y : wanted.height) += y;
    scene_.move(*control, wanted);
}

void Arrangement::change(int x, int y, int width, int height) {
    SceneControl* const control = picked();
    if (!control) return;
    const Place now = control->place;
    scene_.move(*control, {now.x + x, now.y + y, std::max(now.width + width, smallest),
                           std::max(now.height + height, smallest)});
}

bool Arrangement::key(WPARAM code) {
    const int by = code == VK_LEFT || code == VK_UP ? -step : step;
    const bool sizes = GetKeyState(VK_SHIFT) < 0;
    switch (code) {
        case VK_LEFT:
        case VK_RIGHT:
            sizes ? change(0, 0, by, 0) : change(by, 0, 0, 0);
            return true;
        case VK_UP:
        case VK_DOWN:
            sizes ? change(0, 0, 0, by) : change(0, by, 0, 0);
            return true;
        case VK_DELETE:
            removePicked();
            return true;
        case VK_SPACE: {
            // On to the next control.
            const auto& controls = scene_.controls();
            for (size_t index = 0; index < controls.size(); ++index) {
                if (controls[index].get() == picked()) {
                    pick(controls[(index + 1) % controls.size()].get());
                    break;
                }
            }
            return true;
        }
        default:
            return false;
    }
}

void Arrangement::paint(HDC dc) const {
    const SceneControl* const control = picked();
    if (!control) return;
    RECT frame = scene_.pixels(control->place);
    for (int line = 0; line < 2; ++line) {
        InflateRect(&frame, 1, 1);
        frameRect(dc, frame, GetSysColor(COLOR_HIGHLIGHT));
    }
}

}  // namespace obk::gallery
