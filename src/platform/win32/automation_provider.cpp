// What UI Automation asks of one thing: each of the system's interfaces over the description of it.
#include "com/com_object.h"
#include "platform/win32/automation.h"
#include "platform/win32/automation_patterns.h"
#include "platform/win32/automation_values.h"
#include "platform/win32/surface_window.h"
#include "widgets/accessible_tree.h"

#include <uiautomationclient.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <new>
#include <vector>

namespace obk::win32 {

namespace {

using Kind = AccessibleAction::Kind;
using Item = AccessibleItem;
using Role = Item::Role;

constexpr auto notAvailable = static_cast<HRESULT>(0x80040201);
constexpr auto notEnabled = static_cast<HRESULT>(0x80040200);
constexpr auto invalidOperation = static_cast<HRESULT>(0x80131509);
constexpr int appendRuntimeId = 3;
constexpr double notScrolled = -1;  // in one direction, while the other one is

// Numbers of the system that the compiler's headers lack.
namespace control_type {
constexpr int button = 50000, calendar = 50001, checkBox = 50002, comboBox = 50003, edit = 50004,
              image = 50006, listItem = 50007, list = 50008, scrollBar = 50014, spinner = 50016, tab = 50018,
              tabItem = 50019, text = 50020, group = 50026, dataGrid = 50028, dataItem = 50029,
              splitButton = 50031, pane = 50033, header = 50034, headerItem = 50035, separator = 50038;
}

int controlTypeOf(Role role) {
    namespace type = control_type;
    // In the order of the roles.
    static constexpr int types[] = {
        type::group,    type::pane,    type::button,     type::splitButton, type::text,     type::edit,
        type::checkBox, type::spinner, type::comboBox,   type::separator,   type::image,    type::list,
        type::listItem, type::tab,     type::tabItem,    type::calendar,    type::dataGrid, type::dataItem,
        type::dataItem, type::header,  type::headerItem, type::scrollBar};
    static_assert(std::size(types) == static_cast<size_t>(Role::scrollBar) + 1);
    return types[static_cast<size_t>(role)];
}

class Provider final
    : public ComObject<IRawElementProviderSimple, IRawElementProviderFragment,
                       IRawElementProviderFragmentRoot, IHwndOverride, IInvokeProvider, IToggleProvider,
                       IExpandCollapseProvider, IValueProvider, IRangeValueProvider, ISelectionProvider,
                       ISelectionItemProvider, IScrollProvider, IScrollItemProvider, IGridProvider,
                       IGridItemProvider, ITableProvider, ITableItemProvider> {
public:
    Provider(const std::shared_ptr<SurfaceWindow>& surface, const AccessibleId& id)
        : ComObject(surface->moduleLock()), surface_(surface), id_(id) {}

    HRESULT STDMETHODCALLTYPE get_ProviderOptions(ProviderOptions* options) override {
        if (!options) return E_POINTER;
        int chosen = ProviderOptions_ServerSideProvider | ProviderOptions_UseComThreading;
        viewed([&](const View& view) {
            if (hasWindow(view)) chosen |= ProviderOptions_OverrideProvider;
            return S_OK;
        });
        *options = static_cast<ProviderOptions>(chosen);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID pattern, IUnknown** result) override {
        return asked(result, [&](const View& view) {
            if (supports(view, pattern)) *result = ComPtr<IUnknown>(first()).detach();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID property, VARIANT* value) override {
        return asked(value, [&](const View& view) {
            if (!hasWindow(view)) tell(view, property, value);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_HostRawElementProvider(IRawElementProviderSimple** host) override {
        return asked(host, [&](const View& view) {
            const HWND own = whole(view) ? view.window : reinterpret_cast<HWND>(view.item.window);
            return own && automationFunctions().hostProvider ? automationFunctions().hostProvider(own, host)
                                                             : S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE Navigate(NavigateDirection direction,
                                       IRawElementProviderFragment** found) override {
        return asked(found, [&](const View& view) {
            const AccessibleTree& tree = view.tree;
            const bool back =
                direction == NavigateDirection_PreviousSibling || direction == NavigateDirection_LastChild;
            const bool aside =
                direction == NavigateDirection_NextSibling || direction == NavigateDirection_PreviousSibling;
            if (direction == NavigateDirection_Parent) {
                // The window's own parent is known to the system.
                if (!whole(view)) give(view, tree.parent(id_), found);
                return S_OK;
            }
            if (aside && whole(view)) return S_OK;
            const AccessibleId around = aside ? tree.parent(id_) : id_;
            const int32_t by = back ? -1 : 1;
            const int32_t index = aside ? tree.indexInParent(id_) + by : back ? tree.childCount(id_) - 1 : 0;
            AccessibleId next = tree.childInSight(around, index, by);
            // What has a window of its own the system adds by itself to the window that it is in.
            while (next && around == tree.root() && tree.item(next).window != 0)
                next = tree.childInSight(around, tree.indexInParent(next) + by, by);
            give(view, next, found);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetRuntimeId(SAFEARRAY** result) override {
        return asked(result, [&](const View& view) {
            if (whole(view) || hasWindow(view)) return S_OK;  // the window's
            const auto widget = reinterpret_cast<uintptr_t>(id_.widget);
            const int numbers[] = {appendRuntimeId, static_cast<int>(widget),
                                   static_cast<int>(uint64_t{widget} >> 32), id_.part.row, id_.part.col};
            *result = SafeArrayCreateVector(VT_I4, 0, static_cast<ULONG>(std::size(numbers)));
            if (!*result) return E_OUTOFMEMORY;
            for (LONG at = 0; at < static_cast<LONG>(std::size(numbers)); ++at) {
                int number = numbers[at];
                SafeArrayPutElement(*result, &at, &number);
            }
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_BoundingRectangle(UiaRect* place) override {
        return asked(place, [&](const View& view) {
            const PixelRect bounds = view.item.bounds;
            if (bounds.empty()) return S_OK;
            RECT area{bounds.left, bounds.top, bounds.right, bounds.bottom};
            MapWindowPoints(view.window, nullptr, reinterpret_cast<POINT*>(&area), 2);
            *place = {static_cast<double>(area.left), static_cast<double>(area.top),
                      static_cast<double>(area.right - area.left),
                      static_cast<double>(area.bottom - area.top)};
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetEmbeddedFragmentRoots(SAFEARRAY** roots) override {
        return asked(roots, [](const View&) { return S_OK; });
    }
    HRESULT STDMETHODCALLTYPE SetFocus() override {
        return done([&](const View& view) {
            if (view.tree.act(id_, {Kind::focus, {}, 0})) return S_OK;
            if (!whole(view)) return invalidOperation;
            view.surface->takeFocus();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_FragmentRoot(IRawElementProviderFragmentRoot** root) override {
        return asked(root, [&](const View& view) {
            give(view, view.tree.root(), root);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE ElementProviderFromPoint(double x, double y,
                                                       IRawElementProviderFragment** found) override {
        return asked(found, [&](const View& view) {
            POINT at{static_cast<LONG>(std::floor(x)), static_cast<LONG>(std::floor(y))};
            ScreenToClient(view.window, &at);
            giveOwn(view, view.tree.at({at.x, at.y}), found);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetFocus(IRawElementProviderFragment** found) override {
        return asked(found, [&](const View& view) {
            giveOwn(view, view.tree.focus(), found);
            return S_OK;
        });
    }

    // A window that is a cell's editor is the cell's, not one among the grid's rows.
    HRESULT STDMETHODCALLTYPE GetOverrideProviderForHwnd(HWND window,
                                                         IRawElementProviderSimple** found) override {
        return asked(found, [&](const View& view) {
            const AccessibleId shown = view.tree.ofWindow(reinterpret_cast<uintptr_t>(window));
            if (view.tree.parent(shown) != view.tree.root()) give(view, shown, found);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE Invoke() override { return act({Kind::press, {}, 0}); }
    HRESULT STDMETHODCALLTYPE Toggle() override { return act({Kind::toggle, {}, 0}); }
    HRESULT STDMETHODCALLTYPE get_ToggleState(ToggleState* state) override {
        return told(state, [](const Item& item) {
            return item.is(Item::checked) ? ToggleState::on : ToggleState::off;
        });
    }
    HRESULT STDMETHODCALLTYPE Expand() override { return turn(Kind::expand, true); }
    HRESULT STDMETHODCALLTYPE Collapse() override { return turn(Kind::collapse, false); }
    HRESULT STDMETHODCALLTYPE get_ExpandCollapseState(ExpandCollapseState* state) override {
        return told(state, [](const Item& item) {
            return item.is(Item::expanded) ? ExpandCollapseState::expanded : ExpandCollapseState::collapsed;
        });
    }
    HRESULT STDMETHODCALLTYPE SetValue(LPCWSTR value) override {
        return act({Kind::write, fromWide(value ? value : L""), 0});
    }
    HRESULT STDMETHODCALLTYPE get_Value(BSTR* value) override {
        return asked(value, [&](const View& view) {
            put(value, view.item.value);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_IsReadOnly(BOOL* readOnly) override {
        return told(readOnly,
                    [](const Item& item) { return !item.can(Kind::write) && !item.can(Kind::set); });
    }
    HRESULT STDMETHODCALLTYPE SetValue(double value) override {
        return done([&](const View& view) {
            const auto& range = view.item.range;
            if (!range || !(value >= range->least && value <= range->most)) return E_INVALIDARG;
            return view.tree.act(id_, {Kind::set, {}, value}) ? S_OK : invalidOperation;
        });
    }
    HRESULT STDMETHODCALLTYPE get_Value(double* value) override { return ranged(value, &Item::Range::value); }
    HRESULT STDMETHODCALLTYPE get_Maximum(double* value) override {
        return ranged(value, &Item::Range::most);
    }
    HRESULT STDMETHODCALLTYPE get_Minimum(double* value) override {
        return ranged(value, &Item::Range::least);
    }
    HRESULT STDMETHODCALLTYPE get_LargeChange(double* value) override {
        return ranged(value, &Item::Range::step);
    }
    HRESULT STDMETHODCALLTYPE get_SmallChange(double* value) override {
        return ranged(value, &Item::Range::step);
    }

    HRESULT STDMETHODCALLTYPE GetSelection(SAFEARRAY** selected) override {
        return asked(selected,
                     [&](const View& view) { return list(view, view.tree.selection(id_), selected); });
    }
    HRESULT STDMETHODCALLTYPE get_CanSelectMultiple(BOOL* can) override {
        return told(can, [](const Item& item) { return item.is(Item::multiSelectable); });
    }
    HRESULT STDMETHODCALLTYPE get_IsSelectionRequired(BOOL* required) override {
        return asked(required, [&](const View& view) {
            *required = view.item.role != Role::list && view.tree.childCount(id_) > 0;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Select() override { return act({Kind::select, {}, 0}); }
    HRESULT STDMETHODCALLTYPE AddToSelection() override {
        return done([&](const View& view) {
            const bool is = view.item.is(Item::selected);
            return is || view.tree.act(id_, {Kind::extend, {}, 0}) ? S_OK : invalidOperation;
        });
    }
    HRESULT STDMETHODCALLTYPE RemoveFromSelection() override {
        return done([](const View&) { return invalidOperation; });
    }
    HRESULT STDMETHODCALLTYPE get_IsSelected(BOOL* selected) override {
        return told(selected, [](const Item& item) { return item.is(Item::selected); });
    }
    HRESULT STDMETHODCALLTYPE get_SelectionContainer(IRawElementProviderSimple** container) override {
        return asked(container, [&](const View& view) {
            const AccessibleId table = view.tree.table(id_);
            give(view, table ? table : view.tree.parent(id_), container);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE Scroll(ScrollAmount across, ScrollAmount down) override {
        return done([&](const View& view) {
            const auto to = [](double from, double shown, ScrollAmount amount) {
                if (amount == ScrollAmount::noAmount) return notScrolled;
                const bool large =
                    amount == ScrollAmount::largeDecrement || amount == ScrollAmount::largeIncrement;
                const bool back =
                    amount == ScrollAmount::largeDecrement || amount == ScrollAmount::smallDecrement;
                const double step = (large ? 100.0 : 10.0) * shown / std::max(100 - shown, 1.0);
                return std::clamp(from + (back ? -step : step), 0.0, 100.0);
            };
            const Item::Scroll now = view.item.scroll.value_or(Item::Scroll());
            return scrollTo(view, to(now.across, now.shownAcross, across), to(now.down, now.shownDown, down));
        });
    }
    HRESULT STDMETHODCALLTYPE SetScrollPercent(double across, double down) override {
        return done([&](const View& view) { return scrollTo(view, across, down); });
    }
    HRESULT STDMETHODCALLTYPE get_HorizontalScrollPercent(double* percent) override {
        return scrolled(percent, &Item::Scroll::across);
    }
    HRESULT STDMETHODCALLTYPE get_VerticalScrollPercent(double* percent) override {
        return scrolled(percent, &Item::Scroll::down);
    }
    HRESULT STDMETHODCALLTYPE get_HorizontalViewSize(double* percent) override {
        return scrolled(percent, &Item::Scroll::shownAcross);
    }
    HRESULT STDMETHODCALLTYPE get_VerticalViewSize(double* percent) override {
        return scrolled(percent, &Item::Scroll::shownDown);
    }
    HRESULT STDMETHODCALLTYPE get_HorizontallyScrollable(BOOL* can) override {
        return told(can, [](const Item& item) { return item.scroll && item.scroll->across >= 0; });
    }
    HRESULT STDMETHODCALLTYPE get_VerticallyScrollable(BOOL* can) override {
        return told(can, [](const Item& item) { return item.scroll && item.scroll->down >= 0; });
    }
    HRESULT STDMETHODCALLTYPE ScrollIntoView() override { return act({Kind::show, {}, 0}); }

    HRESULT STDMETHODCALLTYPE GetItem(int row, int col, IRawElementProviderSimple** cell) override {
        return asked(cell, [&](const View& view) {
            if (row < 0 || col < 0 || row >= view.item.rows || col >= view.item.cols) return E_INVALIDARG;
            give(view, view.tree.cell(id_, row, col), cell);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_RowCount(int* count) override {
        return told(count, [](const Item& item) { return item.rows; });
    }
    HRESULT STDMETHODCALLTYPE get_ColumnCount(int* count) override {
        return told(count, [](const Item& item) { return item.cols; });
    }
    HRESULT STDMETHODCALLTYPE get_Row(int* row) override {
        return told(row, [](const Item& item) { return item.row; });
    }
    // A row is a thing across all columns.
    HRESULT STDMETHODCALLTYPE get_Column(int* col) override {
        return told(col, [](const Item& item) { return std::max(item.col, 0); });
    }
    HRESULT STDMETHODCALLTYPE get_RowSpan(int* span) override {
        return told(span, [](const Item&) { return 1; });
    }
    HRESULT STDMETHODCALLTYPE get_ColumnSpan(int* span) override {
        return asked(span, [&](const View& view) {
            *span = view.item.role == Role::row ? view.tree.item(view.tree.table(id_)).cols : 1;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_ContainingGrid(IRawElementProviderSimple** grid) override {
        return asked(grid, [&](const View& view) {
            give(view, view.tree.table(id_), grid);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetRowHeaders(SAFEARRAY** headers) override {
        return asked(headers, [&](const View& view) { return list(view, {}, headers); });
    }
    HRESULT STDMETHODCALLTYPE GetColumnHeaders(SAFEARRAY** headers) override {
        return asked(headers,
                     [&](const View& view) { return headersFrom(view, id_, 0, view.item.cols, headers); });
    }
    HRESULT STDMETHODCALLTYPE get_RowOrColumnMajor(RowOrColumnMajor* major) override {
        return told(major, [](const Item&) { return RowOrColumnMajor::rowMajor; });
    }
    HRESULT STDMETHODCALLTYPE GetRowHeaderItems(SAFEARRAY** headers) override {
        return GetRowHeaders(headers);
    }
    HRESULT STDMETHODCALLTYPE GetColumnHeaderItems(SAFEARRAY** headers) override {
        return asked(headers, [&](const View& view) {
            return headersFrom(view, view.tree.table(id_), view.item.col, view.item.col + 1, headers);
        });
    }

private:
    // The thing as it is at one call.
    struct View {
        const std::shared_ptr<SurfaceWindow>& surface;
        HWND window;
        const AccessibleTree& tree;
        Item item;
    };

    IRawElementProviderSimple* first() { return this; }
    bool whole(const View& view) const { return id_ == view.tree.root(); }
    // The system describes such a thing, and this says only where it is.
    static bool hasWindow(const View& view) { return view.item.window != 0; }

    HRESULT viewed(const std::function<HRESULT(const View&)>& use) const {
        HRESULT outcome = notAvailable;
        try {
            const auto surface = surface_.lock();
            if (!surface) return outcome;
            surface->withTree([&](const AccessibleTree& tree) {
                if (tree.has(id_))
                    outcome = use({surface, surface->hwnd(), tree, surface->itemOf(id_, tree)});
            });
        } catch (const std::bad_alloc&) {
            outcome = E_OUTOFMEMORY;
        } catch (...) {
            outcome = E_FAIL;
        }
        return outcome;
    }
    template <typename Result>
    HRESULT asked(Result* result, const std::function<HRESULT(const View&)>& use) const {
        if (!result) return E_POINTER;
        *result = {};
        return viewed(use);
    }
    template <typename Result, typename Get>
    HRESULT told(Result* result, const Get& get) const {
        return asked(result, [&](const View& view) {
            *result = get(view.item);
            return S_OK;
        });
    }
    HRESULT done(const std::function<HRESULT(const View&)>& use) const {
        return viewed(
            [&](const View& view) { return view.item.is(Item::disabled) ? notEnabled : use(view); });
    }
    HRESULT act(const AccessibleAction& action) const {
        return done([&](const View& view) { return view.tree.act(id_, action) ? S_OK : invalidOperation; });
    }
    // What is so already needs no doing.
    HRESULT turn(Kind kind, bool expanded) const {
        return done([&](const View& view) {
            const bool is = view.item.is(Item::expanded);
            return is == expanded || view.tree.act(id_, {kind, {}, 0}) ? S_OK : invalidOperation;
        });
    }
    HRESULT ranged(double* value, double Item::Range::*part) const {
        return told(value, [part](const Item& item) { return item.range ? (*item.range).*part : 0; });
    }
    HRESULT scrolled(double* percent, double Item::Scroll::*part) const {
        return told(percent, [part](const Item& item) { return item.scroll ? (*item.scroll).*part : -1; });
    }

    template <typename Interface>
    static void give(const View& view, const AccessibleId& id, Interface** result) {
        if (id) *result = ComPtr<Interface>(new Provider(view.surface, id)).detach();
    }
    // Nothing for this one itself, and for what the system describes by its window.
    void giveOwn(const View& view, const AccessibleId& id, IRawElementProviderFragment** result) const {
        if (id && id != id_ && view.tree.item(id).window == 0) give(view, id, result);
    }
    static HRESULT list(const View& view, const std::vector<AccessibleId>& things, SAFEARRAY** result) {
        *result = SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(things.size()));
        if (!*result) return E_OUTOFMEMORY;
        for (LONG at = 0; at < static_cast<LONG>(things.size()); ++at) {
            const ComPtr<IRawElementProviderSimple> each(
                new Provider(view.surface, things[static_cast<size_t>(at)]));
            SafeArrayPutElement(*result, &at, each.get());
        }
        return S_OK;
    }
    static HRESULT headersFrom(const View& view, const AccessibleId& table, int32_t first, int32_t end,
                               SAFEARRAY** result) {
        std::vector<AccessibleId> headers;
        for (int32_t col = first; col < end; ++col) {
            if (const AccessibleId header = view.tree.columnHeader(table, col)) headers.push_back(header);
        }
        return list(view, headers, result);
    }
    // By the scroll bars, which come behind the rows.
    HRESULT scrollTo(const View& view, double across, double down) const {
        const auto wrong = [](double to) { return to != notScrolled && !(to >= 0 && to <= 100); };
        const Item::Scroll now = view.item.scroll.value_or(Item::Scroll());
        if (wrong(across) || wrong(down)) return E_INVALIDARG;
        if ((across >= 0 && now.across < 0) || (down >= 0 && now.down < 0)) return invalidOperation;
        const int32_t count = view.tree.childCount(id_);
        for (int32_t index = view.item.rows; index < count; ++index) {
            const AccessibleId bar = view.tree.child(id_, index);
            const Item item = view.tree.item(bar);
            if (item.role != Role::scrollBar || !item.range) continue;
            const double percent = item.bounds.width() > item.bounds.height() ? across : down;
            if (percent >= 0)
                view.tree.act(bar, {Kind::set, {}, std::round(percent * item.range->most / 100)});
        }
        return S_OK;
    }

    bool supports(const View& view, PATTERNID pattern) const {
        const Item& item = view.item;
        if (hasWindow(view)) return false;
        const bool cell = item.row >= 0 && item.col >= 0;
        switch (pattern) {
            case UIA_InvokePatternId:
                return item.role == Role::cell || item.role == Role::button ||
                       item.role == Role::splitButton ||
                       (item.role == Role::columnHeader && item.can(Kind::press));
            case UIA_TogglePatternId:
                return item.is(Item::checkable);
            case UIA_ExpandCollapsePatternId:
                return item.is(Item::expandable);
            case UIA_ValuePatternId:
                return item.is(Item::valued);
            case UIA_RangeValuePatternId:
                return item.range.has_value();
            case UIA_SelectionPatternId:
                return item.role == Role::grid || item.role == Role::calendar || item.role == Role::list ||
                       item.role == Role::pageTabList;
            case UIA_SelectionItemPatternId:
                return item.is(Item::selectable);
            case UIA_ScrollPatternId:
                return item.scroll.has_value();
            case UIA_ScrollItemPatternId:
                return item.can(Kind::show);
            case UIA_GridPatternId:
            case UIA_TablePatternId:
                return item.cols > 0;
            case UIA_GridItemPatternId:
                return cell || item.role == Role::row;
            case UIA_TableItemPatternId:
                return cell;
            default:
                return false;
        }
    }

    void tell(const View& view, PROPERTYID property, VARIANT* value) const {
        const Item& item = view.item;
        switch (property) {
            case UIA_ControlTypePropertyId:
                return put(value, controlTypeOf(item.role));
            case UIA_NamePropertyId:
                return put(value, TextView(item.name));
            case UIA_HelpTextPropertyId:
                return put(value, TextView(item.help));
            case UIA_AccessKeyPropertyId:
                return put(value, TextView(item.accessKey));
            case UIA_IsEnabledPropertyId:
                return put(value, !item.is(Item::disabled));
            case UIA_IsKeyboardFocusablePropertyId:
                return put(value, item.is(Item::focusable));
            case UIA_HasKeyboardFocusPropertyId:
                return put(value, item.is(Item::focused));
            case UIA_IsOffscreenPropertyId:
                return put(value, item.is(Item::offScreen) || !IsWindowVisible(view.window));
            case UIA_IsControlElementPropertyId:
            case UIA_IsContentElementPropertyId:
                return put(value, true);
            case UIA_FrameworkIdPropertyId:
                return put(value, TextView(u"OBK"));
            case UIA_OrientationPropertyId:
                if (item.role == Role::scrollBar)
                    put(value, item.bounds.width() > item.bounds.height() ? 1 : 2);
                return;
            case 30152:  // UIA_PositionInSetPropertyId
                if (item.position > 0) put(value, item.position);
                return;
            case 30153:  // UIA_SizeOfSetPropertyId
                if (item.setSize > 0) put(value, item.setSize);
                return;
            case UIA_ItemStatusPropertyId:
                if (item.role == Role::columnHeader && !item.help.empty()) put(value, TextView(item.help));
                return;
            default:
                return;
        }
    }

    const std::weak_ptr<SurfaceWindow> surface_;
    const AccessibleId id_;
};

}  // namespace

ComPtr<IRawElementProviderSimple> createProvider(const std::shared_ptr<SurfaceWindow>& surface,
                                                 const AccessibleId& of) {
    return new Provider(surface, of);
}

}  // namespace obk::win32
