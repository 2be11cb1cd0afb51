// What holds for every control, found out by walking its member table.
#include "library/class_facts.h"
#include "library/library.h"
#include "support/control_fixture.h"
#include "support/kept_properties.h"
#include "support/sample_values.h"

#include <algorithm>
#include <limits>
#include <set>

namespace obk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Fonts compare by what they look like.
bool same(const Value& left, const Value& right) {
    const auto* one = std::get_if<FontRef>(&left);
    const auto* other = std::get_if<FontRef>(&right);
    if (one && other && *one && *other) return (*one)->description() == (*other)->description();
    const auto* picture = std::get_if<PictureRef>(&left);
    const auto* another = std::get_if<PictureRef>(&right);
    if (picture && another && *picture && *another)
        return (*picture)->size() == (*another)->size() && (*picture)->pixels() == (*another)->pixels();
    return left == right;
}

// At the edges of every type, and beyond.
std::vector<Value> extremes() {
    std::vector<Value> values{Value(), true, false, 0.5f, std::numeric_limits<float>::max()};
    for (const int32_t number : {INT32_MIN, INT32_MAX, -1, 46, 190}) values.emplace_back(number);
    for (const int number : {-32768, 32767}) values.emplace_back(static_cast<int16_t>(number));
    for (const int number : {0, 255}) values.emplace_back(static_cast<uint8_t>(number));
    for (const double number : {1e308, -1e308, 5e-324, infinity, -infinity, std::nan(""), 2147483647.5})
        values.emplace_back(number);
    for (const char16_t* text :
         {u"", u".", u"-", u"12", u"1e308", u"1e999", u"True", u"\xD800", u"a\r\nb", u"&H80000005"})
        values.emplace_back(Text(text));
    values.emplace_back(Text(7000, u'9'));
    for (const uint32_t colour : {0u, 0x80000005u, 0x800000FFu, 0xFFFFFFFFu})
        values.emplace_back(OleColour(colour));
    values.emplace_back(FontRef());
    values.emplace_back(std::make_shared<SharedFont>(FontDescription{u"", -1e300, -1, -1, true, true, true}));
    values.emplace_back(
        std::make_shared<SharedFont>(FontDescription{Text(300, u'x'), infinity, 32767, 0, true, true, true}));
    values.emplace_back(PictureRef());
    values.emplace_back(std::make_shared<SharedPicture>());
    values.emplace_back(std::make_shared<OpaqueObject>());
    return values;
}

// What the contract has otherwise than all the rest, as "Control.Name".
using Exceptions = std::set<std::string>;

// A change of the caption is told under its key, which is another property's name.
const Exceptions toldAsAnother{"ButtonPalette.Caption"};
// Putting it puts another one, of which the container hears first.
const Exceptions tellsOfAnother{"PageTab.ActiveTabs"};
// Loading lays the control out, which puts what is shown into it.
const Exceptions putByLoading{"PageTab.PageColor"};
// Follow from the tabs, of which a fresh strip has none.
const Exceptions followOthers{"PageTab.ActiveTab", "PageTab.lngSELECTEDPAGECOLOR"};
// Stored, or kept from before loading, although nothing was: the default on writing is another one.
const Exceptions storedAtDefault{"ButtonPalette.Backcolor", "ButtonPalette.FONT", "ButtonPalette.FORECOLOR",
                                 "DateCalendar.SELECTEDCOLOR", "PageTab.BackColorTAB"};
// Leaves what the other spelling of the key has loaded.
const Exceptions keptWhenMissing{"GridCheck.Value"};
// Has no property to change it by, or none that a fresh control lets change it.
const Exceptions notChangeable{"ButtonPalette.TOOLTIP",  "DateCalendar.TOOLTIP",   "DateCalendar.FOCUSRECT",
                               "DateCalendar.FORECOLOR", "DateCalendar.FILLCOLOR", "PageTab.Font",
                               "PageTab.ActiveTab"};
