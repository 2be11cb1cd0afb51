// A settings dialog: a strip of tabs whose pages change below it.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "container/text.h"
#include "page_catalog.h"

namespace obk::gallery {

namespace {

// What belongs to one page: windows that are shown and hidden, and texts that come and go.
struct SettingsPage {
    std::vector<HWND> windows;
    std::vector<std::pair<size_t, std::wstring>> texts;
};

class SettingsPages {
public:
    explicit SettingsPages(Scene& scene) : scene_(scene) {}

    void begin() { pages_.emplace_back(); }
    void label(int y, const wchar_t* text) {
        pages_.back().texts.emplace_back(scene_.text({36, y, 150, fieldHeight}, L""), text);
    }
    void add(HWND window) { pages_.back().windows.push_back(window); }

    // Shows the page of a tab, counted from 1; none for any other number.
    void show(size_t tab) const {
        for (size_t at = 0; at < pages_.size(); ++at) {
            const bool shown = at + 1 == tab;
            for (const HWND window : pages_[at].windows) ShowWindow(window, shown ? SW_SHOWNA : SW_HIDE);
            for (const auto& [index, text] : pages_[at].texts)
                scene_.setText(index, shown ? text : std::wstring());
        }
        InvalidateRect(scene_.handle(), nullptr, FALSE);
    }

private:
    Scene& scene_;
    std::vector<SettingsPage> pages_;
};

}  // namespace

void buildSettings(Scene& scene) {
    scene.text({20, 14, 460, fieldHeight}, L"Settings", TextLook::heading);
    SceneControl& tabs = scene.control(L"Pages", L"OBKCTRLS.PageTab", {20, 48, 466, 27});

    const auto pages = std::make_shared<SettingsPages>(scene);
    pages->begin();
    pages->label(92, L"Company");
    pages->add(scene.input({190, 92, 260, fieldHeight}, L"Orbek Office Supplies"));
    pages->label(126, L"Language");
    pages->add(scene.choice({190, 126, 160, 160}, {L"English", L"Deutsch", L"Svenska"}, 0));
    pages->add(scene.checkBox({36, 162, 300, fieldHeight}, L"Open the last order at the start", true));

    pages->begin();
    pages->label(92, L"Printer");
    pages->add(scene.choice({190, 92, 260, 160}, {L"Office, first floor", L"Warehouse"}, 0));
    pages->add(scene.checkBox({36, 128, 300, fieldHeight}, L"Print on both sides", true));
    pages->add(scene.checkBox({36, 154, 300, fieldHeight}, L"Print a delivery note with each order", false));

    pages->begin();
    pages->label(92, L"First reminder after");
    pages->add(scene.choice({190, 92, 120, 160}, {L"14 days", L"30 days", L"Never"}, 1));
    pages->label(126, L"Interest");
    pages->add(scene.input({190, 126, 60, fieldHeight}, L"8.0"));

    pages->begin();
    pages->label(92, L"Changes are kept for");
    pages->add(scene.choice({190, 92, 120, 160}, {L"A month", L"A year", L"Ever"}, 1));
    pages->add(scene.checkBox({36, 128, 300, fieldHeight}, L"Ask before an order is deleted", true));

    const size_t told = scene.text({20, 226, 300, fieldHeight}, L"", TextLook::dim);
    const auto showActive = [&tabs, pages] {
        pages->show(static_cast<size_t>(tabs.object().value(L"ActiveTab").toLong().value_or(0)));
    };
    tabs.site->events().on(L"Click", [&scene, told](container::EventCall& call) {
        scene.setText(told, L"Chosen: " + container::withoutAccessKey(call.value(0).toText()));
    });
    tabs.site->events().on(L"Show", [showActive](container::EventCall&) { showActive(); });
    scene.button({346, 224, 140, 28}, L"Add a page", [&tabs, showActive] {
        tabs.object().call(L"AddTab", {container::Variant(L"")});
        showActive();
    });

    tabs.object().put(L"ActiveTabs", L"&General,&Printing,&Reminders,&History of changes");
    tabs.object().put(L"ActiveTab", 1L);
    showActive();
    scene.derived(showActive);
    scene.demonstration([&scene, &tabs] {
        if (scene.form().enter(*tabs.site)) {
            const HWND strip = GetFocus();
            for (const WPARAM key : {VK_END, VK_LEFT}) {
                PostMessageW(strip, WM_KEYDOWN, key, 1);
                PostMessageW(strip, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u));
            }
        }
    });
}

}  // namespace obk::gallery
