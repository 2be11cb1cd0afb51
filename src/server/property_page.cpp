#include "server/property_page.h"

#include "base/scoped_value.h"
#include "library/class_facts.h"
#include "library/library.h"

#include "server/entry_point.h"
#include "server/module.h"
#include "server/system_text.h"
#include "server/variant_value.h"

#include <commctrl.h>

#include <algorithm>

namespace obk::server {

namespace {

std::unique_ptr<PropertyPageContent> contentOf(PropertyPage& page, PropertyPageFacts::Kind kind) {
    switch (kind) {
        case PropertyPageFacts::Kind::tabs:
            return tabList(page);
        case PropertyPageFacts::Kind::palettes:
            return paletteList(page);
        case PropertyPageFacts::Kind::properties:
            break;
    }
    return propertyList(page);
}

const ControlTable* tableOf(IUnknown* object) {
    const auto persisted = query<IPersist>(object);
    GUID id{};
    if (!persisted || FAILED(persisted->GetClassID(&id))) return nullptr;
    for (const ControlTable* table : publicControls(library())) {
        if (systemGuid(table->classId) == id) return table;
    }
    return nullptr;
}

std::optional<Value> valueOf(IDispatch& object, const Member& property) {
    DISPPARAMS none{};
    OwnedVariant result;
    Value value;
    if (FAILED(object.Invoke(property.number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                             &result, nullptr, nullptr)) ||
        FAILED(valueFromVariant(result, property.type, value)))
        return std::nullopt;
    return value;
}

LONG onScreen(LONG pixels) {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return MulDiv(static_cast<int>(pixels), dpi, 96);
}

bool alike(const Value& left, const Value& right) {
    const auto* font = std::get_if<FontRef>(&left);
    const auto* other = std::get_if<FontRef>(&right);
    if (font && other && *font && *other) return (*font)->description() == (*other)->description();
    return left == right;
}

}  // namespace

HWND addPageControl(HWND page, const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place,
                    int number, HFONT font) {
    const HWND window = CreateWindowExW(
        wcscmp(className, L"STATIC") == 0 || wcscmp(className, L"BUTTON") == 0 ? 0 : WS_EX_CLIENTEDGE,
        className, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right - place.left,
        place.bottom - place.top, page, reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)),
        module::handle(), nullptr);
    if (window) SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return window;
}

std::wstring textOfWindow(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HRESULT createPropertyPage(const PropertyPageFacts& facts, IUnknown* outer, REFIID iid, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return entryPoint([&] {
        const ComPtr<PropertyPage> page(new PropertyPage(facts));
        return page->QueryInterface(iid, result);
    });
}

PropertyPage::PropertyPage(const PropertyPageFacts& facts)
    : ComObject(module::presence()), facts_(facts), content_(contentOf(*this, facts.kind)) {}

PropertyPage::~PropertyPage() {
    Deactivate();
}

void* PropertyPage::otherInterface(REFIID iid) {
    return iid == __uuidof(IPropertyPage) ? static_cast<IPropertyPage*>(this) : nullptr;
}

std::optional<Value> PropertyPage::value(const Member& property) const {
    std::optional<Value> common;
    for (const ComPtr<IDispatch>& object : objects_) {
        std::optional<Value> own = valueOf(*object, property);
        if (!own || (common && !alike(*common, *own))) return std::nullopt;
        common = std::move(own);
    }
    return common;
}

HRESULT PropertyPage::put(const Member& property, const Value& value) const {
    DISPID named = DISPID_PROPERTYPUT;
    HRESULT result = S_OK;
    for (const ComPtr<IDispatch>& object : objects_) {
        // One font for each: who changes one of the controls later does not mean the others.
        const auto* font = std::get_if<FontRef>(&value);
        const Value own = font && *font ? Value(std::make_shared<SharedFont>((*font)->description())) : value;
        OwnedVariant given;
        if (const HRESULT made = variantFromValue(own, given); FAILED(made)) return made;
        DISPPARAMS arguments{&given, &named, 1, 1};
        const HRESULT done = object->Invoke(property.number, IID_NULL, LOCALE_USER_DEFAULT,
                                            DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr);
        if (FAILED(done)) result = done;
    }
    return result;
}

void PropertyPage::changed() {
    if (reading_) return;
    dirty_ = true;
    const ComPtr<IPropertyPageSite> site = site_;
    if (site) site->OnStatusChange(PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE);
}

HRESULT PropertyPage::SetPageSite(IPropertyPageSite* site) {
    if (site && site_) return E_UNEXPECTED;
    site_ = ComPtr<IPropertyPageSite>(site);
    return S_OK;
}

HRESULT PropertyPage::Activate(HWND parent, LPCRECT place, BOOL) {
    if (!place) return E_POINTER;
    if (!parent) return E_INVALIDARG;
    if (window_) return E_UNEXPECTED;
    return entryPoint([&]() -> HRESULT {
        const ComPtr<PropertyPage> self(this);
        // Some frames promise more room than they show.
        const LONG width = place->right - place->left, height = place->bottom - place->top;
        const SIZE filled{std::min(width, onScreen(size.cx)), std::min(height, onScreen(size.cy))};
        // A dialog's own class brings its colours and its keys.
        window_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"#32770", L"", WS_CHILD | DS_CONTROL | DS_3DLOOK,
                                  place->left, place->top, width, height, parent, nullptr, module::handle(),
                                  nullptr);
        if (!window_) return E_OUTOFMEMORY;
        SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
            font_ = CreateFontIndirectW(&metrics.lfMessageFont);
        const ScopedFlag reading(reading_);
        content_->build(window_, filled, font_);
        content_->read();
        dirty_ = false;
        return S_OK;
    });
}

