#include "property_panel.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <cmath>

#include "container/stored_value.h"
#include "container/text.h"
#include "value_text.h"

namespace obk::gallery {

using container::Choice;
using container::Member;
using container::MemberKind;
using container::ValueKind;
using container::Variant;

namespace {

constexpr UINT refreshMessage = WM_APP + 1;
constexpr int helpLines = 5;

// The "Font" rather than its members: what a chooser sets.
std::optional<container::StoredFont> chooseFont(HWND owner, const container::StoredFont& current, int dpi) {
    LOGFONTW logical = {};
    logical.lfHeight = -static_cast<LONG>(std::lround(current.size * dpi / 72));
    logical.lfWeight = current.weight;
    logical.lfItalic = current.italic;
    logical.lfUnderline = current.underline;
    logical.lfStrikeOut = current.strikethrough;
    logical.lfCharSet = static_cast<BYTE>(current.characterSet);
    current.name.copy(logical.lfFaceName, LF_FACESIZE - 1);
    CHOOSEFONTW chooser = {};
    chooser.lStructSize = sizeof chooser;
    chooser.hwndOwner = owner;
    chooser.lpLogFont = &logical;
    chooser.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_NOVERTFONTS;
    if (!ChooseFontW(&chooser)) return std::nullopt;
    container::StoredFont font;
    font.name = logical.lfFaceName;
    font.size = chooser.iPointSize / 10.0;
    font.weight = static_cast<short>(logical.lfWeight);
    font.characterSet = logical.lfCharSet;
    font.italic = logical.lfItalic;
    font.underline = logical.lfUnderline;
    font.strikethrough = logical.lfStrikeOut;
    return font;
}

std::optional<COLORREF> chooseColour(HWND owner, COLORREF current) {
    static COLORREF custom[16] = {};
    CHOOSECOLORW chooser = {};
    chooser.lStructSize = sizeof chooser;
    chooser.hwndOwner = owner;
    chooser.rgbResult = current;
    chooser.lpCustColors = custom;
    chooser.Flags = CC_RGBINIT | CC_FULLOPEN;
    return ChooseColorW(&chooser) ? std::optional(chooser.rgbResult) : std::nullopt;
}

std::wstring typedSignature(const Member& member) {
    std::wstring text = member.name;
    if (member.kind == MemberKind::method) {
        text += L'(';
        for (size_t index = 0; index < member.arguments.size(); ++index) {
            const auto& argument = member.arguments[index];
            text += index == 0 ? L"" : L", ";
            text += argument.name + L" As " + argument.type.name;
        }
        text += L')';
    }
    return member.type.name.empty() ? text : text + L" As " + member.type.name;
}

}  // namespace

PropertyList::PropertyList(const Theme& theme, HWND parent) : DrawnList(theme) {
    create(parent, L"Properties");
}

void PropertyList::setRows(std::vector<Row> rows) {
    const auto sameNames = [](const Row& first, const Row& second) { return first.name == second.name; };
    const bool same = std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), sameNames);
    const std::vector<Row> old = std::exchange(rows_, std::move(rows));
    if (same) {
        for (size_t index = 0; index < rows_.size(); ++index) {
            if (rows_[index].value != old[index].value || rows_[index].colour != old[index].colour)
                redrawRow(static_cast<int>(index));
        }
        return;
    }
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
    for (const Row& row : rows_)
        SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.name.c_str()));
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handle(), nullptr, TRUE);
}

const PropertyList::Row* PropertyList::row(int index) const {
    return index >= 0 && static_cast<size_t>(index) < rows_.size() ? &rows_[static_cast<size_t>(index)]
                                                                   : nullptr;
}

RECT PropertyList::valueArea(int row) const {
    RECT area = rowArea(row);
    area.left += nameWidth(area.right - area.left);
    return area;
}

COLORREF PropertyList::rowBackground(int index, bool selected) const {
    const Row* shown = row(index);
    return shown && !shown->member ? theme().page : DrawnList::rowBackground(index, selected);
}

