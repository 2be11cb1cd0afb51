#include "container/dispatch.h"

#include <algorithm>

namespace obk::container {

DISPID MemberName::resolve(IDispatch* object) const {
    if (name_.empty()) return number_;
    DISPID number = DISPID_UNKNOWN;
    auto* name = const_cast<LPOLESTR>(name_.c_str());
    const HRESULT found = object->GetIDsOfNames(IID_NULL, &name, 1, neutralLocale, &number);
    return SUCCEEDED(found) ? number : DISPID_UNKNOWN;
}

Variant Dispatch::value(const MemberName& member) const {
    Variant result;
    if (FAILED(read(member, result))) return {};
    return result;
}

HRESULT Dispatch::read(const MemberName& member, Variant& result, const Arguments& arguments) const {
    return object_ ? invoke(member.resolve(object_.get()), DISPATCH_PROPERTYGET, arguments, &result)
                   : E_POINTER;
}

HRESULT Dispatch::put(const MemberName& member, const Variant& value) const {
    return object_ ? invoke(member.resolve(object_.get()), DISPATCH_PROPERTYPUT, {value}, nullptr)
                   : E_POINTER;
}

HRESULT Dispatch::putReference(const MemberName& member, const Variant& value) const {
    return object_ ? invoke(member.resolve(object_.get()), DISPATCH_PROPERTYPUTREF, {value}, nullptr)
                   : E_POINTER;
}

HRESULT Dispatch::call(const MemberName& member, const Arguments& arguments, Variant* result) const {
    return object_ ? invoke(member.resolve(object_.get()), DISPATCH_METHOD, arguments, result) : E_POINTER;
}

HRESULT Dispatch::invoke(DISPID number, WORD flags, const Arguments& arguments, Variant* result) const {
    if (!object_) return E_POINTER;
    if (number == DISPID_UNKNOWN) return DISP_E_UNKNOWNNAME;
    // The protocol passes arguments from the last to the first. They are shallow copies: the
    // callee reads them, the list keeps them.
    std::vector<VARIANT> reversed(arguments.size());
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](const Variant& argument) { return argument.get(); });
    DISPID putNumber = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {};
    parameters.rgvarg = reversed.data();
    parameters.cArgs = static_cast<UINT>(reversed.size());
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        parameters.rgdispidNamedArgs = &putNumber;
        parameters.cNamedArgs = 1;
    }
    EXCEPINFO exception = {};
    UINT badArgument = 0;
    const ComPtr<IDispatch> alive = object_;
    const HRESULT done = alive->Invoke(number, IID_NULL, neutralLocale, flags, &parameters,
                                       result ? result->put() : nullptr, &exception, &badArgument);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return done;
}

}  // namespace obk::container
