#include "container/type_members.h"

#include <ocidl.h>

#include <algorithm>
#include <memory>

#include "container/text.h"

namespace obk::container {

namespace {

// A description that the type information lends.
template <auto release>
struct Release {
    ITypeInfo* info;
    void operator()(auto* description) const { (info->*release)(description); }
};
using Attribute = std::unique_ptr<TYPEATTR, Release<&ITypeInfo::ReleaseTypeAttr>>;
using Function = std::unique_ptr<FUNCDESC, Release<&ITypeInfo::ReleaseFuncDesc>>;
using Variable = std::unique_ptr<VARDESC, Release<&ITypeInfo::ReleaseVarDesc>>;

Attribute attributeOf(ITypeInfo* info) {
    TYPEATTR* attribute = nullptr;
    return {info && SUCCEEDED(info->GetTypeAttr(&attribute)) ? attribute : nullptr, {info}};
}

Function functionAt(ITypeInfo* info, UINT index) {
    FUNCDESC* function = nullptr;
    return {SUCCEEDED(info->GetFuncDesc(index, &function)) ? function : nullptr, {info}};
}

Variable variableAt(ITypeInfo* info, UINT index) {
    VARDESC* variable = nullptr;
    return {SUCCEEDED(info->GetVarDesc(index, &variable)) ? variable : nullptr, {info}};
}

std::wstring nameOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL, std::wstring* help = nullptr) {
    Bstr name;
    Bstr text;
    info->GetDocumentation(member, name.put(), help ? text.put() : nullptr, nullptr, nullptr);
    if (help) *help = text.text();
    return name.text();
}

struct PlainType {
    VARTYPE type;
    const wchar_t* name;
    ValueKind kind;
};

constexpr PlainType plainTypes[] = {
    {VT_BOOL, L"Boolean", ValueKind::boolean},
    {VT_I1, L"SByte", ValueKind::integer},
    {VT_UI1, L"Byte", ValueKind::integer},
    {VT_I2, L"Integer", ValueKind::integer},
    {VT_UI2, L"UShort", ValueKind::integer},
    {VT_I4, L"Long", ValueKind::integer},
    {VT_UI4, L"ULong", ValueKind::integer},
    {VT_INT, L"Long", ValueKind::integer},
    {VT_UINT, L"ULong", ValueKind::integer},
    {VT_I8, L"LongLong", ValueKind::integer},
    {VT_R4, L"Single", ValueKind::number},
    {VT_R8, L"Double", ValueKind::number},
    {VT_CY, L"Currency", ValueKind::number},
    {VT_DATE, L"Date", ValueKind::date},
    {VT_BSTR, L"String", ValueKind::text},
    {VT_VARIANT, L"Variant", ValueKind::text},
    {VT_DISPATCH, L"Object", ValueKind::other},
    {VT_UNKNOWN, L"Unknown", ValueKind::other},
    {VT_VOID, L"", ValueKind::none},
    {VT_HRESULT, L"", ValueKind::none},
};

std::vector<Choice> choicesOf(ITypeInfo* enumeration, UINT count) {
    std::vector<Choice> choices;
    for (UINT index = 0; index < count; ++index) {
        const auto variable = variableAt(enumeration, index);
        if (!variable || variable->varkind != VAR_CONST || !variable->lpvarValue) continue;
        if (const auto value = Variant(*variable->lpvarValue).toLong())
            choices.push_back({nameOf(enumeration, variable->memid), *value});
    }
    return choices;
}

DeclaredType describe(ITypeInfo* context, const TYPEDESC& description);

DeclaredType describeNamed(ITypeInfo* context, HREFTYPE reference) {
    DeclaredType result;
    ComPtr<ITypeInfo> named;
    if (FAILED(context->GetRefTypeInfo(reference, named.put()))) return result;
    const auto attribute = attributeOf(named.get());
    if (!attribute) return result;
    const std::wstring name = nameOf(named.get());
    switch (attribute->typekind) {
        case TKIND_ENUM:
            result.type = VT_I4;
            result.kind = ValueKind::choice;
            result.choices = choicesOf(named.get(), attribute->cVars);
            break;
        case TKIND_ALIAS:
            result = describe(named.get(), attribute->tdescAlias);
            if (sameName(name, L"OLE_COLOR")) result.kind = ValueKind::colour;
            break;
        default:
            // Interfaces and classes: fonts and pictures are known by their names, since a type
            // library may declare them in a base of its own.
            result.type = VT_DISPATCH;
            result.kind = ValueKind::other;
            if (name.find(L"Font") != std::wstring::npos) {
                result.kind = ValueKind::font;
            } else if (name.find(L"Picture") != std::wstring::npos) {
                result.kind = ValueKind::picture;
            }
            break;
    }
    result.name = name;
    return result;
}

DeclaredType describe(ITypeInfo* context, const TYPEDESC& description) {
    if (description.vt == VT_USERDEFINED) return describeNamed(context, description.hreftype);
    if (description.vt == VT_PTR && description.lptdesc) {
        DeclaredType result = describe(context, *description.lptdesc);
        // A pointer to an interface is the object itself, not a reference to it.
        const bool object = result.type == VT_DISPATCH && description.lptdesc->vt == VT_USERDEFINED;
        result.byReference = !object;
        return result;
    }
    DeclaredType result;
    result.type = description.vt;
    result.kind = ValueKind::other;
    result.name = L"Variant";
    for (const PlainType& plain : plainTypes) {
        if (plain.type == description.vt) {
            result.name = plain.name;
            result.kind = plain.kind;
        }
    }
    return result;
}

void readArguments(ITypeInfo* info, const FUNCDESC& function, Member& member) {
    std::vector<BSTR> names(static_cast<size_t>(function.cParams) + 1, nullptr);
    UINT count = 0;
    info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
    const bool put = function.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF);
    const int arguments = function.cParams - (put ? 1 : 0);
    for (int index = 0; index < arguments; ++index) {
        const ELEMDESC& element = function.lprgelemdescParam[index];
        if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
            member.type = describe(info, element.tdesc);
            member.type.byReference = false;
            continue;
        }
        const auto place = static_cast<size_t>(index) + 1;
        Argument argument;
        argument.name = place < count && names[place] ? names[place] : L"";
        argument.type = describe(info, element.tdesc);
        argument.optional = element.paramdesc.wParamFlags & PARAMFLAG_FOPT;
        member.arguments.push_back(std::move(argument));
    }
    for (BSTR name : names) SysFreeString(name);
}

