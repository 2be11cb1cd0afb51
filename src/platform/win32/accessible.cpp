#include "platform/win32/accessible.h"

#include "com/com_object.h"
#include "platform/win32/surface_window.h"
#include "platform/win32/text_conversion.h"

#include <oleacc.h>

#include <new>

namespace obk::win32 {

namespace {

LONG roleOf(AccessibleItem::Role role) {
    switch (role) {
        case AccessibleItem::Role::client:
            return ROLE_SYSTEM_CLIENT;
        case AccessibleItem::Role::button:
            return ROLE_SYSTEM_PUSHBUTTON;
        case AccessibleItem::Role::staticText:
            return ROLE_SYSTEM_STATICTEXT;
        case AccessibleItem::Role::separator:
            return ROLE_SYSTEM_SEPARATOR;
        case AccessibleItem::Role::listItem:
            return ROLE_SYSTEM_LISTITEM;
        case AccessibleItem::Role::graphic:
            return ROLE_SYSTEM_GRAPHIC;
        case AccessibleItem::Role::pageTabList:
            return ROLE_SYSTEM_PAGETABLIST;
        case AccessibleItem::Role::pageTab:
            return ROLE_SYSTEM_PAGETAB;
        case AccessibleItem::Role::columnHeader:
            return ROLE_SYSTEM_COLUMNHEADER;
    }
    return ROLE_SYSTEM_CLIENT;
}

void setLong(VARIANT& variant, LONG value) {
    variant.vt = VT_I4;
    variant.lVal = value;
}

HRESULT answer(BSTR* result, TextView text) {
    if (text.empty()) return S_FALSE;
    *result = SysAllocStringLen(asWide(text).data(), static_cast<UINT>(text.size()));
    return *result ? S_OK : E_OUTOFMEMORY;
}

class Accessible final : public ComObject<IAccessible> {
public:
    Accessible(const std::shared_ptr<SurfaceWindow>& surface, std::shared_ptr<void> moduleLock)
        : ComObject(std::move(moduleLock)), surface_(surface) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        if (!parent) return E_POINTER;
        *parent = nullptr;
        return guarded([&](View& view) {
            return AccessibleObjectFromWindow(view.window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                              reinterpret_cast<void**>(parent));
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return guarded([&](View& view) {
            *count = static_cast<LONG>(view.parts() + view.children.size());
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        return guarded([&](View& view) {
            if (child.vt != VT_I4) return E_INVALIDARG;
            if (child.lVal == CHILDID_SELF) {
                *result = this;
                AddRef();
                return S_OK;
            }
            if (const HWND window = view.childWindow(child)) {
                return AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                                  reinterpret_cast<void**>(result));
            }
            return view.item(child) ? S_FALSE : E_INVALIDARG;  // a part has no object of its own
        });
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return ofItem(child, name,
                      [&](View&, const AccessibleItem& item) { return answer(name, item.name); });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return ofItem(child, value,
                      [&](View&, const AccessibleItem& item) { return answer(value, item.value); });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR* text) override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return ofItem(child, role, [&](View&, const AccessibleItem& item) {
            setLong(*role, roleOf(item.role));
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return ofItem(child, state, [&](View& view, const AccessibleItem& item) {
            LONG bits = 0;
            if (!item.enabled || !IsWindowEnabled(view.window)) bits |= STATE_SYSTEM_UNAVAILABLE;
            if (!IsWindowVisible(view.window)) bits |= STATE_SYSTEM_INVISIBLE;
            const bool tab = item.role == AccessibleItem::Role::pageTab;
            if (item.pressed) bits |= tab ? STATE_SYSTEM_SELECTED : STATE_SYSTEM_PRESSED;
            if (tab || item.role == AccessibleItem::Role::listItem) bits |= STATE_SYSTEM_SELECTABLE;
            if (tab && item.bounds.empty()) bits |= STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
            if (child.lVal == CHILDID_SELF && GetFocus() == view.window) bits |= STATE_SYSTEM_FOCUSED;
            setLong(*state, bits);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* text) override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) override {
        if (topic) *topic = 0;
        return none(file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR* text) override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        if (!child) return E_POINTER;
        VariantInit(child);
        return guarded([&](View& view) {
            const HWND focus = GetFocus();
            if (focus == view.window) {
                setLong(*child, CHILDID_SELF);
                return S_OK;
            }
            if (!focus || !IsChild(view.window, focus)) return S_FALSE;
            child->vt = VT_DISPATCH;
            const HRESULT result =
                AccessibleObjectFromWindow(focus, static_cast<DWORD>(OBJID_CLIENT), IID_IDispatch,
                                           reinterpret_cast<void**>(&child->pdispVal));
            if (FAILED(result)) VariantInit(child);
            return result;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        if (!children) return E_POINTER;
        VariantInit(children);
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return ofItem(child, action, [&](View&, const AccessibleItem& item) {
            if (item.role == AccessibleItem::Role::pageTab) return answer(action, u"Switch");
            return item.role == AccessibleItem::Role::button ? answer(action, u"Press") : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        return guarded([&](View& view) {
            if (!view.item(child)) return E_INVALIDARG;
            if (flags != SELFLAG_TAKEFOCUS || child.lVal != CHILDID_SELF) return DISP_E_MEMBERNOTFOUND;
            view.surface->takeFocus();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        if (!left || !top || !width || !height) return E_POINTER;
        *left = *top = *width = *height = 0;
        return guarded([&](View& view) {
            RECT area{};
            if (const HWND window = view.childWindow(child)) {
                GetWindowRect(window, &area);
            } else if (child.vt == VT_I4 && child.lVal == CHILDID_SELF) {
                GetWindowRect(view.window, &area);
            } else if (const AccessibleItem* item = view.item(child)) {
                area = {item->bounds.left, item->bounds.top, item->bounds.right, item->bounds.bottom};
                MapWindowPoints(view.window, nullptr, reinterpret_cast<POINT*>(&area), 2);
            } else {
                return E_INVALIDARG;
            }
            *left = area.left;
            *top = area.top;
            *width = area.right - area.left;
            *height = area.bottom - area.top;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG, VARIANT, VARIANT* end) override {
        if (!end) return E_POINTER;
        VariantInit(end);
        return DISP_E_MEMBERNOTFOUND;  // clients go by the children's numbers
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        if (!child) return E_POINTER;
        VariantInit(child);
        return guarded([&](View& view) {
            POINT at{left, top};
            ScreenToClient(view.window, &at);
            RECT client{};
            GetClientRect(view.window, &client);
            if (!PtInRect(&client, at)) return S_FALSE;
            const HWND window = ChildWindowFromPointEx(view.window, at, CWP_SKIPINVISIBLE);
            if (window && window != view.window) {
                child->vt = VT_DISPATCH;
                const HRESULT result =
                    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                               reinterpret_cast<void**>(&child->pdispVal));
                if (FAILED(result)) VariantInit(child);
                return result;
            }
            LONG found = CHILDID_SELF;
            // Later parts lie above earlier ones.
            for (size_t i = 1; i < view.items.size(); ++i) {
                if (view.items[i].bounds.contains({at.x, at.y})) found = static_cast<LONG>(i);
            }
            setLong(*child, found);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return guarded([&](View& view) {
            const AccessibleItem* item = view.item(child);
            if (!item) return E_INVALIDARG;
            const bool acts =
                item->role == AccessibleItem::Role::button || item->role == AccessibleItem::Role::pageTab;
            if (!acts) return DISP_E_MEMBERNOTFOUND;
            // A tab that is scrolled away has no place to press at.
            if (!item->enabled || !IsWindowEnabled(view.window) || item->bounds.empty()) return S_FALSE;
            const PixelRect& bounds = item->bounds;
            view.surface->press({(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2});
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

private:
    // The surface as it is at one call.
    struct View {
        std::shared_ptr<SurfaceWindow> surface;
        HWND window = nullptr;
        std::vector<AccessibleItem> items;  // the surface itself first
        std::vector<HWND> children;

        size_t parts() const { return items.empty() ? 0 : items.size() - 1; }
        const AccessibleItem* item(const VARIANT& child) const {
            if (child.vt != VT_I4 || child.lVal < 0 || static_cast<size_t>(child.lVal) >= items.size())
                return nullptr;
            return &items[static_cast<size_t>(child.lVal)];
        }
        HWND childWindow(const VARIANT& child) const {
            if (child.vt != VT_I4 || child.lVal < 1) return nullptr;
            const size_t index = static_cast<size_t>(child.lVal) - 1;
            if (index < parts() || index - parts() >= children.size()) return nullptr;
            return children[index - parts()];
        }
    };

    void* otherInterface(REFIID id) override {
        return id == IID_IDispatch ? static_cast<IAccessible*>(this) : nullptr;
    }

    template <typename Function>
    HRESULT guarded(Function function) {
        try {
            View view;
            view.surface = surface_.lock();
            view.window = view.surface ? view.surface->hwnd() : nullptr;
            if (!view.window) return CO_E_OBJNOTCONNECTED;
            view.items = view.surface->accessibleItems();
            for (HWND each = GetWindow(view.window, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
                view.children.push_back(each);
            return function(view);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (...) {
            return E_FAIL;
        }
    }

    static HRESULT none(BSTR* text) {
        if (!text) return E_POINTER;
        *text = nullptr;
        return S_FALSE;
    }
    static void clear(BSTR* result) { *result = nullptr; }
    static void clear(VARIANT* result) { VariantInit(result); }

    template <typename Result, typename Function>
    HRESULT ofItem(const VARIANT& child, Result* result, Function function) {
        if (!result) return E_POINTER;
        clear(result);
        return guarded([&](View& view) {
            const AccessibleItem* item = view.item(child);
            return item ? function(view, *item) : E_INVALIDARG;
        });
    }

    std::weak_ptr<SurfaceWindow> surface_;
};

}  // namespace

ComPtr<IUnknown> createAccessible(const std::shared_ptr<SurfaceWindow>& surface,
                                  std::shared_ptr<void> moduleLock) {
    return new Accessible(surface, std::move(moduleLock));
}

}  // namespace obk::win32
