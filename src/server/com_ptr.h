// An owning pointer to a COM object.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace obk::server {

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

    // Empty when the object has no such interface.
    template <typename Other>
    ComPtr<Other> as() const {
        return query<Other>(object_);
    }
    template <typename Other>
    static ComPtr<Other> query(IUnknown* object) {
        ComPtr<Other> result;
        if (object && FAILED(object->QueryInterface(__uuidof(Other), result.putVoid()))) result.detach();
        return result;
    }

private:
    Interface* object_ = nullptr;
};

template <typename Interface>
ComPtr<Interface> query(IUnknown* object) {
    return ComPtr<Interface>::template query<Interface>(object);
}

}  // namespace obk::server
