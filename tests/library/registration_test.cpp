// Servers of two architectures, for the machine and for a user, come and go in every order.
#include "library/registration.h"
#include "library/class_facts.h"
#include "library/library.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace obk {
namespace {

enum class System { only32Bit, both, bothWithNamesApart };

// The keys of one user or of the machine, by the names under which the system stores them.
struct Hive {
    // A key's values by their names; a key above others exists by itself, as in the system.
    std::map<Text, std::map<Text, Text>> keys;
    friend bool operator==(const Hive&, const Hive&) = default;
    friend auto operator<=>(const Hive&, const Hive&) = default;
};

// Where the system stores a key: on one with two architectures, what a 32-bit program sees below CLSID and
// Interface is apart, and type libraries are shared; names are shared on all but the oldest ones.
Text stored(System system, Architecture view, const Text& key) {
    if (system == System::only32Bit || view == Architecture::x64) return upperAscii(key);
    const Text top = upperAscii(key.substr(0, key.find(u'\\')));
    const bool apart =
        top == u"CLSID" || top == u"INTERFACE" || (system == System::bothWithNamesApart && top != u"TYPELIB");
    return upperAscii(apart ? u"Wow6432Node\\" + key : key);
}

class ModelRegistry final : public ClassesRegistry {
public:
    ModelRegistry(System system, Hive& hive) : system_(system), hive_(hive) {}

