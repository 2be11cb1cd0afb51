// Late-bound calls on a control, against what the system's own automation needs for an equal dual interface.
#include "dispatch_benchmark.h"
#include "timing.h"

#include "com/com_object.h"
#include "container/dispatch.h"

#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <string>

namespace {

using obk::ComPtr;

constexpr GUID measuredId{0x8A0D5C1E, 0x77E2, 0x4D18, {0x9F, 0x0A, 0x3C, 0x4B, 0x1D, 0x6E, 0x2A, 0x22}};
constexpr DISPID intervalNumber = 11;
constexpr int callsPerRound = 200000;

double nanosecondsPerCall(void (*measured)(IDispatch&, int), IDispatch& object) {
    return microseconds([&] { measured(object, callsPerRound); }) * 1000 / callsPerRound;
}

#define MEASURED_PROPERTY(name)                                   \
    virtual HRESULT STDMETHODCALLTYPE get_##name(double* value) { \
        *value = value_;                                          \
        return S_OK;                                              \
    }                                                             \
    virtual HRESULT STDMETHODCALLTYPE put_##name(double value) {  \
        value_ = value;                                           \
        return S_OK;                                              \
    }
#define MEASURED_METHOD(name)                  \
    virtual HRESULT STDMETHODCALLTYPE name() { \
        return S_OK;                           \
    }

// The dual interface; the order of the functions is that of the definition. Lives on the stack.
class Measured : public IDispatch {
public:
    explicit Measured(ITypeInfo& types) : types_(types) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override {
        *result = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** types) override {
        types_.AddRef();
        *types = &types_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return types_.GetIDsOfNames(names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
        return types_.Invoke(this, id, flags, parameters, result, exception, wrong);
    }

    MEASURED_PROPERTY(Alignment)
    MEASURED_PROPERTY(AllowArrowKeys)
    MEASURED_PROPERTY(AllowDecpoint)
    MEASURED_PROPERTY(BackColor)
    MEASURED_PROPERTY(BorderStyle)
    MEASURED_PROPERTY(BuddyAlignment)
    MEASURED_METHOD(DecimalpointCheck)
    MEASURED_PROPERTY(Enabled)
    MEASURED_PROPERTY(Font)
    MEASURED_PROPERTY(ForeColor)
    MEASURED_PROPERTY(Interval)
    MEASURED_METHOD(KeyLock)
    MEASURED_PROPERTY(Max)
    MEASURED_PROPERTY(MaxLength)
    MEASURED_PROPERTY(Min)
    MEASURED_METHOD(Refresh)
    MEASURED_METHOD(RefreshFont)
    MEASURED_METHOD(ShiftColor)
    MEASURED_PROPERTY(SyncBuddy)
    MEASURED_PROPERTY(Text)
    MEASURED_PROPERTY(ThousandsSeparator)

private:
    ITypeInfo& types_;
    double value_ = 1;
};

bool failed = false;

void check(HRESULT result) {
    if (FAILED(result)) failed = true;
}

void get(IDispatch& object, int calls) {
    DISPPARAMS none{};
    for (int call = 0; call < calls; ++call) {
        VARIANT value;
        VariantInit(&value);
        check(object.Invoke(intervalNumber, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                            &value, nullptr, nullptr));
        if (value.vt != VT_R8) failed = true;
    }
}

void put(IDispatch& object, int calls) {
    VARIANT value;
    V_VT(&value) = VT_R8;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &named, 1, 1};
    for (int call = 0; call < calls; ++call) {
        V_R8(&value) = call;
        check(object.Invoke(intervalNumber, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                            nullptr, nullptr, nullptr));
    }
}

// Names from all over the interface, as a script has them.
void lookUp(IDispatch& object, int calls) {
    wchar_t names[][24] = {L"Alignment", L"backcolor", L"Interval",          L"KeyLock",
                           L"Max",       L"Text",      L"ThousandsSeparator"};
    constexpr int count = static_cast<int>(std::size(names));
    for (int call = 0; call < calls; ++call) {
        LPOLESTR name = names[call % count];
        DISPID id = 0;
        check(object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
    }
}

void report(const char* what, void (*measured)(IDispatch&, int), IDispatch& control, IDispatch& dual,
            double most) {
    const SideBySide times = sideBySide([&] { return nanosecondsPerCall(measured, control); },
                                        [&] { return nanosecondsPerCall(measured, dual); });
    printRatio(what, times, "ns", most);
}

// A method with one argument, by the number that its name has.
double oneArgument(IDispatch& grid, DISPID number, int calls) {
    VARIANT argument, result;
    V_VT(&argument) = VT_I4;
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    return microseconds([&] {
               for (int call = 0; call < calls; ++call) {
                   V_I4(&argument) = call;
                   VariantInit(&result);
                   check(grid.Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                     &result, nullptr, nullptr));
               }
           }) *
           1000 / calls;
}

}  // namespace

bool measureDispatch(const obk::container::ServerContext& server) {
    ComPtr<IUnknown> object;
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> types;
    if (FAILED(server.create(L"OBKCTRLS.UpDownTextBox", object)) ||
        FAILED(LoadTypeLibEx(program, REGKIND_NONE, library.put())) ||
        FAILED(library->GetTypeInfoOfGuid(measuredId, types.put()))) {
        std::printf("the control or the measured interface is missing\n");
        return false;
    }
    const auto control = object.query<IDispatch>();
    Measured dual(*types);
    report("get a property by number", get, *control, dual, 0.1);
    report("put a property by number", put, *control, dual, 0.1);
    report("look up a name", lookUp, *control, dual, 0.025);
    ComPtr<IUnknown> grid;
    check(server.create(L"OBKCTRLS.GridEdit", grid));
    const auto calls = grid.query<IDispatch>();
    const DISPID isEven = obk::container::MemberName(L"IsEven").resolve(calls.get());
    printRatio("IsEven, beside a property get",
               sideBySide([&] { return oneArgument(*calls, isEven, callsPerRound); },
                          [&] { return nanosecondsPerCall(get, *control); }),
               "ns", 2.5);
    return !failed;
}
