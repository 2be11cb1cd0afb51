#include "container/property_bag_text.h"

#include <algorithm>

#include "container/text.h"

namespace obk::container {

const StoredValue* PropertyBagText::find(std::wstring_view key) const {
    for (const Entry& entry : entries_) {
        if (sameName(entry.key, key)) return &entry.value;
    }
    return nullptr;
}

void PropertyBagText::set(std::wstring_view key, StoredValue value) {
    for (Entry& entry : entries_) {
        if (sameName(entry.key, key)) {
            entry.value = std::move(value);
            return;
        }
    }
    entries_.push_back({std::wstring(key), std::move(value)});
}

void PropertyBagText::remove(std::wstring_view key) {
    std::erase_if(entries_, [&](const Entry& entry) { return sameName(entry.key, key); });
}

void PropertyBagText::clear() {
    entries_.clear();
    errors_.clear();
}

HRESULT PropertyBagText::fail(LPCOLESTR name, IErrorLog* log, HRESULT code, const wchar_t* reason) {
    if (log) {
        EXCEPINFO information = {};
        information.scode = code;
        information.bstrDescription = SysAllocString(reason);
        log->AddError(name, &information);
        SysFreeString(information.bstrDescription);
    }
    return code;
}

HRESULT PropertyBagText::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) {
    if (!name || !value) return E_POINTER;
    const StoredValue* stored = find(name);
    if (!stored) {
        // Absent keys are the normal case (values equal to their defaults), so no error is logged.
        return E_INVALIDARG;
    }
    const VARTYPE wanted = value->vt;
    const bool object = wanted == VT_UNKNOWN || wanted == VT_DISPATCH;
    if (object && value->punkVal && restoreInto(*stored, value->punkVal)) return S_OK;
    Variant result = restored(*stored);
    if (wanted != VT_EMPTY && result.type() != wanted) {
        auto converted = result.converted(wanted);
        if (!converted) return fail(name, log, DISP_E_TYPEMISMATCH, L"the stored value has another type");
        result = std::move(*converted);
    }
    // What the caller passed in only tells the type; an object in it stays the caller's.
    *value = result.detach();
    return S_OK;
}

HRESULT PropertyBagText::Write(LPCOLESTR name, VARIANT* value) {
    if (!name || !value) return E_POINTER;
    auto stored = storedFrom(*value);
    if (!stored) return fail(name, this, E_FAIL, L"a value of this type cannot be stored");
    set(name, std::move(*stored));
    return S_OK;
}

HRESULT PropertyBagText::AddError(LPCOLESTR name, EXCEPINFO* information) {
    std::wstring text = name ? name : L"";
    if (information && information->bstrDescription) {
        text += L": ";
        text += information->bstrDescription;
    }
    errors_.push_back(std::move(text));
    return S_OK;
}

const FormSection* FormText::find(std::wstring_view name) const {
    for (const FormSection& section : sections_) {
        if (sameName(section.name, name)) return &section;
    }
    return nullptr;
}

FormSection& FormText::add(std::wstring_view name, std::wstring_view className) {
    auto place = std::find_if(sections_.begin(), sections_.end(),
                              [&](const FormSection& section) { return sameName(section.name, name); });
    if (place == sections_.end()) place = sections_.insert(sections_.end(), FormSection());
    *place = {std::wstring(name), std::wstring(className), new PropertyBagText};
    return *place;
}

void FormText::remove(std::wstring_view name) {
    std::erase_if(sections_, [&](const FormSection& section) { return sameName(section.name, name); });
}

std::wstring FormText::write() const {
    std::wstring text;
    for (const FormSection& section : sections_) {
        text += text.empty() ? L"[" : L"\r\n[";
        text += section.name;
        text += section.className.empty() ? L"" : L": ";
        text += section.className + L"]\r\n";
        for (const PropertyBagText::Entry& entry : section.bag->entries())
            text += entry.key + L" = " + writeValue(entry.value) + L"\r\n";
    }
    return text;
}

FormText FormText::read(std::wstring_view text, std::vector<TextProblem>& problems) {
    FormText form;
    ComPtr<PropertyBagText> bag;
    if (!text.empty() && text.front() == 0xFEFF) text.remove_prefix(1);
    for (int number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find(L'\n'), text.size());
        const std::wstring_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto report = [&](std::wstring reason) { problems.push_back({number, std::move(reason)}); };
        if (line.empty() || line.front() == L';' || line.front() == L'#') continue;
        if (line.front() == L'[') {
            // Lines under a heading that cannot be read must not fall to the section before it.
            bag.reset();
            const std::wstring_view inner = trimmed(line.substr(1, line.size() - 2));
            const auto colon = std::min(inner.find(L':'), inner.size());
            const std::wstring_view name = trimmed(inner.substr(0, colon));
            if (line.back() != L']' || name.empty()) {
                report(L"not a heading of the form [Name: Class]");
                continue;
            }
            if (form.find(name))
                report(L"a second section named \"" + std::wstring(name) + L"\" replaces the first");
            bag = form.add(name, trimmed(inner.substr(std::min(colon + 1, inner.size())))).bag;
            continue;
        }
        const auto equals = line.find(L'=');
        const std::wstring_view key = trimmed(line.substr(0, std::min(equals, line.size())));
        if (equals == std::wstring_view::npos || key.empty()) {
            report(L"not of the form Key = Type value");
            continue;
        }
        if (!bag) {
            report(L"\"" + std::wstring(key) + L"\" stands in no section");
            continue;
        }
        std::wstring problem;
        auto value = readValue(line.substr(equals + 1), problem);
        if (!value) {
            report(std::wstring(key) + L": " + problem);
            continue;
        }
        if (bag->find(key)) report(L"a second line for \"" + std::wstring(key) + L"\" replaces the first");
        bag->set(key, std::move(*value));
    }
    return form;
}

}  // namespace obk::container
