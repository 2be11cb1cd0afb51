// What property browsers show: choices of values, groups of properties, and the pages that edit them.
#pragma once

#include "server/categorize_properties.h"
#include "server/part.h"

#include <ocidl.h>

namespace obk::server {

class PropertyBrowsingPart final : public Part<IPerPropertyBrowsing> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetDisplayString(DISPID id, BSTR* text) override;
    HRESULT STDMETHODCALLTYPE MapPropertyToPage(DISPID id, CLSID* page) override;
    HRESULT STDMETHODCALLTYPE GetPredefinedStrings(DISPID id, CALPOLESTR* texts, CADWORD* cookies) override;
    HRESULT STDMETHODCALLTYPE GetPredefinedValue(DISPID id, DWORD cookie, VARIANT* value) override;
};

class CategoriesPart final : public Part<ICategorizeProperties> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID id, PropertyCategory* category) override;
    HRESULT STDMETHODCALLTYPE GetCategoryName(PropertyCategory category, LCID locale, BSTR* name) override;
};

class PropertyPagesPart final : public Part<ISpecifyPropertyPages> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;
};

}  // namespace obk::server
