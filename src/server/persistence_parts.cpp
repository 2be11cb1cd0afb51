#include "server/persistence_parts.h"

#include "framework/control.h"

#include "server/bag_adapter.h"
#include "server/control_object.h"

namespace obk::server {

namespace {

constexpr wchar_t storedStream[] = L"Contents";

HRESULT giveClassId(const ControlObject& object, CLSID* id) {
    if (!id) return E_POINTER;
    *id = object.classId();
    return S_OK;
}

HRESULT loadFrom(ControlObject& object, IStream& stream) {
    MemoryBag bag;
    const HRESULT read = readBag(stream, bag);
    if (SUCCEEDED(read)) object.loaded(bag);
    return read;
}

HRESULT saveTo(ControlObject& object, IStream& stream) {
    MemoryBag bag;
    object.control().save(bag);
    return writeBag(bag, stream);
}

}  // namespace

HRESULT PropertyBagPart::GetClassID(CLSID* id) {
    return giveClassId(object_, id);
}

HRESULT PropertyBagPart::InitNew() {
    return perform([&] {
        object_.placedAfresh();
        return S_OK;
    });
}

HRESULT PropertyBagPart::Load(IPropertyBag* bag, IErrorLog* log) {
    if (!bag) return E_POINTER;
    return perform([&] {
        BagAdapter adapter(*bag, log);
        object_.loaded(adapter);
        return S_OK;
    });
}

HRESULT PropertyBagPart::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
    if (!bag) return E_POINTER;
    return perform([&] {
        BagAdapter adapter(*bag, nullptr);
        object_.control().save(adapter);
        if (clearDirty) object_.setDirty(false);
        return S_OK;
    });
}

HRESULT StreamPart::GetClassID(CLSID* id) {
    return giveClassId(object_, id);
}

HRESULT StreamPart::IsDirty() {
    return object_.dirty() ? S_OK : S_FALSE;
}

HRESULT StreamPart::Load(LPSTREAM stream) {
    if (!stream) return E_POINTER;
    return perform([&] { return loadFrom(object_, *stream); });
}

HRESULT StreamPart::Save(LPSTREAM stream, BOOL clearDirty) {
    if (!stream) return E_POINTER;
    return perform([&] {
        const HRESULT saved = saveTo(object_, *stream);
        if (SUCCEEDED(saved) && clearDirty) object_.setDirty(false);
        return saved;
    });
}

HRESULT StreamPart::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size) return E_POINTER;
    return perform([&] {
        MemoryBag bag;
        object_.control().save(bag);
        size->QuadPart = storedSize(bag);
        return S_OK;
    });
}

HRESULT StreamPart::InitNew() {
    return perform([&] {
        object_.placedAfresh();
        return S_OK;
    });
}

HRESULT StoragePart::GetClassID(CLSID* id) {
    return giveClassId(object_, id);
}

HRESULT StoragePart::IsDirty() {
    return object_.dirty() ? S_OK : S_FALSE;
}

HRESULT StoragePart::InitNew(IStorage* storage) {
    if (!storage) return E_POINTER;
    return perform([&] {
        object_.placedAfresh();
        return S_OK;
    });
}

HRESULT StoragePart::Load(IStorage* storage) {
    if (!storage) return E_POINTER;
    return perform([&] {
        ComPtr<IStream> stream;
        const HRESULT opened =
            storage->OpenStream(storedStream, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.put());
        return FAILED(opened) ? opened : loadFrom(object_, *stream);
    });
}

HRESULT StoragePart::Save(IStorage* storage, BOOL sameAsLoad) {
    if (!storage) return E_POINTER;
    copySaved_ = !sameAsLoad;
    return perform([&] {
        ComPtr<IStream> stream;
        const HRESULT created = storage->CreateStream(
            storedStream, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0, stream.put());
        if (FAILED(created)) return created;
        const HRESULT saved = saveTo(object_, *stream);
        if (SUCCEEDED(saved)) WriteClassStg(storage, object_.classId());
        return saved;
    });
}

HRESULT StoragePart::SaveCompleted(IStorage* storage) {
    // Nothing of the storage is kept between calls, so that any other will do from here on. Without one, what
    // was saved elsewhere was a copy, and the document itself is not saved.
    if (storage || !copySaved_) object_.setDirty(false);
    return S_OK;
}

HRESULT StoragePart::HandsOffStorage() {
    return S_OK;
}

}  // namespace obk::server
