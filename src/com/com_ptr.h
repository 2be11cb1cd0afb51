// An owning pointer to a COM object.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <cstddef>
#include <utility>

namespace obk {

template <typename Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    // Adds a reference of its own; null is fine.
    ComPtr(Interface* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~ComPtr() { reset(); }
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    // Takes over a reference that is counted already.
    static ComPtr adopt(Interface* object) {
        ComPtr result;
        result.object_ = object;
        return result;
    }

    // The pointer is empty before the object's Release runs, which may call back in.
    void reset() {
        if (Interface* old = std::exchange(object_, nullptr)) old->Release();
    }
    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    // A pointer with a reference for the caller.
    Interface* share() const {
        if (object_) object_->AddRef();
        return object_;
    }
    Interface* detach() { return std::exchange(object_, nullptr); }

    // Where a callee writes a reference of ours.
    Interface** put() {
        reset();
        return &object_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    // Another interface of the same object, empty when it is not offered.
    template <typename Other>
    ComPtr<Other> query() const;

private:
    Interface* object_ = nullptr;
};

// Likewise of any object; null has none.
template <typename Interface>
ComPtr<Interface> query(IUnknown* object) {
    ComPtr<Interface> result;
    if (object && FAILED(object->QueryInterface(__uuidof(Interface), result.putVoid()))) result.detach();
    return result;
}

template <typename Interface>
template <typename Other>
ComPtr<Other> ComPtr<Interface>::query() const {
    return obk::query<Other>(object_);
}

}  // namespace obk
