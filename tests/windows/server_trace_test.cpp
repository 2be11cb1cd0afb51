// The trace, as a host's developer switches it on and reads it.
#include "server_support.h"

#include "container/property_bag_text.h"
#include "container/text.h"

#include <gtest/gtest.h>

#include <optional>
#include <regex>

namespace obk {
namespace {

using namespace testing_support;

class ServerTraceTest : public testing::Test {
protected:
    ServerTraceTest() { DeleteFileW(file_.c_str()); }
    ~ServerTraceTest() override {
        trace(nullptr);
        DeleteFileW(file_.c_str());
    }
    static void trace(const wchar_t* to) { SetEnvironmentVariableW(L"OBKCTRLS_TRACE", to); }
    std::optional<std::string> written() const { return container::readFile(file_); }
    // Every kind of mistake that a host can make.
    static void makeMistakes() {
        {
            HostedControl grid(L"GridEdit", {L"grdOrders"});
            grid.activate({10, 10, 310, 210});
            const auto object = grid.object();
            EXPECT_EQ(object.call(L"CellTextSet", {L"first", 0, L"x"}), DISP_E_TYPEMISMATCH);
            EXPECT_EQ(object.call(L"CellTextSet", {9, 0, L"x"}), S_OK);
            EXPECT_EQ(object.call(L"GridLoad", {L"C:\\no such folder\\Bestell\u00fcbersicht.txt"}), S_OK);
            grid.site.events().onAny([](container::EventCall& call) { call.answer(E_ACCESSDENIED); });
            EXPECT_EQ(object.call(L"RowsSet", {3}), S_OK);
            EXPECT_EQ(object.call(L"GridShow"), S_OK);
            EXPECT_EQ(object.call(L"CellFontSet", {0, 0, L"No such font", L"12", false, false, 0}), S_OK);
            EXPECT_EQ(object.call(L"CellTextSet", {0, 0, L"x"}), S_OK);
            grid.loop.pumpPending();
        }
        {
            HostedControl date(L"DateCalendar", {L"datDue"});
            date.activate();
            EXPECT_EQ(date.object().put(L"Text", L"no date"), S_OK);
            EXPECT_EQ(date.object().call(L"ShowPopUp"), S_OK);
        }
        const ComPtr<container::PropertyBagText> bag(new container::PropertyBagText);
        bag->set(L"Max", container::StoredValue{container::Variant(L"many")});
        HostedControl field(L"UpDownTextBox", {L"txtQuantity"}, {bag.get()});
    }

    const std::wstring file_ =
        temporaryFile(L"obk-trace-" + std::to_wstring(GetCurrentProcessId()) + L".txt");
};

TEST_F(ServerTraceTest, EachThingThatWasLeftUndoneIsALine) {
    trace(file_.c_str());
    makeMistakes();
    const std::string all = written().value_or("");
    const std::string time = "(^|\n)[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} ";
    for (
        const char* line : {
            R"(GridEdit grdOrders CellTextSet: argument 1 refused, "first" \(String\) came, Long is wanted)",
            R"(GridEdit grdOrders CellTextSet: row 9 refused, there are 2)",
            R"(DateCalendar datDue ShowPopUp: a statement was skipped at src/datecalendar/\S+:[0-9]+, \S.*)",
            R"(GridEdit grdOrders GridLoad: the file "C:\\no such folder\\Bestellübersicht.txt" was not opened, error 0x0000000[23]: \S.*)",
            R"(GridEdit grdOrders RowsSet: the host's handler of Change answered with an error, error 0x80070005: .*)",
            R"(GridEdit grdOrders \S+: no font is named "No such font")",
            R"(UpDownTextBox txtQuantity -: the stored Max refused, "many" \(String\) came, Long is wanted)",
        })
        EXPECT_TRUE(std::regex_search(all, std::regex(time + line + "\r\n"))) << line << "\n in \n" << all;
}

TEST_F(ServerTraceTest, NothingIsWrittenUnlessTheVariableIsSet) {
    trace(nullptr);
    makeMistakes();
    EXPECT_FALSE(written());
}

}  // namespace
}  // namespace obk
