#include <gtest/gtest.h>
#include <windows.h>

#include <olectl.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <sstream>

#include "container/control_site.h"
#include "container/message_loop.h"
#include "container/property_bag_text.h"
#include "container/text.h"
#include "container/type_members.h"
#include "person_support.h"
#include "server_support.h"

namespace obk::container {
namespace {

using testing_support::HostedControl;
using testing_support::TestWindow;

std::string narrow(std::wstring_view text) {
    return toUtf8(text);
}

// --- Readable property bags ------------------------------------------------------------------------

/// What a control reads back after the bag went through text.
Variant throughText(const Variant& value, std::wstring* written = nullptr) {
    FormText form;
    VARIANT raw = value.get();
    EXPECT_EQ(form.add(L"Control", L"A.B").bag->Write(L"Key", &raw), S_OK);
    std::vector<TextProblem> problems;
    const std::wstring text = form.write();
    if (written) *written = text;
    const FormText read = FormText::read(fromUtf8(toUtf8(text)), problems);
    EXPECT_TRUE(problems.empty()) << narrow(text);
    Variant result;
    const FormSection* section = read.find(L"control");
    EXPECT_TRUE(section && section->className == L"A.B") << narrow(text);
    EXPECT_TRUE(section && section->bag->Read(L"KEY", result.put(), nullptr) == S_OK) << narrow(text);
    return result;
}

TEST(PropertyBagText, BringsEveryPlainValueBackWithItsType) {
    constexpr double tiny = std::numeric_limits<double>::denorm_min();
    VARIANT lowest{};
    lowest.vt = VT_CY;
    lowest.cyVal.int64 = std::numeric_limits<long long>::min();
    const Variant values[] = {
        true,
        false,
        static_cast<unsigned char>(255),
        short{-32768},
        0L,
        std::numeric_limits<long>::min(),
        static_cast<long>(0x80000005u),
        std::numeric_limits<long long>::max(),
        0.1f,
        std::numeric_limits<float>::max(),
        0.1,
        -1.5e308,
        tiny,
        lowest,
        *Variant(1.2345).converted(VT_CY),
        L"",
        L"  two blanks, \"quotes\", back\\slash, = and [x]  ",
        L"lines\r\nand\ttabs and \x01",
        L"\xE4\x20AC \xD83D\xDE00",
        std::wstring(L"half a pair \xD83D", 13),
        *Variant(45000.75).converted(VT_DATE),
        *Variant(L"79228162514264337593543950335").converted(VT_DECIMAL),
    };
    for (const Variant& value : values) {
        std::wstring text;
        const Variant result = throughText(value, &text);
        SCOPED_TRACE(narrow(text));
        EXPECT_EQ(result.type(), value.type());
        EXPECT_EQ(result.toText(), value.toText());
        VARIANT read = result.get(), before = value.get();
        EXPECT_EQ(VarCmp(&read, &before, LOCALE_INVARIANT, 0), static_cast<HRESULT>(VARCMP_EQ));
    }
}

TEST(PropertyBagText, BringsBytesOfEveryLengthBack) {
    for (const std::string_view content :
         {std::string_view(""), std::string_view("\0", 1), std::string_view("ab"), std::string_view("abc"),
          std::string_view("\xFF\xFE\xFD\xFC", 4)}) {
        const Variant result = throughText(restored(StoredBytes{std::string(content)}));
        ASSERT_EQ(result.type(), VT_ARRAY | VT_UI1);
        const auto* array = result.get().parray;
        EXPECT_EQ(std::string_view(static_cast<const char*>(array->pvData), array->rgsabound[0].cElements),
                  content);
    }
}

TEST(PropertyBagText, StoresPicturesThroughTheirOwnPersistence) {
    PICTDESC description{sizeof description, PICTYPE_BITMAP, {{CreateBitmap(3, 5, 1, 24, nullptr), nullptr}}};
    ComPtr<IDispatch> picture;
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IDispatch, TRUE, picture.putVoid()), S_OK);
    const auto widthOf = [](const ComPtr<IPicture>& read) {
        OLE_XSIZE_HIMETRIC width = 0;
        return read && read->get_Width(&width) == S_OK ? width : 0;
    };
    const Variant result = throughText(picture.get());
    EXPECT_EQ(widthOf(result.toObject().query<IPicture>()), widthOf(picture.query<IPicture>()));
    EXPECT_GT(widthOf(picture.query<IPicture>()), 0);
}

