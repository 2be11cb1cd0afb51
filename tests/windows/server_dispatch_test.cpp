// Late-bound calls from outside: every member of every class, with right and with wrong arguments.
#include "server_support.h"

#include "container/stored_value.h"
#include "container/text.h"
#include "container/type_members.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwctype>
#include <span>

namespace obk {
namespace {

using namespace testing_support;
using container::Arguments;
using container::Member;
using container::TypeMembers;
using container::Variant;

constexpr DISPID namedPut = DISPID_PROPERTYPUT;
constexpr UINT untouched = 77;

// A raw call; arguments as DISPPARAMS has them: named ones first, positional ones from the last to the first.
struct Call {
    WORD flags = 0;
    std::vector<Variant> arguments;
    std::vector<DISPID> named;
    Variant result;
    UINT wrong = untouched;

    HRESULT on(IDispatch* object, DISPID id) {
        std::vector<VARIANT> raw;
        for (const Variant& argument : arguments) raw.push_back(argument.get());
        DISPPARAMS parameters{raw.data(), named.data(), static_cast<UINT>(raw.size()),
                              static_cast<UINT>(named.size())};
        return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result.put(), nullptr,
                              &wrong);
    }
};

Call put(Variant value) {
    return {DISPATCH_PROPERTYPUT, {std::move(value)}, {namedPut}, {}, untouched};
}

std::string label(const std::wstring& control, const Member& member) {
    return container::toUtf8(control + L"." + member.name);
}

template <typename T>
Variant plain(VARTYPE type, const T& value) {
    VARIANT variant{};
    V_VT(&variant) = type;
    const auto bytes = std::as_bytes(std::span(&value, 1));
    std::memcpy(&V_NONE(&variant), bytes.data(), bytes.size());
    return Variant(variant);
}
template <typename T>
Variant reference(VARTYPE type, T& value) {
    return plain(static_cast<VARTYPE>(type | VT_BYREF), &value);
}

// An object whose default property is a given value, and nothing else.
class DefaultValueObject final : public ComObject<IDispatch> {
public:
    explicit DefaultValueObject(Variant value) : value_(std::move(value)) {}
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        return id == DISPID_VALUE && result ? VariantCopy(result, const_cast<VARIANT*>(&value_.get()))
                                            : DISP_E_MEMBERNOTFOUND;
    }

private:
    Variant value_;
};

class ServerDispatch : public testing::Test {
protected:
    ServerDispatch() : fields(server.create(L"UpDownTextBox")), box(fields.query<IDispatch>()) {}

    DISPID number(const wchar_t* name) const { return container::MemberName(name).resolve(box.get()); }
    HRESULT putOn(const wchar_t* property, Variant value, UINT* wrong = nullptr) const {
        Call call = put(std::move(value));
        const HRESULT result = call.on(box.get(), number(property));
        if (wrong) *wrong = call.wrong;
        return result;
    }
    Variant get(const wchar_t* property) const { return container::Dispatch(box).value(property); }

    LoadedServer server;
    ComPtr<IUnknown> fields;
    ComPtr<IDispatch> box;
};

TEST_F(ServerDispatch, NamesAreFoundInAnyLetterCaseWithTheNumbersOfTheTypeLibrary) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const auto dispatch = control.query<IDispatch>();
        const TypeMembers members = TypeMembers::of(control.get());
        ASSERT_EQ(members.className(), name);
        for (const auto* list : {&members.properties(), &members.methods()}) {
            for (const Member& member : *list) {
                std::vector<std::wstring> names{member.name};
                names.reserve(member.arguments.size() + 1);
                for (const auto& argument : member.arguments) names.push_back(argument.name);
                for (std::wstring& each : names) {
                    for (wchar_t& letter : each) letter = static_cast<wchar_t>(std::towupper(letter));
                }
                std::vector<LPOLESTR> pointers;
                pointers.reserve(names.size());
                for (std::wstring& each : names) pointers.push_back(each.data());
                std::vector<DISPID> ids(names.size(), 999);
                ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, pointers.data(),
                                                  static_cast<UINT>(pointers.size()), 0, ids.data()),
                          S_OK)
                    << label(name, member);
                EXPECT_EQ(ids[0], member.number) << label(name, member);
                for (size_t at = 1; at < ids.size(); ++at) EXPECT_EQ(ids[at], static_cast<DISPID>(at - 1));
            }
        }
        wchar_t unknown[] = L"NoSuchMember";
        LPOLESTR pointer = unknown;
        DISPID id = 5;
        EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, &pointer, 1, 0, &id), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(id, DISPID_UNKNOWN);
    }
}

