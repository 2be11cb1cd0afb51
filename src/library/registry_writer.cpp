#include "library/registry_writer.h"

#include "library/registration.h"

namespace obk {

namespace {

// What ends in the mark for a folder ends in a backslash already.
Text withoutSecondBackslash(Text text) {
    const size_t at = text.find(u"]\\");
    return at == Text::npos ? text : text.erase(at + 1, 1);
}

}  // namespace

std::string writeRegistry(const Library& library) {
    Text text =
        u"# What registering writes, made from the member tables: architecture, key, name, text; with tabs between.\n";
    std::vector<Text> shared;
    for (const auto& [architecture, mark] :
         {std::pair{Architecture::x64, u"x64"}, std::pair{Architecture::x86, u"x86"}}) {
        const Text file = u"[" + Text(mark) + u"]\\" + library.name + u".ocx";
        const RegistryEntries entries = registryEntries(library, architecture, file);
        const auto line = [](const RegistryEntry& entry) {
            return u"\t" + entry.key + u"\t" + entry.name + u"\t" + withoutSecondBackslash(entry.text) +
                   u"\n";
        };
        for (const RegistryEntry& entry : entries.own) text += mark + line(entry);
        // The second server adds its file to what the first has written.
        for (const RegistryEntry& entry : entries.shared) {
            const bool known = std::any_of(shared.begin(), shared.end(), [&](const Text& other) {
                return other == entry.key + u"\t" + entry.name;
            });
            if (known) continue;
            shared.push_back(entry.key + u"\t" + entry.name);
            text += u"shared" + line(entry);
        }
    }
    return toUtf8(text);
}

}  // namespace obk
