#include <ocidl.h>
#include <olectl.h>

#include <cmath>

#include "container/stored_value.h"
#include "container/text.h"

namespace obk::container {

namespace {

// Fonts and pictures are the two classes of the system that every control meets.
constexpr CLSID standardPicture = {
    0x0BE35204, 0x8F91, 0x11CE, {0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}};

ComPtr<IStream> memoryStream(std::string_view bytes = {}) {
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
    if (stream && !bytes.empty()) {
        stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
    }
    return stream;
}

std::string bytesOf(IStream* stream) {
    STATSTG status = {};
    if (FAILED(stream->Stat(&status, STATFLAG_NONAME))) return {};
    std::string bytes(static_cast<size_t>(status.cbSize.QuadPart), '\0');
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    ULONG count = 0;
    stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &count);
    bytes.resize(count);
    return bytes;
}

template <typename Persist>
std::optional<StoredObject> saved(const ComPtr<IUnknown>& object) {
    const auto persist = object.query<Persist>();
    const auto stream = memoryStream();
    StoredObject result;
    if (!persist || !stream || FAILED(persist->GetClassID(&result.classId)) ||
        FAILED(persist->Save(stream.get(), FALSE)))
        return std::nullopt;
    result.bytes = bytesOf(stream.get());
    return result;
}

template <typename Persist>
bool loaded(const ComPtr<IUnknown>& object, const StoredObject& stored) {
    const auto persist = object.query<Persist>();
    const auto stream = memoryStream(stored.bytes);
    return persist && stream && SUCCEEDED(persist->Load(stream.get()));
}

bool loadObject(const ComPtr<IUnknown>& object, const StoredObject& stored) {
    return loaded<IPersistStream>(object, stored) || loaded<IPersistStreamInit>(object, stored);
}

ComPtr<IUnknown> createObject(REFCLSID classId) {
    ComPtr<IUnknown> object;
    CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.putVoid());
    if (!object && IsEqualCLSID(classId, standardPicture)) {
        // Some systems have no class factory for pictures, only this function.
        ComPtr<IPicture> picture;
        OleCreatePictureIndirect(nullptr, IID_IPicture, TRUE, picture.putVoid());
        object = picture.query<IUnknown>();
    }
    return object;
}

bool applyFont(const StoredFont& stored, const ComPtr<IFont>& font) {
    if (!font) return false;
    CY size;
    size.int64 = std::llround(stored.size * 10000);
    font->put_Name(Bstr(stored.name).get());
    font->put_Size(size);
    font->put_Weight(stored.weight);
    font->put_Charset(stored.characterSet);
    font->put_Italic(stored.italic);
    font->put_Underline(stored.underline);
    font->put_Strikethrough(stored.strikethrough);
    return true;
}

}  // namespace

ComPtr<IDispatch> makeFont(const StoredFont& font) {
    std::wstring name = font.name;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = std::llround(font.size * 10000);
    description.sWeight = font.weight;
    description.sCharset = font.characterSet;
    description.fItalic = font.italic;
    description.fUnderline = font.underline;
    description.fStrikethrough = font.strikethrough;
    ComPtr<IDispatch> object;
    OleCreateFontIndirect(&description, IID_IDispatch, object.putVoid());
    return object;
}

std::optional<StoredFont> describeFont(IUnknown* object) {
    const auto font = ComPtr<IUnknown>(object).query<IFont>();
    if (!font) return std::nullopt;
    StoredFont result;
    Bstr name;
    CY size = {};
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    font->get_Name(name.put());
    font->get_Size(&size);
    font->get_Weight(&result.weight);
    font->get_Charset(&result.characterSet);
    font->get_Italic(&italic);
    font->get_Underline(&underline);
    font->get_Strikethrough(&strikethrough);
    result.name = name.text();
    result.size = static_cast<double>(size.int64) / 10000;
    result.italic = italic;
    result.underline = underline;
    result.strikethrough = strikethrough;
    return result;
}

std::optional<StoredValue> storedFrom(const VARIANT& value) {
    Variant plain = Variant::resolved(value);
    if (plain.type() == VT_DISPATCH || plain.type() == VT_UNKNOWN) {
        const ComPtr<IUnknown> object = plain.toObject();
        if (!object) return Variant();
        if (auto font = describeFont(object.get())) return *font;
        auto stored = saved<IPersistStream>(object);
        if (!stored) stored = saved<IPersistStreamInit>(object);
        return stored ? std::optional<StoredValue>(std::move(*stored)) : std::nullopt;
    }
    if (plain.type() == (VT_ARRAY | VT_UI1)) {
        StoredBytes stored;
        void* data = nullptr;
        SAFEARRAY* array = plain.get().parray;
        if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayAccessData(array, &data))) return std::nullopt;
        stored.bytes.assign(static_cast<const char*>(data), array->rgsabound[0].cElements);
        SafeArrayUnaccessData(array);
        return stored;
    }
    switch (plain.type()) {
        case VT_NULL:
            return Variant();
        case VT_EMPTY:
        case VT_BOOL:
        case VT_I1:
        case VT_UI1:
        case VT_I2:
        case VT_UI2:
        case VT_I4:
        case VT_UI4:
        case VT_I8:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
        case VT_DECIMAL:
        case VT_BSTR:
            return plain;
        case VT_INT:
            return plain.converted(VT_I4);
        case VT_UINT:
            return plain.converted(VT_UI4);
        default:
            return std::nullopt;
    }
}

Variant restored(const StoredValue& stored) {
    if (const auto* value = std::get_if<Variant>(&stored)) return *value;
    if (const auto* font = std::get_if<StoredFont>(&stored)) return makeFont(*font).get();
    if (const auto* saved = std::get_if<StoredObject>(&stored)) {
        const auto object = createObject(saved->classId);
        if (!object || !loadObject(object, *saved)) return {};
        const auto dispatch = object.query<IDispatch>();
        return dispatch ? Variant(dispatch.get()) : Variant(object.get());
    }
    const std::string& bytes = std::get<StoredBytes>(stored).bytes;
    Variant result;
    void* data = nullptr;
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (array && SUCCEEDED(SafeArrayAccessData(array, &data))) {
        bytes.copy(static_cast<char*>(data), bytes.size());
        SafeArrayUnaccessData(array);
        VARIANT* slot = result.put();
        slot->vt = VT_ARRAY | VT_UI1;
        slot->parray = array;
    }
    return result;
}

bool restoreInto(const StoredValue& stored, IUnknown* object) {
    const ComPtr<IUnknown> target(object);
    if (const auto* font = std::get_if<StoredFont>(&stored)) return applyFont(*font, target.query<IFont>());
    const auto* saved = std::get_if<StoredObject>(&stored);
    return saved && loadObject(target, *saved);
}

}  // namespace obk::container