// Asking for a window's handle makes the window.
const Exceptions makesWindow{"ButtonPalette.hWnd", "DateCalendar.hWnd", "GridEdit.hWnd"};

class MemberTableTest : public ControlFixture, public testing::WithParamInterface<const ControlTable*> {
protected:
    void SetUp() override {
        host.font = std::make_shared<SharedFont>(FontDescription{u"Verdana", 10});
        place(table());
        host.take();
    }
    const ControlTable& table() const { return *GetParam(); }
    bool isOneOf(const Exceptions& exceptions, TextView name) const {
        return exceptions.contains(toUtf8(table().name) + "." + toUtf8(name));
    }
    bool restored(TextView name) const {
        return comesBack(toUtf8(table().name), toUtf8(name)) && !isOneOf(followOthers, name);
    }
    std::shared_ptr<Control> another() {
        auto made = table().create(platform);
        made->setHost(&host);
        return made;
    }
    static Value read(Control& from, const Member& member) {
        Value value;
        EXPECT_EQ(getProperty(from, member, value), CallStatus::done);
        EXPECT_EQ(typeOf(value), member.type) << toUtf8(member.name);
        return value;
    }
    // Gives a property a value that it has not; whether it then had it.
    static bool change(Control& of, const Member& member) {
        for (const Value& value : valuesOf(member)) {
            if (same(read(of, member), value)) continue;
            EXPECT_EQ(putProperty(of, member, value), CallStatus::done);
            if (same(read(of, member), value)) return true;
        }
        return false;
    }
    std::vector<const Member*> writable() const {
        std::vector<const Member*> properties;
        for (const Member& member : table().members) {
            if (member.get && member.put) properties.push_back(&member);
        }
        return properties;
    }
    void expectSameProperties(Control& one, Control& other, const std::string& after) {
        for (const Member* member : writable()) {
            if (!restored(member->name)) continue;
            EXPECT_TRUE(same(read(one, *member), read(other, *member)))
                << toUtf8(member->name) << " after " << after;
        }
    }
    Value readingDefault(const PersistedValue& row) const {
        if (std::holds_alternative<AmbientFontDefault>(row.readDefault)) return host.font;
        if (const auto* colour = std::get_if<SystemRgbDefault>(&row.readDefault))
            return OleColour(*const_cast<headless::HeadlessPlatform&>(platform).appearance().systemColour(
                static_cast<uint8_t>(colour->index)));
        return *converted(std::get<Value>(row.readDefault), row.type);
    }
};

INSTANTIATE_TEST_SUITE_P(Every, MemberTableTest, testing::ValuesIn(library().controls),
                         [](const auto& row) { return toUtf8(row.param->name); });

