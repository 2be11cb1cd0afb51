// What a member table refuses while it is being built.
#include "framework/table_rows.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

class TableRowsTest : public testing::Test {
protected:
    TableRowsTest() {
        rows.add(MemberKind::property, 1, u"First", u"Help", &first_);
        rows.add(MemberKind::method, 2, u"Second", u"Help", nullptr).parameters = {
            {u"Left", {}, false, {}}, {u"Right", {}, false, true}};
        rows.add(MemberKind::event, 1, u"First", u"Help", nullptr);
        rows.addPersisted({u"FIRST", Value(0)}, ValueType::longInteger, &first_).get = [](const Control&,
                                                                                          Value&) {};
        rows.addSaved(&first_);
        rows.addNotification(1, u"SECOND");
    }
    Member& second() { return rows.table.members[1]; }

    TableRows rows;
    int first_ = 0;
};

TEST_F(TableRowsTest, AWholeTableHasNoFault) {
    EXPECT_EQ(rows.faults(), std::vector<Text>{});
    const ControlTable table = rows.finished();
    EXPECT_EQ(table.persisted[0].property, table.member(1));
    EXPECT_EQ(table.member(u"SECOND"), table.member(2));
}

TEST_F(TableRowsTest, ANumberOrNameStandsOnceAmongMembersAndOnceAmongEvents) {
    rows.add(MemberKind::method, 2, u"Third", u"Help", nullptr);
    EXPECT_EQ(rows.faults(), std::vector<Text>{u"Third: its number stands twice"});
    rows.table.members.back().number = 3;
    rows.table.members.back().name = u"FIRST";
    EXPECT_EQ(rows.faults(), std::vector<Text>{u"FIRST: its name stands twice"});
    rows.table.members.pop_back();
    rows.add(MemberKind::event, 1, u"first", u"Help", nullptr);
    EXPECT_EQ(rows.faults().size(), 2u);
    rows.table.events.pop_back();
    second().number = 0;
    second().name = {};
    EXPECT_EQ(rows.faults().size(), 2u);
}

TEST_F(TableRowsTest, ParametersHaveNamesAndDefaultsToTheEnd) {
    second().parameters[0].name = {};
    EXPECT_EQ(rows.faults(), std::vector<Text>{u"Second: a parameter without a name"});
    second().parameters[0].name = u"Left";
    second().parameters[0].defaultValue = true;
    second().parameters[1].defaultValue = {};
    EXPECT_EQ(rows.faults(), std::vector<Text>{u"Second: a default is missing"});
    EXPECT_DEATH((void)rows.finished(), "Second: a default is missing") << "a fault ends a native program";
}

TEST_F(TableRowsTest, AnOrderOfSavingAndANotificationNameRowsThatAreThere) {
    rows.addSaved(&rows);
    EXPECT_EQ(rows.faults().size(), 1u);
    rows.repeatPersisted().token = &rows;  // loaded once more and never saved
    rows.addSaved(&rows);
    EXPECT_EQ(rows.faults().size(), 2u);
    rows.addNotification(7, u"SEVENTH");
    EXPECT_EQ(rows.faults().size(), 3u);
}

}  // namespace
}  // namespace obk
