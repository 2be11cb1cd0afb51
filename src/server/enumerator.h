// A standard enumerator over a copied list.
#pragma once

#include "com/com_object.h"
#include "server/entry_point.h"
#include "server/module.h"

#include <algorithm>
#include <vector>

namespace obk::server {

// `Interface` is the IEnum… of `Item`; `Stored` owns one item and says what a caller gets of it with
// `Item give() const`.
template <typename Interface, typename Item, typename Stored>
class Enumerator final : public ComObject<Interface> {
public:
    explicit Enumerator(std::vector<Stored> items, size_t next = 0)
        : ComObject<Interface>(module::presence()), items_(std::move(items)), next_(next) {}

    static HRESULT create(std::vector<Stored> items, Interface** result, size_t next = 0) {
        if (!result) return E_POINTER;
        *result = nullptr;
        return entryPoint([&] {
            *result = ComPtr<Interface>(new Enumerator(std::move(items), next)).detach();
            return S_OK;
        });
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
        return entryPoint([&] { return create(items_, result, next_); });
    }

private:
    std::vector<Stored> items_;
    size_t next_;
};

}  // namespace obk::server