HRESULT PropertyPage::Deactivate() {
    if (!window_) return E_UNEXPECTED;
    const HWND window = std::exchange(window_, nullptr);
    RemoveWindowSubclass(window, procedure, 1);
    DestroyWindow(window);
    DeleteObject(std::exchange(font_, nullptr));
    return S_OK;
}

HRESULT PropertyPage::GetPageInfo(PROPPAGEINFO* info) {
    if (!info) return E_POINTER;
    const ULONG given = info->cb;
    *info = {};
    info->cb = given;
    info->pszTitle = newTaskText(facts_.title);
    constexpr int edge = 20;
    info->size = {onScreen(size.cx + edge), onScreen(size.cy + edge)};
    return info->pszTitle ? S_OK : E_OUTOFMEMORY;
}

HRESULT PropertyPage::SetObjects(ULONG count, IUnknown** objects) {
    if (count > 0 && !objects) return E_POINTER;
    return entryPoint([&] {
        objects_.clear();
        table_ = nullptr;
        for (ULONG at = 0; at < count; ++at) {
            const ControlTable* table = tableOf(objects[at]);
            auto dispatch = query<IDispatch>(objects[at]);
            if (!table || !dispatch || (table_ && table != table_)) continue;
            table_ = table;
            objects_.push_back(std::move(dispatch));
        }
        if (window_) {
            const ScopedFlag reading(reading_);
            content_->read();
            dirty_ = false;
        }
        return count > 0 && objects_.empty() ? E_NOINTERFACE : S_OK;
    });
}

HRESULT PropertyPage::Show(UINT command) {
    if (!window_) return E_UNEXPECTED;
    if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
    ShowWindow(window_, static_cast<int>(command));
    return S_OK;
}

HRESULT PropertyPage::Move(LPCRECT place) {
    if (!place) return E_POINTER;
    if (!window_) return E_UNEXPECTED;
    MoveWindow(window_, place->left, place->top, place->right - place->left, place->bottom - place->top,
               TRUE);
    return S_OK;
}

HRESULT PropertyPage::IsPageDirty() {
    return dirty_ ? S_OK : S_FALSE;
}

HRESULT PropertyPage::Apply() {
    if (!window_ || objects_.empty()) return E_UNEXPECTED;
    return entryPoint([&] {
        const ComPtr<PropertyPage> self(this);
        if (!dirty_) return S_OK;
        const HRESULT applied = content_->apply();
        if (FAILED(applied) || !window_) return applied;
        const ScopedFlag reading(reading_);
        content_->read();
        dirty_ = false;
        return S_OK;
    });
}

HRESULT PropertyPage::Help(LPCOLESTR) {
    return E_NOTIMPL;
}

HRESULT PropertyPage::TranslateAccelerator(MSG* message) {
    if (!message) return E_POINTER;
    if (!window_ || !(message->hwnd == window_ || IsChild(window_, message->hwnd))) return S_FALSE;
    const bool key = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    if (!key) return S_FALSE;
    // Tab leaves the page behind its last field or before its first one, and the frame goes on to its
    // buttons.
    if (message->message == WM_KEYDOWN && message->wParam == VK_TAB && GetKeyState(VK_CONTROL) >= 0) {
        const bool back = GetKeyState(VK_SHIFT) < 0;
        const HWND next = GetNextDlgTabItem(window_, message->hwnd, back);
        const HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
        if (next == (back ? GetNextDlgTabItem(window_, first, TRUE) : first)) return S_FALSE;
    }
    return IsDialogMessageW(window_, message) ? S_OK : S_FALSE;
}

HRESULT PropertyPage::EditProperty(DISPID id) {
    if (!window_) return E_UNEXPECTED;
    return entryPoint([&] {
        content_->select(id);
        return S_OK;
    });
}

LRESULT CALLBACK PropertyPage::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR reference) {
    const ComPtr<PropertyPage> page(reinterpret_cast<PropertyPage*>(reference));
    try {
        if (message == WM_COMMAND && lParam) {
            page->content_->command(LOWORD(wParam), HIWORD(wParam));
            return 0;
        }
        if (message == WM_DRAWITEM && page->content_->draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)))
            return TRUE;
        if (message == WM_NCDESTROY) {
            RemoveWindowSubclass(window, procedure, 1);
            page->window_ = nullptr;
        }
    } catch (...) {
        return 0;  // nothing may pass through the system's frames
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace obk::server
