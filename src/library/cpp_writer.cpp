#include "library/import_writers.h"

#include "library/class_facts.h"

namespace obk {

namespace {

// What all classes of the header stand on. It is written for compilers that have the platform's headers.
constexpr TextView foundation =
    uR"(#pragma once

#include <windows.h>
#include <ocidl.h>
#include <oleauto.h>

#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace OBKCTRLS {

// A call that was refused, with what it answered.
class Error : public std::runtime_error {
public:
    Error(HRESULT result, const char* what) : std::runtime_error(what), result_(result) {}
    HRESULT result() const { return result_; }

private:
    HRESULT result_;
};

// Owns one reference.
template <class Interface>
class Pointer {
public:
    Pointer() = default;
    Pointer(Interface* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    Pointer(const Pointer& other) : Pointer(other.object_) {}
    Pointer(Pointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Pointer& operator=(Pointer other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Pointer() {
        if (object_) object_->Release();
    }
    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    // For functions that hand out a reference.
    Interface** put() {
        *this = Pointer();
        return &object_;
    }

private:
    Interface* object_ = nullptr;
};

namespace detail {

inline void check(HRESULT result, const char* what) {
    if (FAILED(result)) throw Error(result, what);
}

// A value on its way to or from a control.
class Variant : public VARIANT {
public:
    Variant() { VariantInit(this); }
    Variant(bool value) : Variant() { vt = VT_BOOL, boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
    Variant(unsigned char value) : Variant() { vt = VT_UI1, bVal = value; }
    Variant(short value) : Variant() { vt = VT_I2, iVal = value; }
    Variant(long value) : Variant() { vt = VT_I4, lVal = value; }
    Variant(unsigned long value) : Variant(static_cast<long>(value)) {}
    Variant(float value) : Variant() { vt = VT_R4, fltVal = value; }
    Variant(double value) : Variant() { vt = VT_R8, dblVal = value; }
    Variant(const std::wstring& text) : Variant() {
        vt = VT_BSTR, bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    Variant(const Pointer<IDispatch>& object) : Variant() {
        vt = VT_DISPATCH, pdispVal = object.get();
        if (pdispVal) pdispVal->AddRef();
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }
};

template <class Value>
Value from(const VARIANT& value);
inline void as(const VARIANT& value, VARTYPE type, Variant& result) {
    check(VariantChangeType(&result, const_cast<VARIANT*>(&value), 0, type), "conversion");
}
template <>
inline bool from<bool>(const VARIANT& value) {
    Variant result;
    as(value, VT_BOOL, result);
    return result.boolVal != VARIANT_FALSE;
}
template <>
inline unsigned char from<unsigned char>(const VARIANT& value) {
    Variant result;
    as(value, VT_UI1, result);
    return result.bVal;
}
template <>
inline short from<short>(const VARIANT& value) {
    Variant result;
    as(value, VT_I2, result);
    return result.iVal;
}
template <>
inline long from<long>(const VARIANT& value) {
    Variant result;
    as(value, VT_I4, result);
    return result.lVal;
}
template <>
inline unsigned long from<unsigned long>(const VARIANT& value) {
    return static_cast<unsigned long>(from<long>(value));
}
template <>
inline float from<float>(const VARIANT& value) {
    Variant result;
    as(value, VT_R4, result);
    return result.fltVal;
}
template <>
inline double from<double>(const VARIANT& value) {
    Variant result;
    as(value, VT_R8, result);
    return result.dblVal;
}
template <>
inline std::wstring from<std::wstring>(const VARIANT& value) {
    Variant result;
    as(value, VT_BSTR, result);
    return std::wstring(result.bstrVal ? result.bstrVal : L"", SysStringLen(result.bstrVal));
}
template <>
inline Pointer<IDispatch> from<Pointer<IDispatch>>(const VARIANT& value) {
    Variant result;
    as(value, VT_DISPATCH, result);
    return Pointer<IDispatch>(result.pdispVal);
}
template <>
inline Pointer<IUnknown> from<Pointer<IUnknown>>(const VARIANT& value) {
    Variant result;
    as(value, VT_UNKNOWN, result);
    return Pointer<IUnknown>(result.punkVal);
}

// An argument by reference: read when the event comes, written back when its handler has returned.
template <class Value>
class Reference {
public:
    explicit Reference(VARIANT& argument) : argument_(argument) {
        Variant plain;
        check(VariantCopyInd(&plain, &argument), "argument");
        value = before_ = from<Value>(plain);
    }
    void writeBack() {
        if (!(argument_.vt & VT_BYREF) || value == before_) return;
        Variant changed(value), converted;
        const VARTYPE type = static_cast<VARTYPE>(argument_.vt & ~VT_BYREF);
        if (type == VT_VARIANT) {
            VariantCopy(argument_.pvarVal, &changed);
            return;
        }
        if (FAILED(VariantChangeType(&converted, &changed, 0, type))) return;
        switch (type) {
            case VT_BSTR:
                SysFreeString(*argument_.pbstrVal);
                *argument_.pbstrVal = std::exchange(converted.bstrVal, nullptr);
                break;
            case VT_BOOL:
            case VT_I2:
                *argument_.piVal = converted.iVal;
                break;
            case VT_I4:
            case VT_UI4:
            case VT_R4:
                *argument_.plVal = converted.lVal;
                break;
            case VT_R8:
                *argument_.pdblVal = converted.dblVal;
                break;
            default:
                break;
        }
    }
    Value value;

private:
    VARIANT& argument_;
    Value before_;
};
// Objects are handed through.
template <>
class Reference<Pointer<IUnknown>> {
public:
    explicit Reference(VARIANT& argument) {
        Variant plain;
        check(VariantCopyInd(&plain, &argument), "argument");
        value = from<Pointer<IUnknown>>(plain);
    }
    void writeBack() {}
    Pointer<IUnknown> value;
};

// Gets the events of one control as long as that lives.
class Sink final : public IDispatch {
public:
    using Handler = std::function<void(DISPID, DISPPARAMS&)>;
    Sink(const IID& events, Handler handler) : events_(events), handler_(std::move(handler)) {}
    void forget() { handler_ = nullptr; }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IDispatch && id != events_) return E_NOINTERFACE;
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        if (!handler_ || !arguments) return S_OK;
        // No exception leaves a call from a control.
        try {
            const Handler handler = handler_;
            handler(number, *arguments);
        } catch (...) {
            return E_FAIL;
        }
        return S_OK;
    }

private:
    ~Sink() = default;
    ULONG count_ = 1;
    IID events_;
    Handler handler_;
};

// What all controls have: the object, its members by number, its events.
class Control {
public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    // The object itself, for a container to show.
    IDispatch* object() const { return object_.get(); }

protected:
    explicit Control(const Pointer<IUnknown>& object) {
        check(object ? object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object_.put())) : E_POINTER,
              "the control");
    }
    ~Control() {
        if (sink_) sink_->forget();
        if (point_) point_->Unadvise(cookie_);
        if (sink_) sink_->Release();
    }
    static Pointer<IUnknown> created(const CLSID& id) {
        Pointer<IUnknown> object;
        check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                               reinterpret_cast<void**>(object.put())),
              "CoCreateInstance");
        return object;
    }
    void listen(const IID& events, Sink::Handler handler) {
        Pointer<IConnectionPointContainer> points;
        check(object_->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(points.put())),
              "events");
        check(points->FindConnectionPoint(events, point_.put()), "events");
        sink_ = new Sink(events, std::move(handler));
        check(point_->Advise(sink_, &cookie_), "events");
    }
    // Arguments come last first, as automation has them.
    void invoke(DISPID number, WORD how, VARIANT* arguments, UINT count, VARIANT* result, const char* name) const {
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{arguments, nullptr, count, 0};
        if (how != DISPATCH_METHOD && how != DISPATCH_PROPERTYGET)
            parameters.rgdispidNamedArgs = &put, parameters.cNamedArgs = 1;
        check(object_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters, result, nullptr, nullptr), name);
    }
    template <class Value>
    Value get(DISPID number, const char* name) const {
        Variant result;
        invoke(number, DISPATCH_PROPERTYGET, nullptr, 0, &result, name);
        return from<Value>(result);
    }
    void put(DISPID number, Variant&& value, const char* name) const {
        invoke(number, value.vt == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT, &value, 1, nullptr, name);
    }

private:
    Pointer<IDispatch> object_;
    Pointer<IConnectionPoint> point_;
    Sink* sink_ = nullptr;
    DWORD cookie_ = 0;
};

}  // namespace detail
)";