Member& memberFor(std::vector<Member>& members, MEMBERID number) {
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const Member& member) { return member.number == number; });
    if (found != members.end()) return *found;
    members.emplace_back();
    members.back().number = number;
    return members.back();
}

// The members of an interface; IDispatch's own functions, which a dispinterface lists too, are
// marked restricted and passed over.
void readMembers(ITypeInfo* info, MemberKind callKind, std::vector<Member>& properties,
                 std::vector<Member>& calls) {
    const auto attribute = attributeOf(info);
    if (!attribute) return;
    for (UINT index = 0; index < attribute->cVars; ++index) {
        const auto variable = variableAt(info, index);
        if (!variable || variable->varkind != VAR_DISPATCH) continue;
        Member& member = memberFor(properties, variable->memid);
        member.name = nameOf(info, variable->memid, &member.help);
        member.type = describe(info, variable->elemdescVar.tdesc);
        member.readable = true;
        member.writable = !(variable->wVarFlags & VARFLAG_FREADONLY);
        member.hidden = variable->wVarFlags & VARFLAG_FHIDDEN;
    }
    for (UINT index = 0; index < attribute->cFuncs; ++index) {
        const auto function = functionAt(info, index);
        if (!function || (function->wFuncFlags & FUNCFLAG_FRESTRICTED)) continue;
        const bool call = function->invkind == INVOKE_FUNC;
        Member& member = memberFor(call ? calls : properties, function->memid);
        member.kind = call ? callKind : MemberKind::property;
        std::wstring help;
        member.name = nameOf(info, function->memid, &help);
        if (!help.empty()) member.help = help;
        member.hidden = function->wFuncFlags & FUNCFLAG_FHIDDEN;
        if (call) {
            member.type = describe(info, function->elemdescFunc.tdesc);
            readArguments(info, *function, member);
        } else if (function->invkind == INVOKE_PROPERTYGET) {
            member.readable = true;
            member.type = describe(info, function->elemdescFunc.tdesc);
            member.arguments.clear();
            readArguments(info, *function, member);
        } else {
            member.writable = true;
            if (member.type.type == VT_EMPTY && function->cParams > 0)
                member.type = describe(info, function->lprgelemdescParam[function->cParams - 1].tdesc);
        }
    }
}

