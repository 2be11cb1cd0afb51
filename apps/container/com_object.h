// The base for COM objects written here.
#pragma once

#include "com/com_ptr.h"

namespace obk::container {

using obk::ComPtr;

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