TEST_F(ServerDispatch, EveryPropertyGivesTheTypeThatItDeclaresAndTakesItBack) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const auto dispatch = control.query<IDispatch>();
        const TypeMembers members = TypeMembers::of(control.get());
        for (const Member& member : members.properties()) {
            Call read{DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, {}, {}, untouched};
            if (!member.readable) {
                EXPECT_EQ(read.on(dispatch.get(), member.number), DISP_E_MEMBERNOTFOUND)
                    << label(name, member);
                continue;
            }
            ASSERT_EQ(read.on(dispatch.get(), member.number), S_OK) << label(name, member);
            const bool isObject = member.type.kind == container::ValueKind::font ||
                                  member.type.kind == container::ValueKind::picture;
            // Hosts without unsigned numbers read a colour as a Long.
            const bool isColour = member.type.kind == container::ValueKind::colour;
            EXPECT_EQ(read.result.type(), isObject   ? VARTYPE{VT_DISPATCH}
                                          : isColour ? VARTYPE{VT_I4}
                                                     : member.type.type)
                << label(name, member);
            if (!member.writable) continue;
            EXPECT_EQ(put(read.result).on(dispatch.get(), member.number), S_OK) << label(name, member);
            Call again{DISPATCH_PROPERTYGET, {}, {}, {}, untouched};
            again.on(dispatch.get(), member.number);
            if (isObject)
                EXPECT_EQ(again.result.toObject().get(), read.result.toObject().get()) << label(name, member);
            else
                EXPECT_EQ(again.result.toText(), read.result.toText()) << label(name, member);
        }
    }
}

TEST_F(ServerDispatch, WrongCallsAreRefusedAndChangeNothing) {
    const ComPtr<IDispatch> foreign(new DefaultValueObject(Variant(L"no number")));
    VARIANT null{};
    V_VT(&null) = VT_NULL;
    VARIANT array{};
    V_VT(&array) = VT_ARRAY | VT_I4;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_I4, 0, 2);
    const std::vector<Variant> useless{Variant(null), Variant(array),
                                       Variant(static_cast<IUnknown*>(fields.get())),
                                       plain<SCODE>(VT_ERROR, E_FAIL)};
    VariantClear(&array);
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const auto dispatch = control.query<IDispatch>();
        const TypeMembers members = TypeMembers::of(control.get());
        for (const Member& member : members.properties()) {
            const std::string what = label(name, member);
            const Variant before = container::Dispatch(dispatch).value(member.number);
            for (const Variant& value : useless) {
                Call wrong = put(value);
                EXPECT_EQ(wrong.on(dispatch.get(), member.number),
                          member.writable ? DISP_E_TYPEMISMATCH : DISP_E_MEMBERNOTFOUND)
                    << what << " " << value.type();
                EXPECT_EQ(wrong.wrong, member.writable ? 0u : untouched) << what;
            }
            Call noArgument{DISPATCH_PROPERTYPUT, {}, {}, {}, untouched};
            EXPECT_EQ(noArgument.on(dispatch.get(), member.number),
                      member.writable ? DISP_E_BADPARAMCOUNT : DISP_E_MEMBERNOTFOUND)
                << what;
            Call surplus{DISPATCH_PROPERTYGET, {Variant(1)}, {}, {}, untouched};
            EXPECT_EQ(surplus.on(dispatch.get(), member.number),
                      member.readable ? DISP_E_BADPARAMCOUNT : DISP_E_MEMBERNOTFOUND)
                << what;
            EXPECT_EQ(surplus.result.type(), VT_EMPTY) << what;
            if (member.type.kind != container::ValueKind::font &&
                member.type.kind != container::ValueKind::picture) {
                Call set{DISPATCH_PROPERTYPUTREF, {Variant(1)}, {namedPut}, {}, untouched};
                EXPECT_EQ(set.on(dispatch.get(), member.number), DISP_E_MEMBERNOTFOUND) << what;
            }
            if (!member.writable) continue;
            if (member.type.kind == container::ValueKind::integer ||
                member.type.kind == container::ValueKind::number) {
                EXPECT_EQ(put(Variant(L"ten")).on(dispatch.get(), member.number), DISP_E_TYPEMISMATCH)
                    << what;
                EXPECT_EQ(put(foreign.get()).on(dispatch.get(), member.number), DISP_E_TYPEMISMATCH) << what;
            }
            if (member.type.kind == container::ValueKind::integer) {
                EXPECT_EQ(put(Variant(1e12)).on(dispatch.get(), member.number), DISP_E_OVERFLOW) << what;
            }
            EXPECT_EQ(container::Dispatch(dispatch).value(member.number).toText(), before.toText()) << what;
        }
        for (const Member& method : members.methods()) {
            Call surplus{
                DISPATCH_METHOD, Arguments(method.arguments.size() + 1, Variant(1)), {}, {}, untouched};
            EXPECT_EQ(surplus.on(dispatch.get(), method.number), DISP_E_BADPARAMCOUNT) << label(name, method);
            Call asProperty{DISPATCH_PROPERTYPUT, {Variant(1)}, {namedPut}, {}, untouched};
            EXPECT_EQ(asProperty.on(dispatch.get(), method.number), DISP_E_MEMBERNOTFOUND)
                << label(name, method);
            for (size_t at = 0; at < method.arguments.size(); ++at) {
                Call wrong{
                    DISPATCH_METHOD, Arguments(method.arguments.size(), Variant(1)), {}, {}, untouched};
                wrong.arguments[at] = Variant(null);
                EXPECT_EQ(wrong.on(dispatch.get(), method.number), DISP_E_TYPEMISMATCH)
                    << label(name, method);
                EXPECT_EQ(wrong.wrong, at) << label(name, method);
            }
        }
        for (const DISPID id : {DISPID_VALUE, 0x7000, -500, static_cast<int>(DISPID_UNKNOWN)}) {
            Call nowhere{DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, {}, {}, untouched};
            EXPECT_EQ(nowhere.on(dispatch.get(), id), DISP_E_MEMBERNOTFOUND) << id;
        }
    }
}

