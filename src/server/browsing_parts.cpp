#include "server/browsing_parts.h"

#include "framework/control.h"
#include "framework/member_call.h"
#include "library/property_pages.h"
#include "library/property_text.h"

#include "server/control_object.h"
#include "server/variant_value.h"

#include <olectl.h>

#include <algorithm>

namespace obk::server {

namespace {

PropertyCategory categoryOf(const Member& property) {
    switch (property.type) {
        case ValueType::font:
            return PropertyCategory::font;
        case ValueType::colour:
        case ValueType::picture:
            return PropertyCategory::appearance;
        case ValueType::text:
            return PropertyCategory::text;
        case ValueType::doubleFloat:
            return PropertyCategory::data;
        default:
            return choicesOf(property).empty()           ? PropertyCategory::data
                   : property.type == ValueType::boolean ? PropertyCategory::behaviour
                                                         : PropertyCategory::appearance;
    }
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
        for (const PropertyChoice& choice : choicesOf(*property)) {
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
    const PropertyPageFacts* found = pageOf(object_.table(), *property);
    if (!found) return PERPROP_E_NOPAGEAVAILABLE;
    *page = systemGuid(found->id);
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
        const std::vector<PropertyChoice> choices =
            member->get ? choicesOf(*member) : std::vector<PropertyChoice>();
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
        const std::vector<PropertyChoice> choices = choicesOf(*property);
        return cookie < choices.size() ? variantFromValue(choices[cookie].value, *value) : E_INVALIDARG;
    });
}

HRESULT CategoriesPart::MapPropertyToCategory(DISPID id, PropertyCategory* category) {
    if (!category) return E_POINTER;
    *category = PropertyCategory::misc;
    const Member* member = object_.table().member(id);
    if (!member || member->kind != MemberKind::property) return DISP_E_MEMBERNOTFOUND;
    *category = categoryOf(*member);
    return S_OK;
}

HRESULT CategoriesPart::GetCategoryName(PropertyCategory, LCID, BSTR* name) {
    if (!name) return E_POINTER;
    *name = nullptr;
    return S_FALSE;  // all are the browser's own
}

HRESULT PropertyPagesPart::GetPages(CAUUID* pages) {
    if (!pages) return E_POINTER;
    *pages = {};
    return perform([&]() -> HRESULT {
        const std::vector<const PropertyPageFacts*> wanted = pagesOf(object_.table());
        auto* ids = newTaskArray<GUID>(wanted.size());
        if (!ids) return E_OUTOFMEMORY;
        for (size_t at = 0; at < wanted.size(); ++at) ids[at] = systemGuid(wanted[at]->id);
        *pages = {static_cast<ULONG>(wanted.size()), ids};
        return S_OK;
    });
}

}  // namespace obk::server
