// What stands on a scene, and where.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "container/control_site.h"
#include "container/type_members.h"

namespace obk::gallery {

// A rectangle at 96 dots per inch, relative to the scene's content.
struct Place {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

constexpr int fieldHeight = 24;  // of a line in a form

enum class TextLook { label, dim, strong, heading, total };

// A control on the scene. Without a live object `failure` says why.
struct SceneControl {
    std::wstring name;
    std::wstring progId;
    Place place;
    std::unique_ptr<container::ControlSite> site;
    container::TypeMembers members;
    std::wstring failure;
    std::optional<std::pair<long, long>>
        ownColours;  // BackColor and ForeColor, while a scheme has replaced them

    container::Dispatch object() const { return site->object(); }
};

}  // namespace obk::gallery