ComPtr<ITypeInfo> classInfoOf(IUnknown* object) {
    ComPtr<ITypeInfo> info;
    if (const auto provider = ComPtr<IUnknown>(object).query<IProvideClassInfo>())
        provider->GetClassInfo(info.put());
    return info;
}

const Member* find(const std::vector<Member>& members, std::wstring_view name) {
    for (const Member& member : members) {
        if (sameName(member.name, name)) return &member;
    }
    return nullptr;
}

}  // namespace

std::wstring Member::signature() const {
    std::wstring text = name;
    if (kind == MemberKind::property && arguments.empty()) return text;
    text += L'(';
    for (size_t index = 0; index < arguments.size(); ++index) {
        text += index == 0 ? L"" : L", ";
        text += arguments[index].name;
    }
    return text + L')';
}

TypeMembers TypeMembers::of(IUnknown* object) {
    ComPtr<ITypeInfo> info;
    if (const auto dispatch = ComPtr<IUnknown>(object).query<IDispatch>())
        dispatch->GetTypeInfo(0, neutralLocale, info.put());
    TypeMembers result = of(info.get(), eventInterfaceOf(object).info.get());
    if (const auto classInfo = classInfoOf(object)) result.className_ = nameOf(classInfo.get());
    return result;
}

TypeMembers TypeMembers::of(ITypeInfo* interfaceInfo, ITypeInfo* eventInfo) {
    TypeMembers result;
    readMembers(interfaceInfo, MemberKind::method, result.properties_, result.methods_);
    std::vector<Member> none;
    readMembers(eventInfo, MemberKind::event, none, result.events_);
    return result;
}

const Member* TypeMembers::property(std::wstring_view name) const {
    return find(properties_, name);
}

const Member* TypeMembers::method(std::wstring_view name) const {
    return find(methods_, name);
}

const Member* TypeMembers::event(DISPID number) const {
    for (const Member& member : events_) {
        if (member.number == number) return &member;
    }
    return nullptr;
}

EventInterface eventInterfaceOf(IUnknown* object) {
    EventInterface result;
    if (const auto provider = ComPtr<IUnknown>(object).query<IProvideClassInfo2>())
        provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &result.id);
    const auto classInfo = classInfoOf(object);
    const auto attribute = attributeOf(classInfo.get());
    for (UINT index = 0; attribute && index < attribute->cImplTypes; ++index) {
        int flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> info;
        constexpr int wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
        if (SUCCEEDED(classInfo->GetImplTypeFlags(index, &flags)) && (flags & wanted) == wanted &&
            SUCCEEDED(classInfo->GetRefTypeOfImplType(index, &reference)) &&
            SUCCEEDED(classInfo->GetRefTypeInfo(reference, info.put()))) {
            if (const auto source = attributeOf(info.get())) result.id = source->guid;
            result.info = info;
        }
    }
    return result;
}

std::vector<Choice> proposedChoices(IUnknown* object, DISPID property) {
    std::vector<Choice> choices;
    const auto browsing = ComPtr<IUnknown>(object).query<IPerPropertyBrowsing>();
    CALPOLESTR names = {};
    CADWORD cookies = {};
    if (!browsing || browsing->GetPredefinedStrings(property, &names, &cookies) != S_OK) return choices;
    for (ULONG index = 0; index < names.cElems && index < cookies.cElems; ++index) {
        Variant value;
        if (names.pElems[index] &&
            SUCCEEDED(browsing->GetPredefinedValue(property, cookies.pElems[index], value.put()))) {
            if (const auto number = value.toLong()) choices.push_back({names.pElems[index], *number});
        }
        CoTaskMemFree(names.pElems[index]);
    }
    CoTaskMemFree(names.pElems);
    CoTaskMemFree(cookies.pElems);
    return choices;
}

}  // namespace obk::container
