// What every function that a host calls has in common: no exception leaves it.
#pragma once

#include <windows.h>

#include <new>
#include <utility>

namespace obk::server {

// Runs a COM method's body, which answers an HRESULT.
template <typename Body>
HRESULT entryPoint(Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace obk::server