Text typeOf(ValueType type) {
    switch (type) {
        case ValueType::empty:
            return u"void";
        case ValueType::boolean:
            return u"bool";
        case ValueType::byte:
            return u"unsigned char";
        case ValueType::integer:
            return u"short";
        case ValueType::longInteger:
            return u"long";
        case ValueType::single:
            return u"float";
        case ValueType::doubleFloat:
            return u"double";
        case ValueType::text:
            return u"std::wstring";
        case ValueType::colour:
            return u"OLE_COLOR";
        case ValueType::font:
        case ValueType::picture:
            return u"Pointer<IDispatch>";
        case ValueType::object:
            return u"Pointer<IUnknown>";
    }
    return u"void";
}

Text argumentType(ValueType type) {
    const bool plain = type != ValueType::text && type < ValueType::font;
    return plain ? typeOf(type) : u"const " + typeOf(type) + u"&";
}

Text literal(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) return u"L\"" + *text + u"\"";
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? u"true" : u"false";
    if (const auto* colour = std::get_if<OleColour>(&value)) return decimalText(colour->value) + u"u";
    return toText(value).value_or(u"0");
}

Text guid(const Guid& id) {
    const Text digits = guidDigits(id);
    Text text = u"{0x" + digits.substr(0, 8) + u", 0x" + digits.substr(9, 4) + u", 0x" +
                digits.substr(14, 4) + u", {";
    const Text rest = digits.substr(19, 4) + digits.substr(24);
    for (size_t at = 0; at < rest.size(); at += 2) text += (at ? u", 0x" : u"0x") + rest.substr(at, 2);
    return text + u"}}";
}

