// The main window: pages at the left, the live form and the log in the middle, properties at the
// right.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "code_text.h"
#include "container/message_loop.h"
#include "container/picture_surface.h"
#include "event_panel.h"
#include "member_search.h"
#include "page_list.h"
#include "property_panel.h"
#include "scene.h"

namespace obk::gallery {

class GalleryWindow final : public Window {
public:
    // `theme` belongs to the caller, because panels outlive changes of it.
    GalleryWindow(Theme& theme, const container::ServerContext& server);
    ~GalleryWindow() override;

    bool open(int show);
    void showPage(int page);
    int pageCount() const;
    // Null before the first page.
    Scene* scene() const { return scene_.get(); }
    container::MessageLoop& loop() { return loop_; }

    // Writes the page's controls as text; false when the file cannot be written.
    bool saveForm(const std::wstring& path) const;
    // Shows the form's page and loads its controls; problems go to the log. False when there is no
    // such file or it holds no form.
    bool loadForm(const std::wstring& path);

    // One PNG per page into `folder`; the first problem, empty when all went well.
    std::wstring writePictures(const std::wstring& folder);
    // Likewise one file per page and language: what "Copy code" gives there.
    std::wstring writeCode(const std::wstring& folder);

protected:
    void paint(HDC dc, const RECT& area) override;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // Areas of the panels in pixels.
    struct Layout {
        RECT pages;
        RECT brand;
        RECT title;
        RECT description;
        RECT scene;
        RECT events;
        RECT properties;
        RECT search;
        RECT code;
        RECT view;
        RECT save;
        RECT load;
    };

    Layout layout() const;
    void layOut();
    void applyTheme(int dpi);
    void orderStops();
    void watch(SceneControl& control);
    void followFocus();
    bool handleKey(MSG& message);
    void nextPane(bool forward);
    void copyPanels(container::PictureSurface& surface) const;
    void askSave();
    void askLoad();
    // What was chosen from a menu below a button, from 1; 0 for nothing.
    int choose(HMENU menu, HWND button) const;
    void copyCode();
    std::wstring code(CodeLanguage language) const;
    void changeView();
    void applyView(bool otherLook);
    void buildScene();
    void search();
    void showFound(const FoundList::Row& row);

    Theme& mutableTheme_;
    const container::ServerContext& server_;
    container::MessageLoop loop_;
    std::unique_ptr<PageList> pageList_;
    std::unique_ptr<Scene> scene_;
    std::unique_ptr<PropertyPanel> properties_;
    std::unique_ptr<EventPanel> events_;
    MemberIndex index_;
    std::unique_ptr<FoundList> found_;
    HWND searchField_ = nullptr;
    HWND codeButton_ = nullptr;
    HWND viewButton_ = nullptr;
    HWND saveButton_ = nullptr;
    HWND loadButton_ = nullptr;
    int page_ = -1;
};

}  // namespace obk::gallery
