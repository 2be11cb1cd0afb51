// Late-bound calls from outside: every member of every class, with right and with wrong arguments.
#include "server_support.h"

#include "container/stored_value.h"
#include "container/text.h"
#include "container/type_members.h"

#include <gtest/gtest.h>

#include <cstring>
#include <span>

namespace obk {
namespace {

using namespace testing_support;
using container::Arguments;
using container::Member;
using container::TypeMembers;
using container::ValueKind;
using container::Variant;

constexpr DISPID namedPut = DISPID_PROPERTYPUT;
constexpr UINT untouched = 77;

// A raw call; arguments as DISPPARAMS has them: named ones first, positional ones from the last to the first.
struct Call {
    explicit Call(WORD how, Arguments values = {}, std::vector<DISPID> names = {})
        : flags(how), arguments(std::move(values)), named(std::move(names)) {}

    HRESULT on(IDispatch* object, DISPID id) {
        std::vector<VARIANT> raw;
        for (const Variant& argument : arguments) raw.push_back(argument.get());
        DISPPARAMS parameters{raw.data(), named.data(), static_cast<UINT>(raw.size()),
                              static_cast<UINT>(named.size())};
        return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result.put(), nullptr,
                              &wrong);
    }

    WORD flags;
    Arguments arguments;
    std::vector<DISPID> named;
    Variant result;
    UINT wrong = untouched;
};

Call put(Variant value) {
    return Call(DISPATCH_PROPERTYPUT, {std::move(value)}, {namedPut});
}

// Owns what the value refers to, as every variant does.
template <typename T>
Variant plain(VARTYPE type, const T& value) {
    Variant variant;
    VARIANT* const raw = variant.put();
    V_VT(raw) = type;
    const auto bytes = std::as_bytes(std::span(&value, 1));
    std::memcpy(&V_NONE(raw), bytes.data(), bytes.size());
    return variant;
}
template <typename T>
Variant reference(VARTYPE type, T& value) {
    return plain(static_cast<VARTYPE>(type | VT_BYREF), &value);
}

bool isObject(const Member& property) {
    return property.type.kind == ValueKind::font || property.type.kind == ValueKind::picture;
}

// An object whose default property is a given value: a container's site has what it is given.
ComPtr<IDispatch> objectWith(const Variant& value) {
    const ComPtr<container::SiteObject> site(new container::SiteObject(nullptr));
    site->ambients.set(DISPID_VALUE, value);
    return site.get();
}

class ServerDispatch : public testing::Test {
protected:
    ServerDispatch() : box(server.create(L"UpDownTextBox").query<IDispatch>()) {}

    // Does something with a control of each class and its members.
    template <typename Work>
    static void withEachDispatch(Work&& work) {
        withEachControl([&](const ComPtr<IUnknown>& control, const std::wstring&) {
            work(control.query<IDispatch>().get(), TypeMembers::of(control.get()));
        });
    }
    DISPID number(const wchar_t* name) const { return container::MemberName(name).resolve(box.get()); }
    HRESULT putOn(const wchar_t* property, Variant value) const {
        return put(std::move(value)).on(box.get(), number(property));
    }
    Variant get(const wchar_t* property) const { return container::Dispatch(box).value(property); }

