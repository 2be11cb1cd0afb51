#include "support/control_fixture.h"

namespace obk::test {

void JournalHost::raise(const Member& event, std::span<Value> arguments) {
    const std::string name = toUtf8(event.name);
    std::string line = name;
    for (const Value& argument : arguments) line += " " + toUtf8(toText(argument).value_or(u"?"));
    journal.push_back(line);
    if (const auto handler = on.find(name); handler != on.end()) {
        const auto run = handler->second;
        run(arguments);
    }
}

void JournalHost::propertyChanged(const Member* property) {
    journal.push_back("changed " + (property ? toUtf8(property->name) : "?"));
}

void JournalHost::requestSize(Twips width, Twips height) {
    journal.push_back("size " + toUtf8(textFromNumber(width.value)) + " " +
                      toUtf8(textFromNumber(height.value)));
    if (onRequestSize) onRequestSize(width, height);
}

bool JournalHost::offerToContainer(const KeyEvent& event) {
    journal.push_back("offered " + std::to_string(event.code));
    return takesKeys;
}

Journal JournalHost::takeEvents() {
    Journal events = take();
    std::erase_if(events, [](const std::string& line) {
        return line.find_first_of("abcdefghijklmnopqrstuvwxyz") == 0;
    });
    return events;
}

void ControlFixture::place(const ControlTable& table) {
    platform.registry().setString(u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", u"CurrentVersion",
                                  "6.3");
    control = table.create(platform);
    control->setHost(&host);
    control->initNew();
}

void ControlFixture::activate(const PixelRect& bounds) {
    ASSERT_TRUE(control->activate(1000, bounds));
}

void ControlFixture::release() {
    control->setHost(nullptr);
    control->deactivate();
    control.reset();
}

Value ControlFixture::get(TextView name) {
    Value value;
    const Member* member = control->table().member(name);
    if (!member || getProperty(*control, *member, value) != CallStatus::done)
        ADD_FAILURE() << "cannot read " << toUtf8(name);
    return value;
}

CallStatus ControlFixture::put(TextView name, const Value& value) {
    const Member* member = control->table().member(name);
    return member ? putProperty(*control, *member, value) : CallStatus::noSuchMember;
}

Value ControlFixture::call(TextView name, std::vector<Value> arguments) {
    Value result;
    const Member* member = control->table().member(name);
    if (!member || callMethod(*control, *member, arguments, result) != CallStatus::done)
        ADD_FAILURE() << "cannot call " << toUtf8(name);
    return result;
}

headless::HeadlessSurface* ControlFixture::panel() const {
    for (const NativeWindow id : platform.windows()) {
        headless::HeadlessSurface* const found = platform.surface(id);
        if (found && found->kind() == SurfacePlacement::Kind::panel) return found;
    }
    return nullptr;
}

headless::HeadlessSurface* ControlFixture::topPanel() const {
    headless::HeadlessSurface* top = nullptr;
    for (const NativeWindow id : platform.windows()) {
        headless::HeadlessSurface* const found = platform.surface(id);
        if (found && found->kind() == SurfacePlacement::Kind::panel && found->visible()) top = found;
    }
    return top;
}

}  // namespace obk::test