TEST(PropertyBagText, ReportsAndSkipsWhatItCannotRead) {
    // The lines that begin with "!" are to be reported; what is read begins in the third column and ends in
    // blanks.
    const auto file =
        readFile(L"Z:" + fromUtf8(OBK_REPOSITORY_DIR) + L"/tests/windows/data/form_with_faults.txt");
    ASSERT_TRUE(file);
    std::wistringstream lines(fromUtf8(*file));
    std::wstring text = L"\xFEFF";
    std::vector<int> expected;
    int number = 0;
    for (std::wstring line; std::getline(lines, line); text += L"  \r\n") {
        ++number;
        if (line.starts_with(L'!')) expected.push_back(number);
        if (line.size() > 2) text += line.substr(2);
    }
    EXPECT_GT(expected.size(), 20u);
    std::vector<TextProblem> problems;
    const FormText form = FormText::read(text, problems);
    std::vector<int> reported(problems.size());
    std::transform(problems.begin(), problems.end(), reported.begin(), std::mem_fn(&TextProblem::line));
    EXPECT_EQ(reported, expected);

    ASSERT_EQ(form.sections().size(), 2u);
    const PropertyBagText& first = *form.sections()[0].bag;
    ASSERT_EQ(first.entries().size(), 2u);
    EXPECT_EQ(restored(*first.find(L"Good")).toLong(), 8) << "of two lines the later counts";
    EXPECT_EQ(restored(*first.find(L"Colour")).toLong(), static_cast<long>(0x80000005u));
    EXPECT_EQ(narrow(form.sections()[1].name), "Second");
    EXPECT_EQ(form.sections()[1].bag->entries().size(), 1u);
}

