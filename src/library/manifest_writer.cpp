#include "library/manifest_writer.h"

#include "library/class_facts.h"
#include "library/property_pages.h"

namespace obk {

std::string writeManifest(const Library& library) {
    const Text version = libraryVersion(library);
    Text text =
        u"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        u"<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n";
    text += u"  <assemblyIdentity type=\"win32\" name=\"" + library.name + u"\" version=\"" +
            library.release + u".0\"/>\n";
    text += u"  <file name=\"" + library.name + u".ocx\">\n";
    for (const ControlTable* table : publicControls(library)) {
        const Text status = miscellaneousStatusNames(*table);
        text +=
            u"    <comClass clsid=\"{" + guidDigits(table->classId) + u"}\" threadingModel=\"Apartment\"\n";
        text += u"        tlbid=\"{" + guidDigits(library.id) + u"}\" progid=\"" +
                versionedProgrammaticId(*table) + u"\"\n";
        text += u"        description=\"" + classDescription(*table) + u"\"\n";
        text += u"        miscStatus=\"" + status + u"\"\n";
        text += u"        miscStatusContent=\"" + status + u"\">\n";
        text += u"      <progid>" + programmaticId(*table) + u"</progid>\n";
        text += u"    </comClass>\n";
    }
    for (const PropertyPageFacts& page : propertyPages())
        text += u"    <comClass clsid=\"{" + guidDigits(page.id) + u"}\" threadingModel=\"Apartment\"/>\n";
    text += u"    <typelib tlbid=\"{" + guidDigits(library.id) + u"}\" version=\"" + version +
            u"\" helpdir=\"\" resourceid=\"1\"/>\n";
    text += u"  </file>\n</assembly>\n";
    return toUtf8(text);
}

}  // namespace obk
