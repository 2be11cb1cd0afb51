// A property bag which keeps named, typed values in the order of writing, and forms made of such
// bags as readable text.
#pragma once

#include <ocidl.h>

#include <string>
#include <string_view>
#include <vector>

#include "com/com_object.h"
#include "container/stored_value.h"

namespace obk::container {

// IPropertyBag over a list of entries; names are found in any letter case. Errors that a control
// reports while it loads are kept.
class PropertyBagText final : public ComObject<IPropertyBag, IErrorLog> {
public:
    struct Entry {
        std::wstring key;
        StoredValue value;
    };

    const std::vector<Entry>& entries() const { return entries_; }
    const std::vector<std::wstring>& errors() const { return errors_; }

    const StoredValue* find(std::wstring_view key) const;
    // Replaces the value in its place, or appends it.
    void set(std::wstring_view key, StoredValue value);
    void remove(std::wstring_view key);
    void clear();

    // Answers E_INVALIDARG for a name that is not there and DISP_E_TYPEMISMATCH for a value that
    // does not convert to the type asked for in `value->vt`.
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR name, EXCEPINFO* information) override;

private:
    HRESULT fail(LPCOLESTR name, IErrorLog* log, HRESULT code, const wchar_t* reason);

    std::vector<Entry> entries_;
    std::vector<std::wstring> errors_;
};

// One control of a form: its name, its class and its properties.
struct FormSection {
    std::wstring name;
    std::wstring className;  // a ProgID; empty when the heading gives none
    ComPtr<PropertyBagText> bag;
};

// What a reader skipped, and why. Lines are counted from 1.
struct TextProblem {
    int line = 0;
    std::wstring reason;
};

// A form as text, in UTF-8 when it is a file:
//
//     [Quantity: OBKCTRLS.UpDownTextBox]
//     Max = Long 10
//     Text = String "1"
//
// Lines that begin with ";" or "#" are remarks. A line that cannot be read is reported and
// skipped; the others count. Of two lines with one key the later counts, which is reported too.
class FormText {
public:
    const std::vector<FormSection>& sections() const { return sections_; }
    // Null when there is none.
    const FormSection* find(std::wstring_view name) const;
    // Adds an empty section, or empties the one of that name.
    FormSection& add(std::wstring_view name, std::wstring_view className);

    void remove(std::wstring_view name);

    std::wstring write() const;
    static FormText read(std::wstring_view text, std::vector<TextProblem>& problems);

private:
    std::vector<FormSection> sections_;
};

}  // namespace obk::container