TEST_F(ServerDispatch, ANumberIsTakenFromEveryAutomationTypeThatHoldsOne) {
    const Bstr text(L" 7 ");
    BSTR bstr = text.get();
    const ComPtr<IDispatch> object(new DefaultValueObject(Variant(L"7")));
    VARIANT inner = Variant(7.0).detach();
    std::vector<Variant> sevens{Variant(text.view()), object.get(), reference(VT_BSTR, bstr),
                                reference(VT_VARIANT, inner)};
    constexpr VARTYPE types[] = {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4,  VT_INT,    VT_UINT,
                                 VT_I8, VT_UI8, VT_R4, VT_R8,  VT_CY, VT_DATE, VT_DECIMAL};
    VARIANT numbers[std::size(types)]{};
    for (size_t at = 0; at < std::size(types); ++at) {
        ASSERT_EQ(VariantChangeType(&numbers[at], &inner, 0, types[at]), S_OK) << types[at];
        sevens.emplace_back(numbers[at]);
        if (types[at] != VT_DECIMAL) sevens.push_back(reference(types[at], V_NONE(&numbers[at])));
    }
    DECIMAL decimal = V_DECIMAL(&numbers[std::size(types) - 1]);
    decimal.wReserved = 0;  // where a variant has its type
    sevens.push_back(reference(VT_DECIMAL, decimal));
    for (const Variant& seven : sevens) {
        putOn(L"Max", 0L);
        putOn(L"Interval", 0.0);
        EXPECT_EQ(putOn(L"Max", seven), S_OK) << "type " << seven.type();
        EXPECT_EQ(get(L"Max").toLong(), 7) << "type " << seven.type();
        EXPECT_EQ(putOn(L"Interval", seven), S_OK) << "type " << seven.type();
        EXPECT_EQ(get(L"Interval").toDouble(), 7.0) << "type " << seven.type();
    }
}

