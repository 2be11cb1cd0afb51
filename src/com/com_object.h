// The base of COM objects that live by the references to them.
#pragma once

#include "com/com_ptr.h"

#include <atomic>
#include <memory>

namespace obk {

// One count of references and one QueryInterface for all of an object's interfaces. The object belongs to
// those who hold a reference: it starts with none, the first ComPtr keeps it alive, and the last Release
// deletes it. References may be taken and given back by any thread; the interfaces themselves are for the
// apartment that made the object.
template <typename First, typename... Others>
class ComObject : public First, public Others... {
public:
    // `moduleLock` keeps the module with this code loaded as long as there is a reference.
    explicit ComObject(std::shared_ptr<void> moduleLock = nullptr) : moduleLock_(std::move(moduleLock)) {}
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (!result) return E_POINTER;
        void* found = iid == __uuidof(IUnknown) || iid == __uuidof(First) ? static_cast<First*>(this)
                                                                          : otherInterface(iid);
        ((found = iid == __uuidof(Others) ? static_cast<Others*>(this) : found), ...);
        *result = found;
        if (!found) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            const std::shared_ptr<void> lock = std::move(moduleLock_);  // until the destructor has run
            delete this;
        }
        return left;
    }

protected:
    // The pointer for an interface which is a base of a listed one, or whose identifier is known only at run
    // time; null when it is not offered.
    virtual void* otherInterface(REFIID) { return nullptr; }

private:
    std::shared_ptr<void> moduleLock_;
    std::atomic<ULONG> references_ = 0;
};

}  // namespace obk
