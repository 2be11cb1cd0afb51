// The live part of a page: a small business form with the controls on it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "container/control_form.h"
#include "container/property_bag_text.h"
#include "scene_items.h"
#include "window.h"

namespace obk::gallery {

class Arrangement;

// Built by a page's scene function, which adds items from top to bottom: that is the tab order.
class Scene final : public Window {
public:
    Scene(const Theme& theme, const container::ServerContext& server, HWND parent);
    ~Scene() override;

    // Fixed text; the number is for `setText`.
    size_t text(const Place& place, std::wstring text, TextLook look = TextLook::label,
                UINT format = DT_LEFT);
    void setText(size_t index, std::wstring text);
    // A tinted area behind what is added after it.
    void panel(const Place& place);
    SceneControl& control(const std::wstring& name, const std::wstring& progId, const Place& place);
    // A field to type in, with the border of the controls' own fields.
    HWND input(const Place& place, const wchar_t* text);
    HWND checkBox(const Place& place, const wchar_t* text, bool checked);
    HWND choice(const Place& place, const std::vector<std::wstring>& entries, int chosen);
    HWND button(const Place& place, const wchar_t* text, std::function<void()> pressed);
    void onPressed(HWND child, std::function<void()> pressed);
    // Lets a person arrange the controls, which then come and go.
    Arrangement& arrange();
    Arrangement* arrangement() const { return arrangement_.get(); }
    SceneControl& addControl(const std::wstring& name, const std::wstring& progId, const Place& place);
    void remove(SceneControl& control);
    void move(SceneControl& control, const Place& place);
    RECT pixels(const Place& place) const;
    POINT placeAt(POINT pixel) const;
    // What follows from the controls' values; run by the scene after it loaded a form.
    void derived(std::function<void()> update) { derived_ = std::move(update); }
    // What a picture of the page shows being used.
    void demonstration(std::function<void()> steps) { demonstration_ = std::move(steps); }
    void demonstrate() const;

    const std::vector<std::unique_ptr<SceneControl>>& controls() const { return controls_; }
    SceneControl* find(std::wstring_view name) const;
    // The control that holds the focus, or null.
    SceneControl* focused() const;
    container::ControlForm& form() { return *form_; }

    // Told of a new control, also after loading made it anew.
    std::function<void(SceneControl&)> onControlCreated;
    // Told before and after controls come or go.
    std::function<void()> onChanging, onChanged;
    // Told of the control that a person arranges now.
    std::function<void(const std::wstring& name)> onPicked;

    // While the controls have the colours that were given to them, whatever scheme shows.
    void withOwnColours(const std::function<void()>& work) const;
    // One section per control.
    void save(container::FormText& form) const;
    // Makes each control anew that has a section; what is arranged is replaced. Answers what could not be
    // restored.
    std::vector<std::wstring> load(const container::FormText& form);

    void layOut();
    void themeChanged() override;

protected:
    void paint(HDC dc, const RECT& area) override;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct TextItem {
        Place place;
        std::wstring text;
        TextLook look;
        UINT format;
    };
    struct ChildItem {
        Place place;
        HWND window;
        std::function<void()> pressed;
        bool framed = false;  // its border is drawn by the scene
    };

    void replaceAll(const container::FormText& form);
    void drawFrames(HDC dc) const;
    HWND addItem(const Place& place, const wchar_t* className, const wchar_t* text, DWORD style,
                 DWORD extendedStyle = 0);
    void createControl(SceneControl& control, const container::InitialState& state);
    void adoptView(SceneControl& control) const;

    const container::ServerContext& server_;
    std::unique_ptr<container::ControlForm> form_;
    std::vector<Place> panels_;
    std::vector<TextItem> texts_;
    std::vector<ChildItem> children_;
    std::vector<std::unique_ptr<SceneControl>> controls_;
    std::unique_ptr<Arrangement> arrangement_;
    std::function<void()> derived_;
    std::function<void()> demonstration_;
};

}  // namespace obk::gallery
