#include "tutorial/star_rating.h"

#include "support/control_fixture.h"

#include <filesystem>
#include <fstream>

namespace obk::test {
namespace {

class StarRatingTest : public ControlFixture {
protected:
    void SetUp() override {
        place(tutorial::StarRating::memberTable());
        activate({0, 0, 100, 20});
        host.take();
    }
};

TEST_F(StarRatingTest, AClickGivesTheStarsUpToTheMouse) {
    platform.click(control->window(), {59, 10});
    EXPECT_EQ(text(u"Stars"), "3");
    EXPECT_EQ(host.take(), (Journal{"focus in", "changed Stars", "Change"}));
    platform.click(control->window(), {41, 10});
    EXPECT_EQ(host.take(), Journal{}) << "the same star once more";
    put(u"Stars", int32_t{6});
    EXPECT_EQ(text(u"Stars"), "3") << "there is no sixth star";
    call(u"Clear");
    EXPECT_EQ(host.take(), (Journal{"changed Stars", "Change"}));
}

TEST_F(StarRatingTest, ArrowKeysStepAndStopAtBothEnds) {
    control->focus();
    const auto pressed = [this](int16_t code) {
        platform.pressKey(code);
        return text(u"Stars");
    };
    EXPECT_EQ(pressed(key::left), "0");
    for (const char* stars : {"1", "2", "3", "4", "5", "5"}) EXPECT_EQ(pressed(key::right), stars);
    EXPECT_EQ(pressed(key::left), "4");
    EXPECT_EQ(std::ranges::count(host.take(), "Change"), 6);
}

TEST_F(StarRatingTest, AGivenStarIsShownInAnotherColour) {
    put(u"Stars", int32_t{2});
    headless::RecordingCanvas canvas(Dpi(96), {0, 0, 100, 20});
    control->draw(canvas, {0, 0, 100, 20});
    std::vector<Rgb> stars;
    for (const auto& item : canvas.items())
        if (item.kind == headless::DrawnItem::Kind::polygon) stars.push_back(item.colour);
    const Rgb given = system(SystemColour::highlight);
    const Rgb other = system(SystemColour::buttonShadow);
    EXPECT_EQ(stars, (std::vector{given, given, other, other, other}));
}

TEST_F(StarRatingTest, AFormKeepsTheStars) {
    put(u"Stars", int32_t{4});
    MemoryBag bag;
    control->save(bag);
    place(tutorial::StarRating::memberTable());
    control->load(bag);
    EXPECT_EQ(text(u"Stars"), "4");
}

TEST_F(StarRatingTest, TheHostMayLetGoInsideTheEvent) {
    host.on["Change"] = [this](std::span<Value>) { release(); };
    platform.click(control->window(), {59, 10});
    EXPECT_EQ(platform.windowCount(), 0u);
}

// The lines of a file that are not blank.
std::vector<std::string> linesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<std::string> all;
    for (std::string line; std::getline(stream, line);)
        if (!line.empty()) all.push_back(line);
    return all;
}

TEST(Tutorial, ThePageQuotesItsSourcesWhole) {
    const std::filesystem::path repository = OBK_REPOSITORY_DIR;
    const std::string opening = "`docs/tutorial/";
    std::map<std::string, std::vector<std::string>> quoted;
    // A block of code belongs to the file that was named last before it.
    std::string file;
    bool inBlock = false;
    for (const std::string& line : linesOf(repository / "docs/build-a-control.md")) {
        if (line.starts_with("```"))
            inBlock = !inBlock;
        else if (inBlock)
            quoted[file].push_back(line);
        else if (const size_t at = line.find(opening); at != std::string::npos)
            file = line.substr(at + opening.size(), line.find('`', at + 1) - at - opening.size());
    }
    for (const auto& entry : std::filesystem::directory_iterator(repository / "docs/tutorial")) {
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(quoted[name], linesOf(entry.path())) << name;
        quoted.erase(name);
    }
    EXPECT_TRUE(quoted.empty()) << "quotes " << quoted.begin()->first << ", which is no source";
}

}  // namespace
}  // namespace obk::test