    LoadedServer server;
    ComPtr<IDispatch> box;
};

TEST_F(ServerDispatch, NamesAreFoundInAnyLetterCaseWithTheNumbersOfTheTypeLibrary) {
    withEachDispatch([](IDispatch* control, const TypeMembers& members) {
        for (const auto* list : {&members.properties(), &members.methods()}) {
            for (const Member& member : *list) {
                SCOPED_TRACE(container::toUtf8(member.name));
                std::vector<std::wstring> names{member.name};
                for (const auto& argument : member.arguments) names.push_back(argument.name);
                std::vector<LPOLESTR> pointers(names.size());
                std::vector<DISPID> ids(names.size(), 999), expected(names.size());
                for (size_t at = 0; at < names.size(); ++at) {
                    pointers[at] = CharUpperW(names[at].data());
                    expected[at] = at == 0 ? member.number : static_cast<DISPID>(at - 1);
                }
                EXPECT_EQ(control->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(ids.size()), 0,
                                                 ids.data()),
                          S_OK);
                EXPECT_EQ(ids, expected);
            }
        }
        std::wstring unknown = L"NoSuchMember";
        LPOLESTR pointer = unknown.data();
        DISPID id = 5;
        EXPECT_EQ(control->GetIDsOfNames(IID_NULL, &pointer, 1, 0, &id), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(id, DISPID_UNKNOWN);
    });
}

TEST_F(ServerDispatch, EveryPropertyGivesTheTypeThatItDeclaresAndTakesItBack) {
    withEachDispatch([](IDispatch* control, const TypeMembers& members) {
        for (const Member& member : members.properties()) {
            SCOPED_TRACE(container::toUtf8(member.name));
            Call read(DISPATCH_PROPERTYGET | DISPATCH_METHOD), again(DISPATCH_PROPERTYGET);
            ASSERT_EQ(read.on(control, member.number), member.readable ? S_OK : DISP_E_MEMBERNOTFOUND);
            if (!member.readable) continue;
            // Hosts without unsigned numbers read a colour as a Long.
            const bool isColour = member.type.kind == ValueKind::colour;
            EXPECT_EQ(read.result.type(), isObject(member) ? VARTYPE{VT_DISPATCH}
                                          : isColour       ? VARTYPE{VT_I4}
                                                           : member.type.type);
            if (!member.writable) continue;
            EXPECT_EQ(put(read.result).on(control, member.number), S_OK);
            again.on(control, member.number);
            EXPECT_EQ(again.result.toText(), read.result.toText());
            EXPECT_EQ(again.result.toObject().get(), read.result.toObject().get());
        }
    });
}

TEST_F(ServerDispatch, WrongCallsAreRefusedAndChangeNothing) {
    const Variant null = plain(VT_NULL, 0);
    const auto foreign = objectWith(L"no number");
    const Variant useless[] = {null, plain(VT_ARRAY | VT_I4, SafeArrayCreateVector(VT_I4, 0, 2)),
                               static_cast<IUnknown*>(box.get()), plain<SCODE>(VT_ERROR, E_FAIL)};
    withEachDispatch([&](IDispatch* control, const TypeMembers& members) {
        const container::Dispatch object{ComPtr<IDispatch>(control)};
        for (const Member& member : members.properties()) {
            SCOPED_TRACE(container::toUtf8(member.name));
            const auto answer = [&](Call call) { return call.on(control, member.number); };
            const auto refusal = [](bool offered, HRESULT why) {
                return offered ? why : DISP_E_MEMBERNOTFOUND;
            };
            const Variant before = object.value(member.number);
            for (const Variant& value : useless) {
                Call wrong = put(value);
                EXPECT_EQ(wrong.on(control, member.number), refusal(member.writable, DISP_E_TYPEMISMATCH))
                    << value.type();
                EXPECT_EQ(wrong.wrong, member.writable ? 0u : untouched);
            }
            EXPECT_EQ(answer(Call(DISPATCH_PROPERTYPUT)), refusal(member.writable, DISP_E_BADPARAMCOUNT));
            Call surplus(DISPATCH_PROPERTYGET, {1});
            EXPECT_EQ(surplus.on(control, member.number), refusal(member.readable, DISP_E_BADPARAMCOUNT));
            EXPECT_EQ(surplus.result.type(), VT_EMPTY);
            if (!isObject(member)) {
                EXPECT_EQ(answer(Call(DISPATCH_PROPERTYPUTREF, {1}, {namedPut})), DISP_E_MEMBERNOTFOUND);
            }
            if (!member.writable) continue;
            const bool isWhole = member.type.kind == ValueKind::integer;
            if (isWhole || member.type.kind == ValueKind::number) {
                EXPECT_EQ(answer(put(L"ten")), DISP_E_TYPEMISMATCH);
                EXPECT_EQ(answer(put(foreign.get())), DISP_E_TYPEMISMATCH);
            }
            if (isWhole) {
                EXPECT_EQ(answer(put(1e12)), DISP_E_OVERFLOW);
            }
            EXPECT_EQ(object.value(member.number).toText(), before.toText());
        }
        for (const Member& method : members.methods()) {
            SCOPED_TRACE(container::toUtf8(method.name));
            const auto answer = [&](Call call) { return call.on(control, method.number); };
            const size_t count = method.arguments.size();
            EXPECT_EQ(answer(Call(DISPATCH_METHOD, Arguments(count + 1, 1))), DISP_E_BADPARAMCOUNT);
            EXPECT_EQ(answer(Call(DISPATCH_PROPERTYPUT, {1}, {namedPut})), DISP_E_MEMBERNOTFOUND);
            for (size_t at = 0; at < count; ++at) {
                Call wrong(DISPATCH_METHOD, Arguments(count, 1));
                wrong.arguments[at] = null;
                EXPECT_EQ(wrong.on(control, method.number), DISP_E_TYPEMISMATCH);
                EXPECT_EQ(wrong.wrong, at);
            }
        }
        for (const DISPID id : {DISPID_VALUE, 0x7000, -500, static_cast<int>(DISPID_UNKNOWN)})
            EXPECT_EQ(Call(DISPATCH_METHOD | DISPATCH_PROPERTYGET).on(control, id), DISP_E_MEMBERNOTFOUND)
                << id;
    });
}

TEST_F(ServerDispatch, ANumberIsTakenFromEveryAutomationTypeThatHoldsOne) {
    const Bstr text(L" 7 ");
    BSTR bstr = text.get();
    const auto object = objectWith(L"7");
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
        for (const wchar_t* property : {L"Max", L"Interval"}) {
            putOn(property, 0L);
            EXPECT_EQ(putOn(property, seven), S_OK) << "type " << seven.type();
            EXPECT_EQ(get(property).toDouble(), 7.0) << "type " << seven.type();
        }
    }
}

