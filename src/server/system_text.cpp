#include "server/system_text.h"

#include <objbase.h>

namespace obk::server {

LPOLESTR newTaskText(TextView text) {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const auto result = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (!result) return nullptr;
    std::memcpy(result, text.data(), bytes - sizeof(wchar_t));
    result[text.size()] = 0;
    return result;
}

}  // namespace obk::server