class CppWriter {
public:
    Text write(const Library& library) {
        line(u"// " + library.description + u" " + library.release +
             u" for C++17, made from the tables that the type library is made from. Nothing is");
        line(
            u"// needed but the platform's own headers and ole32, oleaut32 and uuid to link. A refused call throws Error.");
        text_ += foundation;
        for (const Enumeration* enumeration : library.enumerations) {
            line();
            line(u"// " + enumeration->help + u".");
            line(u"enum " + enumeration->name + u" : long {");
            for (const EnumerationValue& value : enumeration->values)
                line(u"    " + value.name + u" = " + decimalText(value.value) + u",");
            line(u"};");
        }
        for (const ControlTable* table : publicControls(library)) write(*table);
        line();
        line(u"}  // namespace " + library.name);
        return std::move(text_);
    }

private:
    void line(const Text& content = {}) {
        text_ += content;
        text_ += u'\n';
    }

    void write(const ControlTable& table) {
        line();
        line(u"// " + table.help + u".");
        line(u"class " + table.name + u" : public detail::Control {");
        line(u"public:");
        line(u"    static constexpr CLSID classId" + guid(table.classId) + u";");
        line(u"    static constexpr IID eventsId" + guid(table.eventInterfaceId) + u";");
        line();
        line(u"    " + table.name + u"() : " + table.name + u"(created(classId)) {}");
        line(u"    // One that exists already, for example on a form.");
        line(u"    explicit " + table.name + u"(const Pointer<IUnknown>& object) : Control(object) {");
        line(
            u"        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });");
        line(u"    }");
        for (const Member& member : table.members)
            member.kind == MemberKind::property ? writeProperty(member) : writeMethod(member);
        for (const Member& event : table.events) {
            line();
            line(u"    // " + event.help + u".");
            line(u"    std::function<void(" + eventParameters(event) + u")> on" + event.name + u";");
        }
        writeRaise(table);
        line(u"};");
    }

    void writeProperty(const Member& member) {
        const Text number = decimalText(member.number);
        const Text quoted = u"\"" + member.name + u"\"";
        const Text type = member.enumeration ? member.enumeration->name : typeOf(member.type);
        line();
        line(u"    // " + member.help + u".");
        if (member.get) {
            const Text value = u"get<" + typeOf(member.type) + u">(" + number + u", " + quoted + u")";
            line(u"    " + type + u" " + member.name + u"() const { return " +
                 (member.enumeration ? u"static_cast<" + type + u">(" + value + u")" : value) + u"; }");
        }
        if (member.put) {
            const Text value = member.enumeration ? Text(u"static_cast<long>(value)") : Text(u"value");
            line(u"    void " + member.name + u"(" + (member.enumeration ? type : argumentType(member.type)) +
                 u" value) { put(" + number + u", " + value + u", " + quoted + u"); }");
        }
    }