TEST(PropertyBagText, GivesTheTypeThatIsAskedForOrRefuses) {
    const ComPtr<PropertyBagText> bag = new PropertyBagText;
    bag->set(L"Number", Variant(L"12"));
    bag->set(L"Word", Variant(L"twelve"));
    VARIANT value = {};
    value.vt = VT_I4;
    EXPECT_EQ(bag->Read(L"Number", &value, bag.get()), S_OK);
    EXPECT_EQ(value.vt, VT_I4);
    EXPECT_EQ(value.lVal, 12);

    value.lVal = 5;
    EXPECT_EQ(bag->Read(L"Missing", &value, bag.get()), E_INVALIDARG);
    EXPECT_TRUE(bag->errors().empty()) << "a missing entry is no error";
    EXPECT_EQ(bag->Read(L"Word", &value, bag.get()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(value.lVal, 5) << "a refused read must leave the caller's value alone";
    EXPECT_EQ(bag->errors().size(), 1u);

    VARIANT array = {};
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    EXPECT_EQ(bag->Write(L"Number", &array), E_FAIL);
    EXPECT_EQ(restored(*bag->find(L"number")).toText(), L"12") << "a refused write must keep what was there";
    VariantClear(&array);
}

// --- Events ----------------------------------------------------------------------------------------

TEST(EventSink, LetsHandlersChangeArgumentsByReference) {
    const ComPtr<EventSink> sink = new EventSink;
    sink->on(6, [](EventCall& call) {
        EXPECT_EQ(call.count(), 6u);
        EXPECT_EQ(call.value(0).toLong(), 65) << "arguments come in declared order";
        EXPECT_TRUE(call.set(0, L"66")) << "converted to the type referred to";
        EXPECT_TRUE(call.set(1, 2.5) && call.set(3, L"after") && call.set(4, true) && call.set(5, 7L));
        EXPECT_FALSE(call.set(2, 9L)) << "an argument by value cannot change";
    });
    sink->on(6, [](EventCall& call) {
        EXPECT_EQ(call.value(0).toLong(), 66) << "later handlers see earlier changes";
        EXPECT_FALSE(call.set(0, L"no number"));
        EXPECT_FALSE(call.set(0, 70000L)) << "does not fit in 16 bits";
        EXPECT_FALSE(call.set(7, 1L));
    });
    short key = 65;
    float x = 1;
    BSTR text = SysAllocString(L"before");
    VARIANT_BOOL flag = VARIANT_FALSE;
    VARIANT slot = Variant(L"any").detach();
    VARIANT raw[] = {Variant::reference(slot).get(), Variant::booleanReference(flag).get(),
                     Variant::reference(text).get(), Variant(3L).get(),
                     Variant::reference(x).get(),    Variant::reference(key).get()};
    DISPPARAMS parameters = {raw, nullptr, 6, 0};
    EXPECT_EQ(sink->Invoke(6, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                           nullptr),
              S_OK);
    EXPECT_EQ(key, 66);
    EXPECT_EQ(x, 2.5f);
    EXPECT_STREQ(text, L"after");
    EXPECT_EQ(flag, VARIANT_TRUE);
    EXPECT_EQ(slot.vt, VT_I4);
    EXPECT_EQ(slot.lVal, 7);
    ASSERT_EQ(sink->journal().size(), 1u);
    EXPECT_EQ(sink->journal()[0].arguments[0].toLong(), 65) << "the journal keeps what arrived";
    SysFreeString(text);
}

// --- Sites, keys and focus -------------------------------------------------------------------------

TEST(ControlSite, HasNoActiveControlInDesignMode) {
    HostedControl hosted(L"UpDownTextBox", {L"Quantity", SiteOrder::asControlAsks, SiteMode::design});
    hosted.activate();
    EXPECT_EQ(hosted.site.state(), SiteState::inPlaceActive) << "it shows itself";
    hosted.site.uiActivate();
    EXPECT_EQ(hosted.site.state(), SiteState::inPlaceActive);
    EXPECT_EQ(hosted.form.activeSite(), nullptr);
    EXPECT_EQ(hosted.site.ambients().value(DISPID_AMBIENT_USERMODE).toBool(), false);
    EXPECT_EQ(hosted.site.ambients().value(DISPID_AMBIENT_DISPLAYNAME).toText(), L"Quantity");
}

TEST(ControlSite, DetachesFromWhoeverOutlivesIt) {
    const testing_support::LoadedServer server;
    const TestWindow window;
    ControlForm form(window.handle());
    auto site = std::make_unique<ControlSite>(form);
    const auto control = server.create(L"UpDownTextBox");
    ASSERT_EQ(site->adopt(control), S_OK);
    ComPtr<IOleClientSite> held;
    ASSERT_EQ(control.query<IOleObject>()->GetClientSite(held.put()), S_OK);
    site.reset();
    HWND parent = window.handle();
    EXPECT_TRUE(FAILED(held.query<IOleInPlaceSite>()->GetWindow(&parent)));
    EXPECT_EQ(parent, nullptr);
    EXPECT_TRUE(FAILED(held.query<IOleInPlaceSite>()->OnInPlaceActivate()));
    EXPECT_EQ(held.query<IOleControlSite>()->OnFocus(TRUE), S_OK);
}

// edit 1, field 0, a line and an arrow, which take no focus, a disabled and a hidden edit, field 3, edit 2.
class TabOrder : public testing::Test {
protected:
    testing_support::LoadedServer server;
    TestWindow window;
    ControlForm form{window.handle()};
    MessageLoop loop;
    HWND edit1 = window.addEdit(0);
    std::vector<std::unique_ptr<ControlSite>> sites;
    HWND edit2 = nullptr;

    void addControl(const wchar_t* name) {
        sites.push_back(std::make_unique<ControlSite>(form));
        ASSERT_EQ(sites.back()->adopt(server.create(name)), S_OK);
        const int y = 30 * static_cast<int>(sites.size());
        sites.back()->activate({10, y, 110, y + 24});
    }
    void SetUp() override {
        form.add(edit1);
        for (const wchar_t* name : {L"UpDownTextBox", L"lns", L"ButtonArrow"}) addControl(name);
        form.add(window.addEdit(180, WS_VISIBLE | WS_DISABLED));
        form.add(window.addEdit(210, 0));
        addControl(L"UpDownTextBox");
        edit2 = window.addEdit(240);
        form.add(edit2);
        loop.add(form);
        SetFocus(edit1);
    }

    std::string walk(int steps) {
        std::string path;
        for (int step = 0; step < steps; ++step) {
            MSG message{GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
            loop.handle(message);
            const HWND focus = GetFocus();
            std::string where = focus == edit1 ? "edit 1" : focus == edit2 ? "edit 2" : "elsewhere";
            for (size_t index = 0; index < sites.size(); ++index)
                if (sites[index]->holdsWindow(focus)) where = "field " + std::to_string(index);
            path += (path.empty() ? "" : ", ") + where;
        }
        return path;
    }
};

TEST_F(TabOrder, GoesThroughWindowsAndControlsAndPassesOverTheRest) {
    EXPECT_EQ(walk(4), "field 0, field 3, edit 2, edit 1");
    {
        const testing_support::AsIfHeld shift(VK_SHIFT);
        EXPECT_EQ(walk(4), "edit 2, field 3, field 0, edit 1");
    }
    bool asked = false;
    sites[0]->onKey = [&](MSG&) { return asked = true; };
    EXPECT_EQ(walk(2), "field 0, field 0") << "the container used the key";
    EXPECT_TRUE(asked);
    sites[0]->close();
    SetFocus(edit1);
    EXPECT_EQ(walk(2), "field 3, edit 2") << "closed while it had the focus";
}

TEST_F(TabOrder, HasOneActiveControlAtMost) {
    walk(1);
    EXPECT_EQ(form.activeSite(), sites[0].get());
    walk(1);
    EXPECT_EQ(form.activeSite(), sites[3].get());
    EXPECT_EQ(sites[0]->state(), SiteState::inPlaceActive);
    EXPECT_EQ(sites[3]->state(), SiteState::uiActive);
    walk(1);
    EXPECT_EQ(form.activeSite(), nullptr) << "an ordinary window has the focus";
    EXPECT_EQ(sites[3]->state(), SiteState::inPlaceActive);
    SetFocus(edit1);
    walk(1);
    SetFocus(edit2);
    loop.pumpPending();
    form.followFocus();
    EXPECT_EQ(form.activeSite(), nullptr) << "also where no key has moved it";
}

// --- The server's files ----------------------------------------------------------------------------

TEST(ServerContext, CreatesEveryClassByEachRouteWithoutRegistration) {
    const std::wstring file = testing_support::serverFile();
    const std::wstring folder = file.substr(0, file.rfind(L'\\'));
    ServerContext contexts[] = {ServerContext::fromManifest(folder + L"\\OBKCTRLS.manifest"),
                                ServerContext::fromLibrary(file), ServerContext::inFolder(folder)};
    EXPECT_EQ(contexts[2].route(), ServerContext::Route::manifest) << narrow(contexts[2].source());
    ASSERT_FALSE(testing_support::serverClasses().empty());
    for (const ServerContext& context : contexts) {
        ASSERT_TRUE(context.valid()) << narrow(context.source());
        for (const std::wstring& name : testing_support::serverClasses()) {
            ComPtr<IUnknown> object;
            EXPECT_EQ(context.create(L"OBKCTRLS." + name, object), S_OK)
                << narrow(context.source() + L": " + name);
            EXPECT_TRUE(sameName(TypeMembers::of(object.get()).className(), name));
        }
        ComPtr<IUnknown> object;
        EXPECT_TRUE(FAILED(context.create(L"OBKCTRLS.Nothing", object)));
        EXPECT_FALSE(object);
    }
    const ServerContext moved = std::move(contexts[1]);
    EXPECT_EQ(moved.route(), ServerContext::Route::library);
    EXPECT_EQ(ServerContext::inFolder(folder + L"\\nowhere").route(), ServerContext::Route::registry);
    EXPECT_FALSE(ServerContext::fromManifest(folder + L"\\none.manifest").valid());
    EXPECT_FALSE(ServerContext::fromLibrary(folder + L"\\none.ocx").valid());
}

TEST(TypeMembers, DescribesValuesAsAPersonEditsThem) {
    const testing_support::LoadedServer server;
    const auto members = TypeMembers::of(server.create(L"UpDownTextBox").get());
    const std::tuple<const wchar_t*, ValueKind, const char*> rows[] = {
        {L"BackColor", ValueKind::colour, "OLE_COLOR"}, {L"enabled", ValueKind::boolean, "Boolean"},
        {L"Interval", ValueKind::number, "Double"},     {L"Max", ValueKind::integer, "Long"},
        {L"Text", ValueKind::text, "String"},           {L"Font", ValueKind::font, "Font"}};
    for (const auto& [name, kind, type] : rows) {
        SCOPED_TRACE(narrow(name));
        const Member* member = members.property(name);
        ASSERT_TRUE(member);
        EXPECT_EQ(member->type.kind, kind);
        EXPECT_NE(narrow(member->type.name).find(type), std::string::npos) << narrow(member->type.name);
        EXPECT_TRUE(member->readable && member->writable);
        EXPECT_FALSE(member->help.empty());
    }
    const Member* method = members.method(L"KeyLock");
    ASSERT_TRUE(method);
    ASSERT_EQ(method->arguments.size(), 3u);
    EXPECT_EQ(method->arguments[1].type.kind, ValueKind::boolean);
    const auto keyPress = std::find_if(members.events().begin(), members.events().end(),
                                       [](const Member& event) { return event.name == L"KeyPress"; });
    ASSERT_NE(keyPress, members.events().end());
    EXPECT_EQ(narrow(keyPress->signature()), "KeyPress(KeyAscii)");
    EXPECT_TRUE(keyPress->arguments[0].type.byReference);
    EXPECT_EQ(members.event(keyPress->number), &*keyPress);
}

TEST(MessageLoop, GivesUpWaitingAtItsDeadline) {
    MessageLoop loop;
    EXPECT_FALSE(loop.pumpUntil([] { return false; }, std::chrono::milliseconds(30)));
    int asked = 0;
    EXPECT_TRUE(loop.pumpUntil([&] { return ++asked == 3; }));
}

}  // namespace
}  // namespace obk::container
