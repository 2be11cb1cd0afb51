// Creates the objects of one class. There is no licence to ask for.
#pragma once

#include "com/com_object.h"

#include <functional>

namespace obk::server {

class ClassFactory final : public ComObject<IClassFactory> {
public:
    // Makes one object, inside `outer` if that is not null, and answers the interface asked for.
    using Create = std::function<HRESULT(IUnknown* outer, REFIID iid, void** result)>;

    explicit ClassFactory(Create create);

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    Create create_;
};

}  // namespace obk::server