    std::optional<Text> read(Architecture view, const Text& key, const Text& name) const override {
        const auto found = hive_.keys.find(stored(system_, view, key));
        if (found == hive_.keys.end() || !found->second.contains(name)) return std::nullopt;
        return found->second.at(name);
    }
    bool empty(Architecture view, const Text& key) const override {
        const Text own = stored(system_, view, key);
        const auto found = hive_.keys.find(own);
        if (found == hive_.keys.end() || !found->second.empty()) return false;
        const auto next = std::next(found);
        return next == hive_.keys.end() || !next->first.starts_with(own + u'\\');
    }
    bool createKey(Architecture view, const Text& key) override {
        const Text own = stored(system_, view, key);
        for (size_t end = own.find(u'\\'); end != Text::npos; end = own.find(u'\\', end + 1))
            hive_.keys[own.substr(0, end)];
        hive_.keys[own];
        return true;
    }
    bool write(Architecture view, const Text& key, const Text& name, const Text& text) override {
        createKey(view, key);
        hive_.keys[stored(system_, view, key)][name] = text;
        return true;
    }
    bool removeValue(Architecture view, const Text& key, const Text& name) override {
        const auto found = hive_.keys.find(stored(system_, view, key));
        if (found != hive_.keys.end()) found->second.erase(name);
        return true;
    }
    bool removeEmptyKey(Architecture view, const Text& key) override {
        return empty(view, key) && hive_.keys.erase(stored(system_, view, key)) == 1;
    }

private:
    System system_;
    Hive& hive_;
};

constexpr std::array architectures{Architecture::x86, Architecture::x64};

// Two classes show every rule, and their states are quick to compare.
const Library& twoClasses() {
    static const Library library = [] {
        Library few = obk::library();
        few.controls = publicControls(few);
        few.controls.resize(2);
        return few;
    }();
    return library;
}

// What is registered, and what should be.
struct State {
    std::array<Hive, 2> hives;  // the user's before the machine's
    std::array<std::set<Architecture>, 2> installed;
    friend auto operator<=>(const State&, const State&) = default;
};

Text fileOf(size_t hive, Architecture architecture) {
    return (hive == 0 ? Text(u"C:\\Users\\me\\") : Text(u"C:\\Programs\\")) +
           (architecture == Architecture::x64 ? u"64" : u"32") + u"\\OBKCTRLS.ocx";
}

// What is wrong for the programs of one architecture; empty when nothing is.
std::string faultsFor(System system, State& state, Architecture program) {
    // Each value from the user's keys, else from the machine's.
    const auto read = [&](const Text& key) {
        for (Hive& hive : state.hives) {
            if (const auto text = ModelRegistry(system, hive).read(program, key, {})) return *text;
        }
        return Text(u"(none)");
    };
    std::optional<size_t> first;  // whose server it is to get
    for (size_t hive = 2; hive-- > 0;) {
        if (state.installed[hive].contains(program)) first = hive;
    }
    const Text file = first ? fileOf(*first, program) : u"(none)";
    std::string faults;
    const auto demand = [&](const Text& found, const Text& wanted, const Text& what) {
        if (found != wanted) faults += "\n" + toUtf8(what + u": " + found + u" instead of " + wanted);
    };
    for (const ControlTable* table : publicControls(twoClasses())) {
        const Text id = u"{" + guidDigits(table->classId) + u"}";
        demand(read(u"CLSID\\" + id + u"\\InprocServer32"), file, Text(table->name) + u" by its id");
        if (!first) continue;
        for (const Text& name : {programmaticId(*table), versionedProgrammaticId(*table)})
            demand(read(name + u"\\CLSID"), id, name);
        demand(read(u"Interface\\{" + guidDigits(table->interfaceId) + u"}\\TypeLib"),
               u"{" + guidDigits(twoClasses().id) + u"}", u"the interface of " + Text(table->name));
    }
    const Text types = u"TypeLib\\{" + guidDigits(twoClasses().id) + u"}\\1.0";
    demand(read(types + (program == Architecture::x64 ? u"\\0\\win64" : u"\\0\\win32")), file, u"the types");
    if (!first) return faults;
    const Text folder = read(types + u"\\HELPDIR");
    for (size_t hive = 0; hive < state.hives.size(); ++hive) {
        for (const Architecture each : state.installed[hive])
            if (fileOf(hive, each).starts_with(folder + u"\\")) return faults;
    }
    return faults + "\nthe folder of no server that is there: " + toUtf8(folder);
}

// Follows every step from every state that some sequence of steps leads to, until there is no new state: all
// sequences of any length.
void walkAllSequences(System system) {
    State clean;
    // Keys of somebody else.
    for (Hive& hive : clean.hives) {
        ModelRegistry registry(system, hive);
        for (const Architecture view : architectures) {
            registry.write(view, u"CLSID\\{00000000-0000-0000-0000-000000000001}", {}, u"another class");
            registry.write(view, u"Interface\\{00000000-0000-0000-0000-000000000002}", {}, u"another");
        }
        registry.write(Architecture::x86, u"TypeLib\\{00000000-0000-0000-0000-000000000003}", {}, u"another");
    }
    std::map<State, std::string> reached{{clean, ""}};  // each with one way to it
    std::vector<const State*> toDo{&reached.begin()->first};
    const auto follow = [&](const State& before, size_t hive, Architecture architecture, bool add) {
        State state = before;
        ModelRegistry registry(system, state.hives[hive]);
        const std::string way = reached.at(before) + (add ? " +" : " -") + toUtf8(fileOf(hive, architecture));
        state.installed[hive].erase(architecture);
        if (add) state.installed[hive].insert(architecture);
        EXPECT_TRUE(add ? registerServer(twoClasses(), architecture, fileOf(hive, architecture), registry)
                        : unregisterServer(twoClasses(), architecture, registry))
            << way;
        for (const Architecture program : architectures) {
            if (system != System::only32Bit || program == Architecture::x86)
                EXPECT_EQ(faultsFor(system, state, program), "") << way;
        }
        if (state.installed[hive].empty())
            EXPECT_TRUE(state.hives[hive] == clean.hives[hive]) << "something is left after" << way;
        const auto [found, isNew] = reached.emplace(std::move(state), way);
        if (isNew) toDo.push_back(&found->first);
    };
    while (!toDo.empty() && !testing::Test::HasFailure()) {
        const State& before = *toDo.back();
        toDo.pop_back();
        for (size_t hive = 0; hive < clean.hives.size(); ++hive) {
            for (const Architecture architecture : architectures) {
                if (system == System::only32Bit && architecture == Architecture::x64) continue;
                follow(before, hive, architecture, true);
                follow(before, hive, architecture, false);
            }
        }
    }
    EXPECT_GE(reached.size(), system == System::only32Bit ? 4u : 16u) << "every combination was met";
}

TEST(Registration, EveryOrderLeavesEveryInstalledClassWholeAndNothingElse) {
    for (const System system : {System::both, System::bothWithNamesApart, System::only32Bit})
        walkAllSequences(system);
}

TEST(Registration, WhatAnotherVersionOwnsStaysWithIt) {
    Hive hive;
    ModelRegistry registry(System::both, hive);
    const ControlTable& table = *publicControls(twoClasses()).front();
    ASSERT_TRUE(registerServer(twoClasses(), Architecture::x64, u"C:\\1\\OBKCTRLS.ocx", registry));
    registry.write(Architecture::x64, programmaticId(table) + u"\\CurVer", {}, programmaticId(table) + u".2");
    ASSERT_TRUE(unregisterServer(twoClasses(), Architecture::x64, registry));
    EXPECT_EQ(registry.read(Architecture::x64, programmaticId(table) + u"\\CurVer", {}),
              programmaticId(table) + u".2");
    EXPECT_TRUE(registry.read(Architecture::x64, programmaticId(table) + u"\\CLSID", {}));
    EXPECT_FALSE(registry.read(Architecture::x64, versionedProgrammaticId(table) + u"\\CLSID", {}));
}

}  // namespace
}  // namespace obk
