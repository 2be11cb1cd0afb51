#include "scene.h"

#include <olectl.h>

#include "container/text.h"
#include "container/window_metrics.h"

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

void Scene::adoptColours(SceneControl& control) const {
    control.site->ambients().set(DISPID_AMBIENT_BACKCOLOR, static_cast<long>(0x80000000u | COLOR_BTNFACE));
    control.site->ambients().set(DISPID_AMBIENT_FORECOLOR, static_cast<long>(0x80000000u | COLOR_BTNTEXT));
}

void Scene::createControl(SceneControl& control, const container::InitialState& state) {
    adoptColours(control);
    control.failure.clear();
    const HRESULT created = control.site->create(server_, control.progId, state);
    if (FAILED(created)) {
        control.failure = control.progId + L" could not be created from " + server_.source() + L" (" +
                          codeText(created) + L")";
        return;
    }
    control.members = container::TypeMembers::of(control.site->control().get());
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
    children_.back().pressed = std::move(pressed);
    return window;
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

void Scene::save(FormText& form) const {
    for (const auto& control : controls_) {
        if (control->failure.empty()) control->site->save(form.add(control->name, control->progId).bag.get());
    }
}

std::vector<std::wstring> Scene::load(const FormText& form) {
    std::vector<std::wstring> problems;
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

RECT Scene::pixels(const Place& place) const {
    return theme().scale(RECT{place.x, place.y, place.x + place.width, place.y + place.height});
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
        adoptColours(*control);
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
                drawStrong(dc, theme(), item.text, pixels(item.place), colour, oneLine | item.format);
                continue;
            case TextLook::heading:
            case TextLook::total:
                font = theme().heading();
                break;
        }
        drawText(dc, item.text, pixels(item.place), font, colour, oneLine | item.format);
    }
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
