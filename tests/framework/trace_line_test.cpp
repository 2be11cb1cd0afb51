// What hosts' developers read of what was left undone.
#include "framework/trace_line.h"

#include "grid/grid_edit.h"
#include "support/control_fixture.h"
#include "updown/up_down_text_box.h"

#include <string>

namespace obk::test {
namespace {

Journal lines;

void keepLine(const LeftUndone& undone) noexcept {
    lines.push_back(toUtf8(traceLine(u"now", undone)));
}

class TraceLineTest : public ControlFixture {
protected:
    TraceLineTest() : before_(observeUndone(keepLine)) { lines.clear(); }
    ~TraceLineTest() override { observeUndone(before_); }

    // The first line about a call of a grid's.
    std::string told(TextView member, std::vector<Value> arguments) {
        const AtWork work(*control, member);
        lines.clear();
        call(member, std::move(arguments));
        const std::string whose = "now GridEdit grdOrders ";
        if (lines.empty() || !lines[0].starts_with(whose)) return lines.empty() ? "nothing" : lines[0];
        return lines[0].substr(whose.size());
    }

private:
    void SetUp() override { place(UpDownTextBox::memberTable()); }

    UndoneObserver before_;
};

TEST_F(TraceLineTest, SaysWhatAGridDoesNotHave) {
    place(GridEdit::memberTable());
    host.givenName = u"grdOrders";
    EXPECT_EQ(told(u"CellTextSet", {9, 0, Text(u"x")}), "CellTextSet: row 9 refused, there are 2");
    EXPECT_EQ(told(u"CellTextRead", {0, -1}), "CellTextRead: column -1 refused, there are 2");
    EXPECT_EQ(told(u"ColWidth", {5, 1000.0}), "ColWidth: column 5 refused, there are 2");
    EXPECT_EQ(told(u"RowDel", {7}), "RowDel: row 7 refused, there are 2");
    EXPECT_EQ(told(u"CellSetIcon", {0, 0, Text(u"no icon")}), "CellSetIcon: no icon is named \"no icon\"");
    EXPECT_EQ(told(u"CellTextSet", {0, 0, Text(u"x")}), "nothing");
    EXPECT_EQ(told(u"GridLoad", {Text(u"C:\\no\nfile")}),
              "GridLoad: the file \"C:\\no file\" was not opened, there is none");
}

TEST_F(TraceLineTest, SaysWhichValuesWereRefused) {
    put(u"BorderStyle", 7);
    EXPECT_EQ(std::exchange(lines, {}), (Journal{"now - - -: the value refused, 7 came, 0 or 1 is wanted"}));
    MemoryBag bag;
    bag.write(u"Max", Text(50, u'x'));
    bag.write(u"Min", true);
    bag.write(u"BackColor", PictureRef());
    control->load(bag);
    EXPECT_EQ(lines,
              (Journal{"now UpDownTextBox - -: the stored Backcolor refused, an object (Picture) came, "
                       "OLE_COLOR is wanted",
                       "now UpDownTextBox - -: the stored Max refused, \"" + std::string(40, 'x') +
                           "\u2026\" (String) came, Long is wanted"}));
}

TEST_F(TraceLineTest, SaysWhichStatementWasSkippedAndKnowsWhoIsAtWork) {
    activate();
    control->focus();
    host.on["DownClick"] = [](std::span<Value>) { throw StatementFailed("the host's"); };
    const SkippedObserver before = observeSkipped(tellSkippedAsUndone);
    platform.pressKey(key::up);
    observeSkipped(before);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].find("now UpDownTextBox - -: a statement was skipped at "), 0u) << lines[0];
    EXPECT_NE(lines[0].find("up_down_text_box.cpp:"), std::string::npos) << lines[0];
    EXPECT_NE(lines[0].find(", the host's"), std::string::npos) << lines[0];
}

TEST_F(TraceLineTest, AHostThatErrsWhileItIsAskedForTheNameIsNotAskedAgain) {
    struct : JournalHost {
        Text name() override {
            tellUndone({.kind = LeftUndone::Kind::font, .subject = u"inner"});
            return u"outer";
        }
    } erring;
    control->setHost(&erring);
    const AtWork work(*control, u"Font");
    tellUndone({.kind = LeftUndone::Kind::font, .subject = u"Nada"});
    EXPECT_EQ(lines, (Journal{"now UpDownTextBox - Font: no font is named \"inner\"",
                              "now UpDownTextBox outer Font: no font is named \"Nada\""}));
    control->setHost(nullptr);
}

TEST_F(TraceLineTest, ANestedControlGivesThePlaceBackToTheOneAround) {
    const auto inner = GridEdit::memberTable().create(platform);
    const AtWork outer(*control, u"Outer");
    { const AtWork work(*inner, u"Inner"); }
    tellUndone({.kind = LeftUndone::Kind::font, .subject = u"Nada"});
    EXPECT_EQ(lines, (Journal{"now UpDownTextBox - Outer: no font is named \"Nada\""}));
}

}  // namespace
}  // namespace obk::test