TEST_P(MemberTableTest, MembersAreFoundByNumberAndByNameInAnyCase) {
    for (const Member& member : table().members) {
        SCOPED_TRACE(toUtf8(member.name));
        EXPECT_FALSE(member.help.empty());
        EXPECT_EQ(table().member(member.number), &member);
        Text swapped(member.name);
        for (char16_t& unit : swapped) {
            if (const char16_t upper = upperAscii(unit); upper >= u'A' && upper <= u'Z')
                unit = static_cast<char16_t>(unit ^ 32);
        }
        for (const Text& spelling : {Text(member.name), swapped})
            EXPECT_EQ(table().member(spelling), &member) << toUtf8(spelling);
        EXPECT_EQ(table().member(swapped + u"x"), nullptr);
        if (member.kind == MemberKind::property && !isOneOf(toldAsAnother, member.name)) {
            EXPECT_EQ(table().notifiedProperty(table().notificationName(member)), &member);
        }
    }
    for (const Member& event : table().events) {
        EXPECT_EQ(table().event(event.number), &event);
        EXPECT_FALSE(event.help.empty());
    }
    for (const int32_t number : {0, -1, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(table().member(number), nullptr);
        EXPECT_EQ(table().event(number), nullptr);
    }
    EXPECT_EQ(table().member(u""), nullptr);
    EXPECT_FALSE(table().help.empty());
}

TEST_P(MemberTableTest, EveryPropertyComesBackFromABagAndFromItsBytes) {
    const auto loadedFrom = [this](MemoryBag bag) {
        auto made = another();
        made->load(bag);
        return made;
    };
    MemoryBag none;
    for (const Member* member : writable()) {
        if (!restored(member->name)) continue;
        control = loadedFrom(none);
        ASSERT_TRUE(change(*control, *member)) << toUtf8(member->name) << " takes no other value";
        MemoryBag saved;
        control->save(saved);
        EXPECT_FALSE(saved.entries().empty()) << toUtf8(member->name) << " is not saved";
        expectSameProperties(*control, *loadedFrom(saved), toUtf8(member->name));
        const auto parsed = MemoryBag::parsed(saved.serialized());
        ASSERT_TRUE(parsed);
        expectSameProperties(*control, *loadedFrom(*parsed), toUtf8(member->name) + " as bytes");
    }
    for (const Member* member : writable()) change(*control, *member);
    MemoryBag saved, again;
    control->save(saved);
    const auto loaded = loadedFrom(saved);
    expectSameProperties(*control, *loaded, "all changes");
    loaded->save(again);
    const auto keptOf = [this](const MemoryBag& bag) {
        MemoryBag kept;
        for (const auto& [key, value] : bag.entries()) {
            const auto row = std::find_if(table().persisted.begin(), table().persisted.end(),
                                          [&key = key](const auto& each) { return each.writeKey == key; });
            if (!row->property || restored(row->property->name)) kept.write(key, value);
        }
        return kept.serialized();
    };
    EXPECT_EQ(keptOf(again), keptOf(saved));
}

TEST_P(MemberTableTest, SavingKeepsTheOrderAndTypesAndLeavesOutTheDefaults) {
    MemoryBag bag;
    control->load(bag);
    control->save(bag);
    for (const auto& [key, value] : bag.entries())
        EXPECT_TRUE(isOneOf(storedAtDefault, key)) << toUtf8(key) << " has its default";
    bag = {};
    for (const Member* member : writable()) change(*control, *member);
    control->save(bag);
    const auto& saved = table().saved;
    const auto rowAt = [this](size_t position) -> const PersistedValue& {
        return table().persisted[position];
    };
    auto row = saved.begin();
    for (const auto& [key, value] : bag.entries()) {
        row = std::find_if(row, saved.end(),
                           [&, &key = key](size_t position) { return rowAt(position).writeKey == key; });
        ASSERT_NE(row, saved.end()) << toUtf8(key) << " is out of order";
        EXPECT_EQ(typeOf(value), rowAt(*row).storedAs) << toUtf8(key);
    }
    std::set<Text> changeable;  // two spellings of a key are one entry
    for (const size_t position : saved) {
        const Text key(rowAt(position).writeKey);
        if (!isOneOf(notChangeable, key)) changeable.insert(upperAscii(key));
    }
    EXPECT_EQ(bag.entries().size(), changeable.size());
}

TEST_P(MemberTableTest, MissingKeysGiveTheReadingDefaultsInSilence) {
    for (const Member* member : writable()) change(*control, *member);
    host.take();
    MemoryBag none;
    control->load(none);
    for (const PersistedValue& row : table().persisted) {
        // No font is the default of a font that then stays as it is.
        const bool noFont = row.type == ValueType::font && same(readingDefault(row), FontRef());
        if (row.property && !noFont && !isOneOf(putByLoading, row.property->name) &&
            !isOneOf(keptWhenMissing, row.readKey)) {
            EXPECT_TRUE(same(read(*control, *row.property), readingDefault(row))) << toUtf8(row.readKey);
        }
    }
    EXPECT_EQ(host.take(), Journal{}) << "loading is no change";
}

TEST_P(MemberTableTest, StoredValuesOfOtherTypesAreConvertedOrSkipped) {
    for (const PersistedValue& row : table().persisted) {
        if (!row.property || isOneOf(putByLoading, row.property->name)) continue;
        const auto design = another();
        const Value untouched = read(*design, *row.property);
        const auto loaded = another();
        MemoryBag bag;
        bag.write(row.readKey, row.type == ValueType::font || row.type == ValueType::picture
                                   ? Value(Text(u"Arial"))
                                   : Value(std::make_shared<SharedFont>()));
        loaded->load(bag);
        EXPECT_TRUE(same(read(*loaded, *row.property), untouched))
            << toUtf8(row.readKey) << " cannot be converted";

        for (const Value& wanted : valuesOf(*row.property)) {
            const auto reference = another();
            putProperty(*reference, *row.property, wanted);
            if (!same(read(*reference, *row.property), wanted)) continue;
            for (const ValueType type :
                 {ValueType::text, ValueType::doubleFloat, ValueType::longInteger, ValueType::integer}) {
                const auto stored = converted(wanted, type);
                if (!stored || converted(*stored, row.type) != wanted) continue;
                MemoryBag other;
                other.write(upperAscii(row.readKey), *stored);
                loaded->load(other);
                EXPECT_TRUE(same(read(*loaded, *row.property), wanted))
                    << toUtf8(row.readKey) << " as type " << int(type);
            }
        }
    }
}

TEST_P(MemberTableTest, SettingAnUnchangedValueNotifiesOnce) {
    for (const PersistedValue& row : table().persisted) {
        if (!row.property || !row.property->put) continue;
        const Value value = read(*control, *row.property);
        host.take();
        putProperty(*control, *row.property, value);
        const Member& told = *table().notifiedProperty(table().notificationName(*row.property));
        EXPECT_EQ(told.name == row.property->name, !isOneOf(toldAsAnother, row.property->name));
        if (isOneOf(tellsOfAnother, row.property->name)) host.journal.erase(host.journal.begin());
        EXPECT_EQ(host.take(), Journal{"changed " + toUtf8(told.name)});
        EXPECT_TRUE(same(read(*control, *row.property), value));
    }
}

TEST_P(MemberTableTest, FollowsTheContainersFontUntilAHostHasChangedTheOneShown) {
    const FontDescription first{u"Arial", 10}, second{u"Georgia", 12}, own{u"Courier New", 9, 700};
    const auto ambientBecomes = [this](const FontDescription& font) {
        host.font = std::make_shared<SharedFont>(font);
        control->ambientFontChanged();
    };
    for (const PersistedValue& row : table().persisted) {
        if (row.type != ValueType::font || !row.get) continue;
        const auto shown = [&] {
            Value value;
            row.get(*control, value);
            return std::get<FontRef>(value);
        };
        int followed = 0;
        for (const bool loaded : {false, true}) {
            const auto begin = [&] {
                host.font = std::make_shared<SharedFont>(first);
                place(table());
                MemoryBag none;
                if (loaded) control->load(none);
                return shown() && shown()->description() == first;
            };
            if (!begin()) continue;
            ++followed;
            EXPECT_NE(shown(), host.font) << "the container's own font is not ours to change";
            for (const FontDescription& font : {second, first, second}) {
                ambientBecomes(font);
                EXPECT_EQ(shown()->description(), font) << loaded;
            }
            shown()->setDescription(own);
            ambientBecomes(first);
            EXPECT_EQ(shown()->description(), own) << "the host has changed the font in place";
            if (!row.property) continue;
            EXPECT_TRUE(begin());
            const auto set = std::make_shared<SharedFont>(own);
            const auto told = [&](const auto& act) {
                host.take();
                act();
                return host.take().size();
            };
            EXPECT_EQ(told([&] { putProperty(*control, *row.property, set); }), 1u);
            EXPECT_EQ(shown(), set) << "it is shared with the host";
            ambientBecomes(second);
            EXPECT_EQ(shown()->description(), own) << "the host has set another font";
            EXPECT_EQ(told([&] { set->setDescription(first); }), 1u) << "and is watched";
            EXPECT_EQ(told([&] { set->setDescription(first); }), 0u) << "nothing changed";
            EXPECT_EQ(told([&] { putProperty(*control, *row.property, FontRef()); }), 1u);
            putProperty(*control, *row.property, std::make_shared<SharedFont>(own));
            EXPECT_EQ(told([&] { set->setDescription(own); }), 0u) << "no longer the control's";
        }
        EXPECT_GT(followed, 0);
    }
}

TEST_P(MemberTableTest, EveryMemberTakesEveryValueOrRefusesIt) {
    const std::vector<Value> values = extremes();
    const auto walk = [&] {
        for (const Member& member : table().members) {
            Value result;
            if (member.kind == MemberKind::property) {
                for (const Value& value : values) {
                    const bool fits = converted(value, member.type).has_value();
                    EXPECT_EQ(putProperty(*control, member, value), !member.put ? CallStatus::noSuchMember
                                                                    : fits      ? CallStatus::done
                                                                           : CallStatus::wrongArgumentType)
                        << toUtf8(member.name) << ", type " << value.index();
                    if (member.get) read(*control, member);
                }
                std::vector<Value> none;
                EXPECT_EQ(callMethod(*control, member, none, result), CallStatus::noSuchMember);
                continue;
            }
            EXPECT_EQ(getProperty(*control, member, result), CallStatus::noSuchMember);
            EXPECT_EQ(putProperty(*control, member, 1), CallStatus::noSuchMember);
            const size_t count = member.parameters.size();
            for (const size_t wrong : {count + 1, count - 1, size_t{0}, size_t{50}}) {
                if (wrong == count || wrong > 50) continue;
                std::vector<Value> arguments(wrong, Value(1));
                EXPECT_EQ(callMethod(*control, member, arguments, result), CallStatus::wrongArgumentCount);
            }
            // Each value in each place, beside each other one.
            for (size_t first = 0; first < values.size(); ++first) {
                for (size_t step = 0; step < values.size() && (count > 1 || step == 0); ++step) {
                    std::vector<Value> arguments;
                    bool fits = true;
                    for (size_t at = 0; at < count; ++at) {
                        arguments.push_back(values[(first + at * step) % values.size()]);
                        fits = fits && converted(arguments.back(), member.parameters[at].type).has_value();
                    }
                    ASSERT_EQ(callMethod(*control, member, arguments, result),
                              fits ? CallStatus::done : CallStatus::wrongArgumentType)
                        << toUtf8(member.name) << " " << first << " " << step;
                    if (fits) {
                        ASSERT_EQ(typeOf(result), member.type) << toUtf8(member.name);
                    }
                }
            }
        }
    };
    walk();
    if (!isOneOf(makesWindow, u"hWnd")) {
        EXPECT_EQ(platform.windowCount(), 0u) << "nothing of this needs a window";
    }
    activate({0, 0, 90, 30});
    walk();
    platform.surface(control->window())->paint();
}

TEST(LibraryTest, IdentifiersAndPicturesAreEachControlsOwn) {
    std::set<Text> guids{guidDigits({})};
    const auto isNew = [&guids](const Guid& id) { return guids.insert(guidDigits(id)).second; };
    EXPECT_TRUE(isNew(library().id));
    for (const Enumeration* enumeration : library().enumerations) EXPECT_TRUE(isNew(enumeration->id));
    std::set<int32_t> pictures;
    for (const ControlTable* table : library().controls) {
        // What only other controls host is known by its table.
        for (const Guid& id : {table->classId, table->interfaceId, table->eventInterfaceId})
            EXPECT_TRUE(table->isPrivate ? id == Guid() : isNew(id)) << toUtf8(table->name);
        if (table->toolboxPicture != 0) {
            EXPECT_TRUE(pictures.insert(table->toolboxPicture).second);
        }
        EXPECT_EQ(library().control(upperAscii(table->name)), table);
    }
    EXPECT_EQ(library().control(u"Nothing"), nullptr);
}

}  // namespace
}  // namespace obk::test