    void writeMethod(const Member& member) {
        Text list, values;
        bool references = false;
        for (const Parameter& parameter : member.parameters) {
            list += (list.empty() ? u"" : u", ") +
                    (parameter.byReference ? typeOf(parameter.type) + u"&" : argumentType(parameter.type)) +
                    u" " + parameter.name;
            if (parameter.mayBeLeftOut()) list += u" = " + literal(valueOf(parameter.defaultValue));
            references = references || parameter.byReference;
            // Last first.
            values.insert(0, parameter.name + (values.empty() ? u"" : u", "));
        }
        const bool answers = member.type != ValueType::empty;
        line();
        line(u"    // " + member.help + u".");
        line(u"    " + typeOf(member.type) + u" " + member.name + u"(" + list + u") {");
        const Text count = decimalText(static_cast<int64_t>(member.parameters.size()));
        if (!member.parameters.empty())
            line(u"        detail::Variant arguments[" + count + u"] = {" + values + u"};");
        if (references) writeReferences(member);
        if (answers) line(u"        detail::Variant result;");
        line(u"        invoke(" + decimalText(member.number) + u", DISPATCH_METHOD, " +
             (references                  ? u"passed"
              : member.parameters.empty() ? u"nullptr"
                                          : u"arguments") +
             u", " + count + u", " + (answers ? u"&result" : u"nullptr") + u", \"" + member.name + u"\");");
        for (size_t at = 0; at < member.parameters.size(); ++at) {
            const Parameter& parameter = member.parameters[at];
            if (parameter.byReference)
                line(u"        " + parameter.name + u" = detail::from<" + typeOf(parameter.type) +
                     u">(arguments[" + decimalText(static_cast<int64_t>(member.parameters.size() - 1 - at)) +
                     u"]);");
        }
        if (answers) line(u"        return detail::from<" + typeOf(member.type) + u">(result);");
        line(u"    }");
    }

    // What is passed by reference refers to the values, where the control's changes are found.
    void writeReferences(const Member& member) {
        const size_t count = member.parameters.size();
        line(u"        VARIANT passed[" + decimalText(static_cast<int64_t>(count)) + u"];");
        line(u"        std::memcpy(passed, arguments, sizeof passed);");
        for (size_t at = 0; at < count; ++at) {
            if (!member.parameters[at].byReference) continue;
            const Text place = u"[" + decimalText(static_cast<int64_t>(count - 1 - at)) + u"]";
            line(u"        passed" + place + u".vt = VT_BYREF | VT_VARIANT;");
            Text reference = u"        passed" + place;
            reference += u".pvarVal = &arguments";
            reference += place;
            line(reference + u";");
        }
    }

    static Text eventParameters(const Member& event) {
        Text list;
        for (const Parameter& parameter : event.parameters)
            list += (list.empty() ? u"" : u", ") +
                    (parameter.byReference ? typeOf(parameter.type) + u"&" : argumentType(parameter.type)) +
                    u" " + parameter.name;
        return list;
    }

    void writeRaise(const ControlTable& table) {
        line();
        line(u"private:");
        if (table.events.empty()) {
            line(u"    void raise(DISPID, DISPPARAMS&) {}");
            return;
        }
        line(u"    void raise(DISPID number, DISPPARAMS& parameters) {");
        line(u"        switch (number) {");
        for (const Member& event : table.events) {
            const size_t count = event.parameters.size();
            line(u"            case " + decimalText(event.number) + u":");
            if (count == 0) {
                line(u"                if (on" + event.name + u") on" + event.name + u"();");
                line(u"                break;");
                continue;
            }
            line(u"                if (on" + event.name + u" && parameters.cArgs == " +
                 decimalText(static_cast<int64_t>(count)) + u") {");
            Text values;
            for (size_t at = 0; at < count; ++at) {
                const Parameter& parameter = event.parameters[at];
                line(u"                    detail::Reference<" + typeOf(parameter.type) + u"> " +
                     parameter.name + u"(parameters.rgvarg[" +
                     decimalText(static_cast<int64_t>(count - 1 - at)) + u"]);");
                values += (values.empty() ? u"" : u", ") + parameter.name + u".value";
            }
            line(u"                    on" + event.name + u"(" + values + u");");
            for (const Parameter& parameter : event.parameters) {
                if (parameter.byReference) line(u"                    " + parameter.name + u".writeBack();");
            }
            line(u"                }");
            line(u"                break;");
        }
        line(u"            default:");
        line(u"                break;");
        line(u"        }");
        line(u"    }");
    }

    Text text_;
};

}  // namespace

std::string writeCppHeader(const Library& library) {
    return toUtf8(CppWriter().write(library));
}

}  // namespace obk
