#include "library/reference_writer.h"

#include "framework/member_call.h"
#include "library/class_facts.h"
#include "library/example_writer.h"
#include "library/member_text.h"

#include <algorithm>
#include <map>

namespace obk {

namespace {

Text code(TextView text) {
    return u"`" + Text(text) + u"`";
}

Text cell(const Value& value) {
    const Text text = valueText(value);
    return text.empty() ? Text() : code(text);
}

Text cell(const DefaultValue& value) {
    if (std::holds_alternative<AmbientFontDefault>(value)) return defaultText(value);
    if (const auto* colour = std::get_if<SystemRgbDefault>(&value))
        return u"the RGB value of " + code(valueText(colour->index));
    return cell(std::get<Value>(value));
}

Text keyName(int16_t code) {
    static const std::map<int16_t, TextView> names{
        {key::backspace, u"Backspace"},
        {key::tab, u"Tab"},
        {key::enter, u"Enter"},
        {key::escape, u"Escape"},
        {key::space, u"Space"},
        {key::pageUp, u"Page Up"},
        {key::pageDown, u"Page Down"},
        {key::end, u"End"},
        {key::home, u"Home"},
        {key::left, u"Left"},
        {key::up, u"Up"},
        {key::right, u"Right"},
        {key::down, u"Down"},
        {key::insert, u"Insert"},
        {key::deleteKey, u"Delete"},
        {key::add, u"Plus on the number pad"},
        {key::plus, u"Plus"},
        {key::menu, u"the menu key"},
        {key::f2, u"F2"},
        {key::f4, u"F4"},
        {key::f10, u"F10"},
    };
    const auto named = names.find(code);
    return named == names.end() ? Text(1, static_cast<char16_t>(code)) : Text(named->second);
}

// "Left, Right, also with Shift, Ctrl", "Ctrl+Tab"
Text keyNames(const KeyClaim& claim) {
    if (claim.shifts == 0) return u"characters";
    constexpr std::pair<uint8_t, TextView> states[] = {{shifts::none, u""},
                                                       {shifts::shift, u"Shift"},
                                                       {shifts::control, u"Ctrl"},
                                                       {shifts::controlShift, u"Ctrl+Shift"},
                                                       {shifts::alt, u"Alt"}};
    Text first, others, text;
    bool found = false;
    for (const auto& [state, name] : states) {
        if ((claim.shifts & state) == 0) continue;
        if (found)
            others += (others.empty() ? u", also with " : u", ") + Text(name);
        else if (!name.empty())
            first = Text(name) + u"+";
        found = true;
    }
    if (claim.shifts == shifts::any) others = u", whatever is held with it";
    for (int16_t code = claim.first; code <= claim.last; ++code)
        text += (text.empty() ? u"" : u", ") + first + keyName(code);
    return text + others;
}

class ReferenceWriter {
public:
    explicit ReferenceWriter(Control& fresh) : fresh_(fresh), table_(fresh.table()) {}

    Text write() {
        line(u"# " + table_.name);
        line();
        line(table_.help + u".");
        line();
        line(u"Programmatic identifier: " + code(programmaticId(table_)) +
             (table_.takesFocus ? u"" : u". Never takes the focus."));
        writeProperties();
        writeMethods();
        writeEvents();
        writeKeys();
        writeOtherValues();
        writeEnumerations();
        // Last: it changes the control.
        beginSection(u"Example");
        line(
            u"Each property and method once, as a script or a form's code calls them. A text in quotes behind a line is what");
        line(u"it answers there.");
        line();
        line(u"```vb");
        text_ += writeExample(fresh_);
        line(u"```");
        return std::move(text_);
    }

private:
    void line(TextView content = {}) {
        text_ += content;
        text_ += u'\n';
    }

    void beginSection(TextView title) {
        line();
        line(u"## " + Text(title));
        line();
    }

    const PersistedValue* persisted(const Member& property) const {
        const auto found =
            std::find_if(table_.persisted.begin(), table_.persisted.end(),
                         [&](const PersistedValue& value) { return value.property == &property; });
        return found == table_.persisted.end() ? nullptr : &*found;
    }

    static Text keyCell(const PersistedValue& value) {
        if (!value.load) return code(value.writeKey) + u", never read";
        if (value.readKey == value.writeKey) return code(value.readKey);
        return u"read as " + code(value.readKey) + u", written as " + code(value.writeKey);
    }