TEST_F(ServerDispatch, ConversionsFollowThePlatform) {
    // Half to even; True is -1; an empty value is 0.
    const std::pair<Variant, long> numbers[] = {
        {2.5, 2}, {true, -1}, {0, 0}, {plain<signed char>(VT_I1, -1), -1}, {Variant(), 0}};
    for (const auto& [value, taken] : numbers) {
        EXPECT_EQ(putOn(L"Max", value), S_OK) << "type " << value.type();
        EXPECT_EQ(get(L"Max").toLong(), taken) << "type " << value.type();
    }
    EXPECT_EQ(putOn(L"Max", Variant::missing()), DISP_E_PARAMNOTOPTIONAL) << "nothing to put";
    EXPECT_EQ(putOn(L"Enabled", L"False"), S_OK);
    EXPECT_EQ(get(L"Enabled").toBool(), false);
    for (const auto& [value, text] : {std::pair(Variant(1.5), L"1.5"),
                                      {plain<long long>(VT_I8, 9007199254740993), L"9007199254740993"}}) {
        EXPECT_EQ(putOn(L"Text", value), S_OK);
        EXPECT_EQ(get(L"Text").toText(), text);
    }
    // Colours with the high bit from every kind of number.
    for (const Variant& colour : {Variant(2147483653.0), Variant(-2147483643.0), Variant(-2147483643L),
                                  plain<unsigned long>(VT_UI4, 0x80000005u)}) {
        putOn(L"BackColor", 0L);
        EXPECT_EQ(putOn(L"BackColor", colour), S_OK) << "type " << colour.type();
        EXPECT_EQ(get(L"BackColor").toLong(), static_cast<long>(0x80000005u)) << "type " << colour.type();
    }
}

