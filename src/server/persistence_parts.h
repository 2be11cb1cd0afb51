// Saving and loading: through a container's property bag, a stream, or a storage.
#pragma once

#include "com/com_ptr.h"
#include "server/part.h"

#include <ocidl.h>

namespace obk::server {

class PropertyBagPart final : public Part<IPersistPropertyBag> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;
};

class StreamPart final : public Part<IPersistStreamInit> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE Load(LPSTREAM stream) override;
    HRESULT STDMETHODCALLTYPE Save(LPSTREAM stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
};

class StoragePart final : public Part<IPersistStorage> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) override;
    HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

private:
    bool copySaved_ = false;
};

}  // namespace obk::server