void PropertyList::drawRow(HDC dc, const RECT& area, int index, bool selected) {
    const Row* shown = row(index);
    if (!shown) return;
    const int inset = theme().scale(14);
    const COLORREF colour = selected && shown->member ? theme().selectedText : theme().text;
    if (!shown->member) {
        const RECT place = {area.left + inset, area.top, area.right, area.bottom};
        drawStrong(dc, theme(), shown->name, place, theme().dimText, oneLine);
        return;
    }
    const int middle = area.left + nameWidth(area.right - area.left);
    const RECT name = {area.left + inset, area.top, middle - theme().scale(4), area.bottom};
    drawText(dc, shown->name, name, theme().body(), colour, oneLine);
    RECT value = {middle + theme().scale(6), area.top, area.right - theme().scale(4), area.bottom};
    if (shown->swatch) {
        const int side = area.bottom - area.top - theme().scale(8);
        const RECT swatch = {value.left, area.top + theme().scale(4), value.left + side,
                             area.top + theme().scale(4) + side};
        fillRect(dc, swatch, shown->colour);
        frameRect(dc, swatch, theme().border);
        value.left = swatch.right + theme().scale(6);
    }
    const bool method = shown->member->kind == MemberKind::method;
    drawText(dc, shown->value, value, theme().body(), method && !selected ? theme().dimText : colour,
             oneLine);
    const RECT separator = {area.left, area.bottom - 1, area.right, area.bottom};
    fillRect(dc, separator, mixed(theme().border, theme().card, 90));
    const RECT divider = {middle, area.top, middle + 1, area.bottom};
    fillRect(dc, divider, mixed(theme().border, theme().card, 90));
}

void PropertyList::selectionChanged(int row) {
    if (onSelect) onSelect(row);
}

void PropertyList::doubleClicked(int row) {
    if (onEdit) onEdit(row);
}

bool PropertyList::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if ((wParam == VK_RETURN || wParam == VK_F2 || wParam == VK_SPACE) && onEdit) {
                onEdit(selection());
                return true;
            }
            break;
        case WM_SYSKEYDOWN:
            if (wParam == VK_DOWN && onEdit) {
                onEdit(selection());
                return true;
            }
            break;
        case WM_LBUTTONUP: {
            // A press on a row selects it; a click on its value opens the editor at once.
            const POINT point = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
            const RECT area = valueArea(selection());
            if (PtInRect(&area, point) && onEdit) PostMessageW(handle(), WM_APP, 0, 0);
            break;
        }
        case WM_APP:
            if (onEdit) onEdit(selection());
            return true;
        case WM_VSCROLL:
        case WM_MOUSEWHEEL:
            if (onScroll) onScroll();
            break;
        default:
            break;
    }
    return false;
}

PropertyPanel::PropertyPanel(const Theme& theme, HWND parent) : Window(theme), editor_(theme) {
    create(L"Properties", WS_CHILD | WS_VISIBLE, WS_EX_CONTROLPARENT, parent, {});
    chooser_ = addChild(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP);
    list_ = std::make_unique<PropertyList>(theme, handle());
    list_->onSelect = [this](int) {
        const RECT area = helpArea();
        InvalidateRect(handle(), &area, FALSE);
    };
    list_->onEdit = [this](int row) { edit(row); };
    list_->onScroll = [this] { editor_.finish(); };
    editor_.onClosedByKey = [this] { SetFocus(list_->handle()); };
}

void PropertyPanel::setScene(Scene* scene) {
    editor_.close();
    scene_ = scene;
    control_ = nullptr;
    SendMessageW(chooser_, CB_RESETCONTENT, 0, 0);
    if (!scene) {
        list_->setRows({});
        return;
    }
    for (const auto& control : scene->controls())
        SendMessageW(chooser_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(control->name.c_str()));
    show(scene->controls().empty() ? nullptr : scene->controls().front().get());
}

