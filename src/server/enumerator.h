// A standard enumerator over a copied list.
#pragma once

#include "server/entry_point.h"
#include "server/module.h"

#include <algorithm>
#include <vector>

namespace obk::server {

// `Interface` is the IEnum… of `Item`; `Stored` owns one item and says what a caller gets of it with
// `Item give() const`.
template <typename Interface, typename Item, typename Stored>
class Enumerator final : public Interface {
public:
    explicit Enumerator(std::vector<Stored> items) : items_(std::move(items)) {}
    virtual ~Enumerator() = default;

    static HRESULT create(std::vector<Stored> items, Interface** result) {
        if (!result) return E_POINTER;
        *result = nullptr;
        return entryPoint([&] {
            *result = new Enumerator(std::move(items));
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (!result) return E_POINTER;
        const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(Interface);
        *result = known ? static_cast<Interface*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Item* items, ULONG* fetched) override {
        if (!items || (wanted != 1 && !fetched)) return E_POINTER;
        ULONG count = 0;
        for (; count < wanted && next_ < items_.size(); ++count) items[count] = items_[next_++].give();
        if (fetched) *fetched = count;
        return count == wanted ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const size_t left = items_.size() - next_;
        next_ += std::min<size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        return entryPoint([&] {
            auto* copy = new Enumerator(items_);
            copy->next_ = next_;
            *result = copy;
            return S_OK;
        });
    }

private:
    const module::Presence presence_;
    ULONG references_ = 1;
    std::vector<Stored> items_;
    size_t next_ = 0;
};

}  // namespace obk::server
