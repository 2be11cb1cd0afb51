// From the first object to the last: nothing is left, and the server says truly whether it is in use.
#include "server_support.h"

#include "container/text.h"
#include "resource_count.h"

#include <gtest/gtest.h>

#include <olectl.h>

namespace obk {
namespace {

using namespace testing_support;

TEST(ServerLifetime, TheServerMayBeUnloadedExactlyWhenNothingOfItIsInUse) {
    LoadedServer server;
    EXPECT_TRUE(server.canUnload());
    auto factory = server.factory(serverClasses().front());
    EXPECT_FALSE(server.canUnload()) << "a factory";
    ASSERT_EQ(factory->LockServer(TRUE), S_OK);
    factory.reset();
    EXPECT_FALSE(server.canUnload()) << "a lock";
    server.factory(serverClasses().front())->LockServer(FALSE);
    EXPECT_TRUE(server.canUnload());

    auto control = server.create(L"UpDownTextBox");
    EXPECT_FALSE(server.canUnload()) << "an object";
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(control.query<IOleObject>()->EnumVerbs(verbs.put()), S_OK);
    auto font = container::Dispatch(control.get()).value(L"Font").toObject();
    control.reset();
    EXPECT_FALSE(server.canUnload()) << "an enumerator that outlives its control";
    verbs.reset();
    font.reset();
    EXPECT_TRUE(server.canUnload());
}

// Loaded for a control of each class, unloaded by whoever loaded it, and gone from memory each time, unless
// the system still keeps it for a test before.
TEST(ServerLifetime, TheServerComesAndGoes) {
    const auto& names = serverClasses();
    CoFreeUnusedLibrariesEx(0, 0);
    const bool kept = GetModuleHandleW(L"OBKCTRLS.ocx") != nullptr;
    expectNothingIsLeft([&] {
        {
            const LoadedServer server;
            for (const std::wstring& name : names) EXPECT_TRUE(server.create(name));
            EXPECT_TRUE(server.canUnload());
        }
        EXPECT_EQ(GetModuleHandleW(L"OBKCTRLS.ocx") != nullptr, kept);
    });
}

TEST(ServerLifetime, AConnectionPointKeepsItsControl) {
    const LoadedServer server;
    const IID notifications = __uuidof(IPropertyNotifySink);
    auto points = server.create(L"UpDownTextBox").query<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(points->FindConnectionPoint(notifications, point.put()), S_OK);
    points.reset();
    EXPECT_FALSE(server.canUnload());
    EXPECT_EQ(point->GetConnectionPointContainer(points.put()), S_OK);
    point.reset();
    points.reset();
    EXPECT_TRUE(server.canUnload());
}

// An object that contains a control as a part of itself.
class Aggregate final : public IUnknown {
public:
    virtual ~Aggregate() = default;
    ComPtr<IUnknown> inner;
    ULONG references = 0;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (iid != __uuidof(IUnknown)) return inner->QueryInterface(iid, result);
        *result = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};

TEST(ServerLifetime, AnAggregatedControlAnswersAsItsOuterObject) {
    LoadedServer server;
    {
        Aggregate outer;
        const auto factory = server.factory(L"UpDownTextBox");
        ComPtr<IDispatch> refused;
        EXPECT_EQ(factory->CreateInstance(&outer, __uuidof(IDispatch), refused.putVoid()),
                  CLASS_E_NOAGGREGATION);
        ASSERT_EQ(factory->CreateInstance(&outer, __uuidof(IUnknown), outer.inner.putVoid()), S_OK);
        EXPECT_EQ(outer.references, 0u);
        for (const IID& iid : {__uuidof(IDispatch), __uuidof(IOleObject), __uuidof(IViewObject2),
                               __uuidof(IPersistStreamInit), __uuidof(IConnectionPointContainer)}) {
            ComPtr<IUnknown> part, identity;
            ASSERT_EQ(outer.QueryInterface(iid, part.putVoid()), S_OK);
            ASSERT_EQ(part->QueryInterface(__uuidof(IUnknown), identity.putVoid()), S_OK);
            EXPECT_EQ(identity.get(), &outer);
        }
        EXPECT_EQ(outer.references, 0u);
    }
    EXPECT_TRUE(server.canUnload());
}

TEST(ServerLifetime, IsNeverOfferedAsSafeForScripting) {
    const LoadedServer server;
    const IID objectSafety = {0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
    for (const std::wstring& name : serverClasses()) {
        void* none = nullptr;
        EXPECT_EQ(server.create(name)->QueryInterface(objectSafety, &none), E_NOINTERFACE);
        EXPECT_FALSE(server.factory(name).query<IClassFactory2>()) << "nor with a licence";
    }
}

}  // namespace
}  // namespace obk