void PropertyPanel::show(SceneControl* control) {
    if (control == control_) return;
    editor_.close();
    control_ = control;
    proposed_.clear();
    for (size_t index = 0; scene_ && index < scene_->controls().size(); ++index) {
        if (scene_->controls()[index].get() == control) SendMessageW(chooser_, CB_SETCURSEL, index, 0);
    }
    refreshNow();
    if (list_->selection() < 0 && list_->count() > 1) {
        // The first member, under its heading, which stays in view.
        list_->select(1);
        SendMessageW(list_->handle(), LB_SETTOPINDEX, 0, 0);
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

void PropertyPanel::choose(const std::wstring& member) {
    for (int index = 0; index < list_->count(); ++index) {
        const PropertyList::Row* row = list_->row(index);
        if (!row->member || row->name != member) continue;
        list_->select(index);
        SendMessageW(list_->handle(), LB_SETTOPINDEX, static_cast<WPARAM>(std::max(index - 3, 0)), 0);
        return;
    }
}

void PropertyPanel::refreshSoon() {
    if (!refreshPosted_) refreshPosted_ = PostMessageW(handle(), refreshMessage, 0, 0);
}

void PropertyPanel::refreshNow() {
    refreshPosted_ = false;
    std::vector<PropertyList::Row> rows;
    if (control_ && control_->site->control()) {
        const auto addGroup = [&](const wchar_t* heading, const std::vector<Member>& members) {
            bool first = true;
            for (const Member& member : members) {
                if (member.hidden) continue;
                if (first) {
                    rows.push_back({nullptr, heading, {}, false, 0});
                    first = false;
                }
                rows.push_back(describe(member));
            }
        };
        addGroup(L"Properties", control_->members.properties());
        addGroup(L"Methods", control_->members.methods());
    }
    list_->setRows(std::move(rows));
}

const std::vector<Choice>& PropertyPanel::choicesOf(const Member& member) const {
    if (!member.type.choices.empty()) return member.type.choices;
    for (const auto& [number, choices] : proposed_) {
        if (number == member.number) return choices;
    }
    proposed_.emplace_back(member.number,
                           container::proposedChoices(control_->site->control().get(), member.number));
    return proposed_.back().second;
}

PropertyList::Row PropertyPanel::describe(const Member& member) const {
    PropertyList::Row row;
    row.member = &member;
    row.name = member.name;
    if (member.kind == MemberKind::method) {
        row.value = member.arguments.empty() ? L"call" : member.signature().substr(member.name.size());
        return row;
    }
    const Variant value = member.readable ? control_->object().value(member.number) : Variant();
    const bool boolean = member.type.kind == ValueKind::boolean;
    row.value = valueText(value, member.type.kind, boolean ? std::vector<Choice>() : choicesOf(member));
    if (member.type.kind == ValueKind::colour) {
        row.swatch = true;
        row.colour = shownColour(value.toLong().value_or(0));
    }
    return row;
}

void PropertyPanel::note(const std::wstring& text) const {
    if (onNote && control_) onNote(control_->name, text);
}

void PropertyPanel::put(const Member& member, const Variant& value) {
    const bool object = value.type() == VT_DISPATCH;
    HRESULT done = object ? control_->object().putReference(member.number, value) : DISP_E_MEMBERNOTFOUND;
    if (FAILED(done)) done = control_->object().put(member.number, value);
    if (FAILED(done)) note(member.name + L" did not take the value");
    refreshNow();
}

RECT PropertyPanel::editorArea(int row) const {
    RECT area = list_->valueArea(row);
    MapWindowPoints(list_->handle(), handle(), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

void PropertyPanel::edit(int index) {
    const PropertyList::Row* row = list_->row(index);
    if (!row || !row->member || !control_) return;
    const Member& member = *row->member;
    const RECT area = editorArea(index);
    if (member.kind == MemberKind::method) {
        editMethod(member, area);
        return;
    }
    if (!member.writable) {
        MessageBeep(MB_OK);
        return;
    }
    const Variant value = control_->object().value(member.number);
    std::vector<Choice> choices = choicesOf(member);
    if (member.type.kind == ValueKind::boolean) choices = {{L"True", -1}, {L"False", 0}};
    if (member.type.kind == ValueKind::colour) {
        editColour(member, area);
    } else if (member.type.kind == ValueKind::font) {
        editFont(member);
    } else if (!choices.empty()) {
        std::vector<EditorChoice> entries;
        int chosen = -1;
        for (const Choice& choice : choices) {
            if (value.toLong() == choice.value) chosen = static_cast<int>(entries.size());
            const bool boolean = member.type.kind == ValueKind::boolean;
            entries.push_back(
                {boolean ? choice.name : valueText(Variant(choice.value), ValueKind::choice, {choice})});
        }
        editor_.openChoices(handle(), area, std::move(entries), chosen, [this, &member, choices](int picked) {
            const long number = choices[static_cast<size_t>(picked)].value;
            put(member, member.type.kind == ValueKind::boolean ? Variant(number != 0) : Variant(number));
        });
    } else if (member.type.kind == ValueKind::integer || member.type.kind == ValueKind::number ||
               member.type.kind == ValueKind::text || member.type.kind == ValueKind::date) {
        editor_.openText(handle(), area, value.toText(), [this, &member](const std::wstring& text) {
            const auto parsed = parseValue(text, member.type.kind);
            if (parsed) put(member, *parsed);
            return parsed.has_value();
        });
    } else {
        MessageBeep(MB_OK);
    }
}

void PropertyPanel::editColour(const Member& member, const RECT& area) {
    const long current = control_->object().value(member.number).toLong().value_or(0);
    std::vector<EditorChoice> entries = {{L"Other colour\x2026", true, shownColour(current)}};
    // An own colour shows as the first entry, which still opens the chooser when it is picked.
    int chosen = -1;
    for (const Choice& choice : systemColours()) {
        if (choice.value == current) chosen = static_cast<int>(entries.size());
        entries.push_back({choice.name, true, shownColour(choice.value)});
    }
    editor_.openChoices(handle(), area, std::move(entries), chosen, [this, &member, current](int picked) {
        if (picked > 0) {
            put(member, systemColours()[static_cast<size_t>(picked) - 1].value);
        } else if (const auto colour = chooseColour(GetAncestor(handle(), GA_ROOT), shownColour(current))) {
            put(member, static_cast<long>(*colour));
        }
    });
}

void PropertyPanel::editFont(const Member& member) {
    const auto object = control_->object().value(member.number).toObject();
    const auto current = container::describeFont(object.get());
    const auto font =
        chooseFont(GetAncestor(handle(), GA_ROOT), current.value_or(container::StoredFont()), theme().dpi());
    if (font) put(member, container::makeFont(*font).get());
}

void PropertyPanel::editMethod(const Member& member, const RECT& area) {
    if (member.arguments.empty()) {
        call(member, L"");
        return;
    }
    editor_.openText(handle(), area, L"", [this, &member](const std::wstring& text) {
        if (!container::trimmed(text).empty()) call(member, text);
        return true;
    });
}

void PropertyPanel::call(const Member& member, const std::wstring& arguments) {
    Variant result;
    const HRESULT done = control_->object().call(member.number, parseArguments(arguments), &result);
    std::wstring text = member.name + L'(' + arguments + L')';
    if (FAILED(done)) {
        text += L" did not take the arguments";
    } else if (!result.empty()) {
        text += L" = " + valueText(result, member.type.kind, {});
    }
    note(text);
    refreshNow();
}

void PropertyPanel::themeChanged() {
    editor_.close();
    setFont(chooser_, theme().body());
    list_->themeChanged();
    layOut();
    InvalidateRect(handle(), nullptr, FALSE);
}

RECT PropertyPanel::helpArea() const {
    RECT area = client();
    const int line = theme().lineHeight(theme().body());
    // Where there is little room the list has it.
    const LONG rows = cardContent(theme(), area).top + 3L * theme().rowHeight();
    area.top = std::max<LONG>(area.bottom - line * helpLines - theme().scale(16), rows);
    if (area.top + 2 * line + theme().scale(16) > area.bottom) area.top = area.bottom;
    return area;
}

void PropertyPanel::layOut() {
    editor_.finish();
    const RECT area = client();
    const RECT content = cardContent(theme(), area);
    const int width = std::min<int>(theme().scale(170), (area.right - area.left) / 2);
    const int margin = theme().scale(10);
    const int height = theme().fieldHeight();
    const LONG right = area.right - margin;
    const LONG top = (content.top - height) / 2;
    placeWindow(chooser_, {right - width, top, right, top + height * 8});
    placeWindow(list_->handle(), {content.left, content.top, content.right, helpArea().top});
}

void PropertyPanel::paint(HDC dc, const RECT& area) {
    drawCard(dc, theme(), area, L"Control");
    RECT help = helpArea();
    const RECT line = {help.left, help.top, help.right, help.top + 1};
    fillRect(dc, line, theme().border);
    InflateRect(&help, -theme().scale(14), -theme().scale(8));
    const PropertyList::Row* row = list_->row(list_->selection());
    if (!control_ || !control_->failure.empty()) {
        drawText(dc, control_ ? control_->failure : std::wstring(), help, theme().body(), theme().text,
                 DT_WORDBREAK | DT_NOPREFIX);
    } else if (list_->count() == 0) {
        drawText(dc, L"This control has no properties and no methods.", help, theme().body(), theme().dimText,
                 DT_WORDBREAK | DT_NOPREFIX);
    } else if (row && row->member) {
        help.top += drawStrong(dc, theme(), typedSignature(*row->member), help, theme().text,
                               DT_WORDBREAK | DT_NOPREFIX) +
                    theme().scale(2);
        // Whole lines only.
        drawText(dc, row->member->help, help, theme().body(), theme().dimText,
                 DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL | DT_END_ELLIPSIS);
    }
}

LRESULT PropertyPanel::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            if (list_) {
                layOut();
                InvalidateRect(handle(), nullptr, FALSE);
            }
            return 0;
        case refreshMessage:
            refreshNow();
            return 0;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (item.CtlType == ODT_COMBOBOX) {
                editor_.drawItem(item);
                return TRUE;
            }
            break;
        }
        case WM_COMMAND: {
            const HWND from = reinterpret_cast<HWND>(lParam);
            const int code = HIWORD(wParam);
            if (from == chooser_ && code == CBN_SELCHANGE && scene_) {
                const auto picked = static_cast<size_t>(SendMessageW(chooser_, CB_GETCURSEL, 0, 0));
                if (picked < scene_->controls().size()) show(scene_->controls()[picked].get());
                return 0;
            }
            editor_.command(from, code);
            break;
        }
        default:
            break;
    }
    return Window::onMessage(message, wParam, lParam);
}

}  // namespace obk::gallery
