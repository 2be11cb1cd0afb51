// The page that every control has: its properties in a list, and below it the chosen one's value, to choose
// or to type.
#include "library/property_text.h"

#include "server/font_bridge.h"
#include "server/picture_bridge.h"
#include "server/property_page.h"
#include "server/system_text.h"

#include <commdlg.h>

#include <algorithm>
#include <cmath>

namespace obk::server {

namespace {

enum Number : int { listNumber = 100, helpNumber, valueNumber, chooseNumber };

struct Line {
    const Member* property;
    std::optional<Value> value;  // none where the objects differ
    bool changed = false;
};

class PropertyList final : public PropertyPageContent {
public:
    explicit PropertyList(PropertyPage& page) : page_(page) {}

    void build(HWND page, SIZE size, HFONT font) override {
        window_ = page;
        const int line = size.cy / 10, gap = size.cy / 40, low = size.cy - line - gap;
        const int help = low - 2 * line - gap;
        list_ = addPageControl(page, L"LISTBOX", L"",
                               WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT,
                               {gap, gap, size.cx - gap, help - gap}, listNumber, font);
        // A quarter of a character's width each.
        const int column = 90;
        SendMessageW(list_, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&column));
        help_ = addPageControl(page, L"STATIC", L"", SS_NOPREFIX, {gap, help, size.cx - gap, low - gap},
                               helpNumber, font);
        value_ =
            addPageControl(page, L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                           {gap, low, size.cx - line - 2 * gap, low + 8 * line}, valueNumber, font);
        choose_ = addPageControl(page, L"BUTTON", L"...", WS_TABSTOP,
                                 {size.cx - line - gap, low, size.cx - gap, low + line}, chooseNumber, font);
    }

    void read() override {
        const ControlTable* table = page_.table();
        const LRESULT before = SendMessageW(list_, LB_GETCURSEL, 0, 0);
        lines_.clear();
        SendMessageW(list_, LB_RESETCONTENT, 0, 0);
        if (table) {
            for (const Member* property : editableProperties(*table)) {
                lines_.push_back({property, page_.value(*property)});
                SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(textOf(lines_.back()).c_str()));
            }
        }
        SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(std::max<LRESULT>(before, 0)), 0);
        showChosen();
    }

    HRESULT apply() override {
        HRESULT result = S_OK;
        for (size_t at = 0; at < lines_.size(); ++at) {
            Line& line = lines_[at];
            if (!line.changed) continue;
            const HRESULT done = line.value ? page_.put(*line.property, *line.value) : DISP_E_TYPEMISMATCH;
            if (SUCCEEDED(done)) {
                line.changed = false;
            } else if (SUCCEEDED(result)) {
                result = done;
                choose(at);
            }
        }
        return result;
    }

    void select(DISPID id) override {
        for (size_t at = 0; at < lines_.size(); ++at) {
            if (lines_[at].property->number == id) choose(at);
        }
        SetFocus(value_);
    }

    void command(int control, int notification) override {
        if (control == listNumber && notification == LBN_SELCHANGE) showChosen();
        if (control == valueNumber && notification == CBN_EDITCHANGE) take(textOfWindow(value_));
        if (control == valueNumber && notification == CBN_SELCHANGE) {
            const auto at = static_cast<WPARAM>(SendMessageW(value_, CB_GETCURSEL, 0, 0));
            std::wstring text(static_cast<size_t>(SendMessageW(value_, CB_GETLBTEXTLEN, at, 0)) + 1, L'\0');
            SendMessageW(value_, CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(text.data()));
            text.pop_back();
            take(text);
        }
        if (control == chooseNumber && notification == BN_CLICKED) chooseByDialog();
    }

