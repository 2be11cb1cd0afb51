// The examples of the documentation that stand in a form's module (```vba): the system's script engine runs
// each beside a control on a form of ours, while a person uses that as the page says. tests/scripts runs the
// others.
#include "container/text.h"
#include "person_support.h"

#include <activscp.h>

#include <filesystem>
#include <map>
#include <regex>

namespace obk {
namespace {

using namespace testing_support;

// Sees the control by a name, and hears its events in procedures "name_event". The form's own sink calls
// them, as not every engine connects itself.
class FormModule final : public ComObject<IActiveScriptSite> {
public:
    FormModule(const HostedControl& hosted, std::wstring name, const std::wstring& code)
        : control_(hosted.object()), name_(std::move(name)) {
        constexpr GUID basic{0xB54F3741, 0x5B07, 0x11CF, {0xA4, 0xB0, 0x00, 0xAA, 0x00, 0x4A, 0x55, 0xE8}};
        CoCreateInstance(basic, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript), engine_.putVoid());
        parser_ = engine_.query<IActiveScriptParse>();
        EXPECT_TRUE(engine_->SetScriptSite(this) == S_OK && parser_->InitNew() == S_OK &&
                    engine_->AddNamedItem(name_.c_str(), SCRIPTITEM_ISVISIBLE) == S_OK &&
                    engine_->SetScriptState(SCRIPTSTATE_CONNECTED) == S_OK);
        parse(code, SCRIPTTEXT_ISVISIBLE);
        ComPtr<IDispatch> names;
        EXPECT_EQ(engine_->GetScriptDispatch(nullptr, names.put()), S_OK);
        module_ = container::Dispatch(std::move(names));
    }
    std::wstring value(const std::wstring& expression) {
        return parse(expression, SCRIPTTEXT_ISEXPRESSION).toText();
    }
    void hear(container::EventCall& call) {
        const container::MemberName procedure(name_ + L"_" + call.name());
        if (procedure.resolve(module_.get()) == DISPID_UNKNOWN) return;
        ++heard_;
        container::Arguments arguments;
        for (size_t at = 0; at < call.count(); ++at) arguments.push_back(call.raw(at));
        EXPECT_EQ(module_.call(procedure, arguments), S_OK) << container::toUtf8(call.name());
    }
    int heard() const { return heard_; }
    // The engine holds its site.
    void end() {
        module_ = {};
        engine_->Close();
    }

    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown** item, ITypeInfo** type) override {
        if (type) *type = nullptr;
        if (item) *item = ComPtr<IUnknown>(control_.get()).detach();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO what{};
        DWORD context = 0;
        ULONG line = 0;
        LONG place = 0;
        error->GetExceptionInfo(&what);
        error->GetSourcePosition(&context, &line, &place);
        ADD_FAILURE() << "line " << line << ": "
                      << container::toUtf8(what.bstrDescription ? what.bstrDescription : L"an error");
        for (BSTR text : {what.bstrDescription, what.bstrSource, what.bstrHelpFile}) SysFreeString(text);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

private:
    container::Variant parse(const std::wstring& code, DWORD kind) {
        container::Variant result;
        EXPECT_EQ(parser_->ParseScriptText(code.c_str(), nullptr, nullptr, nullptr, 0, 1, kind, result.put(),
                                           nullptr),
                  S_OK)
            << container::toUtf8(code);
        return result;
    }

    const container::Dispatch control_;
    const std::wstring name_;
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptParse> parser_;
    container::Dispatch module_;
    int heard_ = 0;
};

// Variables have no types in a script, functions no "$", and there is nobody to answer a message.
std::wstring asScript(std::wstring code) {
    const std::pair<const wchar_t*, const wchar_t*> rules[] = {{L"Private Sub", L"Sub"},
                                                               {L" As (Long|String)", L""},
                                                               {L"(Trim|Mid)\\$", L"$1"},
                                                               {L"MsgBox ", L"told = "},
                                                               {L"(\\w+)!(\\w+)", L"$1(\"$2\")"}};
    for (const auto& [from, to] : rules) code = std::regex_replace(code, std::wregex(from), to);
    return code + L"\n";
}

TEST(DocumentedEvents, AreHeardAsThePagesSay) {
    struct Step {
        const wchar_t* typed;
        std::vector<int> keys;
        const wchar_t *expression, *value;
    };
    struct Use {
        const wchar_t* preparation;
        std::vector<Step> steps;
        bool hears = true;
    };
    const wchar_t* day = L"Year(DueDate) & \" \" & Month(DueDate) & \" \" & Day(DueDate)";
    const std::map<std::string, Use> uses = {
        {"check-what-was-typed.md",
         {L"GridEdit1.RowsSet 3 : GridEdit1.GridSetFocus 1, 0\n",
          {{L"many", {VK_TAB}, L"told & GridEdit1.ColCurrent", L"A quantity is a number.1"},
           {L"12", {VK_TAB}, L"GridEdit1.CellTextRead(0, 1)", L"12"}}}},
        {"colours.md",
         {L"",
          {{L"",
            {VK_F4, VK_END, VK_LEFT, VK_RETURN},
            L"Picture1.BackColor = ButtonPalette1.Color And Picture1.BackColor > 0",
            L"True"}}}},
        {"dates.md",
         {L"",
          {{L"2 mar 2026", {VK_RETURN}, day, L"2026 3 2"},
           {L"", {VK_F4, VK_RIGHT, VK_RETURN}, day, L"2026 3 3"},
           {L"soon", {VK_RETURN}, day, L"2026 3 3"}}}},
        {"fill-a-grid.md",
         {L"GridEdit1.ColsSet 3\n",
          {{L"", {}, L"GridEdit1.RowsCurrent & GridEdit1.CellTextRead(2, 1)", L"3Quantity 2"}},
          false}},
        {"tabs.md",
         {L"PageTab1.ActiveTabs = \"&Order,&Delivery,&Notes\" : PageTab1.ActiveTab = 1\n",
          {{L"", {VK_RIGHT}, L"FrameDelivery.Visible And Not FrameOrder.Visible", L"True"},
           {L"", {VK_RIGHT}, L"FrameNotes.Visible And Not FrameDelivery.Visible", L"True"}}}},
    };
    const std::wstring repository = L"Z:" + container::fromUtf8(OBK_REPOSITORY_DIR);
    // What else there is on the form and in its module.
    const auto surroundings = container::readFile(repository + L"/tests/windows/scripts/form_module.vbs");
    ASSERT_TRUE(surroundings);
    const std::wregex named(L"(([A-Z]\\w+)1)[_.]");
    size_t found = 0;
    for (const auto& page : std::filesystem::recursive_directory_iterator(repository + L"/docs")) {
        const std::string text = container::readFile(page.path().wstring()).value_or("");
        for (size_t at = 0; (at = text.find("\n```vba\n", at)) != std::string::npos; ++found) {
            at += 8;
            const std::wstring code = container::fromUtf8(text.substr(at, text.find("\n```", at) - at));
            SCOPED_TRACE(page.path().filename().string());
            const auto use = uses.find(page.path().filename().string());
            std::wsmatch name;
            ASSERT_TRUE(use != uses.end() && std::regex_search(code, name, named))
                << "nobody uses this example yet";
            HostedControl hosted(name[2]);
            hosted.activate({10, 10, 330, 200});
            Person person(hosted.loop, hosted.window.handle());
            const ComPtr<FormModule> module(new FormModule(
                hosted, name[1],
                container::fromUtf8(*surroundings) + use->second.preparation + asScript(code)));
            hosted.site.events().onAny([&](container::EventCall& call) { module->hear(call); });
            hosted.form.enter(hosted.site);
            for (const Step& step : use->second.steps) {
                person.type(step.typed);
                for (const int key : step.keys) person.key(static_cast<WORD>(key));
                EXPECT_EQ(module->value(step.expression), step.value);
            }
            EXPECT_EQ(module->heard() > 0, use->second.hears);
            hosted.site.events().disconnect();
            module->end();
        }
    }
    EXPECT_EQ(found, uses.size());
}

}  // namespace
}  // namespace obk
