// Prints what follows from the member tables: run it after a table has changed, and commit what it writes.
//
//   describe idl               the interface definition      (src/server/OBKCTRLS.idl)
//   describe manifest          the assembly's manifest       (src/server/OBKCTRLS.manifest)
//   describe contract          what a release promises       (src/library/contracts)
//   describe registry          what registering writes       (packaging/registry.tsv)
//   describe imports FOLDER     the languages of hosts       (imports)
//   describe reference FOLDER  the reference pages           (docs/reference)
#include "library/class_facts.h"
#include "library/contract_writer.h"
#include "library/idl_writer.h"
#include "library/import_writers.h"
#include "library/library.h"
#include "library/manifest_writer.h"
#include "library/reference_writer.h"
#include "library/registry_writer.h"
#include "platform/headless/headless_platform.h"

#include <fstream>
#include <iostream>
#include <string>

namespace {

bool write(const std::string& file, const std::string& content) {
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    stream.close();
    if (!stream) std::cerr << "describe: cannot write " << file << '\n';
    return static_cast<bool>(stream);
}

bool writeReferencePages(const std::string& folder) {
    const obk::Library& library = obk::library();
    bool written = write(folder + "/README.md", obk::writeReferenceIndex(library));
    obk::headless::HeadlessPlatform platform;
    for (const obk::ControlTable* table : obk::publicControls(library)) {
        const auto fresh = table->create(platform);
        fresh->initNew();
        written =
            write(folder + "/" + obk::toUtf8(table->name) + ".md", obk::writeReference(*fresh)) && written;
    }
    return written;
}

bool writeImports(const std::string& folder) {
    const obk::Library& library = obk::library();
    bool written = write(folder + "/OBKCTRLS.pas", obk::writePascalUnit(library));
    written = write(folder + "/obkctrls.h", obk::writeCppHeader(library)) && written;
    written = write(folder + "/OBKCTRLS.cs", obk::writeCsharpSource(library)) && written;
    written = write(folder + "/OBKCTRLS.bas", obk::writeBasicConstants(library)) && written;
    return write(folder + "/OBKCTRLS.vbs", obk::writeScriptConstants(library)) && written;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "idl" && argc == 2) {
        std::cout << obk::writeIdl(obk::library());
    } else if (what == "manifest" && argc == 2) {
        std::cout << obk::writeManifest(obk::library());
    } else if (what == "contract" && argc == 2) {
        std::cout << obk::writeContract(obk::library());
    } else if (what == "registry" && argc == 2) {
        std::cout << obk::writeRegistry(obk::library());
    } else if (what == "imports" && argc == 3) {
        if (!writeImports(argv[2])) return 1;
    } else if (what == "reference" && argc == 3) {
        if (!writeReferencePages(argv[2])) return 1;
    } else {
        std::cerr
            << "usage: describe idl | manifest | contract | registry | imports FOLDER | reference FOLDER\n";
        return 2;
    }
    return 0;
}