TEST_F(ServerDispatch, ConversionsFollowThePlatform) {
    // Half to even; True is -1; an empty value is 0; colours with the high bit from every kind of number.
    EXPECT_EQ(putOn(L"Max", 2.5), S_OK);
    EXPECT_EQ(get(L"Max").toLong(), 2);
    for (const Variant& minusOne : {Variant(true), plain<signed char>(VT_I1, -1)}) {
        EXPECT_EQ(putOn(L"Max", minusOne), S_OK);
        EXPECT_EQ(get(L"Max").toLong(), -1);
        putOn(L"Max", 0L);
    }
    EXPECT_EQ(putOn(L"Max", Variant()), S_OK);
    EXPECT_EQ(get(L"Max").toLong(), 0);
    EXPECT_EQ(putOn(L"Enabled", L"False"), S_OK);
    EXPECT_EQ(get(L"Enabled").toBool(), false);
    EXPECT_EQ(putOn(L"Text", 1.5), S_OK);
    EXPECT_EQ(get(L"Text").toText(), L"1.5");
    EXPECT_EQ(putOn(L"Text", plain<long long>(VT_I8, 9007199254740993)), S_OK);
    EXPECT_EQ(get(L"Text").toText(), L"9007199254740993");
    for (const Variant& colour : {Variant(2147483653.0), Variant(-2147483643.0), Variant(-2147483643L),
                                  plain<unsigned long>(VT_UI4, 0x80000005u)}) {
        putOn(L"BackColor", 0L);
        EXPECT_EQ(putOn(L"BackColor", colour), S_OK) << "type " << colour.type();
        EXPECT_EQ(get(L"BackColor").toLong(), static_cast<long>(0x80000005u)) << "type " << colour.type();
    }
    UINT wrong = untouched;
    EXPECT_EQ(putOn(L"Max", Variant::missing(), &wrong), DISP_E_PARAMNOTOPTIONAL) << "nothing to put";
}

TEST_F(ServerDispatch, ArgumentsMayBeNamedOrByReferenceAndNoneIsMissing) {
    const DISPID keyLock = number(L"KeyLock");
    const auto answer = [&](Call call) {
        EXPECT_EQ(call.on(box.get(), keyLock), S_OK);
        return call.result.toLong().value_or(-1);
    };
    // Declared order: KeyAscii, Extra_Check, Extra_sText.
    EXPECT_EQ(answer({DISPATCH_METHOD, {L"125", true, 46L}, {}, {}, 0}), 46);
    EXPECT_EQ(answer({DISPATCH_METHOD, {46L, L"12.5", true}, {0, 2, 1}, {}, 0}), 0) << "all by name";
    for (const Call& missing :
         {Call{DISPATCH_METHOD, {L"125", 46L}, {2}, {}, 0},
          Call{DISPATCH_METHOD, {Variant::missing(), Variant::missing(), 56L}, {}, {}, 0},
          Call{DISPATCH_METHOD, {}, {}, {}, 0}}) {
        Call call = missing;
        EXPECT_EQ(call.on(box.get(), keyLock), DISP_E_PARAMNOTOPTIONAL);
    }
    Bstr text(L"125");
    BSTR bstr = text.get();
    VARIANT inVariant{};
    V_VT(&inVariant) = VT_BSTR;
    V_BSTR(&inVariant) = bstr;
    EXPECT_EQ(answer({DISPATCH_METHOD, {Variant::reference(bstr), true, 46L}, {}, {}, 0}), 46);
    EXPECT_EQ(answer({DISPATCH_METHOD, {Variant::reference(inVariant), true, 46L}, {}, {}, 0}), 46);
    EXPECT_EQ(text.view(), L"125") << "an argument that was only read is not written";
    EXPECT_EQ(V_BSTR(&inVariant), bstr);

    Call unknownName{DISPATCH_METHOD, {46L}, {9}, {}, untouched};
    EXPECT_EQ(unknownName.on(box.get(), keyLock), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(unknownName.wrong, 0u);
    Call twice{DISPATCH_METHOD, {46L, 46L}, {0}, {}, untouched};
    EXPECT_EQ(twice.on(box.get(), keyLock), DISP_E_PARAMNOTFOUND) << "by name and by place";
    Call sameName{DISPATCH_METHOD, {46L, 46L}, {0, 0}, {}, untouched};
    EXPECT_EQ(sameName.on(box.get(), keyLock), DISP_E_PARAMNOTFOUND);

    // What is changed is changed in the caller's variable, also by way of a handler's own argument.
    HostedControl grid(L"GridEdit");
    grid.activate();
    grid.object().call(L"ColTypeSet", {0L, 4L});
    grid.object().call(L"ComboAdd", {L"Desk"});
    grid.object().call(L"BoxShow");
    short code = 0;
    VARIANT handlers{};
    V_VT(&handlers) = VT_I2 | VT_BYREF;
    V_I2REF(&handlers) = &code;
    for (const Variant& passed : {reference(VT_I2, code), reference(VT_VARIANT, handlers)}) {
        code = VK_DOWN;
        Call key{DISPATCH_METHOD, {0L, passed}, {}, {}, untouched};
        const auto dispatch = grid.site.query<IDispatch>();
        EXPECT_EQ(key.on(dispatch.get(), container::MemberName(L"cboLIST_KeyDown").resolve(dispatch.get())),
                  S_OK);
        EXPECT_EQ(code, 0) << "the list has used the key";
    }
}

TEST_F(ServerDispatch, AFontIsSharedWithTheHost) {
    container::StoredFont described;
    described.name = L"Courier New";
    const ComPtr<IDispatch> font = container::makeFont(described);
    for (const WORD flags : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        Call set{flags, {font.get()}, {namedPut}, {}, untouched};
        EXPECT_EQ(set.on(box.get(), number(L"Font")), S_OK);
        EXPECT_EQ(get(L"Font").toObject().query<IUnknown>().get(), font.query<IUnknown>().get())
            << "the very object";
    }
    // What the control gives is live as well: a control's own font answers to changes by name.
    const auto own = server.create(L"UpDownTextBox").query<IDispatch>();
    const container::Dispatch ownFont(container::Dispatch(own).value(L"Font").toObject().get());
    EXPECT_EQ(ownFont.put(L"Size", 20.0), S_OK);
    EXPECT_NEAR(*container::Dispatch(container::Dispatch(own).value(L"Font").toObject().get())
                     .value(L"Size")
                     .toDouble(),
                20.0, 0.5);
}

TEST_F(ServerDispatch, TypeInformationDescribesTheInterfaceAndTheClass) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        UINT count = 0;
        const auto dispatch = control.query<IDispatch>();
        EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1u);
        ComPtr<ITypeInfo> own, coclass;
        ASSERT_EQ(dispatch->GetTypeInfo(0, 0, own.put()), S_OK);
        Bstr interfaceName, className;
        own->GetDocumentation(MEMBERID_NIL, interfaceName.put(), nullptr, nullptr, nullptr);
        EXPECT_EQ(interfaceName.view(), L"_" + name);
        EXPECT_EQ(dispatch->GetTypeInfo(1, 0, coclass.put()), DISP_E_BADINDEX);
        const auto info = control.query<IProvideClassInfo2>();
        ASSERT_EQ(info->GetClassInfo(coclass.put()), S_OK);
        coclass->GetDocumentation(MEMBERID_NIL, className.put(), nullptr, nullptr, nullptr);
        EXPECT_EQ(className.view(), name);
        GUID events{};
        EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
        EXPECT_EQ(events, container::eventInterfaceOf(control.get()).id);
        EXPECT_EQ(info->GetGUID(99, &events), E_INVALIDARG);
        // The default interface is asked for by its own identifier, too.
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(own->GetTypeAttr(&attributes), S_OK);
        ComPtr<IDispatch> byId;
        EXPECT_EQ(control->QueryInterface(attributes->guid, byId.putVoid()), S_OK);
        own->ReleaseTypeAttr(attributes);
    }
}

