#include "library/contract_writer.h"

#include "library/class_facts.h"
#include "library/member_text.h"
#include "library/property_pages.h"

namespace obk {

namespace {

class ContractWriter {
public:
    Text write(const Library& library) {
        line(u"library " + library.name + u" " + libraryVersion(library) + u" " + guidDigits(library.id));
        for (const Enumeration* enumeration : library.enumerations) {
            line(u"enumeration " + enumeration->name + u" " + guidDigits(enumeration->id));
            for (const EnumerationValue& value : enumeration->values)
                line(enumeration->name + u" " + value.name + u" = " + decimalText(value.value));
        }
        for (const PropertyPageFacts& page : propertyPages())
            line(u"property page " + Text(page.title) + u" " + guidDigits(page.id));
        for (const ControlTable* table : publicControls(library)) write(*table);
        return std::move(text_);
    }

private:
    void line(const Text& content) {
        text_ += content;
        text_ += u'\n';
    }

    void write(const ControlTable& table) {
        line(u"class " + table.name + u" " + guidDigits(table.classId) + u" " +
             versionedProgrammaticId(table) + u" " + programmaticId(table));
        line(table.name + u" members " + guidDigits(table.interfaceId));
        line(table.name + u" events " + guidDigits(table.eventInterfaceId));
        line(table.name + u" status " + miscellaneousStatusNames(table));
        for (const Member& member : table.members) {
            if (member.kind == MemberKind::method) {
                line(table.name + u" method " + decimalText(member.number) + u" " + signatureText(member) +
                     u" As " + (member.type == ValueType::empty ? Text(u"nothing") : typeText(member)));
                continue;
            }
            // An access may be added, so each is a promise of its own.
            const Text property =
                decimalText(member.number) + u" " + member.name + u" As " + typeText(member);
            if (member.get) line(table.name + u" get " + property);
            if (member.put) line(table.name + u" put " + property);
            if (member.putByReference) line(table.name + u" set " + property);
        }
        for (const Member& event : table.events)
            line(table.name + u" event " + decimalText(event.number) + u" " + signatureText(event));
        for (const PersistedValue& value : table.persisted) {
            if (value.load)
                line(table.name + u" loads \"" + value.readKey + u"\" As " + Text(typeName(value.type)) +
                     u", else " + defaultText(value.readDefault));
            if (value.get)
                line(table.name + u" stores \"" + value.writeKey + u"\" As " +
                     Text(typeName(value.storedAs)) + u", unless " + defaultText(value.writeDefault));
        }
    }

    Text text_;
};

}  // namespace

std::string writeContract(const Library& library) {
    return toUtf8(ContractWriter().write(library));
}

}  // namespace obk