TEST_F(ServerDispatch, ArgumentsMayBeNamedOrByReferenceAndNoneIsMissing) {
    // Declared order: KeyAscii, Extra_Check, Extra_sText.
    const auto call = [this](Arguments arguments, std::vector<DISPID> named = {}) {
        Call made(DISPATCH_METHOD, std::move(arguments), std::move(named));
        const HRESULT answer = made.on(box.get(), number(L"KeyLock"));
        return answer == S_OK ? made.result.toLong().value_or(-1) : answer;
    };
    EXPECT_EQ(call({L"125", true, 46L}), 46);
    EXPECT_EQ(call({46L, L"12.5", true}, {0, 2, 1}), 0) << "all by name";
    EXPECT_EQ(call({L"125", 46L}, {2}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call({Variant::missing(), Variant::missing(), 56L}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call({}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call({46L}, {9}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(call({46L, 46L}, {0}), DISP_E_PARAMNOTFOUND) << "by name and by place";
    EXPECT_EQ(call({46L, 46L}, {0, 0}), DISP_E_PARAMNOTFOUND);
    Variant text(L"125");
    BSTR bstr = V_BSTR(&text.get());
    VARIANT inVariant = text.get();
    for (const Variant& passed : {Variant::reference(bstr), Variant::reference(inVariant)})
        EXPECT_EQ(call({passed, true, 46L}), 46);
    EXPECT_EQ(text.toText(), L"125") << "an argument that was only read is not written";
    EXPECT_TRUE(bstr == V_BSTR(&text.get()) && V_BSTR(&inVariant) == bstr);

    // What is changed is changed in the caller's variable, also by way of a handler's own argument.
    HostedControl grid(L"GridEdit");
    grid.activate();
    grid.object().call(L"ColTypeSet", {0L, 4L});
    grid.object().call(L"ComboAdd", {L"Desk"});
    grid.object().call(L"BoxShow");
    short code = 0;
    VARIANT handlers = Variant::reference(code).get();
    for (const Variant& passed : {Variant::reference(code), Variant::reference(handlers)}) {
        code = VK_DOWN;
        EXPECT_EQ(grid.object().call(L"cboLIST_KeyDown", {passed, 0L}), S_OK);
        EXPECT_EQ(code, 0) << "the list has used the key";
    }
}

TEST_F(ServerDispatch, AFontIsSharedWithTheHost) {
    // A control's own font answers to changes by name.
    const auto font = [this] { return get(L"Font").toObject(); };
    EXPECT_EQ(container::Dispatch(font().get()).put(L"Size", 20.0), S_OK);
    EXPECT_NEAR(container::describeFont(font().get())->size, 20.0, 0.5);
    const ComPtr<IDispatch> given = container::makeFont({.name = L"Courier New"});
    for (const WORD flags : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        EXPECT_EQ(Call(flags, {given.get()}, {namedPut}).on(box.get(), number(L"Font")), S_OK);
        EXPECT_EQ(font().query<IUnknown>().get(), given.query<IUnknown>().get()) << "the very object";
    }
}

TEST_F(ServerDispatch, TypeInformationDescribesTheInterfaceAndTheClass) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring& name) {
        const auto dispatch = control.query<IDispatch>();
        const auto info = control.query<IProvideClassInfo2>();
        UINT count = 0;
        ComPtr<ITypeInfo> own, coclass;
        EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(dispatch->GetTypeInfo(1, 0, own.put()), DISP_E_BADINDEX);
        ASSERT_EQ(dispatch->GetTypeInfo(0, 0, own.put()), S_OK);
        EXPECT_EQ(typeName(own.get()), L"_" + name);
        ASSERT_EQ(info->GetClassInfo(coclass.put()), S_OK);
        EXPECT_EQ(typeName(coclass.get()), name);
        GUID events{};
        EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
        EXPECT_EQ(events, container::eventInterfaceOf(control.get()).id);
        EXPECT_EQ(info->GetGUID(99, &events), E_INVALIDARG);
        // The default interface is asked for by its own identifier, too.
        ComPtr<IDispatch> byId;
        EXPECT_EQ(control->QueryInterface(typeId(own.get()), byId.putVoid()), S_OK);
    });
}

TEST_F(ServerDispatch, AColourThatMayBeLeftOutIsOneInTheTypeInformationToo) {
    const auto grid = server.create(L"GridEdit");
    const TypeMembers members = TypeMembers::of(grid.get());
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(grid.query<IDispatch>()->GetTypeInfo(0, 0, type.put()), S_OK);
    for (const wchar_t* name : {L"CellEnabledSet", L"CellFontSet"}) {
        const Member& method = *members.method(name);
        EXPECT_EQ(method.arguments.back().type.name, L"OLE_COLOR");
        UINT at = 0;
        FUNCDESC* function = nullptr;
        ASSERT_EQ(type.query<ITypeInfo2>()->GetFuncIndexOfMemId(method.number, INVOKE_FUNC, &at), S_OK);
        ASSERT_EQ(type->GetFuncDesc(at, &function), S_OK);
        const PARAMDESC& colour = function->lprgelemdescParam[function->cParams - 1].paramdesc;
        ASSERT_TRUE(colour.wParamFlags & PARAMFLAG_FHASDEFAULT);
        EXPECT_EQ(static_cast<ULONG>(V_I4(&colour.pparamdescex->varDefaultValue)), 0x80000010u);
        type->ReleaseFuncDesc(function);
    }
}

}  // namespace
}  // namespace obk