TEST_F(ServerDispatch, AColourThatMayBeLeftOutIsOneInTheTypeInformationToo) {
    const auto grid = serverType(L"_GridEdit");
    for (const auto& [name, parameters] : {std::pair(L"CellEnabledSet", 4), {L"CellFontSet", 7}}) {
        std::wstring member = name;
        LPOLESTR asked = member.data();
        MEMBERID id = 0;
        ASSERT_EQ(grid->GetIDsOfNames(&asked, 1, &id), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(grid->GetTypeAttr(&attributes), S_OK);
        int found = 0;
        for (UINT at = 0; at < attributes->cFuncs; ++at) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(grid->GetFuncDesc(at, &function), S_OK);
            if (function->memid == id && ++found) {
                ASSERT_EQ(function->cParams, parameters);
                const ELEMDESC& colour = function->lprgelemdescParam[parameters - 1];
                ASSERT_EQ(colour.tdesc.vt, VT_USERDEFINED);
                ComPtr<ITypeInfo> type;
                ASSERT_EQ(grid->GetRefTypeInfo(colour.tdesc.hreftype, type.put()), S_OK);
                Bstr typeName;
                type->GetDocumentation(MEMBERID_NIL, typeName.put(), nullptr, nullptr, nullptr);
                EXPECT_EQ(typeName.view(), L"OLE_COLOR");
                ASSERT_TRUE(colour.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT);
                const VARIANT& grey = colour.paramdesc.pparamdescex->varDefaultValue;
                EXPECT_EQ(static_cast<ULONG>(V_I4(&grey)), 0x80000010u);
            }
            grid->ReleaseFuncDesc(function);
        }
        EXPECT_EQ(found, 1);
        grid->ReleaseTypeAttr(attributes);
    }
}

}  // namespace
}  // namespace obk
