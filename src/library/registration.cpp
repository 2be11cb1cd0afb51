#include "library/registration.h"

#include "library/class_facts.h"
#include "library/property_pages.h"

namespace obk {

namespace {

constexpr char16_t controlCategory[] = u"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
constexpr char16_t dispatchProxy[] = u"{00020420-0000-0000-C000-000000000046}";

Architecture otherThan(Architecture architecture) {
    return architecture == Architecture::x64 ? Architecture::x86 : Architecture::x64;
}

Text inBraces(const Guid& id) {
    return u"{" + guidDigits(id) + u"}";
}

Text classKey(const ControlTable& table) {
    return u"CLSID\\" + inBraces(table.classId);
}

Text serverKey(const ControlTable& table) {
    return classKey(table) + u"\\InprocServer32";
}

Text typesKey(const Library& library) {
    return u"TypeLib\\" + inBraces(library.id) + u"\\" + libraryVersion(library);
}

Text typesFileKey(const Library& library, Architecture architecture) {
    return typesKey(library) + (architecture == Architecture::x64 ? u"\\0\\win64" : u"\\0\\win32");
}

Text folderOf(const Text& file) {
    return file.substr(0, file.rfind(u'\\'));
}

// Values that are written, and removed again, as a whole.
class Entries {
public:
    // A key that only has to exist gets no value: neither name nor text.
    void add(Text key, Text text, Text name = {}) {
        entries_.push_back({std::move(key), std::move(name), std::move(text)});
    }

    bool write(ClassesRegistry& classes, Architecture view) const {
        bool written = true;
        for (const RegistryEntry& entry : entries_) {
            const bool valued = !entry.text.empty() || !entry.name.empty();
            written = (valued ? classes.write(view, entry.key, entry.name, entry.text)
                              : classes.createKey(view, entry.key)) &&
                      written;
        }
        return written;
    }

    // The values, then every key above them that has become empty.
    bool remove(ClassesRegistry& classes, Architecture view) const {
        bool removed = true;
        for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
            removed = classes.removeValue(view, entry->key, entry->name) && removed;
            for (Text key = entry->key; !key.empty() && classes.empty(view, key);) {
                if (!classes.removeEmptyKey(view, key)) {
                    removed = false;
                    break;
                }
                const size_t end = key.rfind(u'\\');
                key.resize(end == Text::npos ? 0 : end);
            }
        }
        return removed;
    }

    void appendTo(std::vector<RegistryEntry>& all) const {
        all.insert(all.end(), entries_.begin(), entries_.end());
    }

private:
    std::vector<RegistryEntry> entries_;
};

// Below CLSID and Interface each architecture has keys of its own.
Entries classEntries(const Library& library, const ControlTable& table, const Text& file) {
    const Text key = classKey(table);
    Entries entries;
    entries.add(key, classDescription(table));
    entries.add(serverKey(table), file);
    entries.add(serverKey(table), u"Apartment", u"ThreadingModel");
    entries.add(key + u"\\ProgID", versionedProgrammaticId(table));
    entries.add(key + u"\\VersionIndependentProgID", programmaticId(table));
    entries.add(key + u"\\Control", u"");
    entries.add(key + u"\\MiscStatus", u"0");
    entries.add(key + u"\\MiscStatus\\1", decimalText(miscellaneousStatus(table)));
    if (table.toolboxPicture != 0) {
        const Text number = decimalText(table.toolboxPicture);
        entries.add(key + u"\\ToolboxBitmap32", file + u", " + number);
        entries.add(key + u"\\DefaultIcon", file + u",-" + number);
    }
    entries.add(key + u"\\TypeLib", inBraces(library.id));
    entries.add(key + u"\\Version", libraryVersion(library));
    entries.add(key + u"\\Verb\\0", u"Edit,0,0");
    entries.add(key + u"\\Verb\\-7", u"&Properties,0,2");  // shown in the container's menu
    entries.add(key + u"\\Implemented Categories\\" + controlCategory, u"");
    const auto addInterface = [&](const Guid& id, const Text& name) {
        const Text interfaceKey = u"Interface\\" + inBraces(id);
        entries.add(interfaceKey, name);
        entries.add(interfaceKey + u"\\ProxyStubClsid32", dispatchProxy);
        entries.add(interfaceKey + u"\\TypeLib", inBraces(library.id));
        entries.add(interfaceKey + u"\\TypeLib", libraryVersion(library), u"Version");
    };
    addInterface(table.interfaceId, u"_" + table.name);
    addInterface(table.eventInterfaceId, u"__" + table.name);
    return entries;
}

Entries pageEntries(const Library& library, const PropertyPageFacts& page, const Text& file) {
    const Text key = u"CLSID\\" + inBraces(page.id);
    Entries entries;
    entries.add(key, library.description + u", property page " + Text(page.title));
    entries.add(key + u"\\InprocServer32", file);
    entries.add(key + u"\\InprocServer32", u"Apartment", u"ThreadingModel");
    return entries;
}

// Names and the type library are shared by both architectures.
Entries versionedNameEntries(const ControlTable& table) {
    Entries entries;
    entries.add(versionedProgrammaticId(table), classDescription(table));
    entries.add(versionedProgrammaticId(table) + u"\\CLSID", inBraces(table.classId));
    return entries;
}

// The name without a version belongs to whichever version was registered last.
Entries currentNameEntries(const ControlTable& table) {
    const Text name = programmaticId(table);
    Entries entries;
    entries.add(name, classDescription(table));
    entries.add(name + u"\\CLSID", inBraces(table.classId));
    entries.add(name + u"\\CurVer", versionedProgrammaticId(table));
    return entries;
}

// The system can register a type library itself, for one user not everywhere, and takes back more or less
// than it wrote; so its values are written as all others are.
Entries typesEntries(const Library& library, const Text& file) {
    Entries entries;
    entries.add(typesKey(library), library.description);
    entries.add(typesKey(library) + u"\\FLAGS", u"0");
    entries.add(typesKey(library) + u"\\HELPDIR", folderOf(file));
    return entries;
}

Entries typesFileEntries(const Library& library, Architecture architecture, const Text& file) {
    Entries entries;
    entries.add(typesFileKey(library, architecture), file);
    return entries;
}

}  // namespace

