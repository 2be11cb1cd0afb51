#include "code_text.h"

#include <algorithm>

#include "container/text.h"

namespace obk::gallery {

using container::Arguments;
using container::Dispatch;
using container::Member;
using container::ValueKind;
using container::Variant;

namespace {

constexpr long mostRows = 50;  // of a grid: an example, and no copy of its data

// What is done with a control: a member, and its arguments, or the value it gets.
struct Step {
    std::wstring member;
    std::vector<std::wstring> values;
    bool property = false;
};

std::wstring joined(const std::vector<std::wstring>& parts) {
    std::wstring all;
    for (const std::wstring& part : parts) all += (all.empty() ? L"" : L", ") + part;
    return all;
}

bool printable(wchar_t unit) {
    return unit >= L' ' && unit < 0x7F;
}

// Each language has a way of its own to write what is no letter.
std::wstring basicText(std::wstring_view text) {
    std::wstring code, run;
    const auto add = [&](const std::wstring& part) { code += (code.empty() ? L"" : L" & ") + part; };
    const auto finish = [&] {
        if (!run.empty()) add(L"\"" + std::exchange(run, {}) + L"\"");
    };
    for (const wchar_t unit : text) {
        if (printable(unit)) {
            run += unit == L'"' ? L"\"\"" : std::wstring(1, unit);
            continue;
        }
        finish();
        add(unit == L'\t' ? L"vbTab" : L"ChrW(" + std::to_wstring(static_cast<unsigned>(unit)) + L")");
    }
    finish();
    return code.empty() ? L"\"\"" : code;
}

std::wstring pascalText(std::wstring_view text) {
    std::wstring code;
    bool quoted = false;
    for (const wchar_t unit : text) {
        if (printable(unit) != quoted) {
            code += L'\'';
            quoted = !quoted;
        }
        if (!quoted)
            code += L"#" + std::to_wstring(static_cast<unsigned>(unit));
        else
            code += unit == L'\'' ? L"''" : std::wstring(1, unit);
    }
    if (quoted) code += L'\'';
    return code.empty() ? L"''" : code;
}

std::wstring csharpText(std::wstring_view text) {
    std::wstring code = L"\"";
    for (const wchar_t unit : text) {
        wchar_t escaped[8];
        swprintf(escaped, 8, L"\\u%04X", static_cast<unsigned>(unit));
        if (unit == L'"' || unit == L'\\')
            code += {L'\\', unit};
        else if (printable(unit))
            code += unit;
        else
            code += escaped;
    }
    return code + L"\"";
}

std::wstring literal(const Variant& value, const container::DeclaredType& type, CodeLanguage language) {
    const bool basic = language == CodeLanguage::classicBasic;
    switch (type.kind) {
        case ValueKind::boolean: {
            const bool on = value.toBool().value_or(false);
            if (language == CodeLanguage::csharp) return on ? L"true" : L"false";
            return on ? L"True" : L"False";
        }
        case ValueKind::colour: {
            // The system's colours are negative numbers to a language without unsigned ones.
            const auto colour = static_cast<unsigned long>(value.toLong().value_or(0));
            wchar_t digits[32];
            swprintf(digits, 32,
                     basic                                    ? L"&H%08lX&"
                     : language == CodeLanguage::objectPascal ? L"LongInt($%08lX)"
                                                              : L"unchecked((int)0x%08lX)",
                     colour);
            return digits;
        }
        case ValueKind::text: {
            const std::wstring text = value.toText();
            return basic                                    ? basicText(text)
                   : language == CodeLanguage::objectPascal ? pascalText(text)
                                                            : csharpText(text);
        }
        case ValueKind::choice:
            for (const container::Choice& choice : type.choices) {
                if (basic || choice.value != value.toLong()) continue;
                // A control may be called as a choice is.
                return (language == CodeLanguage::objectPascal ? L"OBKCTRLS" : type.name) +
                       (L"." + choice.name);
            }
            break;
        default:
            break;
    }
    return value.toText();
}

std::wstring number(long value) {
    return std::to_wstring(value);
}

// What a new control has not.
void addProperties(std::vector<Step>& steps, const SceneControl& control, const Dispatch& fresh,
                   CodeLanguage language) {
    for (const Member& member : control.members.properties()) {
        const bool plain = member.type.kind != ValueKind::font && member.type.kind != ValueKind::picture &&
                           member.type.kind != ValueKind::other;
        if (member.hidden || !member.readable || !member.writable || !member.arguments.empty() || !plain)
            continue;
        const Variant value = control.object().value(member.number);
        if (value.toText() == fresh.value(member.number).toText()) continue;
        steps.push_back({member.name, {literal(value, member.type, language)}, true});
    }
}

Variant answer(const Dispatch& grid, const wchar_t* method, const Arguments& arguments = {}) {
    Variant result;
    grid.call(method, arguments, &result);
    return result;
}

void addCells(std::vector<Step>& steps, const Dispatch& grid, CodeLanguage language) {
    const container::DeclaredType text{L"String", VT_BSTR, ValueKind::text, false, {}};
    const long cols = answer(grid, L"ColsCurrent").toLong().value_or(0);
    const long rows = std::min(answer(grid, L"RowsCurrent").toLong().value_or(0), mostRows);
    steps.push_back({L"ColsSet", {number(cols)}});
    steps.push_back({L"RowsSet", {number(0)}});
    for (long col = 0; col < cols; ++col) {
        const Variant caption = answer(grid, L"BarHeaderCaptionRead", {col});
        const long type = answer(grid, L"ColTypeRead", {col}).toLong().value_or(0);
        if (!caption.toText().empty())
            steps.push_back({L"BarHeaderCaptionSet", {number(col), literal(caption, text, language)}});
        if (type != 0) steps.push_back({L"ColTypeSet", {number(col), number(type)}});
    }
    for (long row = 0; row < rows; ++row) {
        std::wstring line;
        for (long col = 0; col < cols; ++col)
            line += (col ? L"\t" : L"") + answer(grid, L"CellTextRead", {row, col}).toText();
        steps.push_back({L"RowAddQuick", {literal(line, text, language), number(row)}});
    }
}

std::wstring className(const SceneControl& control) {
    return control.progId.substr(control.progId.find(L'.') + 1);
}

std::wstring placed(const Place& place) {
    return joined({number(place.x), number(place.y), number(place.width), number(place.height)});
}

// One control: where it comes from and stands, then its steps.
std::wstring basicPart(const SceneControl& control, const std::vector<Step>& steps) {
    std::wstring code =
        L"    ' " + control.name + L": " + control.progId + L" at " + placed(control.place) + L" pixels\r\n";
    if (steps.empty()) return code;
    code += L"    With " + control.name + L"\r\n";
    for (const Step& step : steps)
        code += L"        ." + step.member + (step.property ? L" = " : L" ") + joined(step.values) + L"\r\n";
    return code + L"    End With\r\n";
}

std::wstring pascalPart(const SceneControl& control, const std::vector<Step>& steps) {
    std::wstring code = L"  " + control.name + L" := T" + className(control) + L".Create;\r\n  Place(" +
                        control.name + L", " + placed(control.place) + L");\r\n";
    for (const Step& step : steps)
        code += L"  " + control.name + L"." + step.member +
                (step.property ? L" := " + joined(step.values) : L"(" + joined(step.values) + L")") +
                L";\r\n";
    return code;
}

std::wstring pascalFields(const Scene& scene) {
    std::wstring code;
    for (const auto& control : scene.controls()) {
        if (control->failure.empty())
            code += L"//   " + control->name + L": T" + className(*control) + L";\r\n";
    }
    return code;
}

std::wstring csharpPart(const SceneControl& control, const std::vector<Step>& steps) {
    std::wstring code = L"var " + control.name + L" = new Ax" + className(control) +
                        L" { Bounds = new Rectangle(" + placed(control.place) + L") };\r\nControls.Add(" +
                        control.name + L");\r\n";
    for (const Step& step : steps)
        code += control.name + L".Members." + step.member +
                (step.property ? L" = " + joined(step.values) : L"(" + joined(step.values) + L")") + L";\r\n";
    return code;
}

}  // namespace

std::wstring codeFor(const Scene& scene, const container::ServerContext& server, CodeLanguage language) {
    std::wstring code;
    if (language == CodeLanguage::classicBasic)
        code = L"' The controls stand on the form by these names.\r\nPrivate Sub Form_Load()\r\n";
    else if (language == CodeLanguage::objectPascal)
        code =
            L"// With imports\\OBKCTRLS.pas; Place is in samples\\lazarus\\order.lpr. Fields of the form:\r\n" +
            pascalFields(scene);
    else
        code = L"// With imports\\OBKCTRLS.cs, in OnShown of a form, as in samples\\csharp.\r\n";
    for (const auto& control : scene.controls()) {
        ComPtr<IUnknown> fresh;
        if (!control->failure.empty() || FAILED(server.create(control->progId, fresh))) continue;
        std::vector<Step> steps;
        addProperties(steps, *control, Dispatch(fresh.get()), language);
        if (className(*control) == L"GridEdit") addCells(steps, control->object(), language);
        code += language == CodeLanguage::classicBasic   ? basicPart(*control, steps)
                : language == CodeLanguage::objectPascal ? pascalPart(*control, steps)
                                                         : csharpPart(*control, steps);
    }
    return language == CodeLanguage::classicBasic ? code + L"End Sub\r\n" : code;
}

}  // namespace obk::gallery
