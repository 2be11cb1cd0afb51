// Late-bound calls to an automation object, by name or by number.
#pragma once

#include <string>
#include <string_view>

#include "container/variant.h"

namespace obk::container {

// A member given by its name (any letter case) or its dispatch number.
class MemberName {
public:
    MemberName(DISPID number) : number_(number) {}
    MemberName(const wchar_t* name) : name_(name) {}
    MemberName(const std::wstring& name) : name_(name) {}

    // The number on `object`, or DISPID_UNKNOWN.
    DISPID resolve(IDispatch* object) const;

private:
    DISPID number_ = DISPID_UNKNOWN;
    std::wstring name_;
};

// Shares one automation object and calls it. Every call is safe on an empty wrapper: it answers
// E_POINTER.
class Dispatch {
public:
    Dispatch() = default;
    explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}
    // The automation interface of any object; empty when it has none.
    explicit Dispatch(IUnknown* object) : object_(ComPtr<IUnknown>(object).query<IDispatch>()) {}

    IDispatch* get() const { return object_.get(); }
    explicit operator bool() const { return static_cast<bool>(object_); }

    // The property's value; empty when it cannot be read.
    Variant value(const MemberName& member) const;
    HRESULT read(const MemberName& member, Variant& result, const Arguments& arguments = {}) const;
    HRESULT put(const MemberName& member, const Variant& value) const;
    HRESULT putReference(const MemberName& member, const Variant& value) const;
    // Arguments in the order in which they are declared.
    HRESULT call(const MemberName& member, const Arguments& arguments = {}, Variant* result = nullptr) const;

    // The raw call: flags are DISPATCH_*; `arguments` in declared order.
    HRESULT invoke(DISPID number, WORD flags, const Arguments& arguments, Variant* result) const;

private:
    ComPtr<IDispatch> object_;
};

}  // namespace obk::container
