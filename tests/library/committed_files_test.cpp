#include "library/class_facts.h"
#include "library/contract_writer.h"
#include "library/idl_writer.h"
#include "library/import_writers.h"
#include "library/library.h"
#include "library/manifest_writer.h"
#include "library/reference_writer.h"
#include "library/registry_writer.h"
#include "platform/headless/headless_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace obk {
namespace {

const std::filesystem::path repository = OBK_REPOSITORY_DIR;

std::string committed(const std::filesystem::path& file) {
    std::ifstream stream(repository / file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// Says where two texts part, instead of printing both.
testing::AssertionResult same(const std::string& derived, const std::string& file) {
    auto tables = linesOf(derived), written = linesOf(committed(file));
    if (tables == written) return testing::AssertionSuccess();
    tables.emplace_back("(end)");
    written.emplace_back("(end)");
    const auto [left, right] = std::mismatch(tables.begin(), tables.end(), written.begin(), written.end());
    return testing::AssertionFailure() << file << " line " << left - tables.begin() + 1
                                       << "\n  the tables: " << *left << "\n  the file:   " << *right;
}

constexpr auto howToMend = "If the change is meant, and old hosts do not break, run the describe tool again.";

TEST(CommittedFiles, TheContractWithHostsIsWhatTheTablesSay) {
    EXPECT_TRUE(same(writeIdl(library()), "src/server/OBKCTRLS.idl")) << howToMend;
    EXPECT_TRUE(same(writeManifest(library()), "src/server/OBKCTRLS.manifest")) << howToMend;
    EXPECT_TRUE(same(writeRegistry(library()), "packaging/registry.tsv")) << howToMend;
    EXPECT_TRUE(same(writePascalUnit(library()), "imports/OBKCTRLS.pas")) << howToMend;
    EXPECT_TRUE(same(writeCppHeader(library()), "imports/obkctrls.h")) << howToMend;
    EXPECT_TRUE(same(writeCsharpSource(library()), "imports/OBKCTRLS.cs")) << howToMend;
    EXPECT_TRUE(same(writeBasicConstants(library()), "imports/OBKCTRLS.bas")) << howToMend;
    EXPECT_TRUE(same(writeScriptConstants(library()), "imports/OBKCTRLS.vbs")) << howToMend;
}

// Unlike the other files these are never written again: what they say is what hosts were built with.
TEST(CommittedFiles, EveryReleasedPromiseIsKept) {
    const auto lines = linesOf(writeContract(library()));
    const std::set<std::string> kept(lines.begin(), lines.end());
    int releases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(repository / "src/library/contracts")) {
        const std::string release = entry.path().filename().string();
        const auto promised = linesOf(committed("src/library/contracts/" + release));
        EXPECT_GT(promised.size(), 300u) << release;
        for (const std::string& promise : promised)
            EXPECT_TRUE(kept.contains(promise)) << release << ": " << promise;
        ++releases;
    }
    EXPECT_GE(releases, 1);
}

TEST(CommittedFiles, TheChangesBeginWithTheReleaseThatIsBuilt) {
    const std::string changes = committed("CHANGELOG.md");
    const size_t first = changes.find("\n## ");
    ASSERT_NE(first, std::string::npos);
    const std::string release = toUtf8(library().release);
    EXPECT_EQ(changes.compare(first + 4, release.size() + 1, release + ","), 0) << changes.substr(first, 40);
}

TEST(CommittedFiles, EveryPublicControlHasItsReferencePage) {
    headless::HeadlessPlatform platform;
    std::set<std::string> pages{"README.md"};
    EXPECT_TRUE(same(writeReferenceIndex(library()), "docs/reference/README.md")) << howToMend;
    for (const ControlTable* table : publicControls(library())) {
        const std::string page = toUtf8(table->name) + ".md";
        pages.insert(page);
        const auto fresh = table->create(platform);
        fresh->initNew();
        EXPECT_TRUE(same(writeReference(*fresh), "docs/reference/" + page)) << howToMend;
    }
    for (const auto& entry : std::filesystem::directory_iterator(repository / "docs/reference"))
        EXPECT_TRUE(pages.contains(entry.path().filename().string()))
            << entry.path() << " belongs to no control";
}

}  // namespace
}  // namespace obk
