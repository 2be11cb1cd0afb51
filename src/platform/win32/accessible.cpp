#include "platform/win32/accessible.h"

#include "com/com_object.h"
#include "platform/win32/surface_window.h"
#include "platform/win32/text_conversion.h"
#include "widgets/accessible_tree.h"

#include <oleacc.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <vector>

namespace obk::win32 {

namespace {

using Kind = AccessibleAction::Kind;
using Item = AccessibleItem;

LONG roleOf(Item::Role role) {
    // In the order of the roles.
    static constexpr LONG roles[] = {
        ROLE_SYSTEM_GROUPING,     ROLE_SYSTEM_CLIENT,      ROLE_SYSTEM_PUSHBUTTON,  ROLE_SYSTEM_SPLITBUTTON,
        ROLE_SYSTEM_STATICTEXT,   ROLE_SYSTEM_TEXT,        ROLE_SYSTEM_CHECKBUTTON, ROLE_SYSTEM_SPINBUTTON,
        ROLE_SYSTEM_COMBOBOX,     ROLE_SYSTEM_SEPARATOR,   ROLE_SYSTEM_GRAPHIC,     ROLE_SYSTEM_LIST,
        ROLE_SYSTEM_LISTITEM,     ROLE_SYSTEM_PAGETABLIST, ROLE_SYSTEM_PAGETAB,     ROLE_SYSTEM_TABLE,
        ROLE_SYSTEM_TABLE,        ROLE_SYSTEM_ROW,         ROLE_SYSTEM_CELL,        ROLE_SYSTEM_LIST,
        ROLE_SYSTEM_COLUMNHEADER, ROLE_SYSTEM_SCROLLBAR};
    static_assert(std::size(roles) == static_cast<size_t>(Item::Role::scrollBar) + 1);
    return roles[static_cast<size_t>(role)];
}

LONG statesOf(const Item& item, HWND window) {
    static constexpr std::pair<Item::State, LONG> states[] = {
        {Item::disabled, STATE_SYSTEM_UNAVAILABLE},
        {Item::focusable, STATE_SYSTEM_FOCUSABLE},
        {Item::focused, STATE_SYSTEM_FOCUSED},
        {Item::selectable, STATE_SYSTEM_SELECTABLE},
        {Item::selected, STATE_SYSTEM_SELECTED},
        {Item::pressed, STATE_SYSTEM_PRESSED},
        {Item::checked, STATE_SYSTEM_CHECKED},
        {Item::readOnly, STATE_SYSTEM_READONLY},
        {Item::offScreen, STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE},
        {Item::multiSelectable, STATE_SYSTEM_MULTISELECTABLE | STATE_SYSTEM_EXTSELECTABLE}};
    LONG bits = 0;
    for (const auto& [state, bit] : states) {
        if (item.is(state)) bits |= bit;
    }
    if (item.is(Item::expandable))
        bits |= (item.is(Item::expanded) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED) |
                STATE_SYSTEM_HASPOPUP;
    if (!IsWindowVisible(window)) bits |= STATE_SYSTEM_INVISIBLE;
    return bits;
}

struct DefaultAction {
    Kind kind;
    TextView name;
};
// The first that an item offers.
constexpr DefaultAction defaultActions[] = {{Kind::toggle, u"Check"},
                                            {Kind::press, u"Press"},
                                            {Kind::expand, u"Open"},
                                            {Kind::collapse, u"Close"},
                                            {Kind::select, u"Select"}};

const DefaultAction* defaultAction(const Item& item) {
    for (const DefaultAction& action : defaultActions) {
        if (item.can(action.kind)) return &action;
    }
    return nullptr;
}

HRESULT answer(BSTR* result, TextView text) {
    if (text.empty()) return S_FALSE;
    *result = SysAllocStringLen(asWide(text).data(), static_cast<UINT>(text.size()));
    return *result ? S_OK : E_OUTOFMEMORY;
}

HRESULT answer(VARIANT* result, LONG value) {
    result->vt = VT_I4;
    result->lVal = value;
    return S_OK;
}

// Several things that are selected; each is made an object of when it is asked for.
class Selected final : public ComObject<IEnumVARIANT> {
public:
    Selected(const std::shared_ptr<SurfaceWindow>& surface, std::vector<AccessibleId> things, size_t at = 0)
        : ComObject(surface->moduleLock()), surface_(surface), things_(std::move(things)), at_(at) {}
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const size_t left = things_.size() - at_;
        at_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        at_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        const auto surface = surface_.lock();
        if (!surface) return CO_E_OBJNOTCONNECTED;
        return attempted([&] { *copy = ComPtr<IEnumVARIANT>(new Selected(surface, things_, at_)).detach(); });
    }

private:
    static HRESULT attempted(const std::function<void()>& work) {
        try {
            work();
            return S_OK;
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    }

    const std::weak_ptr<SurfaceWindow> surface_;
    const std::vector<AccessibleId> things_;
    size_t at_;
};

class Accessible final : public ComObject<IAccessible> {
public:
    Accessible(const std::shared_ptr<SurfaceWindow>& surface, const AccessibleId& id)
        : ComObject(surface->moduleLock()), surface_(surface), id_(id) {}

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
        return guarded(parent, [&](const View& view) {
            return id_ == view.tree.root() ? ofWindow(view.window, OBJID_WINDOW, parent)
                                           : object(view, view.tree.parent(id_), parent);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        return guarded(count, [&](const View& view) {
            *count = view.tree.childCount(id_);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** result) override {
        return onChild(child, result, [&](const View& view, const AccessibleId& id, const Item&) {
            return object(view, id, result);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return onChild(child, name, [&](const View&, const AccessibleId&, const Item& item) {
            return answer(name, item.name);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return onChild(child, value, [&](const View&, const AccessibleId&, const Item& item) {
            return answer(value, item.value);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) override {
        return onChild(child, text, [&](const View&, const AccessibleId&, const Item& item) {
            return answer(text, item.help);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return onChild(child, role, [&](const View&, const AccessibleId&, const Item& item) {
            return answer(role, roleOf(item.role));
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return onChild(child, state, [&](const View& view, const AccessibleId&, const Item& item) {
            return answer(state, statesOf(item, view.window));
        });
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* text) override {
        return guarded(text, [](const View&) { return S_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) override {
        if (topic) *topic = 0;
        return guarded(file, [](const View&) { return S_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
        return onChild(child, keys, [&](const View&, const AccessibleId&, const Item& item) {
            return answer(keys, item.accessKey);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        return guarded(child, [&](const View& view) { return inside(view, view.tree.focus(), child); });
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        return guarded(children, [&](const View& view) {
            const std::vector<AccessibleId> selected = view.tree.selection(id_);
            if (selected.empty()) return S_FALSE;
            if (selected.size() == 1) return inside(view, selected[0], children);
            children->punkVal = ComPtr<IUnknown>(new Selected(view.surface, selected)).detach();
            children->vt = VT_UNKNOWN;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return onChild(child, action, [&](const View&, const AccessibleId&, const Item& item) {
            const DefaultAction* const does = defaultAction(item);
            if (!does) return S_FALSE;
            return answer(action, item.role == Item::Role::pageTab                       ? u"Switch"
                                  : does->kind == Kind::toggle && item.is(Item::checked) ? u"Uncheck"
                                                                                         : does->name);
        });
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        int nothing = 0;
        return onChild(child, &nothing, [&](const View& view, const AccessibleId& id, const Item& item) {
            if (item.is(Item::disabled)) return S_FALSE;
            const Kind kind = flags & SELFLAG_TAKEFOCUS                                  ? Kind::focus
                              : flags & (SELFLAG_EXTENDSELECTION | SELFLAG_ADDSELECTION) ? Kind::extend
                                                                                         : Kind::select;
            if (view.tree.act(id, {kind, {}, 0})) return S_OK;
            if (kind != Kind::focus || id != view.tree.root()) return DISP_E_MEMBERNOTFOUND;
            view.surface->takeFocus();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        if (!left || !top || !width || !height) return E_POINTER;
        *top = *width = *height = 0;
        return onChild(child, left, [&](const View& view, const AccessibleId& id, const Item& item) {
            RECT area{item.bounds.left, item.bounds.top, item.bounds.right, item.bounds.bottom};
            if (id == view.tree.root())
                GetWindowRect(view.window, &area);
            else if (!item.bounds.empty())
                MapWindowPoints(view.window, nullptr, reinterpret_cast<POINT*>(&area), 2);
            *left = area.left;
            *top = area.top;
            *width = area.right - area.left;
            *height = area.bottom - area.top;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return onChild(start, end, [&](const View& view, const AccessibleId& from, const Item& item) {
            const AccessibleTree& tree = view.tree;
            const AccessibleId around = tree.parent(from), table = tree.table(from);
            const auto beside = [&](int32_t by) { return tree.child(around, tree.indexInParent(from) + by); };
            const bool cell = table && item.row >= 0 && item.col >= 0;
            const auto onwards = [&](int32_t rows, int32_t cols) {
                return cell ? tree.cell(table, item.row + rows, item.col + cols) : beside(rows + cols);
            };
            const bool first = direction == NAVDIR_FIRSTCHILD;
            const AccessibleId found = first ? tree.child(from, 0)
                                       : direction == NAVDIR_LASTCHILD
                                           ? tree.child(from, tree.childCount(from) - 1)
                                       : direction == NAVDIR_NEXT     ? beside(1)
                                       : direction == NAVDIR_PREVIOUS ? beside(-1)
                                       : direction == NAVDIR_UP       ? onwards(-1, 0)
                                       : direction == NAVDIR_DOWN     ? onwards(1, 0)
                                       : direction == NAVDIR_LEFT     ? onwards(0, -1)
                                       : direction == NAVDIR_RIGHT    ? onwards(0, 1)
                                                                      : AccessibleId{};
            return dispatch(view, found, end);
        });
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        return guarded(child, [&](const View& view) {
            POINT at{left, top};
            ScreenToClient(view.window, &at);
            return inside(view, view.tree.at({at.x, at.y}), child);
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        int nothing = 0;
        return onChild(child, &nothing, [&](const View& view, const AccessibleId& id, const Item& item) {
            if (item.is(Item::disabled)) return S_FALSE;
            const DefaultAction* const action = defaultAction(item);
            if (!action) return DISP_E_MEMBERNOTFOUND;
            return view.tree.act(id, {action->kind, {}, 0}) ? S_OK : E_FAIL;
        });
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
        int nothing = 0;
        return onChild(child, &nothing, [&](const View& view, const AccessibleId& id, const Item& item) {
            const Text text = fromWide({value ? value : L"", SysStringLen(value)});
            return !item.is(Item::disabled) && view.tree.act(id, {Kind::write, text, 0})
                       ? S_OK
                       : DISP_E_MEMBERNOTFOUND;
        });
    }

private:
    // The surface as it is at one call.
    struct View {
        const std::shared_ptr<SurfaceWindow>& surface;
        HWND window;
        const AccessibleTree& tree;
    };

    void* otherInterface(REFIID id) override {
        return id == IID_IDispatch ? static_cast<IAccessible*>(this) : nullptr;
    }

    template <typename Result, typename Function>
    HRESULT guarded(Result* result, const Function& function) {
        if (!result) return E_POINTER;
        *result = {};
        HRESULT outcome = CO_E_OBJNOTCONNECTED;
        try {
            const auto surface = surface_.lock();
            if (surface) {
                surface->withTree([&](const AccessibleTree& tree) {
                    if (tree.has(id_)) outcome = function(View{surface, surface->hwnd(), tree});
                });
            }
        } catch (const std::bad_alloc&) {
            outcome = E_OUTOFMEMORY;
        } catch (...) {
            outcome = E_FAIL;
        }
        return outcome;
    }

    // On the object itself, its children from 1 and, of the whole surface, what an event has named below 0.
    template <typename Result, typename Function>
    HRESULT onChild(const VARIANT& child, Result* result, const Function& function) {
        return guarded(result, [&](const View& view) {
            if (child.vt != VT_I4) return E_INVALIDARG;
            const AccessibleId id = child.lVal == CHILDID_SELF ? id_
                                    : child.lVal > 0           ? view.tree.child(id_, child.lVal - 1)
                                                               : view.surface->named(child.lVal);
            return view.tree.has(id) ? function(view, id, view.surface->itemOf(id, view.tree)) : E_INVALIDARG;
        });
    }

    static HRESULT ofWindow(HWND window, LONG object, IDispatch** result) {
        return AccessibleObjectFromWindow(window, static_cast<DWORD>(object), IID_IDispatch,
                                          reinterpret_cast<void**>(result));
    }

    // What has a window of its own is described by the system.
    HRESULT object(const View& view, const AccessibleId& id, IDispatch** result) {
        if (!id) return S_FALSE;
        const auto window = reinterpret_cast<HWND>(view.tree.item(id).window);
        if (window) return ofWindow(window, OBJID_WINDOW, result);
        *result = ComPtr<IDispatch>(id == id_ ? this : new Accessible(view.surface, id)).detach();
        return S_OK;
    }

    HRESULT dispatch(const View& view, const AccessibleId& id, VARIANT* result) {
        const HRESULT outcome = object(view, id, &result->pdispVal);
        if (outcome == S_OK) result->vt = VT_DISPATCH;
        return outcome;
    }

    // As its own, or as one of what is in it.
    HRESULT inside(const View& view, const AccessibleId& id, VARIANT* result) {
        if (id == id_) return answer(result, CHILDID_SELF);
        AccessibleId around = id;
        while (around && around != id_) around = view.tree.parent(around);
        return around ? dispatch(view, id, result) : S_FALSE;
    }

    const std::weak_ptr<SurfaceWindow> surface_;
    const AccessibleId id_;
};

HRESULT Selected::Next(ULONG count, VARIANT* items, ULONG* fetched) {
    if (fetched) *fetched = 0;
    if (!items) return E_POINTER;
    const auto surface = surface_.lock();
    if (!surface) return CO_E_OBJNOTCONNECTED;
    ULONG done = 0;
    const HRESULT outcome = attempted([&] {
        for (; done < count && at_ < things_.size(); ++done) {
            items[done].pdispVal = ComPtr<IDispatch>(new Accessible(surface, things_[at_])).detach();
            items[done].vt = VT_DISPATCH;
            ++at_;
        }
    });
    if (fetched) *fetched = done;
    return done == count ? S_OK : outcome == S_OK ? S_FALSE : outcome;
}

}  // namespace

ComPtr<IUnknown> createAccessible(const std::shared_ptr<SurfaceWindow>& surface, const AccessibleId& of) {
    return new Accessible(surface, of);
}

void notifyAccessible(SurfaceWindow& surface, AccessibleEvent event, const AccessibleId& of,
                      const AccessibleItem& item) {
    constexpr DWORD contentScrolled = 0x8015;  // EVENT_OBJECT_CONTENTSCROLLED, of Windows 8
    // In the order of the events; an opened or closed part is a state.
    static constexpr DWORD events[] = {
        EVENT_OBJECT_FOCUS,      EVENT_OBJECT_SELECTION,   EVENT_OBJECT_VALUECHANGE,
        EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE,
        EVENT_OBJECT_REORDER,    EVENT_OBJECT_INVOKED,     EVENT_OBJECT_STATECHANGE,
        contentScrolled,         contentScrolled,          EVENT_OBJECT_SELECTIONADD};
    static_assert(std::size(events) == static_cast<size_t>(AccessibleEvent::extended) + 1);
    // The system tells of its own windows, but not that readers come back to one from a panel, during which
    // it has kept the keyboard.
    static std::atomic<bool> inPanel = false;
    const bool focus = event == AccessibleEvent::focus;
    const auto own = reinterpret_cast<HWND>(item.window);
    if (own && focus && inPanel.exchange(false))
        NotifyWinEvent(EVENT_OBJECT_FOCUS, own, OBJID_CLIENT, CHILDID_SELF);
    if (own) return;
    if (focus) inPanel = GetFocus() != surface.hwnd();
    // How a column is sorted is its description.
    const bool sorted = event == AccessibleEvent::state && item.role == Item::Role::columnHeader;
    NotifyWinEvent(sorted ? EVENT_OBJECT_DESCRIPTIONCHANGE : events[static_cast<size_t>(event)],
                   surface.hwnd(), OBJID_CLIENT, surface.nameFor(of));
}

}  // namespace obk::win32
