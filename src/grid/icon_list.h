// The named icons of an editable grid, as the pictures that its cells show.
#pragma once

#include "base/colour.h"
#include "base/picture.h"
#include "base/text.h"

#include <vector>

namespace obk {

class IconList {
public:
    // How many keys there are.
    int32_t count() const;
    // The icon over a background, with a margin at its left; for a key that is none, the background alone.
    // Drawn for 96 DPI and for denser screens. Cells share it: it is made once as long as the background
    // stays the same.
    PictureRef picture(TextView key, Rgb background);

private:
    Rgb background_;
    std::vector<PictureRef> pictures_;  // by their numbers; number 0 is the background alone
};

}  // namespace obk