    void writeProperties() {
        beginSection(u"Properties");
        bool any = false;
        for (const Member& member : table_.members) {
            if (member.kind != MemberKind::property) continue;
            if (!any) {
                line(
                    u"A freshly placed control has the value under \"placed\". One that is loaded takes the value under");
                line(
                    u"\"loaded\" where nothing is stored, and stores nothing where it has the value under \"not stored\".");
                line();
                line(u"| no. | property | type | key | placed | loaded | not stored | |");
                line(u"|---|---|---|---|---|---|---|---|");
                any = true;
            }
            writeProperty(member);
        }
        if (!any) line(u"None.");
    }

    void writeProperty(const Member& member) {
        Value placed;
        getProperty(fresh_, member, placed);
        const PersistedValue* value = persisted(member);
        Text access;
        if (!member.put) access = u" (read only)";
        if (!member.get) access = u" (write only)";
        line(u"| " + decimalText(member.number) + u" | " + code(member.name) + access + u" | " +
             typeText(member) + u" | " + (value ? keyCell(*value) : Text()) + u" | " + cell(placed) + u" | " +
             (value ? cell(value->readDefault) : Text()) + u" | " +
             (value ? cell(value->writeDefault) : Text()) + u" | " + member.help + u" |");
    }

    void writeMethods() {
        beginSection(u"Methods");
        bool any = false;
        for (const Member& member : table_.members) {
            if (member.kind != MemberKind::method) continue;
            if (!any) {
                line(u"| no. | method | |");
                line(u"|---|---|---|");
                any = true;
            }
            const Text result = member.type == ValueType::empty ? Text() : u" As " + typeText(member);
            line(u"| " + decimalText(member.number) + u" | " + code(signatureText(member) + result) + u" | " +
                 member.help + u" |");
        }
        if (!any) line(u"None.");
    }

    void writeEvents() {
        beginSection(u"Events");
        if (table_.events.empty()) {
            line(u"None.");
            return;
        }
        line(u"A `ByRef` argument may be changed by the host; the control sees the change.");
        line();
        line(u"| no. | event | |");
        line(u"|---|---|---|");
        for (const Member& event : table_.events)
            line(u"| " + decimalText(event.number) + u" | " + code(signatureText(event)) + u" | " +
                 event.help + u" |");
    }

    void writeKeys() {
        if (fresh_.keyGroups().empty()) return;
        beginSection(u"Keys");
        line(
            u"The control uses these while it has the keyboard. Every other key is its container's first; what");
        line(u"nobody there uses then reaches the control.");
        line();
        line(u"| keys | where | |");
        line(u"|---|---|---|");
        for (const KeyGroup& group : fresh_.keyGroups()) {
            for (const KeyClaim& claim : group.claims)
                line(u"| " + keyNames(claim) + u" | " + Text(group.where) + u" | " + Text(claim.use) + u" |");
            if (group.claims.empty()) line(u"| | " + Text(group.where) + u" | |");
        }
    }

    void writeOtherValues() {
        bool any = false;
        for (const PersistedValue& value : table_.persisted) {
            if (value.property || !value.get) continue;
            if (!any) {
                beginSection(u"Stored values without a property");
                line(u"| key | type | loaded | not stored |");
                line(u"|---|---|---|---|");
                any = true;
            }
            line(u"| " + keyCell(value) + u" | " + Text(typeName(value.type)) + u" | " +
                 (value.load ? cell(value.readDefault) : Text()) + u" | " + cell(value.writeDefault) + u" |");
        }
    }

    void writeEnumerations() {
        std::vector<const Enumeration*> written;
        for (const Member& member : table_.members) {
            const Enumeration* enumeration = member.enumeration;
            if (!enumeration || std::find(written.begin(), written.end(), enumeration) != written.end())
                continue;
            written.push_back(enumeration);
            beginSection(enumeration->name);
            line(enumeration->help + u".");
            line();
            line(u"| value | name | |");
            line(u"|---|---|---|");
            for (const EnumerationValue& value : enumeration->values)
                line(u"| " + decimalText(value.value) + u" | " + code(value.name) + u" | " + value.help +
                     u" |");
        }
    }

    Control& fresh_;
    const ControlTable& table_;
    Text text_;
};

}  // namespace

std::string writeReference(Control& fresh) {
    return toUtf8(ReferenceWriter(fresh).write());
}

std::string writeReferenceIndex(const Library& library) {
    Text text = u"# Reference\n\nMade from the controls' member tables.\n\n";
    for (const ControlTable* table : publicControls(library))
        text += u"- [" + table->name + u"](" + table->name + u".md): " + table->help + u"\n";
    return toUtf8(text);
}

}  // namespace obk
