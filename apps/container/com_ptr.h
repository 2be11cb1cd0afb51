// A counted reference to a COM object, and the base for COM objects written here.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace obk::container {

/// Owns one reference to a COM object; empty when default-constructed.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Shares the object: adds a reference of its own. `object` may be null.
    ComPtr(T* object) : object_(object) {
        if (object_) {
            object_->AddRef();
        }
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~ComPtr() { reset(); }
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes over a reference that somebody already counted.
    static ComPtr adopt(T* object) {
        ComPtr result;
        result.object_ = object;
        return result;
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Drops the reference. The pointer is empty before Release runs, which may call back in.
    void reset() {
        if (T* old = std::exchange(object_, nullptr)) {
            old->Release();
        }
    }
    /// Hands the reference to the caller.
    T* detach() { return std::exchange(object_, nullptr); }
    /// The address for an out parameter; what was held is released first.
    T** put() {
        reset();
        return &object_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    /// Another interface of the same object, empty when it is not offered.
    template <class U>
    ComPtr<U> query() const {
        ComPtr<U> result;
        if (object_) {
            object_->QueryInterface(__uuidof(U), result.putVoid());
        }
        return result;
    }

private:
    T* object_ = nullptr;
};

/// Reference counting and QueryInterface for an object with the given interfaces. Starts with no
/// reference: the first ComPtr keeps it alive. One thread only, as every container here.
template <class First, class... Others>
class ComObject : public First, public Others... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (!result) {
            return E_POINTER;
        }
        *result = nullptr;
        if (iid == __uuidof(IUnknown) || iid == __uuidof(First)) {
            *result = static_cast<First*>(this);
        } else {
            (void)((iid == __uuidof(Others) && (*result = static_cast<Others*>(this))) || ...);
        }
        if (!*result) {
            *result = otherInterface(iid);
        }
        if (!*result) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    /// The pointer for an interface which is a base of a listed one, or which goes by an identifier
    /// known only at run time; null when it is not offered.
    virtual void* otherInterface(REFIID) { return nullptr; }

private:
    ULONG references_ = 0;
};

}  // namespace obk::container
