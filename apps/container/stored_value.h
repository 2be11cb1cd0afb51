// A value as a property bag keeps it: a plain automation value, a font or any object that can save
// itself, and its form as one line of text.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "container/variant.h"

namespace obk::container {

// A font by its description. Sizes are in points.
struct StoredFont {
    std::wstring name;
    double size = 8;
    short weight = FW_NORMAL;
    short characterSet = DEFAULT_CHARSET;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
};

// An object by its class and the bytes that it wrote into a stream.
struct StoredObject {
    CLSID classId = CLSID_NULL;
    std::string bytes;
};

// Bytes without meaning to the container.
struct StoredBytes {
    std::string bytes;
};

using StoredValue = std::variant<Variant, StoredFont, StoredObject, StoredBytes>;

// The value as it stands now; later changes of an object do not reach the stored one. Nothing for
// values that cannot be kept: arrays other than bytes, objects that cannot save themselves.
std::optional<StoredValue> storedFrom(const VARIANT& value);

// The value for a host; objects are made anew on each call. Empty when an object's class cannot be
// created or does not accept its bytes.
Variant restored(const StoredValue& stored);

// Loads a stored object into one that exists. False when it does not take it.
bool restoreInto(const StoredValue& stored, IUnknown* object);

// `Long 10`, `String "1"`, `Font "Tahoma", 8.25, bold`, `Object {class} base64`.
std::wstring writeValue(const StoredValue& stored);
// Nothing when the text is not exactly one well-formed value; `problem` then says why.
std::optional<StoredValue> readValue(std::wstring_view text, std::wstring& problem);

// A standard font object from its description; empty when the system refuses it.
ComPtr<IDispatch> makeFont(const StoredFont& font);
// The description of a font object; nothing for an object that is no font.
std::optional<StoredFont> describeFont(IUnknown* object);
// "Tahoma 8.25, bold"
std::wstring fontText(const StoredFont& font);

}  // namespace obk::container
