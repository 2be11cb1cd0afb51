// What a control asks its container and tells it, and what holds where there is none.
#pragma once

#include "framework/control_host.h"
#include "framework/member_token.h"

namespace obk {

class ControlTable;

class HostLink {
public:
    void setHost(ControlHost* host) { host_ = host; }  // borrowed; null without a container
    // Whether the form is being designed: nobody works with the control then.
    bool designMode() const { return host_ && host_->designMode(); }
    // What the container calls the control; empty without one.
    Text hostName() const { return host_ ? host_->name() : Text(); }

protected:
    ~HostLink() = default;

    // Tells the container that a value changed; silent while loading. `Getter` is the property's, or that of
    // a persisted value without one, which the container learns of as unknown.
    template <auto Getter>
    void PropertyChanged() {
        propertyChanged(memberToken<Getter>());
    }
    void requestSize(Twips width, Twips height);  // asks the container for it
    bool rightToLeft() const { return host_ && host_->rightToLeft(); }
    void accessKeysChanged();

    ControlHost* host_ = nullptr;
    const ControlTable* ownTable_ = nullptr;  // known from the start on; setters ask it every time
    bool loading_ = false;

private:
    void propertyChanged(const void* token);
};

}  // namespace obk
