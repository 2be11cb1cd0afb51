#include "tutorial/rating.h"

namespace obk::tutorial {

bool Rating::setStars(int32_t stars) {
    if (stars < 0 || stars > most || stars == stars_) return false;
    stars_ = stars;
    return true;
}

}  // namespace obk::tutorial
