#include "scene.h"

#include <olectl.h>

#include <algorithm>

#include "arrangement.h"
#include "container/stored_value.h"
#include "container/text.h"
#include "container/window_metrics.h"
#include "older_system.h"

namespace obk::gallery {

using container::ControlSite;
using container::FormText;
using container::SiteSettings;
using container::SiteState;

namespace {

std::wstring codeText(HRESULT code) {
    wchar_t buffer[16];
    swprintf(buffer, 16, L"0x%08lX", static_cast<unsigned long>(code));
    return buffer;
}

// Where a control of an arranged form stands is kept beside its own entries.
constexpr wchar_t placeKey[] = L"Gallery.Place";

std::wstring placeText(const Place& place) {
    return std::to_wstring(place.x) + L" " + std::to_wstring(place.y) + L" " + std::to_wstring(place.width) +
           L" " + std::to_wstring(place.height);
}

std::optional<Place> placeFrom(const std::wstring& text) {
    Place place;
    if (swscanf(text.c_str(), L"%d %d %d %d", &place.x, &place.y, &place.width, &place.height) != 4)
        return std::nullopt;
    return place;
}

long colourOf(const SceneControl& control, const wchar_t* property) {
    return control.object().value(property).toLong().value_or(0);
}

}  // namespace

Scene::Scene(const Theme& theme, const container::ServerContext& server, HWND parent)
    : Window(theme), server_(server) {
    create(L"Scene", WS_CHILD, WS_EX_CONTROLPARENT, parent, {});
    form_ = std::make_unique<container::ControlForm>(handle());
}

Scene::~Scene() {
    // Controls first: they still see their form and its window.
    for (const auto& control : controls_) {
        // What a control still says as it goes is about a page that is half gone.
        if (control->site) control->site->events().disconnect();
        control->site.reset();
    }
}

size_t Scene::text(const Place& place, std::wstring text, TextLook look, UINT format) {
    texts_.push_back({place, std::move(text), look, format});
    return texts_.size() - 1;
}

void Scene::setText(size_t index, std::wstring text) {
    if (texts_[index].text != text) {
        texts_[index].text = std::move(text);
        const RECT area = pixels(texts_[index].place);
        InvalidateRect(handle(), &area, FALSE);
    }
}

void Scene::panel(const Place& place) {
    panels_.push_back(place);
}

SceneControl& Scene::control(const std::wstring& name, const std::wstring& progId, const Place& place) {
    auto& control = *controls_.emplace_back(std::make_unique<SceneControl>());
    control.name = name;
    control.progId = progId;
    control.place = place;
    SiteSettings settings;
    settings.name = name;
    control.site = std::make_unique<ControlSite>(*form_, settings);
    createControl(control, {});
    return control;
}

Arrangement& Scene::arrange() {
    arrangement_ = std::make_unique<Arrangement>(*this);
    return *arrangement_;
}

SceneControl& Scene::addControl(const std::wstring& name, const std::wstring& progId, const Place& place) {
    if (onChanging) onChanging();
    SceneControl& added = control(name, progId, place);
    layOut();
    if (onChanged) onChanged();
    return added;
}

void Scene::remove(SceneControl& control) {
    if (onChanging) onChanging();
    control.site->events().disconnect();
    std::erase_if(controls_, [&](const auto& each) { return each.get() == &control; });
    if (onChanged) onChanged();
    InvalidateRect(handle(), nullptr, FALSE);
}

void Scene::move(SceneControl& control, const Place& place) {
    control.place = {std::max(place.x, 0), std::max(place.y, 0), std::max(place.width, 8),
                     std::max(place.height, 8)};
    control.site->moveTo(pixels(control.place));
    // What the control made of it.
    if (const SIZE kept = container::sizeOf(control.site->position()); kept.cx > 0 && kept.cy > 0) {
        const auto unscaled = [this](LONG length) {
            return MulDiv(static_cast<int>(length), 96, theme().dpi());
        };
        if (kept.cx != theme().scale(control.place.width)) control.place.width = unscaled(kept.cx);
        if (kept.cy != theme().scale(control.place.height)) control.place.height = unscaled(kept.cy);
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

// As far as it is the form's to say; a control's own colours come back with the system's.
void Scene::adoptView(SceneControl& control) const {
    const ViewSettings& view = theme().view();
    auto& ambients = control.site->ambients();
    const bool asSystem = view.colours == ColourScheme::system;
    const auto colour = [asSystem](int system, COLORREF scheme) {
        return static_cast<long>(asSystem ? 0x80000000u | static_cast<unsigned>(system) : scheme);
    };
    ambients.set(DISPID_AMBIENT_BACKCOLOR, colour(COLOR_BTNFACE, theme().form));
    ambients.set(DISPID_AMBIENT_FORECOLOR, colour(COLOR_BTNTEXT, theme().formText));
    ambients.set(DISPID_AMBIENT_RIGHTTOLEFT, view.rightToLeft);
    ambients.set(DISPID_AMBIENT_FONT, container::messageFont(view.percent).get());
    if (!control.members.property(L"BackColor") || !control.members.property(L"ForeColor")) return;
    if (!asSystem && !control.ownColours)
        control.ownColours = {colourOf(control, L"BackColor"), colourOf(control, L"ForeColor")};
    if (!control.ownColours) return;
    const auto colours = !asSystem
                             ? std::pair(static_cast<long>(theme().card), static_cast<long>(theme().formText))
                             : *std::exchange(control.ownColours, std::nullopt);
    control.object().put(L"BackColor", colours.first);
    control.object().put(L"ForeColor", colours.second);
}

void Scene::createControl(SceneControl& control, const container::InitialState& state) {
    control.ownColours.reset();
    control.members = {};
    adoptView(control);
    control.failure.clear();
    const OlderSystem older(theme().view().classic);
    const HRESULT created = control.site->create(server_, control.progId, state);
    if (FAILED(created)) {
        control.failure = control.progId + L" could not be created from " + server_.source() + L" (" +
                          codeText(created) + L")";
        return;
    }
    control.members = container::TypeMembers::of(control.site->control().get());
    adoptView(control);
    if (onControlCreated) onControlCreated(control);
}

HWND Scene::addItem(const Place& place, const wchar_t* className, const wchar_t* text, DWORD style,
                    DWORD extendedStyle) {
    const HWND window = addChild(className, text, style | WS_TABSTOP, extendedStyle);
    children_.push_back({place, window, {}});
    form_->add(window);
    return window;
}

HWND Scene::input(const Place& place, const wchar_t* text) {
    const HWND window = addItem(place, L"EDIT", text, ES_AUTOHSCROLL);
    children_.back().framed = true;
    return window;
}

HWND Scene::checkBox(const Place& place, const wchar_t* text, bool checked) {
    const HWND window = addItem(place, L"BUTTON", text, BS_AUTOCHECKBOX);
    SendMessageW(window, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    return window;
}

HWND Scene::choice(const Place& place, const std::vector<std::wstring>& entries, int chosen) {
    const HWND window = addItem(place, L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL);
    for (const std::wstring& entry : entries)
        SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
    return window;
}

HWND Scene::button(const Place& place, const wchar_t* text, std::function<void()> pressed) {
    const HWND window = addItem(place, L"BUTTON", text, BS_PUSHBUTTON);
    onPressed(window, std::move(pressed));
    return window;
}

void Scene::onPressed(HWND child, std::function<void()> pressed) {
    const auto found = std::find_if(children_.begin(), children_.end(),
                                    [child](const ChildItem& each) { return each.window == child; });
    if (found != children_.end()) found->pressed = std::move(pressed);
}

void Scene::demonstrate() const {
    if (demonstration_) demonstration_();
}

SceneControl* Scene::find(std::wstring_view name) const {
    for (const auto& control : controls_) {
        if (container::sameName(control->name, name)) return control.get();
    }
    return nullptr;
}

SceneControl* Scene::focused() const {
    const ControlSite* site = form_->siteOf(GetFocus());
    for (const auto& control : controls_) {
        if (site && control->site.get() == site) return control.get();
    }
    return nullptr;
}

// What a scheme of the gallery has put over a control's own colours is none of its values.
void Scene::withOwnColours(const std::function<void()>& work) const {
    const auto put = [](const SceneControl& control, std::pair<long, long> colours) {
        control.object().put(L"BackColor", colours.first);
        control.object().put(L"ForeColor", colours.second);
    };
    std::vector<std::pair<const SceneControl*, std::pair<long, long>>> replaced;
    for (const auto& control : controls_) {
        if (!control->ownColours) continue;
        replaced.emplace_back(control.get(),
                              std::pair(colourOf(*control, L"BackColor"), colourOf(*control, L"ForeColor")));
        put(*control, *control->ownColours);
    }
    work();
    for (const auto& [control, colours] : replaced) put(*control, colours);
}

void Scene::save(FormText& form) const {
    for (const auto& control : controls_) {
        if (!control->failure.empty()) continue;
        auto& bag = *form.add(control->name, control->progId).bag;
        control->site->save(&bag);
        if (arrangement_) bag.set(placeKey, container::Variant(placeText(control->place)));
    }
}

void Scene::replaceAll(const FormText& form) {
    while (!controls_.empty()) remove(*controls_.back());
    for (const auto& section : form.sections()) {
        const auto* const stored = section.bag->find(placeKey);
        const auto place = stored ? placeFrom(container::restored(*stored).toText()) : std::nullopt;
        if (place && !section.className.empty()) addControl(section.name, section.className, *place);
    }
}

std::vector<std::wstring> Scene::load(const FormText& form) {
    std::vector<std::wstring> problems;
    if (arrangement_) replaceAll(form);
    for (const auto& section : form.sections()) {
        SceneControl* control = find(section.name);
        if (!control) {
            problems.push_back(L"there is no control named " + section.name + L" on this page");
            continue;
        }
        if (!section.className.empty() && !container::sameName(section.className, control->progId)) {
            problems.push_back(section.name + L" is of class " + control->progId + L", not " +
                               section.className);
            continue;
        }
        container::InitialState state;
        state.bag = section.bag.get();
        createControl(*control, state);
        if (!control->failure.empty()) problems.push_back(control->failure);
        for (const std::wstring& error : section.bag->errors())
            problems.push_back(section.name + L"." + error);
    }
    layOut();
    if (derived_) derived_();
    InvalidateRect(handle(), nullptr, FALSE);
    return problems;
}

// From right to left the form is its own mirror image.
RECT Scene::pixels(const Place& place) const {
    RECT area = theme().scale(RECT{place.x, place.y, place.x + place.width, place.y + place.height});
    if (theme().view().rightToLeft) {
        const LONG width = client().right;
        area = {width - area.right, area.top, width - area.left, area.bottom};
    }
    return area;
}

POINT Scene::placeAt(POINT pixel) const {
    if (theme().view().rightToLeft) pixel.x = client().right - 1 - pixel.x;
    return {MulDiv(pixel.x, 96, theme().dpi()), MulDiv(pixel.y, 96, theme().dpi())};
}

void Scene::layOut() {
    for (const ChildItem& child : children_) {
        RECT area = pixels(child.place);
        if (child.framed) {
            // As high as its line of text, which then stands in the middle of the frame.
            const int height = theme().lineHeight(theme().body()) + 2;
            const int spare = static_cast<int>(area.bottom - area.top) - height;
            InflateRect(&area, -theme().scale(5), 0);
            area.top += spare / 2;
            area.bottom = area.top + height;
        }
        placeWindow(child.window, area);
    }
    for (const auto& control : controls_) {
        const RECT area = pixels(control->place);
        if (control->site->state() == SiteState::loaded) {
            control->site->activate(area);
        } else {
            control->site->moveTo(area);
        }
    }
}

void Scene::themeChanged() {
    for (const ChildItem& child : children_) setFont(child.window, theme().body());
    for (const auto& control : controls_) {
        adoptView(*control);
        control->site->ambientChanged(DISPID_UNKNOWN);
    }
    layOut();
    InvalidateRect(handle(), nullptr, FALSE);
}

void Scene::drawFrames(HDC dc) const {
    for (const ChildItem& child : children_) {
        // Not IsWindowVisible: it is false for all of them while the page itself is not shown yet.
        const bool shown = (GetWindowLongW(child.window, GWL_STYLE) & WS_VISIBLE) != 0;
        if (child.framed && shown) {
            const RECT place = pixels(child.place);
            fillRect(dc, place, theme().card);
            frameRect(dc, place, GetFocus() == child.window ? theme().accent : theme().fieldBorder);
        }
    }
}

void Scene::paint(HDC dc, const RECT& area) {
    fillRect(dc, area, theme().form);
    // A text that stands at the left of its place stands at the right of it where the form is mirrored.
    const auto flow = [this](UINT format) {
        if (!theme().view().rightToLeft) return format;
        return (format & DT_CENTER ? format : format ^ DT_RIGHT) | DT_RTLREADING;
    };
    for (const Place& panel : panels_) {
        const RECT place = pixels(panel);
        fillRect(dc, place, theme().card);
        frameRect(dc, place, theme().border);
    }
    drawFrames(dc);
    for (const TextItem& item : texts_) {
        HFONT font = theme().body();
        COLORREF colour = theme().formText;
        switch (item.look) {
            case TextLook::label:
                break;
            case TextLook::dim:
                colour = theme().dimFormText;
                break;
            case TextLook::strong:
                drawStrong(dc, theme(), item.text, pixels(item.place), colour, oneLine | flow(item.format));
                continue;
            case TextLook::heading:
            case TextLook::total:
                font = theme().heading();
                break;
        }
        drawText(dc, item.text, pixels(item.place), font, colour, oneLine | flow(item.format));
    }
    if (arrangement_) arrangement_->paint(dc);
    for (const auto& control : controls_) {
        if (!control->failure.empty()) {
            RECT place = pixels(control->place);
            place.right = area.right - theme().scale(8);
            drawText(dc, control->failure, place, theme().body(), theme().formText, oneLine);
        }
    }
}

LRESULT Scene::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN) {
        SetTextColor(reinterpret_cast<HDC>(wParam), theme().formText);
        SetBkColor(reinterpret_cast<HDC>(wParam), theme().form);
        return reinterpret_cast<LRESULT>(theme().formBrush());
    }
    if (message == WM_COMMAND && (HIWORD(wParam) == EN_SETFOCUS || HIWORD(wParam) == EN_KILLFOCUS)) {
        for (const ChildItem& child : children_) {
            if (child.framed && child.window == reinterpret_cast<HWND>(lParam)) {
                const RECT place = pixels(child.place);
                InvalidateRect(handle(), &place, FALSE);
            }
        }
    }
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        for (const ChildItem& child : children_) {
            if (child.window == reinterpret_cast<HWND>(lParam) && child.pressed) {
                const auto pressed = child.pressed;
                pressed();
                return 0;
            }
        }
    }
    return Window::onMessage(message, wParam, lParam);
}

}  // namespace obk::gallery
