// Counts the texts and blocks of the system's own memory (BSTR, CoTaskMem) that this process has.
#pragma once

namespace obk::testing_support {

// From the first call on; those that were there before do not count.
int systemBlockCount();

}  // namespace obk::testing_support
