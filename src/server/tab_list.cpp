// The page of the tabs: their captions in order, each with the colour of its page.
#include "server/property_page.h"
#include "server/system_text.h"

#include <algorithm>

namespace obk::server {

namespace {

enum Number : int {
    listNumber = 100,
    captionNumber,
    addNumber,
    removeNumber,
    upNumber,
    downNumber,
    colourNumber
};

constexpr wchar_t betweenCaptions = L',', betweenColours = L'|';

std::vector<std::wstring> parts(const std::wstring& text, wchar_t separator) {
    std::vector<std::wstring> found;
    if (text.empty()) return found;
    size_t from = 0;
    for (size_t end = 0; end != std::wstring::npos; from = end + 1) {
        end = text.find(separator, from);
        found.push_back(text.substr(from, end - from));
    }
    return found;
}

class TabList final : public PropertyPageContent {
public:
    explicit TabList(PropertyPage& page) : page_(page) {}

    void build(HWND page, SIZE size, HFONT font) override {
        const int line = size.cy / 10, gap = size.cy / 40, right = size.cx - gap, middle = size.cx * 2 / 3;
        list_ =
            addPageControl(page, L"LISTBOX", L"", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                           {gap, gap, middle - gap, size.cy - line - 2 * gap}, listNumber, font);
        caption_ =
            addPageControl(page, L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL,
                           {gap, size.cy - line - gap, middle - gap, size.cy - gap}, captionNumber, font);
        int top = gap;
        const auto button = [&](const wchar_t* text, int number) {
            addPageControl(page, L"BUTTON", text, WS_TABSTOP, {middle, top, right, top + line}, number, font);
            top += line + gap;
        };
        button(L"&Add", addNumber);
        button(L"&Remove", removeNumber);
        button(L"Move &up", upNumber);
        button(L"Move &down", downNumber);
        button(L"Page &colour...", colourNumber);
    }

    void read() override {
        const size_t before = chosen();
        tabs_.clear();
        const std::vector<std::wstring> colours = parts(textOf(u"strPUBSKINCOLORPAGE"), betweenColours);
        for (const std::wstring& caption : parts(textOf(u"ActiveTabs"), betweenCaptions)) {
            const size_t at = tabs_.size();
            tabs_.push_back({caption, at < colours.size() ? colours[at] : std::wstring()});
        }
        show(before < tabs_.size() ? before : 0);
    }

    HRESULT apply() override {
        std::wstring captions, colours;
        bool coloured = false;
        for (const Tab& tab : tabs_) {
            if (&tab != tabs_.data()) {
                captions += betweenCaptions;
                colours += betweenColours;
            }
            captions += tab.caption;
            colours += tab.colour.empty() ? L"0" : tab.colour;
            coloured |= !tab.colour.empty();
        }
        // The colours first: making the tabs anew lays the strip out with them.
        const HRESULT done = coloured ? put(u"strPUBSKINCOLORPAGE", colours) : S_OK;
        return FAILED(done) ? done : put(u"ActiveTabs", captions);
    }

    void command(int control, int notification) override {
        const size_t at = chosen();
        if (control == listNumber && notification == LBN_SELCHANGE) showCaption();
        if (control == captionNumber && notification == EN_CHANGE && !showing_ && at < tabs_.size()) {
            std::wstring caption = textOfWindow(caption_);
            std::erase(caption, betweenCaptions);
            if (caption == tabs_[at].caption) return;
            tabs_[at].caption = caption;
            SendMessageW(list_, LB_DELETESTRING, at, 0);
            SendMessageW(list_, LB_INSERTSTRING, at, reinterpret_cast<LPARAM>(lineOf(tabs_[at]).c_str()));
            SendMessageW(list_, LB_SETCURSEL, at, 0);
            page_.changed();
        }
        if (notification != BN_CLICKED) return;
        if (control == addNumber) {
            tabs_.push_back({L"Tab" + win32::wideNumber(tabs_.size() + 1), {}});
            change(tabs_.size() - 1);
            SetFocus(caption_);
            SendMessageW(caption_, EM_SETSEL, 0, -1);
        } else if (control == removeNumber && at < tabs_.size()) {
            tabs_.erase(tabs_.begin() + static_cast<ptrdiff_t>(at));
            change(std::min(at, tabs_.size() - 1));
        } else if (control == upNumber && at > 0 && at < tabs_.size()) {
            std::swap(tabs_[at], tabs_[at - 1]);
            change(at - 1);
        } else if (control == downNumber && at + 1 < tabs_.size()) {
            std::swap(tabs_[at], tabs_[at + 1]);
            change(at + 1);
        } else if (control == colourNumber && at < tabs_.size()) {
            chooseColour(at);
        }
    }

private:
    struct Tab {
        std::wstring caption, colour;  // a decimal number, or empty
    };

    static std::wstring lineOf(const Tab& tab) {
        return tab.colour.empty() || tab.colour == L"0" ? tab.caption
                                                        : tab.caption + L"  (" + tab.colour + L")";
    }
    const Member* member(TextView name) const {
        return page_.table() ? page_.table()->member(name) : nullptr;
    }
    std::wstring textOf(TextView name) const {
        const Member* const property = member(name);
        const auto value = property ? page_.value(*property) : std::nullopt;
        return value ? toWide(toText(*value).value_or(Text())) : std::wstring();
    }
    HRESULT put(TextView name, const std::wstring& text) const {
        const Member* const property = member(name);
        return property ? page_.put(*property, Value(Text(viewOf(text.c_str(), text.size())))) : E_UNEXPECTED;
    }
    size_t chosen() const { return static_cast<size_t>(SendMessageW(list_, LB_GETCURSEL, 0, 0)); }
    void change(size_t at) {
        show(at);
        page_.changed();
    }
    void show(size_t at) {
        SendMessageW(list_, LB_RESETCONTENT, 0, 0);
        for (const Tab& tab : tabs_)
            SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lineOf(tab).c_str()));
        SendMessageW(list_, LB_SETCURSEL, at, 0);
        showCaption();
    }
    void showCaption() {
        const size_t at = chosen();
        showing_ = true;
        SetWindowTextW(caption_, at < tabs_.size() ? tabs_[at].caption.c_str() : L"");
        showing_ = false;
        EnableWindow(caption_, at < tabs_.size());
    }
    void chooseColour(size_t at) {
        const Rgb present{static_cast<uint32_t>(wcstoul(tabs_[at].colour.c_str(), nullptr, 10))};
        const auto colour = page_.chooseColour(present);
        if (!colour || at >= tabs_.size()) return;
        tabs_[at].colour = win32::wideNumber(colour->value);
        change(at);
    }

    PropertyPage& page_;
    HWND list_ = nullptr, caption_ = nullptr;
    std::vector<Tab> tabs_;
    bool showing_ = false;
};

}  // namespace

std::unique_ptr<PropertyPageContent> tabList(PropertyPage& page) {
    return std::make_unique<TabList>(page);
}

}  // namespace obk::server
