// One interface, or a few, of a control object: identity and life are the object's.
#pragma once

#include "server/entry_point.h"
#include "server/object_identity.h"

#include <utility>

namespace obk::server {

class ControlObject;
ObjectIdentity& identityOf(ControlObject& object);

template <typename... Interfaces>
class Part : public Interfaces... {
public:
    explicit Part(ControlObject& object) : object_(object), identity_(identityOf(object)) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        return identity_.outer()->QueryInterface(iid, result);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return identity_.outer()->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return identity_.outer()->Release(); }

protected:
    // Runs an interface method's body: the object stays alive for its time, and no exception leaves it.
    template <typename Body>
    HRESULT perform(Body&& body) noexcept {
        const ObjectIdentity::Hold hold(identity_);
        return entryPoint(std::forward<Body>(body));
    }

    ControlObject& object_;
    ObjectIdentity& identity_;
};

}  // namespace obk::server
