#include "library/class_facts.h"
#include "library/idl_writer.h"
#include "library/library.h"
#include "library/manifest_writer.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace obk {
namespace {

Member row(MemberKind kind, int32_t number, TextView name, TextView help) {
    Member member;
    member.kind = kind;
    member.number = number;
    member.name = name;
    member.help = help;
    return member;
}

// A library with everything that a table can say, apart from the real one.
struct SampleLibrary {
    Enumeration shapes{
        u"Shape", {1, 2, 3, {}}, u"Shapes", {{u"Round", 0, u"A \"round\" one"}, {u"Flat", -2, u"Flat"}}};
    ControlTable shown, hidden;
    Library library{u"SAMPLE", u"Samples", {0xABCD, 1, 2, {0, 0, 0, 0, 0, 0, 0, 9}}, 2, 1, {}, {}};

    SampleLibrary() {
        shown.name = u"Shown";
        shown.help = u"A control";
        Member shape = row(MemberKind::property, 1, u"Kind", u"Its kind");
        shape.type = ValueType::longInteger;
        shape.enumeration = &shapes;
        shape.get = [](Control&, Value&) {};
        shape.put = [](Control&, const Value&) {};
        Member picture = row(MemberKind::property, 2, u"Face", u"Back\\slash");
        picture.type = ValueType::picture;
        picture.get = shape.get;
        picture.put = shape.put;
        picture.putByReference = true;
        Member count = row(MemberKind::property, 3, u"Count", u"Read only");
        count.type = ValueType::single;
        count.get = shape.get;
        Member method = row(MemberKind::method, 4, u"Find", u"Finds");
        method.type = ValueType::byte;
        method.parameters = {{u"Where", ValueType::colour, false, {}},
                             {u"What", ValueType::text, true, {}},
                             {u"How", ValueType::boolean, false, Value(true)},
                             {u"Paint", ValueType::colour, false, OleColour(0x80000010u)}};
        Member locked = row(MemberKind::property, 5, u"Locked", u"Write only");
        locked.type = ValueType::boolean;
        locked.put = shape.put;
        shown.members = {shape, picture, count, method, locked};
        Member event = row(MemberKind::event, 1, u"Moved", u"It moved");
        event.parameters = {{u"X", ValueType::single, true, {}}, {u"Key", ValueType::integer, true, {}}};
        shown.events = {event};
        hidden = shown;
        hidden.name = u"Hidden";
        hidden.isPrivate = true;
        library.controls = {&shown, &hidden};
        library.enumerations = {&shapes};
    }
};

TEST(IdlWriter, WritesWhatHostsHaveToKnow) {
    const SampleLibrary sample;
    const std::string idl = writeIdl(sample.library);
    for (
        const char* expected : {
            "uuid(0000ABCD-0001-0002-0000-000000000009)",
            "version(2.1)",
            "helpstring(\"Samples\")",
            "enum Shape {\n        Round = 0,\n        Flat = -2\n",
            "[id(1), propget, helpstring(\"Its kind\")]\n            Shape Kind();",
            "[id(1), propput, helpstring(\"Its kind\")]\n            void Kind([in] Shape value);",
            "[id(2), propputref, helpstring(\"Back\\\\slash\")]\n            void Face([in] IPictureDisp* value);",
            "float Count();",
            "unsigned char Find([in] OLE_COLOR Where, [in, out] BSTR* What, [in, defaultvalue(-1)] VARIANT_BOOL How, "
            "[in, defaultvalue(-2147483632)] long Paint);",
            "void Moved([in, out] float* X, [in, out] short* Key);",
            "[default] dispinterface _Shown;\n        [default, source] dispinterface __Shown;",
        })
        EXPECT_NE(idl.find(expected), std::string::npos) << expected << "\n" << idl;
    EXPECT_EQ(idl.find("void Count("), std::string::npos) << "a read-only property cannot be put";
    EXPECT_EQ(idl.find("VARIANT_BOOL Locked()"), std::string::npos) << "a write-only one cannot be got";
    EXPECT_EQ(idl.find("void Kind([in] Shape value);", idl.find("void Kind([in] Shape value);") + 1),
              std::string::npos)
        << "a plain value is not put by reference";
}

TEST(IdlWriter, PassesPrivateControlsOver) {
    const SampleLibrary sample;
    EXPECT_EQ(writeIdl(sample.library).find("Hidden"), std::string::npos);
    EXPECT_EQ(writeManifest(sample.library).find("Hidden"), std::string::npos);
}

TEST(ClassFacts, DecorationIsNeverUiActivated) {
    // The platform's numbers for NOUIACTIVATE, ACTIVATEWHENVISIBLE, INSIDEOUT and SETCLIENTSITEFIRST.
    constexpr uint32_t noUiActivate = 0x4000, shown = 0x100 | 0x80 | 0x20000;
    ControlTable line, field, button;
    line.takesFocus = false;
    button.actsLikeButton = true;
    EXPECT_EQ(miscellaneousStatus(line) & (noUiActivate | shown), noUiActivate | shown);
    EXPECT_EQ(miscellaneousStatus(field) & (noUiActivate | shown), shown);
    EXPECT_EQ(miscellaneousStatus(button) & ~miscellaneousStatus(field), 0x1000u);
    EXPECT_NE(miscellaneousStatusNames(line).find(u"nouiactivate"), Text::npos);
}

TEST(ClassFacts, EveryIdentityIsUsedOnce) {
    std::set<Text> identities{guidDigits(library().id)};
    for (const Enumeration* enumeration : library().enumerations)
        EXPECT_TRUE(identities.insert(guidDigits(enumeration->id)).second) << toUtf8(enumeration->name);
    for (const ControlTable* table : publicControls(library())) {
        for (const Guid& id : {table->classId, table->interfaceId, table->eventInterfaceId}) {
            EXPECT_NE(id, Guid()) << toUtf8(table->name);
            EXPECT_TRUE(identities.insert(guidDigits(id)).second) << toUtf8(table->name);
        }
    }
}

}  // namespace
}  // namespace obk
