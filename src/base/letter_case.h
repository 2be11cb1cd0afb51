// Capital letters without any locale, so that what is sorted is sorted alike everywhere.
#pragma once

namespace obk {

// The one capital that corresponds to a letter; what has none, or more than one letter for it, is answered as
// it is. Surrogates are taken for what they are: no letters.
char16_t upperSimple(char16_t unit);

}  // namespace obk
