#include "container/change_journal.h"

#include <olectl.h>

#include <algorithm>

namespace obk::container {

size_t ChangeJournal::countChanged(DISPID number) const {
    return static_cast<size_t>(std::count(changed_.begin(), changed_.end(), number));
}

void ChangeJournal::clear() {
    changed_.clear();
}

HRESULT ChangeJournal::OnChanged(DISPID number) {
    const ComPtr<ChangeJournal> alive(this);
    changed_.push_back(number);
    if (const auto handler = onChanged) handler(number);
    return S_OK;
}

}  // namespace obk::container