private:
    static std::wstring textOf(const Line& line) {
        Text text(line.property->name);
        text.append(u"\t");
        if (line.value) text.append(shownText(*line.property, *line.value));
        return toWide(text);
    }
    Line* chosen() {
        const LRESULT at = SendMessageW(list_, LB_GETCURSEL, 0, 0);
        return at >= 0 && static_cast<size_t>(at) < lines_.size() ? &lines_[static_cast<size_t>(at)]
                                                                  : nullptr;
    }
    void choose(size_t at) {
        SendMessageW(list_, LB_SETCURSEL, at, 0);
        showChosen();
    }

    void showChosen() {
        const Line* line = chosen();
        SendMessageW(value_, CB_RESETCONTENT, 0, 0);
        SetWindowTextW(help_, line ? toWide(line->property->help).c_str() : L"");
        const ValueType type = line ? line->property->type : ValueType::empty;
        const bool object = type == ValueType::font || type == ValueType::picture;
        EnableWindow(value_, line && !object);
        EnableWindow(choose_, object || type == ValueType::colour);
        if (!line) return;
        for (const PropertyChoice& choice :
             type == ValueType::colour ? systemColourChoices() : choicesOf(*line->property))
            SendMessageW(value_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(choice.text).c_str()));
        const Text text = line->value ? shownText(*line->property, *line->value) : Text();
        SetWindowTextW(value_, toWide(text).c_str());
    }

    // What is typed is kept though it is no value yet; only applying it refuses it.
    void take(const std::wstring& text) {
        Line* line = chosen();
        if (!line) return;
        line->value = valueOfText(*line->property, viewOf(text.c_str(), text.size()));
        changed(*line);
    }
    void changed(Line& line) {
        line.changed = true;
        const auto at = static_cast<size_t>(&line - lines_.data());
        const std::wstring text = textOf(line);
        SendMessageW(list_, LB_DELETESTRING, at, 0);
        SendMessageW(list_, LB_INSERTSTRING, at, reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageW(list_, LB_SETCURSEL, at, 0);
        page_.changed();
    }

    void chooseByDialog() {
        Line* line = chosen();
        if (!line) return;
        std::optional<Value> value;
        if (line->property->type == ValueType::colour) {
            COLORREF present = 0;
            if (line->value) OleTranslateColor(std::get<OleColour>(*line->value).value, nullptr, &present);
            if (const auto colour = page_.chooseColour(Rgb{present})) value = OleColour(*colour);
        }
        if (line->property->type == ValueType::font) value = chooseFont(line->value);
        if (line->property->type == ValueType::picture) value = choosePicture();
        line = chosen();
        if (!value || !line) return;
        line->value = std::move(value);
        changed(*line);
        showChosen();
    }
    std::optional<Value> chooseFont(const std::optional<Value>& present) const {
        LOGFONTW font{};
        const HDC screen = GetDC(nullptr);
        const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        if (const auto* shared = present ? std::get_if<FontRef>(&*present) : nullptr; shared && *shared) {
            const FontDescription& description = (*shared)->description();
            font.lfHeight = -std::lround(description.size * dpi / 72);
            font.lfWeight = description.weight;
            font.lfCharSet = static_cast<BYTE>(description.charset);
            font.lfItalic = description.italic;
            font.lfUnderline = description.underline;
            font.lfStrikeOut = description.strikethrough;
            wcsncpy(font.lfFaceName, toWide(description.name).c_str(), LF_FACESIZE - 1);
        }
        CHOOSEFONTW dialog{};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = GetAncestor(window_, GA_ROOT);
        dialog.lpLogFont = &font;
        dialog.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
        if (!ChooseFontW(&dialog)) return std::nullopt;
        FontDescription description;
        description.name = Text(viewOf(font.lfFaceName));
        description.size = dialog.iPointSize / 10.0;
        description.weight = static_cast<int16_t>(font.lfWeight);
        description.charset = font.lfCharSet;
        description.italic = font.lfItalic != 0;
        description.underline = font.lfUnderline != 0;
        description.strikethrough = font.lfStrikeOut != 0;
        return Value(std::make_shared<SharedFont>(description));
    }
    std::optional<Value> choosePicture() const {
        wchar_t file[MAX_PATH] = L"";
        OPENFILENAMEW dialog{};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = GetAncestor(window_, GA_ROOT);
        dialog.lpstrFilter = L"Pictures\0*.bmp;*.gif;*.jpg;*.ico;*.wmf;*.emf\0All files\0*.*\0";
        dialog.lpstrFile = file;
        dialog.nMaxFile = MAX_PATH;
        dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
        if (!GetOpenFileNameW(&dialog)) return std::nullopt;
        ComPtr<IPicture> picture;
        if (FAILED(OleLoadPicturePath(file, nullptr, 0, 0, __uuidof(IPicture), picture.putVoid())))
            return std::nullopt;
        return Value(pictureFromObject(picture.get()));
    }

    PropertyPage& page_;
    HWND window_ = nullptr, list_ = nullptr, help_ = nullptr, value_ = nullptr, choose_ = nullptr;
    std::vector<Line> lines_;
};

}  // namespace

std::unique_ptr<PropertyPageContent> propertyList(PropertyPage& page) {
    return std::make_unique<PropertyList>(page);
}

}  // namespace obk::server
