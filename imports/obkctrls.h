// Orbek Controls 1.0.0 for C++17, made from the tables that the type library is made from. Nothing is
// needed but the platform's own headers and ole32, oleaut32 and uuid to link. A refused call throws Error.
#pragma once

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

// Kinds of a button; all look the same, and a form keeps which one it was given.
enum ButtonTypesdd : long {
    CButton = 1,
    CFlat = 2,
    CSoft = 3,
    CRaised = 4,
    CSunken = 5,
    CEtched = 6,
    CBump = 7,
    CFramed = 8,
    CBorderless = 9,
    CToolbar = 10,
    CHover = 11,
    CLink = 12,
    CSplit = 13,
    CDropDown = 14,
};

// Palettes: columns by rows, or base colours by rows by columns of shades.
enum enQUILLPalette : long {
    QP8X2 = 0,
    QP9X3 = 1,
    QP8X8 = 2,
    QP16X8 = 3,
    QP24X8 = 4,
    QP24X10 = 5,
    QP8X4X4 = 6,
    QP8X8X6 = 7,
    QP12X6X6 = 8,
    QP16X8X6 = 9,
    QP24X8X6 = 10,
    QP32X8X6 = 11,
};

// A numeric text box with a spinner.
class UpDownTextBox : public detail::Control {
public:
    static constexpr CLSID classId{0xD8CFD887, 0x69FC, 0x498C, {0x8C, 0x1C, 0x8A, 0x9F, 0x2D, 0x84, 0x31, 0xFB}};
    static constexpr IID eventsId{0xE1AFBD5F, 0x531D, 0x46E4, {0xB6, 0xC7, 0x10, 0xB8, 0xC0, 0xB8, 0x02, 0x20}};

