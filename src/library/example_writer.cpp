#include "library/example_writer.h"

#include "framework/control_table.h"
#include "framework/member_call.h"
#include "library/class_facts.h"

#include <algorithm>

namespace obk {

namespace {

bool contains(TextView text, TextView part) {
    return text.find(part) != TextView::npos;
}

// Other systems measure and show other things.
bool answersDiffer(TextView member) {
    constexpr TextView parts[] = {u"Height", u"Width", u"Left", u"Top", u"Mouse", u"hWnd"};
    return std::any_of(std::begin(parts), std::end(parts),
                       [&](TextView part) { return contains(member, part); });
}

struct Sample {
    Value value;
    Text code;
};

Sample sampleColour() {
    return {OleColour{0xC0FFC0}, u"&HC0FFC0"};
}

Sample sampleNumber(int32_t number) {
    return {number, decimalText(number)};
}

Sample sampleText(TextView text) {
    return {Text(text), u"\"" + Text(text) + u"\""};
}

// Something that the parameter may well be.
Sample argumentFor(TextView method, const Parameter& parameter) {
    const TextView name = parameter.name;
    if (method == u"RowsSet" || method == u"ColsSet") return sampleNumber(3);
    switch (parameter.type) {
        case ValueType::boolean:
            return {true, u"True"};
        case ValueType::colour:
            return sampleColour();
        case ValueType::doubleFloat:
        case ValueType::single:
            return {1200.0, u"1200"};
        case ValueType::text:
            return sampleText(name == u"sCaption"   ? u"Article"
                              : name == u"Path"     ? u"example.txt"
                              : name == u"iconname" ? u"Work - Clock"
                              : name == u"Number"   ? u"12.5"
                              : name == u"Header"   ? u"Articles"
                              : name == u"Value"    ? u"a"
                                                    : u"Pencil");
        default:
            if (name == u"NewColor" || name == u"Color") return sampleColour();
            return sampleNumber(contains(name, u"Key")                             ? 49
                                : contains(name, u"row") || contains(name, u"Row") ? 0
                                : name == u"cWidth"                                ? 1200
                                                                                   : 1);
    }
}

// Another value than the property has.
Sample valueFor(const Member& property, const Value& placed) {
    switch (property.type) {
        case ValueType::boolean:
            return placed == Value(true) ? Sample{false, u"False"} : Sample{true, u"True"};
        case ValueType::colour:
            return sampleColour();
        case ValueType::doubleFloat:
        case ValueType::single:
            return {2.5, u"2.5"};
        case ValueType::text:
            return sampleText(u"12");
        default:
            return sampleNumber(contains(property.name, u"Max") ? 20 : placed == Value(int32_t{1}) ? 0 : 1);
    }
}

class ExampleWriter {
public:
    explicit ExampleWriter(Control& control) : control_(control), table_(control.table()) {
        name_ = Text(table_.name);
        name_.front() = toLower(name_.front());
    }

    Text write() {
        line(u"Set " + name_ + u" = CreateObject(\"" + programmaticId(table_) + u"\")");
        for (const Member& member : table_.members) {
            if (member.kind == MemberKind::property)
                property(member);
            else if (member.kind == MemberKind::method)
                method(member);
        }
        return std::move(text_);
    }

private:
    static char16_t toLower(char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    }
    void line(const Text& code) { text_ += code + u"\n"; }

    void property(const Member& member) {
        const Text place = name_ + u"." + Text(member.name);
        if (member.type == ValueType::font) {
            line(u"answer = " + place + u".Name");
            return;
        }
        if (member.type == ValueType::picture) {
            line(u"Set " + place + u" = Nothing");
            return;
        }
        if (member.put) {
            Value placed;
            if (member.get) getProperty(control_, member, placed);
            const Sample sample = valueFor(member, placed);
            putProperty(control_, member, sample.value);
            line(place + u" = " + sample.code);
        }
        Value answer;
        if (member.get && getProperty(control_, member, answer) == CallStatus::done)
            answered(member, place, answer);
    }

    void method(const Member& member) {
        std::vector<Value> arguments;
        Text list;
        for (const Parameter& parameter : member.parameters) {
            if (parameter.mayBeLeftOut()) break;
            Sample sample = argumentFor(member.name, parameter);
            list += (arguments.empty() ? u"" : u", ") + sample.code;
            arguments.push_back(std::move(sample.value));
        }
        Value answer;
        arguments.resize(member.parameters.size());
        callMethod(control_, member, arguments, answer);
        const Text place = name_ + u"." + Text(member.name);
        if (member.type == ValueType::empty)
            line(place + (list.empty() ? u"" : u" ") + list);
        else
            answered(member, place + (list.empty() ? u"" : u"(" + list + u")"), answer);
    }

    void answered(const Member& member, const Text& call, const Value& answer) {
        Text code = u"answer = " + call;
        const Text said = typeOf(answer) == ValueType::boolean ? (answer == Value(true) ? u"True" : u"False")
                          : typeOf(answer) == ValueType::colour
                              ? decimalText(static_cast<int32_t>(std::get<OleColour>(answer).value))
                              : toText(answer).value_or(u"");
        if (!answersDiffer(member.name) && said.find_first_of(u"\"\r\n") == Text::npos)
            code += u"    ' \"" + said + u"\"";
        line(code);
    }

    Control& control_;
    const ControlTable& table_;
    Text name_;
    Text text_;
};

}  // namespace

Text writeExample(Control& fresh) {
    return ExampleWriter(fresh).write();
}

}  // namespace obk
