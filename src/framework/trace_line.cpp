#include "framework/trace_line.h"

#include "framework/control.h"

#include <utility>

namespace obk {

namespace {

constexpr size_t longestText = 40;

thread_local AtWork* innermost = nullptr;

Text onOneLine(TextView text) {
    Text line(text);
    for (char16_t& unit : line) {
        if (unit < u' ') unit = u' ';
    }
    return line;
}

Text quoted(TextView text) {
    const bool cut = text.size() > longestText;
    return u"\"" + onOneLine(text.substr(0, longestText)) + (cut ? u"\u2026\"" : u"\"");
}

Text orDash(TextView text) {
    return text.empty() ? Text(u"-") : onOneLine(text);
}

// A host that is asked may itself do something that is left undone: that line then goes without the name.
Text nameOf(const Control& control) {
    static thread_local bool asking = false;
    if (std::exchange(asking, true)) return {};
    Text name;
    attempt([&] { name = control.hostName(); });
    asking = false;
    return name;
}

// A value and its type: "abc" (String).
Text shownValue(const Value& value) {
    if (typeOf(value) == ValueType::empty) return u"nothing";
    const Text type = u" (" + Text(typeName(typeOf(value))) + u")";
    if (const Text* text = std::get_if<Text>(&value)) return quoted(*text) + type;
    return toText(value).value_or(u"an object") + type;
}

Text described(const LeftUndone& undone) {
    const auto there = [&](TextView what) {
        return Text(what) + u" " + decimalText(undone.number) + u" refused, there are " +
               decimalText(undone.limit);
    };
    const Text instead = Text(undone.came) + u" came, " + Text(undone.reason) + u" is wanted";
    switch (undone.kind) {
        case LeftUndone::Kind::statement:
            return u"a statement was skipped at " + Text(undone.subject) + u":" + decimalText(undone.number) +
                   u", " + Text(undone.reason);
        case LeftUndone::Kind::argument:
            return (undone.number > 0 ? u"argument " + decimalText(undone.number) : Text(u"the value")) +
                   u" refused, " + instead;
        case LeftUndone::Kind::stored:
            return u"the stored " + Text(undone.subject) + u" refused, " + instead;
        case LeftUndone::Kind::row:
            return there(u"row");
        case LeftUndone::Kind::column:
            return there(u"column");
        case LeftUndone::Kind::icon:
            return u"no icon is named " + quoted(undone.subject);
        case LeftUndone::Kind::font:
            return u"no font is named " + quoted(undone.subject);
        case LeftUndone::Kind::file:
            return u"the file \"" + onOneLine(undone.subject) + u"\" was not opened, " + Text(undone.reason);
        case LeftUndone::Kind::handler:
            return u"the host's handler of " + Text(undone.subject) + u" answered with an error, " +
                   Text(undone.reason);
    }
    return {};
}

}  // namespace

void AtWork::enter(const Control& control, TextView member) {
    control_ = &control;
    member_ = member;
    outer_ = std::exchange(innermost, this);
}

void AtWork::leave() {
    for (AtWork** at = &innermost; *at; at = &(*at)->outer_) {
        if (*at != this) continue;
        *at = outer_;
        return;
    }
}

Text traceLine(TextView time, const LeftUndone& undone) {
    const AtWork* const work = innermost;
    Text line = Text(time) + u" ";
    if (work)
        line += Text(work->control_->table().name) + u" " + orDash(nameOf(*work->control_)) + u" " +
                orDash(work->member_);
    else
        line += u"- - -";
    return line + u": " + described(undone);
}

void tellUnconverted(LeftUndone undone, const Value& came, ValueType wanted) noexcept {
    if (!undoneIsObserved()) return;
    try {
        const Text value = shownValue(came);
        undone.came = value;
        undone.reason = typeName(wanted);
        tellUndone(undone);
    } catch (...) {
        // As below.
    }
}

void tellSkippedAsUndone(const SkippedStatement& statement) noexcept {
    try {
        const Text file = fromUtf8(statement.place.file);
        const Text reason = fromUtf8(statement.reason);
        tellUndone({.kind = LeftUndone::Kind::statement,
                    .subject = file,
                    .reason = reason,
                    .number = statement.place.line});
    } catch (...) {
        // Without memory there is nothing to tell it with.
    }
}

}  // namespace obk
