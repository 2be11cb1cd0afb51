// A form of one's own: controls that a person adds, moves, sizes and removes.
#pragma once

#include <optional>

#include "scene.h"

namespace obk::gallery {

// Belongs to a scene. While it is on, the mouse and the keys arrange the controls instead of using them.
class Arrangement {
public:
    explicit Arrangement(Scene& scene) : scene_(scene) {}

    bool on() const { return on_; }
    void turn(bool on);
    // At a free place, called by its class and a number.
    SceneControl& add(const std::wstring& className);
    void removePicked();
    SceneControl* picked() const;
    // Whether it was meant for the arrangement, and so for nobody else.
    bool handle(const MSG& message);
    void paint(HDC dc) const;

private:
    enum class Drag { none, move, size };

    SceneControl* at(POINT place) const;
    POINT placeOf(const MSG& message) const;
    void pick(const SceneControl* control);
    void press(POINT place);
    void drag(POINT place);
    bool key(WPARAM code);
    void change(int x, int y, int width, int height);

    Scene& scene_;
    bool on_ = false;
    std::wstring picked_;  // the control's name: loading makes controls anew
    Drag drag_ = Drag::none;
    POINT start_{};
    Place before_{};
};

}  // namespace obk::gallery