RegistryEntries registryEntries(const Library& library, Architecture architecture, const Text& file) {
    RegistryEntries entries;
    for (const ControlTable* table : publicControls(library)) {
        classEntries(library, *table, file).appendTo(entries.own);
        versionedNameEntries(*table).appendTo(entries.shared);
        currentNameEntries(*table).appendTo(entries.shared);
    }
    for (const PropertyPageFacts& page : propertyPages())
        pageEntries(library, page, file).appendTo(entries.own);
    typesFileEntries(library, architecture, file).appendTo(entries.shared);
    typesEntries(library, file).appendTo(entries.shared);
    return entries;
}

bool registerServer(const Library& library, Architecture architecture, const Text& file,
                    ClassesRegistry& classes) {
    bool written = typesFileEntries(library, architecture, file).write(classes, architecture);
    written = typesEntries(library, file).write(classes, architecture) && written;
    for (const ControlTable* table : publicControls(library)) {
        written = classEntries(library, *table, file).write(classes, architecture) && written;
        written = versionedNameEntries(*table).write(classes, architecture) && written;
        written = currentNameEntries(*table).write(classes, architecture) && written;
    }
    for (const PropertyPageFacts& page : propertyPages())
        written = pageEntries(library, page, file).write(classes, architecture) && written;
    return written;
}

bool unregisterServer(const Library& library, Architecture architecture, ClassesRegistry& classes) {
    const Architecture other = otherThan(architecture);
    bool removed = true;
    for (const PropertyPageFacts& page : propertyPages())
        removed = pageEntries(library, page, {}).remove(classes, architecture) && removed;
    for (const ControlTable* table : publicControls(library)) {
        removed = classEntries(library, *table, {}).remove(classes, architecture) && removed;
        // Asked once our own is gone, because both views may show the same keys.
        if (classes.read(other, serverKey(*table), {})) continue;
        // Older systems have names of its own for each architecture.
        for (const Architecture view : {architecture, other}) {
            removed = versionedNameEntries(*table).remove(classes, view) && removed;
            const auto current = classes.read(view, programmaticId(*table) + u"\\CurVer", {});
            if (current == versionedProgrammaticId(*table))
                removed = currentNameEntries(*table).remove(classes, view) && removed;
        }
    }
    removed = typesFileEntries(library, architecture, {}).remove(classes, architecture) && removed;
    if (const auto otherFile = classes.read(other, typesFileKey(library, other), {}))
        return typesEntries(library, *otherFile).write(classes, architecture) && removed;
    return typesEntries(library, {}).remove(classes, architecture) && removed;
}

}  // namespace obk
