// Whatever fails below a control, the later steps of what it does are done.
#include "library/library.h"
#include "platform/headless/recording_canvas.h"
#include "support/control_fixture.h"
#include "support/expect_skipped.h"
#include "support/failing_memory.h"
#include "support/sample_values.h"

namespace obk::test {
namespace {

using Cause = SkippedStatement::Cause;
constexpr PixelRect place{0, 0, 300, 160};

// Counts without needing memory.
class CountingHost final : public ControlHost {
public:
    void raise(const Member&, std::span<Value>) override {}
    void propertyChanged(const Member* property) override { told += property == watched; }
    FontRef ambientFont() override { return nullptr; }
    void requestSize(Twips, Twips) override {}
    void focusChanged(bool) override {}
    bool offerToContainer(const KeyEvent&) override { return false; }
    void viewChanged() override {}

    const Member* watched = nullptr;
    int told = 0;
};

class TotalityTest : public ControlFixture, public testing::WithParamInterface<const ControlTable*> {
protected:
    void SetUp() override {
        ControlFixture::place(*GetParam());
        control->setHost(&counting);
        activate(obk::test::place);
    }
    void TearDown() override { control->setHost(nullptr); }

    // How often the host is told that a property has changed while it is put.
    int told(const Member& property, const Value& value) {
        counting.watched = &property;
        counting.told = 0;
        putProperty(*control, property, value);
        return counting.told;
    }
    // Where everything stands, and how it looks.
    std::vector<PixelRect> drawn() {
        headless::RecordingCanvas canvas(control->root().dpi(), obk::test::place);
        control->draw(canvas, obk::test::place);
        std::vector<PixelRect> rects;
        for (const headless::DrawnItem& item : canvas.items()) rects.push_back(item.rect);
        return rects;
    }

    CountingHost counting;
};

INSTANTIATE_TEST_SUITE_P(Every, TotalityTest, testing::ValuesIn(library().controls),
                         [](const auto& row) { return toUtf8(row.param->name); });

TEST_P(TotalityTest, TheContainerHearsOfAPropertyAlthoughAllChildWindowsFailAndWhereverMemoryEnds) {
    for (const Member& property : GetParam()->members) {
        const std::vector<Value> values = property.put ? valuesOf(property) : std::vector<Value>();
        if (values.size() < 2) continue;
        SCOPED_TRACE(toUtf8(property.name));
        told(property, values[0]);
        const int usually = told(property, values[1]);
        told(property, values[0]);
        {
            const AllowSkipped announced(Cause::other);
            platform.failChildWindows(true);
            EXPECT_EQ(told(property, values[1]), usually);
            platform.failChildWindows(false);
        }
        bool failed = true;
        for (uint64_t end = 0; failed; ++end) {
            SCOPED_TRACE("memory ends after " + std::to_string(end));
            told(property, values[0]);
            const FailingMemory memory(end);
            const bool now = told(property, values[1]) > 0;
            failed = memory.failed();
            const EnoughMemory enough;
            ASSERT_EQ(now, usually > 0);
        }
    }
}

TEST_P(TotalityTest, AWholeLayoutIsDoneAlthoughAllChildWindowsFail) {
    const AllowSkipped announced(Cause::other);
    control->setSize(Twips{3000}, Twips{1500});
    const auto before = drawn();
    control->setSize(Twips{4500}, Twips{2400});
    const auto whole = drawn();
    if (platform.windowCount() > 1) {
        EXPECT_NE(before, whole);  // with child windows it has parts that a size moves
    }
    control->setSize(Twips{3000}, Twips{1500});
    platform.failChildWindows(true);
    control->setSize(Twips{4500}, Twips{2400});
    platform.failChildWindows(false);
    EXPECT_EQ(drawn(), whole);
}

}  // namespace
}  // namespace obk::test
