// Who wants to hear that a control is saved, closed, or looks different.
#pragma once

#include "com/com_ptr.h"

#include <windows.h>

#include <oleidl.h>

namespace obk::server {

class Advisers {
public:
    HRESULT advise(IAdviseSink* sink, DWORD* cookie);
    HRESULT unadvise(DWORD cookie);
    HRESULT enumerate(IEnumSTATDATA** result);

    // One container at a time watches the view.
    HRESULT setViewAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink);
    void viewAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;

    bool viewWatched() const { return static_cast<bool>(viewSink_); }
    void viewChanged();
    void saved();
    // Told once, until the control runs again or somebody else wants to know.
    void closed();
    void running() { toldClosed_ = false; }

private:
    ComPtr<IOleAdviseHolder> holder_;
    ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    bool toldClosed_ = false;
};

}  // namespace obk::server
