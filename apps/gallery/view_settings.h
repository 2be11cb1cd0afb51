// How a person wants to see the gallery's pages, whatever the system looks like.
#pragma once

namespace obk::gallery {

enum class ColourScheme { system, paper, night };

struct ViewSettings {
    int percent = 100;  // of the texts and places that the system's scale asks for
    bool rightToLeft = false;
    ColourScheme colours = ColourScheme::system;
    bool classic = false;  // the look of older systems
};

}  // namespace obk::gallery
