#include "server/advisers.h"

#include <ole2.h>

#include <utility>

namespace obk::server {

HRESULT Advisers::advise(IAdviseSink* sink, DWORD* cookie) {
    if (!cookie) return E_POINTER;
    *cookie = 0;
    if (!holder_) {
        if (const HRESULT created = CreateOleAdviseHolder(holder_.put()); FAILED(created)) return created;
    }
    toldClosed_ = false;
    return holder_->Advise(sink, cookie);
}

HRESULT Advisers::unadvise(DWORD cookie) {
    return holder_ ? holder_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT Advisers::enumerate(IEnumSTATDATA** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return holder_ ? holder_->EnumAdvise(result) : S_OK;  // none is S_OK with a null pointer
}

HRESULT Advisers::setViewAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    if (sink && aspects != DVASPECT_CONTENT) return DV_E_DVASPECT;
    viewSink_ = ComPtr<IAdviseSink>(sink);
    viewAspects_ = sink ? aspects : 0;
    viewFlags_ = sink ? flags : 0;
    if (sink && (flags & ADVF_PRIMEFIRST)) viewChanged();
    return S_OK;
}

void Advisers::viewAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
    if (aspects) *aspects = viewAspects_;
    if (flags) *flags = viewFlags_;
    if (sink) *sink = viewSink_.share();
}

void Advisers::viewChanged() {
    if (!viewSink_) return;
    const ComPtr<IAdviseSink> sink = viewSink_;
    if (viewFlags_ & ADVF_ONLYONCE) setViewAdvise(0, 0, nullptr);
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

void Advisers::saved() {
    if (const auto holder = holder_) holder->SendOnSave();
}

void Advisers::closed() {
    if (std::exchange(toldClosed_, true)) return;
    if (const auto holder = holder_) holder->SendOnClose();
}

}  // namespace obk::server
