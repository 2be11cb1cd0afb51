#include "server/browsing_parts.h"

#include "framework/control.h"
#include "framework/member_call.h"

#include "server/control_object.h"
#include "server/variant_value.h"

#include <olectl.h>

#include <algorithm>

namespace obk::server {

namespace {

// The system's own pages.
constexpr GUID stockFontPage{0x7EBDAAE0, 0x8120, 0x11CF, {0x89, 0x9F, 0x00, 0xAA, 0x00, 0x68, 0x8B, 0x10}};
constexpr GUID stockColourPage{0x7EBDAAE1, 0x8120, 0x11CF, {0x89, 0x9F, 0x00, 0xAA, 0x00, 0x68, 0x8B, 0x10}};
constexpr GUID stockPicturePage{0x7EBDAAE2, 0x8120, 0x11CF, {0x89, 0x9F, 0x00, 0xAA, 0x00, 0x68, 0x8B, 0x10}};

const GUID* pageFor(const Member& property) {
    switch (property.type) {
        case ValueType::colour:
            return &stockColourPage;
        case ValueType::font:
            return &stockFontPage;
        case ValueType::picture:
            return &stockPicturePage;
        default:
            return nullptr;
    }
}

// One value that a property browser offers.
struct Choice {
    Text text;
    Value value;
};

std::vector<Choice> choicesOf(const Member& property) {
    if (property.type == ValueType::boolean) return {{u"False", false}, {u"True", true}};
    std::vector<Choice> choices;
    if (property.enumeration) {
        for (const EnumerationValue& value : property.enumeration->values)
            choices.push_back({decimalText(value.value) + u" - " + value.name, value.value});
    }
    return choices;
}

const Member* readableProperty(const ControlTable& table, DISPID id) {
    const Member* member = table.member(id);
    return member && member->kind == MemberKind::property && member->get ? member : nullptr;
}

template <typename Element>
Element* newTaskArray(size_t count) {
    return static_cast<Element*>(CoTaskMemAlloc(std::max<size_t>(count, 1) * sizeof(Element)));
}

}  // namespace

HRESULT PropertyBrowsingPart::GetDisplayString(DISPID id, BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    return perform([&]() -> HRESULT {
        const Member* property = readableProperty(object_.table(), id);
        if (!property) return DISP_E_MEMBERNOTFOUND;
        Value value;
        getProperty(object_.control(), *property, value);
        for (const Choice& choice : choicesOf(*property)) {
            if (choice.value != value) continue;
            *text = newBstr(choice.text);
            return *text ? S_OK : E_OUTOFMEMORY;
        }
        return S_FALSE;  // the browser writes the value itself
    });
}

HRESULT PropertyBrowsingPart::MapPropertyToPage(DISPID id, CLSID* page) {
    if (!page) return E_POINTER;
    *page = CLSID_NULL;
    const Member* property = readableProperty(object_.table(), id);
    if (!property) return DISP_E_MEMBERNOTFOUND;
    const GUID* found = pageFor(*property);
    if (!found) return PERPROP_E_NOPAGEAVAILABLE;
    *page = *found;
    return S_OK;
}

HRESULT PropertyBrowsingPart::GetPredefinedStrings(DISPID id, CALPOLESTR* texts, CADWORD* cookies) {
    if (!texts || !cookies) return E_POINTER;
    *texts = {};
    *cookies = {};
    return perform([&]() -> HRESULT {
        const Member* member = object_.table().member(id);
        if (!member || member->kind != MemberKind::property) return DISP_E_MEMBERNOTFOUND;
        // A browser shows what is chosen, which it cannot where nothing can be read.
        const std::vector<Choice> choices = member->get ? choicesOf(*member) : std::vector<Choice>();
        if (choices.empty()) return S_FALSE;
        auto* names = newTaskArray<LPOLESTR>(choices.size());
        auto* numbers = newTaskArray<DWORD>(choices.size());
        bool complete = names && numbers;
        ULONG count = 0;
        for (; complete && count < choices.size(); ++count) {
            names[count] = newTaskText(choices[count].text);
            numbers[count] = count;
            complete = names[count] != nullptr;
        }
        if (!complete) {
            for (ULONG at = 0; names && at < count; ++at) CoTaskMemFree(names[at]);
            CoTaskMemFree(names);
            CoTaskMemFree(numbers);
            return E_OUTOFMEMORY;
        }
        *texts = {count, names};
        *cookies = {count, numbers};
        return S_OK;
    });
}

HRESULT PropertyBrowsingPart::GetPredefinedValue(DISPID id, DWORD cookie, VARIANT* value) {
    if (!value) return E_POINTER;
    VariantInit(value);
    return perform([&]() -> HRESULT {
        const Member* property = readableProperty(object_.table(), id);
        if (!property) return DISP_E_MEMBERNOTFOUND;
        const std::vector<Choice> choices = choicesOf(*property);
        return cookie < choices.size() ? variantFromValue(choices[cookie].value, *value) : E_INVALIDARG;
    });
}

HRESULT PropertyPagesPart::GetPages(CAUUID* pages) {
    if (!pages) return E_POINTER;
    *pages = {};
    return perform([&]() -> HRESULT {
        std::vector<const GUID*> wanted;
        for (const Member& member : object_.table().members) {
            const GUID* page = member.put ? pageFor(member) : nullptr;
            if (page && std::find(wanted.begin(), wanted.end(), page) == wanted.end()) wanted.push_back(page);
        }
        auto* ids = newTaskArray<GUID>(wanted.size());
        if (!ids) return E_OUTOFMEMORY;
        for (size_t at = 0; at < wanted.size(); ++at) ids[at] = *wanted[at];
        *pages = {static_cast<ULONG>(wanted.size()), ids};
        return S_OK;
    });
}

}  // namespace obk::server
