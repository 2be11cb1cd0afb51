// Late-bound calls on a control, against what the system's own automation needs for an equal dual interface.
#include "dispatch_benchmark.h"

#include "com/com_object.h"

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

using obk::ComPtr;

constexpr GUID measuredId{0x8A0D5C1E, 0x77E2, 0x4D18, {0x9F, 0x0A, 0x3C, 0x4B, 0x1D, 0x6E, 0x2A, 0x22}};
constexpr DISPID intervalNumber = 11;
constexpr int rounds = 100;
constexpr int callsPerRound = 10000;

double nanosecondsPerCall(void (*measured)(IDispatch&, int), IDispatch& object) {
    LARGE_INTEGER frequency, begin, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    measured(object, callsPerRound);
    QueryPerformanceCounter(&end);
    const auto ticks = static_cast<double>(end.QuadPart - begin.QuadPart);
    return ticks * 1e9 / static_cast<double>(frequency.QuadPart) / callsPerRound;
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

// The best of several rounds: the one which the rest of the machine disturbed least. Both sides take turns,
// so that they meet the same machine.
void report(const char* what, void (*measured)(IDispatch&, int), IDispatch& control, IDispatch& dual,
            double wanted) {
    double own = 1e300, system = 1e300;
    for (int round = 0; round < rounds; ++round) {
        own = std::min(own, nanosecondsPerCall(measured, control));
        system = std::min(system, nanosecondsPerCall(measured, dual));
    }
    std::printf("%-22s %8.1f ns, the type library's %8.1f ns: %5.1f times faster (wanted: %.0f)\n", what, own,
                system, system / own, wanted);
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
    report("get by number", get, *control, dual, 8);
    report("put by number", put, *control, dual, 8);
    report("look up a name", lookUp, *control, dual, 4);
    return !failed;
}