    UpDownTextBox() : UpDownTextBox(created(classId)) {}
    // One that exists already, for example on a form.
    explicit UpDownTextBox(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // Alignment of the text: 0 left, 1 right, 2 centre.
    long Alignment() const { return get<long>(1, "Alignment"); }
    void Alignment(long value) { put(1, value, "Alignment"); }

    // Whether the mouse wheel steps the value; the arrow keys always do.
    bool AllowArrowKeys() const { return get<bool>(2, "AllowArrowKeys"); }
    void AllowArrowKeys(bool value) { put(2, value, "AllowArrowKeys"); }

    // Whether a decimal point may be typed; stepped values then show one decimal.
    bool AllowDecpoint() const { return get<bool>(3, "AllowDecpoint"); }
    void AllowDecpoint(bool value) { put(3, value, "AllowDecpoint"); }

    // Background colour; enabling the control sets it to the window background.
    OLE_COLOR BackColor() const { return get<OLE_COLOR>(4, "BackColor"); }
    void BackColor(OLE_COLOR value) { put(4, value, "BackColor"); }

    // Border of the field: 0 none, 1 a border.
    long BorderStyle() const { return get<long>(5, "BorderStyle"); }
    void BorderStyle(long value) { put(5, value, "BorderStyle"); }

    // Side of the buttons: 0 right, 1 left.
    long BuddyAlignment() const { return get<long>(6, "BuddyAlignment"); }
    void BuddyAlignment(long value) { put(6, value, "BuddyAlignment"); }

    // 1 when a text holds a full stop, else 0.
    long DecimalpointCheck(const std::wstring& Number) {
        detail::Variant arguments[1] = {Number};
        detail::Variant result;
        invoke(7, DISPATCH_METHOD, arguments, 1, &result, "DecimalpointCheck");
        return detail::from<long>(result);
    }

    // Whether the user can change the value.
    bool Enabled() const { return get<bool>(8, "Enabled"); }
    void Enabled(bool value) { put(8, value, "Enabled"); }

    // Font of the text.
    Pointer<IDispatch> Font() const { return get<Pointer<IDispatch>>(9, "Font"); }
    void Font(const Pointer<IDispatch>& value) { put(9, value, "Font"); }

    // Colour of the text.
    OLE_COLOR ForeColor() const { return get<OLE_COLOR>(10, "ForeColor"); }
    void ForeColor(OLE_COLOR value) { put(10, value, "ForeColor"); }

    // Amount of one step; 0 on a freshly placed control.
    double Interval() const { return get<double>(11, "Interval"); }
    void Interval(double value) { put(11, value, "Interval"); }

    // The typed character's code, or 0 when a numeric field should reject it.
    unsigned char KeyLock(long KeyAscii, bool Extra_Check, std::wstring& Extra_sText) {
        detail::Variant arguments[3] = {Extra_sText, Extra_Check, KeyAscii};
        VARIANT passed[3];
        std::memcpy(passed, arguments, sizeof passed);
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        detail::Variant result;
        invoke(12, DISPATCH_METHOD, passed, 3, &result, "KeyLock");
        Extra_sText = detail::from<std::wstring>(arguments[0]);
        return detail::from<unsigned char>(result);
    }

    // Largest value.
    long Max() const { return get<long>(13, "Max"); }
    void Max(long value) { put(13, value, "Max"); }

    // Most characters that the text may have; 0 is no limit.
    long MaxLength() const { return get<long>(14, "MaxLength"); }
    void MaxLength(long value) { put(14, value, "MaxLength"); }

    // Smallest value.
    long Min() const { return get<long>(15, "Min"); }
    void Min(long value) { put(15, value, "Min"); }

    // Lays the control out again and redraws the spinner.
    void Refresh() {
        invoke(16, DISPATCH_METHOD, nullptr, 0, nullptr, "Refresh");
    }

    // Takes over changes of the font and lays the control out again.
    void RefreshFont() {
        invoke(17, DISPATCH_METHOD, nullptr, 0, nullptr, "RefreshFont");
    }

    // Lightens (positive value) or darkens (negative value) an RGB colour.
    long ShiftColor(long Color, long Value, bool IsXP) {
        detail::Variant arguments[3] = {IsXP, Value, Color};
        detail::Variant result;
        invoke(18, DISPATCH_METHOD, arguments, 3, &result, "ShiftColor");
        return detail::from<long>(result);
    }

    // Held for hosts that keep a field and its spinner in step.
    bool SyncBuddy() const { return get<bool>(19, "SyncBuddy"); }
    void SyncBuddy(bool value) { put(19, value, "SyncBuddy"); }

    // The value as text.
    std::wstring Text() const { return get<std::wstring>(20, "Text"); }
    void Text(const std::wstring& value) { put(20, value, "Text"); }

    // Held for hosts; a text with grouping commas reads as the number it shows.
    bool ThousandsSeparator() const { return get<bool>(21, "ThousandsSeparator"); }
    void ThousandsSeparator(bool value) { put(21, value, "ThousandsSeparator"); }

    // The text has changed.
    std::function<void()> onChange;

    // The text box was clicked.
    std::function<void()> onClick;

    // The text box was double-clicked.
    std::function<void()> onDblClick;

    // The value is about to be increased.
    std::function<void()> onDownClick;

    // A key went down in the text box; a stepping key has stepped already.
    std::function<void(short& KeyCode, short& Shift)> onKeyDown;

    // A character was typed; 0 when it was rejected.
    std::function<void(short& KeyAscii)> onKeyPress;

    // A key was released in the text box.
    std::function<void(short& KeyCode, short& Shift)> onKeyUp;

    // A mouse button went down on the text box or the spinner.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseDown;

    // The mouse moved over the text box.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseMove;

    // A mouse button was released over the text box.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseUp;

    // The value is about to be decreased.
    std::function<void()> onUpClick;

private:
    void raise(DISPID number, DISPPARAMS& parameters) {
        switch (number) {
            case 1:
                if (onChange) onChange();
                break;
            case 2:
                if (onClick) onClick();
                break;
            case 3:
                if (onDblClick) onDblClick();
                break;
            case 4:
                if (onDownClick) onDownClick();
                break;
            case 5:
                if (onKeyDown && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyDown(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 6:
                if (onKeyPress && parameters.cArgs == 1) {
                    detail::Reference<short> KeyAscii(parameters.rgvarg[0]);
                    onKeyPress(KeyAscii.value);
                    KeyAscii.writeBack();
                }
                break;
            case 7:
                if (onKeyUp && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyUp(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 8:
                if (onMouseDown && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseDown(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 9:
                if (onMouseMove && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseMove(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 10:
                if (onMouseUp && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseUp(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 11:
                if (onUpClick) onUpClick();
                break;
            default:
                break;
        }
    }
};

// A date field with a menu of quick dates and a calendar to drop down.
class DateCalendar : public detail::Control {
public:
    static constexpr CLSID classId{0xA8DAB03A, 0x805D, 0x413D, {0xA7, 0xF0, 0xCB, 0xE6, 0x18, 0x15, 0x88, 0x95}};
    static constexpr IID eventsId{0x2CD8B3EB, 0x749E, 0x46C5, {0xA9, 0x02, 0x2E, 0x9F, 0x46, 0x91, 0x30, 0x08}};

    DateCalendar() : DateCalendar(created(classId)) {}
    // One that exists already, for example on a form.
    explicit DateCalendar(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // Background colour of the field.
    OLE_COLOR BackColor() const { return get<OLE_COLOR>(1, "BackColor"); }
    void BackColor(OLE_COLOR value) { put(1, value, "BackColor"); }

    // Whether the mouse is over the field; the same as MousePosn.
    bool bMOUSEPOSLOC() const { return get<bool>(2, "bMOUSEPOSLOC"); }
    void bMOUSEPOSLOC(bool value) { put(2, value, "bMOUSEPOSLOC"); }

    // Border of the field: 0 none, 1 a border; not stored with a form.
    long BorderStyle() const { return get<long>(3, "BorderStyle"); }
    void BorderStyle(long value) { put(3, value, "BorderStyle"); }

    // Whether the calendar drops down where there is room; else it goes up.
    bool bPOSITIONDEFAULT() const { return get<bool>(4, "bPOSITIONDEFAULT"); }
    void bPOSITIONDEFAULT(bool value) { put(4, value, "bPOSITIONDEFAULT"); }

    // Fills the calendar for the month and year that are chosen in it.
    void CalendarUpdate() {
        invoke(5, DISPATCH_METHOD, nullptr, 0, nullptr, "CalendarUpdate");
    }

    // Whether the user can change the date.
    bool Enabled() const { return get<bool>(6, "Enabled"); }
    void Enabled(bool value) { put(6, value, "Enabled"); }

    // Font of the date.
    Pointer<IDispatch> Font() const { return get<Pointer<IDispatch>>(7, "Font"); }
    void Font(const Pointer<IDispatch>& value) { put(7, value, "Font"); }

    // Hides the calendar; raises FocusHidden in any case.
    void HidePopUp() {
        invoke(8, DISPATCH_METHOD, nullptr, 0, nullptr, "HidePopUp");
    }

    // Handle of the control's window.
    long hWnd() const { return get<long>(9, "hWnd"); }

    // Whether the mouse is over the field.
    bool MousePosn() const { return get<bool>(10, "MousePosn"); }
    void MousePosn(bool value) { put(10, value, "MousePosn"); }

    // Whether the calendar may open; else what would open it raises PopUp alone.
    bool PopupEnabled() const { return get<bool>(11, "PopupEnabled"); }
    void PopupEnabled(bool value) { put(11, value, "PopupEnabled"); }

    // Shows the calendar on the month of the date; an empty date becomes today's.
    void ShowPopUp() {
        invoke(12, DISPATCH_METHOD, nullptr, 0, nullptr, "ShowPopUp");
    }

    // Brings the calendar to the month and year that the date's text mentions.
    void subNEWDATE() {
        invoke(13, DISPATCH_METHOD, nullptr, 0, nullptr, "subNEWDATE");
    }

    // The date as it is shown, "Sat 14 Nov 2026", with eight blanks after it; empty after loading.
    std::wstring Text() const { return get<std::wstring>(14, "Text"); }
    void Text(const std::wstring& value) { put(14, value, "Text"); }

    // Does what a click on the icon does.
    void UserControl_Click() {
        invoke(15, DISPATCH_METHOD, nullptr, 0, nullptr, "UserControl_Click");
    }

    // Raises FocusLost and MouseUp, as losing the focus does.
    void UserControl_ExitFocus() {
        invoke(16, DISPATCH_METHOD, nullptr, 0, nullptr, "UserControl_ExitFocus");
    }

    // Tracks the mouse into or out of the field.
    void UserControlMouseOut(short& Button, short& Shift, float& X, float& Y) {
        detail::Variant arguments[4] = {Y, X, Shift, Button};
        VARIANT passed[4];
        std::memcpy(passed, arguments, sizeof passed);
        passed[3].vt = VT_BYREF | VT_VARIANT;
        passed[3].pvarVal = &arguments[3];
        passed[2].vt = VT_BYREF | VT_VARIANT;
        passed[2].pvarVal = &arguments[2];
        passed[1].vt = VT_BYREF | VT_VARIANT;
        passed[1].pvarVal = &arguments[1];
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(17, DISPATCH_METHOD, passed, 4, nullptr, "UserControlMouseOut");
        Button = detail::from<short>(arguments[3]);
        Shift = detail::from<short>(arguments[2]);
        X = detail::from<float>(arguments[1]);
        Y = detail::from<float>(arguments[0]);
    }

    // Never raised.
    std::function<void()> onChange;

    // The field was clicked.
    std::function<void()> onClick;

    // The user changed the date, or ended the editing of its text.
    std::function<void()> onDateUpdated;

    // The field was double-clicked.
    std::function<void()> onDblClick;

    // The calendar was hidden, or asked to be.
    std::function<void()> onFocusHidden;

    // The control lost the focus.
    std::function<void()> onFocusLost;

    // A key went down; it has had its effect on the calendar already.
    std::function<void(short& KeyCode, short& Shift)> onKeyDown;

    // Never raised.
    std::function<void(short& KeyAscii)> onKeyPress;

    // A key was released.
    std::function<void(short& KeyCode, short& Shift)> onKeyUp;

    // A mouse button went down on the field.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseDown;

    // The mouse moved over the field.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseMove;

    // The mouse was tracked, inside the field or out of it.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseOut;

    // A mouse button was released, or the focus went.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseUp;

    // The field was clicked, or the calendar was asked for while PopupEnabled is False.
    std::function<void()> onPopUp;

private:
    void raise(DISPID number, DISPPARAMS& parameters) {
        switch (number) {
            case 1:
                if (onChange) onChange();
                break;
            case 2:
                if (onClick) onClick();
                break;
            case 3:
                if (onDateUpdated) onDateUpdated();
                break;
            case 4:
                if (onDblClick) onDblClick();
                break;
            case 5:
                if (onFocusHidden) onFocusHidden();
                break;
            case 6:
                if (onFocusLost) onFocusLost();
                break;
            case 7:
                if (onKeyDown && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyDown(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 8:
                if (onKeyPress && parameters.cArgs == 1) {
                    detail::Reference<short> KeyAscii(parameters.rgvarg[0]);
                    onKeyPress(KeyAscii.value);
                    KeyAscii.writeBack();
                }
                break;
            case 9:
                if (onKeyUp && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyUp(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 10:
                if (onMouseDown && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseDown(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 11:
                if (onMouseMove && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseMove(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 12:
                if (onMouseOut && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseOut(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 13:
                if (onMouseUp && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseUp(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 14:
                if (onPopUp) onPopUp();
                break;
            default:
                break;
        }
    }
};

// A button that shows a colour and drops down a colour palette.
class ButtonPalette : public detail::Control {
public:
    static constexpr CLSID classId{0x5E8A5A70, 0xBD73, 0x405C, {0xA7, 0x94, 0xF5, 0xE5, 0xAE, 0xE1, 0xB7, 0xFD}};
    static constexpr IID eventsId{0xC7D4B36E, 0x9DEB, 0x4523, {0x90, 0x71, 0x03, 0xC3, 0x4B, 0x34, 0x3A, 0x21}};

    ButtonPalette() : ButtonPalette(created(classId)) {}
    // One that exists already, for example on a form.
    explicit ButtonPalette(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // Colour of the swatch that was pressed or dragged over last.
    OLE_COLOR ActiveColor() const { return get<OLE_COLOR>(1, "ActiveColor"); }

    // Name of the swatch that was pressed or dragged over last.
    std::wstring ActiveText() const { return get<std::wstring>(2, "ActiveText"); }

    // Background colour of the button.
    OLE_COLOR BackColor() const { return get<OLE_COLOR>(3, "BackColor"); }
    void BackColor(OLE_COLOR value) { put(3, value, "BackColor"); }

    // Whether BackColor shows, until the button is first repainted, in place of the system's button face.
    bool BackcolorCustom() const { return get<bool>(4, "BackcolorCustom"); }
    void BackcolorCustom(bool value) { put(4, value, "BackcolorCustom"); }

    // Whether the mouse is over the button; the same as MousePosn.
    bool bMOUSEPOSLOC() const { return get<bool>(5, "bMOUSEPOSLOC"); }
    void bMOUSEPOSLOC(bool value) { put(5, value, "bMOUSEPOSLOC"); }

    // Whether the panel drops down where there is room; else it goes up.
    bool bPOSITIONDEFAULT() const { return get<bool>(6, "bPOSITIONDEFAULT"); }
    void bPOSITIONDEFAULT(bool value) { put(6, value, "bPOSITIONDEFAULT"); }

    // Kind of the button; kept, without effect on how it looks.
    ButtonTypesdd ButtonType() const { return static_cast<ButtonTypesdd>(get<long>(7, "ButtonType")); }
    void ButtonType(ButtonTypesdd value) { put(7, static_cast<long>(value), "ButtonType"); }

    // Text on the button.
    std::wstring Caption() const { return get<std::wstring>(8, "Caption"); }
    void Caption(const std::wstring& value) { put(8, value, "Caption"); }

    // Colour that the button shows.
    OLE_COLOR Color() const { return get<OLE_COLOR>(9, "Color"); }
    void Color(OLE_COLOR value) { put(9, value, "Color"); }

    // Whether the user can press the button.
    bool Enabled() const { return get<bool>(10, "Enabled"); }
    void Enabled(bool value) { put(10, value, "Enabled"); }

    // Whether the button with the focus shows a focus rectangle.
    bool FocusRect() const { return get<bool>(11, "FocusRect"); }
    void FocusRect(bool value) { put(11, value, "FocusRect"); }

    // Font of the caption.
    Pointer<IDispatch> Font() const { return get<Pointer<IDispatch>>(12, "Font"); }
    void Font(const Pointer<IDispatch>& value) { put(12, value, "Font"); }

    // Colour of the caption.
    OLE_COLOR ForeColor() const { return get<OLE_COLOR>(13, "ForeColor"); }
    void ForeColor(OLE_COLOR value) { put(13, value, "ForeColor"); }

    // Hides the panel; raises FocusHidden in any case.
    void HidePopUp() {
        invoke(14, DISPATCH_METHOD, nullptr, 0, nullptr, "HidePopUp");
    }

    // Handle of the control's window.
    long hWnd() const { return get<long>(15, "hWnd"); }

    // Colour that is left out of the pictures; not restored with a form.
    OLE_COLOR MaskHLightColor() const { return get<OLE_COLOR>(16, "MaskHLightColor"); }
    void MaskHLightColor(OLE_COLOR value) { put(16, value, "MaskHLightColor"); }

    // Whether the mouse is over the button.
    bool MousePosn() const { return get<bool>(17, "MousePosn"); }
    void MousePosn(bool value) { put(17, value, "MousePosn"); }

    // Palette that the panel shows.
    enQUILLPalette Palette() const { return static_cast<enQUILLPalette>(get<long>(18, "Palette")); }
    void Palette(enQUILLPalette value) { put(18, static_cast<long>(value), "Palette"); }

    // Picture on the button.
    Pointer<IDispatch> Picture() const { return get<Pointer<IDispatch>>(19, "Picture"); }
    void Picture(const Pointer<IDispatch>& value) { put(19, value, "Picture"); }

    // Picture on the button while it is disabled.
    Pointer<IDispatch> PictureDisabled() const { return get<Pointer<IDispatch>>(20, "PictureDisabled"); }
    void PictureDisabled(const Pointer<IDispatch>& value) { put(20, value, "PictureDisabled"); }

    // Whether the button shows its picture.
    bool PictureVisible() const { return get<bool>(21, "PictureVisible"); }
    void PictureVisible(bool value) { put(21, value, "PictureVisible"); }

    // Whether a click shows the panel; else it raises PopUp.
    bool PopupEnabled() const { return get<bool>(22, "PopupEnabled"); }
    void PopupEnabled(bool value) { put(22, value, "PopupEnabled"); }

    // Applies the colours of the button face again.
    void SetTheme() {
        invoke(23, DISPATCH_METHOD, nullptr, 0, nullptr, "SetTheme");
    }

    // Whether the button shows its colour.
    bool ShowButtonColor() const { return get<bool>(24, "ShowButtonColor"); }
    void ShowButtonColor(bool value) { put(24, value, "ShowButtonColor"); }

    // Shows the panel.
    void ShowPopUp() {
        invoke(25, DISPATCH_METHOD, nullptr, 0, nullptr, "ShowPopUp");
    }

    // Name of the chosen swatch.
    std::wstring Text() const { return get<std::wstring>(26, "Text"); }

    // Does what a click does.
    void UserControl_Click() {
        invoke(27, DISPATCH_METHOD, nullptr, 0, nullptr, "UserControl_Click");
    }

    // Does what losing the focus does.
    void UserControl_ExitFocus() {
        invoke(28, DISPATCH_METHOD, nullptr, 0, nullptr, "UserControl_ExitFocus");
    }

    // Tracks the mouse into or out of the button.
    void UserControlMouseOut(short& Button, short& Shift, float& X, float& Y) {
        detail::Variant arguments[4] = {Y, X, Shift, Button};
        VARIANT passed[4];
        std::memcpy(passed, arguments, sizeof passed);
        passed[3].vt = VT_BYREF | VT_VARIANT;
        passed[3].pvarVal = &arguments[3];
        passed[2].vt = VT_BYREF | VT_VARIANT;
        passed[2].pvarVal = &arguments[2];
        passed[1].vt = VT_BYREF | VT_VARIANT;
        passed[1].pvarVal = &arguments[1];
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(29, DISPATCH_METHOD, passed, 4, nullptr, "UserControlMouseOut");
        Button = detail::from<short>(arguments[3]);
        Shift = detail::from<short>(arguments[2]);
        X = detail::from<float>(arguments[1]);
        Y = detail::from<float>(arguments[0]);
    }

    // A swatch was pressed, dragged over or chosen.
    std::function<void(long& sCOLORCHANGED)> onChange;

    // A colour came from the colour chooser.
    std::function<void(long& sCOLORCHANGED)> onChangeCustom;

    // The button was clicked, or another swatch was chosen.
    std::function<void()> onClick;

    // The button was double-clicked.
    std::function<void()> onDblClick;

    // The panel was hidden, or asked to be.
    std::function<void()> onFocusHidden;

    // The control lost the focus.
    std::function<void()> onFocusLost;

    // A key went down; it has had its effect on the panel already.
    std::function<void(short& KeyCode, short& Shift)> onKeyDown;

    // Never raised.
    std::function<void(short& KeyAscii)> onKeyPress;

    // A key was released.
    std::function<void(short& KeyCode, short& Shift)> onKeyUp;

    // A mouse button, or Space, went down on the button.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseDown;

    // The mouse moved over the button.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseMove;

    // The mouse was tracked, inside the button or out of it.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseOut;

    // A mouse button, or Space, was released, or the focus went.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseUp;

    // The button was clicked while PopupEnabled is False.
    std::function<void()> onPopUp;

private:
    void raise(DISPID number, DISPPARAMS& parameters) {
        switch (number) {
            case 1:
                if (onChange && parameters.cArgs == 1) {
                    detail::Reference<long> sCOLORCHANGED(parameters.rgvarg[0]);
                    onChange(sCOLORCHANGED.value);
                    sCOLORCHANGED.writeBack();
                }
                break;
            case 2:
                if (onChangeCustom && parameters.cArgs == 1) {
                    detail::Reference<long> sCOLORCHANGED(parameters.rgvarg[0]);
                    onChangeCustom(sCOLORCHANGED.value);
                    sCOLORCHANGED.writeBack();
                }
                break;
            case 3:
                if (onClick) onClick();
                break;
            case 4:
                if (onDblClick) onDblClick();
                break;
            case 5:
                if (onFocusHidden) onFocusHidden();
                break;
            case 6:
                if (onFocusLost) onFocusLost();
                break;
            case 7:
                if (onKeyDown && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyDown(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 8:
                if (onKeyPress && parameters.cArgs == 1) {
                    detail::Reference<short> KeyAscii(parameters.rgvarg[0]);
                    onKeyPress(KeyAscii.value);
                    KeyAscii.writeBack();
                }
                break;
            case 9:
                if (onKeyUp && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyUp(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 10:
                if (onMouseDown && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseDown(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 11:
                if (onMouseMove && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseMove(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 12:
                if (onMouseOut && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseOut(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 13:
                if (onMouseUp && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseUp(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 14:
                if (onPopUp) onPopUp();
                break;
            default:
                break;
        }
    }
};

// A small arrow of fixed size.
class ButtonArrow : public detail::Control {
public:
    static constexpr CLSID classId{0xA1A4DFDD, 0x1B38, 0x4333, {0xA4, 0x9A, 0x46, 0xDD, 0x10, 0x3C, 0xA0, 0x93}};
    static constexpr IID eventsId{0xC88E1DB8, 0x0294, 0x4237, {0x89, 0x42, 0xAE, 0x5A, 0xCE, 0xE0, 0x47, 0x11}};

    ButtonArrow() : ButtonArrow(created(classId)) {}
    // One that exists already, for example on a form.
    explicit ButtonArrow(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // Accepted and ignored.
    void EnabledCol(bool changeVal) {
        detail::Variant arguments[1] = {changeVal};
        invoke(1, DISPATCH_METHOD, arguments, 1, nullptr, "EnabledCol");
    }

private:
    void raise(DISPID, DISPPARAMS&) {}
};

// An editable grid with captions, a type for each column and a text file of its own.
class GridEdit : public detail::Control {
public:
    static constexpr CLSID classId{0x94ED36F5, 0xD7CA, 0x4FA1, {0xA8, 0xBC, 0x18, 0xE0, 0x5B, 0x03, 0x14, 0xD6}};
    static constexpr IID eventsId{0x4CFA70EB, 0x49AD, 0x4741, {0x9D, 0x4B, 0xE7, 0x79, 0x00, 0x45, 0x29, 0x2D}};

    GridEdit() : GridEdit(created(classId)) {}
    // One that exists already, for example on a form.
    explicit GridEdit(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // A text of the host's own, for what is dragged.
    std::wstring mstrDragInfo() const { return get<std::wstring>(1, "mstrDragInfo"); }
    void mstrDragInfo(const std::wstring& value) { put(1, value, "mstrDragInfo"); }

    // A flag of the host's own.
    bool blnPUBSHOWALARM() const { return get<bool>(2, "blnPUBSHOWALARM"); }
    void blnPUBSHOWALARM(bool value) { put(2, value, "blnPUBSHOWALARM"); }

    // Whether editors open over the cells, and keys add and delete rows; True at first.
    void AllowGridEdit(bool value) { put(3, value, "AllowGridEdit"); }

    // Colours the header bar.
    void barCol(OLE_COLOR& newcol) {
        detail::Variant arguments[1] = {newcol};
        VARIANT passed[1];
        std::memcpy(passed, arguments, sizeof passed);
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(4, DISPATCH_METHOD, passed, 1, nullptr, "barCol");
        newcol = detail::from<OLE_COLOR>(arguments[0]);
    }

    // Colours the captions of the header bar.
    void BarColText(OLE_COLOR& newcol) {
        detail::Variant arguments[1] = {newcol};
        VARIANT passed[1];
        std::memcpy(passed, arguments, sizeof passed);
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(5, DISPATCH_METHOD, passed, 1, nullptr, "BarColText");
        newcol = detail::from<OLE_COLOR>(arguments[0]);
    }

    // Show/hide the Grid Header.
    bool BarHeader() const { return get<bool>(6, "BarHeader"); }
    void BarHeader(bool value) { put(6, value, "BarHeader"); }

    // The caption of a column; empty where there is none.
    std::wstring BarHeaderCaptionRead(long colno) {
        detail::Variant arguments[1] = {colno};
        detail::Variant result;
        invoke(7, DISPATCH_METHOD, arguments, 1, &result, "BarHeaderCaptionRead");
        return detail::from<std::wstring>(result);
    }

    // Gives a column its caption.
    void BarHeaderCaptionSet(long colno, const std::wstring& sCaption) {
        detail::Variant arguments[2] = {sCaption, colno};
        invoke(8, DISPATCH_METHOD, arguments, 2, nullptr, "BarHeaderCaptionSet");
    }

    // Colour of the header bar.
    OLE_COLOR BarHeaderColorRefresh() const { return get<OLE_COLOR>(9, "BarHeaderColorRefresh"); }
    void BarHeaderColorRefresh(OLE_COLOR value) { put(9, value, "BarHeaderColorRefresh"); }

    // The column at which the header bar was last pressed, or -1; the current column moves there.
    long BarHeaderColumn() {
        detail::Variant result;
        invoke(10, DISPATCH_METHOD, nullptr, 0, &result, "BarHeaderColumn");
        return detail::from<long>(result);
    }

    // Draws the header bar anew.
    void BarHeaderRefresh() {
        invoke(11, DISPATCH_METHOD, nullptr, 0, nullptr, "BarHeaderRefresh");
    }

    // Sorts by the column at which the header bar was last pressed, downwards at first and then in turn.
    void BarHeaderSort() {
        invoke(12, DISPATCH_METHOD, nullptr, 0, nullptr, "BarHeaderSort");
    }

    // Show/hide the Grid Border.
    long BorderStyle() const { return get<long>(13, "BorderStyle"); }
    void BorderStyle(long value) { put(13, value, "BorderStyle"); }

    // Closes the editor and keeps what it holds; raises ChangeEdited in any case, and Change and ChangePost where an editor was open.
    void BoxHide() {
        invoke(14, DISPATCH_METHOD, nullptr, 0, nullptr, "BoxHide");
    }

    // Selects the text of the open editor.
    void BoxSelect() {
        invoke(15, DISPATCH_METHOD, nullptr, 0, nullptr, "BoxSelect");
    }

    // Opens the editor of the current cell and gives it the keyboard; raises Click when it has opened.
    void BoxShow() {
        invoke(16, DISPATCH_METHOD, nullptr, 0, nullptr, "BoxShow");
    }

    // Does what a key going down in the list editor does; a key that was used comes back as 0.
    void cboLIST_KeyDown(short& KeyCode, short& Shift) {
        detail::Variant arguments[2] = {Shift, KeyCode};
        VARIANT passed[2];
        std::memcpy(passed, arguments, sizeof passed);
        passed[1].vt = VT_BYREF | VT_VARIANT;
        passed[1].pvarVal = &arguments[1];
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(17, DISPATCH_METHOD, passed, 2, nullptr, "cboLIST_KeyDown");
        KeyCode = detail::from<short>(arguments[1]);
        Shift = detail::from<short>(arguments[0]);
    }

    // Does what a key released in the list editor does.
    void cboLIST_KeyUp(short& KeyCode, short& Shift) {
        detail::Variant arguments[2] = {Shift, KeyCode};
        VARIANT passed[2];
        std::memcpy(passed, arguments, sizeof passed);
        passed[1].vt = VT_BYREF | VT_VARIANT;
        passed[1].pvarVal = &arguments[1];
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(18, DISPATCH_METHOD, passed, 2, nullptr, "cboLIST_KeyUp");
        KeyCode = detail::from<short>(arguments[1]);
        Shift = detail::from<short>(arguments[0]);
    }

    // Checks a cell for "a", "true" and 1, unchecks it for all other texts.
    void CellChkSet(long Row, long Col, const std::wstring& Value) {
        detail::Variant arguments[3] = {Value, Col, Row};
        invoke(19, DISPATCH_METHOD, arguments, 3, nullptr, "CellChkSet");
    }

    // Makes a cell the current one; the back colour of the whole grid.
    OLE_COLOR CellColorReadx(long rowno, long colno) {
        detail::Variant arguments[2] = {colno, rowno};
        detail::Variant result;
        invoke(20, DISPATCH_METHOD, arguments, 2, &result, "CellColorReadx");
        return detail::from<OLE_COLOR>(result);
    }

    // Back colour of a cell, which becomes the current one.
    void CellColorSetx(OLE_COLOR Color, long rowno, long colno) {
        detail::Variant arguments[3] = {colno, rowno, Color};
        invoke(21, DISPATCH_METHOD, arguments, 3, nullptr, "CellColorSetx");
    }

    // Height of the current cell in twips.
    long CellCurrentHeight() {
        detail::Variant result;
        invoke(22, DISPATCH_METHOD, nullptr, 0, &result, "CellCurrentHeight");
        return detail::from<long>(result);
    }

    // Left edge of the current cell, in twips from the grid's.
    long CellCurrentLeft() {
        detail::Variant result;
        invoke(23, DISPATCH_METHOD, nullptr, 0, &result, "CellCurrentLeft");
        return detail::from<long>(result);
    }

    // Top edge of the current cell, in twips from the grid's.
    long CellCurrentTop() {
        detail::Variant result;
        invoke(24, DISPATCH_METHOD, nullptr, 0, &result, "CellCurrentTop");
        return detail::from<long>(result);
    }

    // Width of the current cell in twips.
    long CellCurrentWidth() {
        detail::Variant result;
        invoke(25, DISPATCH_METHOD, nullptr, 0, &result, "CellCurrentWidth");
        return detail::from<long>(result);
    }

    // Greys a cell out, or strikes it through.
    void CellEnabledSet(long rowno, long colno, bool StrikeThru = false, OLE_COLOR oleForeColor = 2147483664u) {
        detail::Variant arguments[4] = {oleForeColor, StrikeThru, colno, rowno};
        invoke(26, DISPATCH_METHOD, arguments, 4, nullptr, "CellEnabledSet");
    }

    // Font and fore colour of a cell; the size in points.
    void CellFontSet(long rowno, long colno, const std::wstring& sFont = L"", const std::wstring& Size = L"", bool Bold = false, bool StrikeThru = false, OLE_COLOR oleForeColor = 2147483664u) {
        detail::Variant arguments[7] = {oleForeColor, StrikeThru, Bold, Size, sFont, colno, rowno};
        invoke(27, DISPATCH_METHOD, arguments, 7, nullptr, "CellFontSet");
    }

    // Font and fore colour of a cell, as CellFontSet.
    void CellFormatSet(long rowno, long colno, const std::wstring& sFont = L"", const std::wstring& Size = L"", bool Bold = false, bool StrikeThru = false, OLE_COLOR oleForeColor = 2147483664u) {
        detail::Variant arguments[7] = {oleForeColor, StrikeThru, Bold, Size, sFont, colno, rowno};
        invoke(28, DISPATCH_METHOD, arguments, 7, nullptr, "CellFormatSet");
    }

    // The same as CellCurrentLeft.
    long CellLeft() {
        detail::Variant result;
        invoke(29, DISPATCH_METHOD, nullptr, 0, &result, "CellLeft");
        return detail::from<long>(result);
    }

    // Shows a named icon in a cell.
    void CellSetIcon(long colno, long rowno, const std::wstring& iconname) {
        detail::Variant arguments[3] = {iconname, rowno, colno};
        invoke(30, DISPATCH_METHOD, arguments, 3, nullptr, "CellSetIcon");
    }

    // The text of a cell.
    std::wstring CellTextRead(long rowno, long colno) {
        detail::Variant arguments[2] = {colno, rowno};
        detail::Variant result;
        invoke(31, DISPATCH_METHOD, arguments, 2, &result, "CellTextRead");
        return detail::from<std::wstring>(result);
    }

    // Text of a cell, which becomes the current one.
    void CellTextSet(long rowno, long colno, const std::wstring& Text) {
        detail::Variant arguments[3] = {Text, colno, rowno};
        invoke(32, DISPATCH_METHOD, arguments, 3, nullptr, "CellTextSet");
    }

    // The same as CellCurrentWidth.
    long CelWidth() {
        detail::Variant result;
        invoke(33, DISPATCH_METHOD, nullptr, 0, &result, "CelWidth");
        return detail::from<long>(result);
    }

    // Raises the event Change.
    void Change() {
        invoke(34, DISPATCH_METHOD, nullptr, 0, nullptr, "Change");
    }

    // Raises the event ChangePost.
    void ChangePost() {
        invoke(35, DISPATCH_METHOD, nullptr, 0, nullptr, "ChangePost");
    }

    // Adds a column after the last one, so many twips wide.
    void ColAdd(double ColWidth) {
        detail::Variant arguments[1] = {ColWidth};
        invoke(36, DISPATCH_METHOD, arguments, 1, nullptr, "ColAdd");
    }

    // The current column, from 0.
    long ColCurrent() {
        detail::Variant result;
        invoke(37, DISPATCH_METHOD, nullptr, 0, &result, "ColCurrent");
        return detail::from<long>(result);
    }

    // Removes the last column; the only one is emptied instead.
    void ColDel() {
        invoke(38, DISPATCH_METHOD, nullptr, 0, nullptr, "ColDel");
    }

    // Number of columns; 2 in a new grid.
    long ColsCurrent() {
        detail::Variant result;
        invoke(39, DISPATCH_METHOD, nullptr, 0, &result, "ColsCurrent");
        return detail::from<long>(result);
    }

    // Makes a column the current one.
    void ColSetFocus(long colno) {
        detail::Variant arguments[1] = {colno};
        invoke(40, DISPATCH_METHOD, arguments, 1, nullptr, "ColSetFocus");
    }

    // Sets the number of columns, 1 to 10001; the texts of the first nine then stand to the left.
    void ColsSet(long colno) {
        detail::Variant arguments[1] = {colno};
        invoke(41, DISPATCH_METHOD, arguments, 1, nullptr, "ColsSet");
    }

    // The type of a column as text; empty beyond column 10000.
    std::wstring ColTypeRead(long colno) {
        detail::Variant arguments[1] = {colno};
        detail::Variant result;
        invoke(42, DISPATCH_METHOD, arguments, 1, &result, "ColTypeRead");
        return detail::from<std::wstring>(result);
    }

    // Type of a column: 0 text, 1 date, 2 read-only, 3 check box, 4 list, 5 number, 6 time.
    void ColTypeSet(long colno, long ColTypeVal) {
        detail::Variant arguments[2] = {ColTypeVal, colno};
        invoke(43, DISPATCH_METHOD, arguments, 2, nullptr, "ColTypeSet");
    }

    // Places the captions over their columns.
    void ColumnRefreshHeaders(long colno) {
        detail::Variant arguments[1] = {colno};
        invoke(44, DISPATCH_METHOD, arguments, 1, nullptr, "ColumnRefreshHeaders");
    }

    // Shows a column, so many twips wide, or hides it.
    void ColumnVisible(long colno, long cWidth, bool cVISIBLE) {
        detail::Variant arguments[3] = {cVISIBLE, cWidth, colno};
        invoke(45, DISPATCH_METHOD, arguments, 3, nullptr, "ColumnVisible");
    }

    // Width of a column in twips; 200 and less are ignored.
    void ColWidth(long colno, double ColWidthVal) {
        detail::Variant arguments[2] = {ColWidthVal, colno};
        invoke(46, DISPATCH_METHOD, arguments, 2, nullptr, "ColWidth");
    }

    // Adds an item to the list of the list editor, which all columns of lists share.
    void ComboAdd(const std::wstring& Item) {
        detail::Variant arguments[1] = {Item};
        invoke(47, DISPATCH_METHOD, arguments, 1, nullptr, "ComboAdd");
    }

    // Empties the list of the list editor.
    void ComboClear() {
        invoke(48, DISPATCH_METHOD, nullptr, 0, nullptr, "ComboClear");
    }

    // Removes an item from the list of the list editor.
    void ComboDel(long Index) {
        detail::Variant arguments[1] = {Index};
        invoke(49, DISPATCH_METHOD, arguments, 1, nullptr, "ComboDel");
    }

    // Font of the cells and captions.
    Pointer<IDispatch> Font() const { return get<Pointer<IDispatch>>(50, "Font"); }
    void Font(const Pointer<IDispatch>& value) { put(50, value, "Font"); }

    // Gives the control's font to the grid, the header bar and the editors.
    void FontUpdate() {
        invoke(51, DISPATCH_METHOD, nullptr, 0, nullptr, "FontUpdate");
    }

    // Does nothing; for hosts that call it.
    void GridChange() {
        invoke(52, DISPATCH_METHOD, nullptr, 0, nullptr, "GridChange");
    }

    // Empties all cells; rows and columns stay.
    void GridClear() {
        invoke(53, DISPATCH_METHOD, nullptr, 0, nullptr, "GridClear");
    }

    // Colour of the grid's lines and of what is selected.
    void GridColr(OLE_COLOR& newcol) {
        detail::Variant arguments[1] = {newcol};
        VARIANT passed[1];
        std::memcpy(passed, arguments, sizeof passed);
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(54, DISPATCH_METHOD, passed, 1, nullptr, "GridColr");
        newcol = detail::from<OLE_COLOR>(arguments[0]);
    }

    // Sorts the rows by the current column, downwards and upwards in turn, if the grid has the column colno.
    void GridColSort(long colno) {
        detail::Variant arguments[1] = {colno};
        invoke(55, DISPATCH_METHOD, arguments, 1, nullptr, "GridColSort");
    }

    // Sorts the rows by the fifth column, downwards.
    void GridColSortInitialDate() {
        invoke(56, DISPATCH_METHOD, nullptr, 0, nullptr, "GridColSortInitialDate");
    }

    // Gives the grid the keyboard.
    void GridFocusShow() {
        invoke(57, DISPATCH_METHOD, nullptr, 0, nullptr, "GridFocusShow");
    }

    // Hides the grid.
    void GridHide() {
        invoke(58, DISPATCH_METHOD, nullptr, 0, nullptr, "GridHide");
    }

    // Loads rows and texts from a text file; its caption.
    std::wstring GridLoad(const std::wstring& Path) {
        detail::Variant arguments[1] = {Path};
        detail::Variant result;
        invoke(59, DISPATCH_METHOD, arguments, 1, &result, "GridLoad");
        return detail::from<std::wstring>(result);
    }

    // False suspends the drawing, True resumes it.
    void GridRedraw(bool Status) {
        detail::Variant arguments[1] = {Status};
        invoke(60, DISPATCH_METHOD, arguments, 1, nullptr, "GridRedraw");
    }

    // Lays the control out again.
    void GridRefresh() {
        invoke(61, DISPATCH_METHOD, nullptr, 0, nullptr, "GridRefresh");
    }

    // Hides and empties the grid, and leaves it one row.
    void GridReset() {
        invoke(62, DISPATCH_METHOD, nullptr, 0, nullptr, "GridReset");
    }

    // Saves all texts in a text file, with a caption.
    void GridSave(const std::wstring& Path, const std::wstring& Header) {
        detail::Variant arguments[2] = {Header, Path};
        invoke(63, DISPATCH_METHOD, arguments, 2, nullptr, "GridSave");
    }

    // Makes a cell the current one and opens its editor.
    void GridSetFocus(long colno, long rowno) {
        detail::Variant arguments[2] = {rowno, colno};
        invoke(64, DISPATCH_METHOD, arguments, 2, nullptr, "GridSetFocus");
    }

    // Shows the grid.
    void GridShow() {
        invoke(65, DISPATCH_METHOD, nullptr, 0, nullptr, "GridShow");
    }

    // Handle of the control's window.
    long hWnd() const { return get<long>(66, "hWnd"); }

    // Whether a number is even.
    bool IsEven(long Number) {
        detail::Variant arguments[1] = {Number};
        detail::Variant result;
        invoke(67, DISPATCH_METHOD, arguments, 1, &result, "IsEven");
        return detail::from<bool>(result);
    }

    // The column below the mouse; -1 for none.
    long MouseCol() {
        detail::Variant result;
        invoke(68, DISPATCH_METHOD, nullptr, 0, &result, "MouseCol");
        return detail::from<long>(result);
    }

    // A number of the host's own, for where the mouse is.
    long MousePosn() const { return get<long>(69, "MousePosn"); }
    void MousePosn(long value) { put(69, value, "MousePosn"); }

    // The row below the mouse; -1 for none.
    long MouseRow() {
        detail::Variant result;
        invoke(70, DISPATCH_METHOD, nullptr, 0, &result, "MouseRow");
        return detail::from<long>(result);
    }

    // Inserts a row before a row; tab characters stand between its texts.
    void RowAdd(const std::wstring& Text, long rowno) {
        detail::Variant arguments[2] = {rowno, Text};
        invoke(71, DISPATCH_METHOD, arguments, 2, nullptr, "RowAdd");
    }

    // Inserts a row and tells nobody, for filling.
    void RowAddQuick(const std::wstring& Text, long rowno) {
        detail::Variant arguments[2] = {rowno, Text};
        invoke(72, DISPATCH_METHOD, arguments, 2, nullptr, "RowAddQuick");
    }

    // The current row, from 0; -1 in a grid without rows.
    long RowCurrent() {
        detail::Variant result;
        invoke(73, DISPATCH_METHOD, nullptr, 0, &result, "RowCurrent");
        return detail::from<long>(result);
    }

    // Removes a row; the only one is emptied instead, and the grid hidden.
    void RowDel(long rowno) {
        detail::Variant arguments[1] = {rowno};
        invoke(74, DISPATCH_METHOD, arguments, 1, nullptr, "RowDel");
    }

    // Number of rows; 2 in a new grid.
    long RowsCurrent() {
        detail::Variant result;
        invoke(75, DISPATCH_METHOD, nullptr, 0, &result, "RowsCurrent");
        return detail::from<long>(result);
    }

    // Makes a row the current one.
    void RowSetFocus(long rowno) {
        detail::Variant arguments[1] = {rowno};
        invoke(76, DISPATCH_METHOD, arguments, 1, nullptr, "RowSetFocus");
    }

    // Back colour of rows 0, 2, 4 and so on; the others get the window's. Suspends the drawing.
    void RowsRefreshColors(long& NewColor) {
        detail::Variant arguments[1] = {NewColor};
        VARIANT passed[1];
        std::memcpy(passed, arguments, sizeof passed);
        passed[0].vt = VT_BYREF | VT_VARIANT;
        passed[0].pvarVal = &arguments[0];
        invoke(77, DISPATCH_METHOD, passed, 1, nullptr, "RowsRefreshColors");
        NewColor = detail::from<long>(arguments[0]);
    }

    // Sets the number of rows.
    void RowsSet(long rowno) {
        detail::Variant arguments[1] = {rowno};
        invoke(78, DISPATCH_METHOD, arguments, 1, nullptr, "RowsSet");
    }

    // The first row that shows.
    long TopRowRead() {
        detail::Variant result;
        invoke(79, DISPATCH_METHOD, nullptr, 0, &result, "TopRowRead");
        return detail::from<long>(result);
    }

    // Scrolls to a row.
    void TopRowSet(long NewValue) {
        detail::Variant arguments[1] = {NewValue};
        invoke(80, DISPATCH_METHOD, arguments, 1, nullptr, "TopRowSet");
    }

    // The list editor was pressed with the mouse, before its list opens.
    std::function<void()> onCboBoxClick;

    // A person chose an item of the list editor, which is still open.
    std::function<void()> onCboClick;

    // A person made another cell the current one.
    std::function<void()> onCellSelected;

    // Cells, rows or columns have changed; once for an edit, a paste, or what is taken back.
    std::function<void()> onChange;

    // An editor closes, or was asked to.
    std::function<void()> onChangeEdited;

    // Cells have been edited, after Change; GridSetFocus sends a person back to a cell.
    std::function<void()> onChangePost;

    // A cell was clicked, or an editor has opened.
    std::function<void()> onClick;

    // A cell without an open editor was double-clicked.
    std::function<void()> onDblClick;

    // The open editor was double-clicked.
    std::function<void()> onDblClickExt;

    // A person deleted a row, after Change.
    std::function<void()> onDelRow;

    // A key went down in the grid or an editor, which has done with it what editing does.
    std::function<void(short& KeyCode, short& Shift)> onKeyDown;

    // A character was typed in the grid or an editor.
    std::function<void(short& KeyAscii)> onKeyPress;

    // A key was released in the grid or an editor.
    std::function<void(short& KeyCode, short& Shift)> onKeyUp;

    // A mouse button went down on the grid.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseDown;

    // The mouse moved over the grid.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseMove;

    // A mouse button was released over the grid.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseUp;

    // A person added a row, which is the current one; its number is 32767 at most.
    std::function<void(short& newno)> onNewRow;

    // A person selected other cells.
    std::function<void()> onSelChange;

    // Something was dropped on the grid.
    std::function<void(Pointer<IUnknown>& Data, long& Effect, short& Button, short& Shift, float& X, float& Y)> onOLEDragDrop;

    // A person made a cell of another row the current one.
    std::function<void()> onNewRowSelected;

    // The header bar was clicked.
    std::function<void()> onSortClick;

private:
    void raise(DISPID number, DISPPARAMS& parameters) {
        switch (number) {
            case 1:
                if (onCboBoxClick) onCboBoxClick();
                break;
            case 2:
                if (onCboClick) onCboClick();
                break;
            case 3:
                if (onCellSelected) onCellSelected();
                break;
            case 4:
                if (onChange) onChange();
                break;
            case 5:
                if (onChangeEdited) onChangeEdited();
                break;
            case 6:
                if (onChangePost) onChangePost();
                break;
            case 7:
                if (onClick) onClick();
                break;
            case 8:
                if (onDblClick) onDblClick();
                break;
            case 9:
                if (onDblClickExt) onDblClickExt();
                break;
            case 10:
                if (onDelRow) onDelRow();
                break;
            case 11:
                if (onKeyDown && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyDown(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 12:
                if (onKeyPress && parameters.cArgs == 1) {
                    detail::Reference<short> KeyAscii(parameters.rgvarg[0]);
                    onKeyPress(KeyAscii.value);
                    KeyAscii.writeBack();
                }
                break;
            case 13:
                if (onKeyUp && parameters.cArgs == 2) {
                    detail::Reference<short> KeyCode(parameters.rgvarg[1]);
                    detail::Reference<short> Shift(parameters.rgvarg[0]);
                    onKeyUp(KeyCode.value, Shift.value);
                    KeyCode.writeBack();
                    Shift.writeBack();
                }
                break;
            case 14:
                if (onMouseDown && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseDown(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 15:
                if (onMouseMove && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseMove(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 16:
                if (onMouseUp && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseUp(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 17:
                if (onNewRow && parameters.cArgs == 1) {
                    detail::Reference<short> newno(parameters.rgvarg[0]);
                    onNewRow(newno.value);
                    newno.writeBack();
                }
                break;
            case 18:
                if (onSelChange) onSelChange();
                break;
            case 19:
                if (onOLEDragDrop && parameters.cArgs == 6) {
                    detail::Reference<Pointer<IUnknown>> Data(parameters.rgvarg[5]);
                    detail::Reference<long> Effect(parameters.rgvarg[4]);
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onOLEDragDrop(Data.value, Effect.value, Button.value, Shift.value, X.value, Y.value);
                    Data.writeBack();
                    Effect.writeBack();
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 20:
                if (onNewRowSelected) onNewRowSelected();
                break;
            case 21:
                if (onSortClick) onSortClick();
                break;
            default:
                break;
        }
    }
};

// A strip of tabs to choose a page by.
class PageTab : public detail::Control {
public:
    static constexpr CLSID classId{0x292DCDD0, 0x338C, 0x4D39, {0xA0, 0x21, 0xD7, 0x32, 0x19, 0x08, 0x04, 0x98}};
    static constexpr IID eventsId{0x78B2A11B, 0xB298, 0x40BF, {0x85, 0x5B, 0x8C, 0xC4, 0x43, 0x10, 0x68, 0xF8}};

    PageTab() : PageTab(created(classId)) {}
    // One that exists already, for example on a form.
    explicit PageTab(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // Page colours of the tabs, as decimal numbers with vertical bars between them; seen when the strip is laid out anew.
    std::wstring strPUBSKINCOLORPAGE() const { return get<std::wstring>(1, "strPUBSKINCOLORPAGE"); }
    void strPUBSKINCOLORPAGE(const std::wstring& value) { put(1, value, "strPUBSKINCOLORPAGE"); }

    // The active tab's number in strPUBSKINCOLORPAGE, in which its page is drawn; 0: drawn in PageColor.
    long lngSELECTEDPAGECOLOR() const { return get<long>(2, "lngSELECTEDPAGECOLOR"); }
    void lngSELECTEDPAGECOLOR(long value) { put(2, value, "lngSELECTEDPAGECOLOR"); }

    // Index of the active tab, from 1; 0: none. An index without a tab is ignored. The value last read is selected again when the tabs are made anew.
    long ActiveTab() const { return get<long>(3, "ActiveTab"); }
    void ActiveTab(long value) { put(3, value, "ActiveTab"); }

    // The caption of a tab; empty where there is none.
    std::wstring ActiveTabNameGet(long Index) {
        detail::Variant arguments[1] = {Index};
        detail::Variant result;
        invoke(4, DISPATCH_METHOD, arguments, 1, &result, "ActiveTabNameGet");
        return detail::from<std::wstring>(result);
    }

    // Makes the last tab with exactly this caption the active one; an empty name none.
    void ActiveTabNameSet(const std::wstring& ActiveTabName) {
        detail::Variant arguments[1] = {ActiveTabName};
        invoke(5, DISPATCH_METHOD, arguments, 1, nullptr, "ActiveTabNameSet");
    }

    // The captions with commas between them; putting them makes the tabs anew. Lines count as tabs, too, with captions "0". Tabs of AddTab are not in it.
    std::wstring ActiveTabs() const { return get<std::wstring>(6, "ActiveTabs"); }
    void ActiveTabs(const std::wstring& value) { put(6, value, "ActiveTabs"); }

    // Appends a tab and makes it the active one; an empty caption becomes "Tab" and its index.
    void AddTab(const std::wstring& sCaption) {
        detail::Variant arguments[1] = {sCaption};
        invoke(7, DISPATCH_METHOD, arguments, 1, nullptr, "AddTab");
    }

    // Colour of the strip behind the tabs.
    OLE_COLOR BackColorPage() const { return get<OLE_COLOR>(8, "BackColorPage"); }
    void BackColorPage(OLE_COLOR value) { put(8, value, "BackColorPage"); }

    // Shows all tabs disabled, until a tab is selected or another look is asked for.
    void ImageDis() {
        invoke(9, DISPATCH_METHOD, nullptr, 0, nullptr, "ImageDis");
    }

    // Shows the active tab highlighted, until a tab is selected or another look is asked for.
    void ImageHLight() {
        invoke(10, DISPATCH_METHOD, nullptr, 0, nullptr, "ImageHLight");
    }

    // Shows the tabs as usual, the active one selected.
    void ImageSel() {
        invoke(11, DISPATCH_METHOD, nullptr, 0, nullptr, "ImageSel");
    }

    // Shows the strip as if the mouse were elsewhere.
    void ObjectMouseUp() {
        invoke(12, DISPATCH_METHOD, nullptr, 0, nullptr, "ObjectMouseUp");
    }

    // Colour of the shown page. Laying out anew, after loading as well, puts the active tab's page colour or PageMainColor here: what is stored is what was shown.
    OLE_COLOR PageColor() const { return get<OLE_COLOR>(13, "PageColor"); }
    void PageColor(OLE_COLOR value) { put(13, value, "PageColor"); }

    // Colour of the captions.
    OLE_COLOR TextColor() const { return get<OLE_COLOR>(14, "TextColor"); }
    void TextColor(OLE_COLOR value) { put(14, value, "TextColor"); }

    // Page colour of tabs without one of their own; not stored with a form.
    OLE_COLOR PageMainColor() const { return get<OLE_COLOR>(15, "PageMainColor"); }
    void PageMainColor(OLE_COLOR value) { put(15, value, "PageMainColor"); }

    // Repaints the strip.
    void Refresh() {
        invoke(16, DISPATCH_METHOD, nullptr, 0, nullptr, "Refresh");
    }

    // Font name and size in points of all captions, and of those to come.
    void SetFont(const std::wstring& New_Font, const std::wstring& New_FontSize) {
        detail::Variant arguments[2] = {New_FontSize, New_Font};
        invoke(17, DISPATCH_METHOD, arguments, 2, nullptr, "SetFont");
    }

    // Kept for the host; nothing is drawn in it.
    std::wstring TabColor() const { return get<std::wstring>(18, "TabColor"); }
    void TabColor(const std::wstring& value) { put(18, value, "TabColor"); }

    // A person chose a tab; its caption.
    std::function<void(std::wstring& TName)> onClick;

    // The strip was double-clicked.
    std::function<void()> ondlbClick;

    // A mouse button went down on a tab; X and Y in twips, the active tab's caption.
    std::function<void(short& Button, short& Shift, float& X, float& Y, std::wstring& ActiveTab)> onMouseDown;

    // A mouse button went down on the strip beside the tabs.
    std::function<void(short& Button, short& Shift, float& X, float& Y, std::wstring& ActiveTab)> onMouseDownback;

    // The mouse moved over the strip.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseMove;

    // A mouse button was released.
    std::function<void(short& Button, short& Shift, float& X, float& Y)> onMouseUp;

    // Follows Click: the page of the active tab is to be shown.
    std::function<void()> onShow;

private:
    void raise(DISPID number, DISPPARAMS& parameters) {
        switch (number) {
            case 1:
                if (onClick && parameters.cArgs == 1) {
                    detail::Reference<std::wstring> TName(parameters.rgvarg[0]);
                    onClick(TName.value);
                    TName.writeBack();
                }
                break;
            case 2:
                if (ondlbClick) ondlbClick();
                break;
            case 3:
                if (onMouseDown && parameters.cArgs == 5) {
                    detail::Reference<short> Button(parameters.rgvarg[4]);
                    detail::Reference<short> Shift(parameters.rgvarg[3]);
                    detail::Reference<float> X(parameters.rgvarg[2]);
                    detail::Reference<float> Y(parameters.rgvarg[1]);
                    detail::Reference<std::wstring> ActiveTab(parameters.rgvarg[0]);
                    onMouseDown(Button.value, Shift.value, X.value, Y.value, ActiveTab.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                    ActiveTab.writeBack();
                }
                break;
            case 4:
                if (onMouseDownback && parameters.cArgs == 5) {
                    detail::Reference<short> Button(parameters.rgvarg[4]);
                    detail::Reference<short> Shift(parameters.rgvarg[3]);
                    detail::Reference<float> X(parameters.rgvarg[2]);
                    detail::Reference<float> Y(parameters.rgvarg[1]);
                    detail::Reference<std::wstring> ActiveTab(parameters.rgvarg[0]);
                    onMouseDownback(Button.value, Shift.value, X.value, Y.value, ActiveTab.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                    ActiveTab.writeBack();
                }
                break;
            case 5:
                if (onMouseMove && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseMove(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 6:
                if (onMouseUp && parameters.cArgs == 4) {
                    detail::Reference<short> Button(parameters.rgvarg[3]);
                    detail::Reference<short> Shift(parameters.rgvarg[2]);
                    detail::Reference<float> X(parameters.rgvarg[1]);
                    detail::Reference<float> Y(parameters.rgvarg[0]);
                    onMouseUp(Button.value, Shift.value, X.value, Y.value);
                    Button.writeBack();
                    Shift.writeBack();
                    X.writeBack();
                    Y.writeBack();
                }
                break;
            case 7:
                if (onShow) onShow();
                break;
            default:
                break;
        }
    }
};

// An etched horizontal separator line.
class lns : public detail::Control {
public:
    static constexpr CLSID classId{0xB2D1F051, 0x31B4, 0x412B, {0x98, 0x45, 0xC9, 0xCD, 0xA8, 0x4A, 0xBA, 0x7C}};
    static constexpr IID eventsId{0x67184F1D, 0x40C6, 0x4F6F, {0x83, 0x0C, 0x99, 0xC8, 0x1C, 0x63, 0xE1, 0x00}};

    lns() : lns(created(classId)) {}
    // One that exists already, for example on a form.
    explicit lns(const Pointer<IUnknown>& object) : Control(object) {
        listen(eventsId, [this](DISPID number, DISPPARAMS& arguments) { raise(number, arguments); });
    }

    // Tints both lines from the base colour.
    void ColorRefresh() {
        invoke(1, DISPATCH_METHOD, nullptr, 0, nullptr, "ColorRefresh");
    }

private:
    void raise(DISPID, DISPPARAMS&) {}
};

}  // namespace OBKCTRLS
