// Names a C++ member by its address, so that code can speak of a table row without repeating its public name.
#pragma once

namespace obk {

namespace detail {
template <auto Member>
inline char memberTokenAnchor;  // not const: every instantiation keeps an address of its own
}  // namespace detail

template <auto Member>
constexpr const void* memberToken() {
    return &detail::memberTokenAnchor<Member>;
}

}  // namespace obk
