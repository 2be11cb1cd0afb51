// Saving and loading through bags, streams and storages, also of what nobody wrote properly.
#include "../support/kept_properties.h"
#include "server_support.h"

#include "container/property_bag_text.h"
#include "container/text.h"
#include "container/type_members.h"

#include <gtest/gtest.h>

#include <olectl.h>
#include <shlwapi.h>

#include <map>

namespace obk {
namespace {

using namespace testing_support;
using container::Dispatch;
using container::PropertyBagText;
using container::Variant;

// What a form keeps of a control: every property as text, fonts by their description, pictures by size.
std::map<std::wstring, std::wstring> stateOf(IUnknown* control) {
    std::map<std::wstring, std::wstring> state;
    const container::TypeMembers members = container::TypeMembers::of(control);
    for (const auto& member : members.properties()) {
        if (!member.readable || !member.writable ||
            !test::comesBack(container::toUtf8(members.className()), container::toUtf8(member.name)))
            continue;
        const Variant value = Dispatch(control).value(member.number);
        const Dispatch object(value.toObject().get());
        const auto font = container::describeFont(object.get());
        state[member.name] = font     ? container::fontText(*font)
                             : object ? object.value(DISPID_PICT_WIDTH).toText() + L" by " +
                                            object.value(DISPID_PICT_HEIGHT).toText()
                                      : value.toText();
    }
    return state;
}

// Another value of the same type for every property but pictures, which have a test of their own.
void changeEverything(IUnknown* control) {
    const auto font = container::makeFont({.name = L"Courier New", .size = 12, .italic = true});
    const std::map<container::ValueKind, Variant> others{
        {container::ValueKind::colour, static_cast<long>(0x80000011u)},
        {container::ValueKind::font, font.get()},
        {container::ValueKind::text, L"-3.25"},
        {container::ValueKind::number, 0.1}};
    const Dispatch object(control);
    const container::TypeMembers members = container::TypeMembers::of(control);
    for (const auto& member : members.properties()) {
        if (!member.readable || !member.writable) continue;
        const auto known = others.find(member.type.kind);
        const Variant other = known != others.end() ? known->second : otherThan(object.value(member.number));
        if (!other.empty()) object.put(member.number, other);
    }
}

ComPtr<IStream> streamOf(std::string_view bytes) {
    return ComPtr<IStream>::adopt(
        SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size())));
}

ComPtr<IStorage> newStorage() {
    ComPtr<IStorage> storage;
    constexpr DWORD mode = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE;
    EXPECT_EQ(StgCreateDocfile(nullptr, mode, 0, storage.put()), S_OK);
    return storage;
}

// Each saves a control, and loads another one from what was saved.
void throughBag(IUnknown* from, IUnknown* to) {
    container::FormText form;
    const auto saved = form.add(L"Control", L"A.B").bag;
    EXPECT_EQ(query<IPersistPropertyBag>(from)->Save(saved.get(), TRUE, FALSE), S_OK);
    std::vector<container::TextProblem> problems;
    const auto read = container::FormText::read(form.write(), problems);
    const auto bag = read.sections().at(0).bag;
    EXPECT_EQ(query<IPersistPropertyBag>(to)->Load(bag.get(), bag.get()), S_OK);
    EXPECT_TRUE(problems.empty() && bag->errors().empty());
}

void throughStream(IUnknown* from, IUnknown* to) {
    const auto stream = streamOf("");
    const auto saving = query<IPersistStreamInit>(from);
    ULARGE_INTEGER largest{}, written{};
    EXPECT_EQ(saving->GetSizeMax(&largest), S_OK);
    EXPECT_EQ(saving->Save(stream.get(), TRUE), S_OK);
    stream->Seek({}, STREAM_SEEK_CUR, &written);
    EXPECT_LE(written.QuadPart, largest.QuadPart);
    stream->Write("next", 4, nullptr);  // whatever follows is left for the container
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(query<IPersistStreamInit>(to)->Load(stream.get()), S_OK);
    char next[5] = "";
    stream->Read(next, 4, nullptr);
    EXPECT_STREQ(next, "next");
}

void throughStorage(IUnknown* from, IUnknown* to) {
    const ComPtr<IStorage> storage = newStorage();
    const auto saving = query<IPersistStorage>(from);
    EXPECT_EQ(saving->Save(storage.get(), FALSE), S_OK);
    EXPECT_EQ(saving->SaveCompleted(storage.get()), S_OK);
    CLSID stored{}, own{};
    EXPECT_EQ(ReadClassStg(storage.get(), &stored), S_OK);
    EXPECT_EQ(saving->GetClassID(&own), S_OK);
    EXPECT_EQ(stored, own);
    EXPECT_EQ(query<IPersistStorage>(to)->Load(storage.get()), S_OK);
}

class ServerPersistence : public testing::Test {
protected:
    using Way = void (*)(IUnknown* from, IUnknown* to);

    ComPtr<IUnknown> loadedFrom(PropertyBagText& bag) {
        auto control = server.create(L"UpDownTextBox");
        EXPECT_EQ(control.query<IPersistPropertyBag>()->Load(&bag, &bag), S_OK);
        return control;
    }
    ComPtr<IUnknown> placed(const std::wstring& name) {
        auto control = server.create(name);
        EXPECT_EQ(control.query<IPersistStreamInit>()->InitNew(), S_OK);
        return control;
    }
    LoadedServer server;
};

TEST_F(ServerPersistence, EveryPropertyComesBackByEveryWay) {
    for (const Way way : {throughBag, throughStream, throughStorage}) {
        withEachControl([&](const ComPtr<IUnknown>& to, const std::wstring& name) {
            const auto from = placed(name);
            changeEverything(from.get());
            way(from.get(), to.get());
            EXPECT_EQ(stateOf(to.get()), stateOf(from.get()));
            for (const auto& control : {from, to})
                EXPECT_EQ(control.query<IPersistStreamInit>()->IsDirty(), S_FALSE);
        });
    }
}

// Text bags are left out: some systems cannot load a picture from the bytes that they wrote themselves.
TEST_F(ServerPersistence, PicturesComeBackFromStreamsAndStorages) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateBitmap(12, 7, 1, 24, nullptr);
    ComPtr<IDispatch> picture;
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IDispatch, TRUE, picture.putVoid()), S_OK);
    for (const Way way : {throughStream, throughStorage}) {
        const auto from = placed(L"ButtonPalette"), to = server.create(L"ButtonPalette");
        EXPECT_EQ(Dispatch(from.get()).put(L"Picture", picture.get()), S_OK);
        EXPECT_EQ(stateOf(from.get())[L"Picture"], L"318 by 185");
        way(from.get(), to.get());
        EXPECT_EQ(stateOf(to.get()), stateOf(from.get()));
    }
}

TEST_F(ServerPersistence, ACopyIsSavedWithoutTheDefaultsAndLeavesTheControlUnsaved) {
    const ComPtr<PropertyBagText> empty(new PropertyBagText), saved(new PropertyBagText);
    const auto control = loadedFrom(*empty);
    Dispatch(control.get()).put(L"BackColor", 255L);
    control.query<IPersistPropertyBag>()->Save(saved.get(), FALSE, FALSE);
    ASSERT_EQ(saved->entries().size(), 1u);
    EXPECT_EQ(saved->entries()[0].key, L"Backcolor");
    EXPECT_EQ(control.query<IPersistStreamInit>()->IsDirty(), S_OK);
    const ComPtr<IStorage> storage = newStorage();
    const auto storing = control.query<IPersistStorage>();
    for (const BOOL same : {FALSE, TRUE}) {
        EXPECT_EQ(storing->Save(storage.get(), same), S_OK);
        EXPECT_EQ(storing->SaveCompleted(nullptr), S_OK);
        EXPECT_EQ(storing->IsDirty(), same ? S_FALSE : S_OK);
    }
    Dispatch(control.get()).put(L"BackColor", 0L);
    control.query<IPersistPropertyBag>()->Load(saved.get(), saved.get());
    EXPECT_EQ(control.query<IPersistStreamInit>()->IsDirty(), S_FALSE) << "it is what is stored";
}

// Some containers never say that a control is new.
TEST_F(ServerPersistence, AControlThatNobodyPlacedIsPlacedByItsFirstUse) {
    withEachControl([this](const ComPtr<IUnknown>& used, const std::wstring& name) {
        const auto wanted = placed(name);
        EXPECT_EQ(stateOf(used.get()), stateOf(wanted.get()));
        EXPECT_EQ(extentOf(used.get()), extentOf(wanted.get()));
        EXPECT_EQ(used.query<IPersistStreamInit>()->IsDirty(), S_FALSE);
    });
}

TEST_F(ServerPersistence, AStoredValueThatNothingHereHoldsLeavesWhatIsThere) {
    const ComPtr<PropertyBagText> bag(new PropertyBagText);
    bag->set(L"Interval", container::StoredBytes{"\x01\x02"});
    bag->set(L"Font", Variant(L"Tahoma"));
    bag->set(L"ThousandsSeparator", Variant());  // nothing under a key is no key: the default
    const Dispatch object(loadedFrom(*bag).get());
    EXPECT_EQ(object.value(L"Interval").toDouble(), 0.0) << "and not the default";
    EXPECT_EQ(object.value(L"ThousandsSeparator").toBool(), true);
    EXPECT_TRUE(container::describeFont(object.value(L"Font").toObject().get()));
}

TEST_F(ServerPersistence, DamagedStreamsDoNoHarm) {
    const auto source = server.create(L"UpDownTextBox");
    changeEverything(source.get());
    const auto stream = streamOf("");
    source.query<IPersistStreamInit>()->Save(stream.get(), FALSE);
    std::string good(100'000, '\0');
    ULONG size = 0;
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    stream->Read(good.data(), static_cast<ULONG>(good.size()), &size);
    good.resize(size);

    const auto load = [&](const std::string& bytes) {
        const auto control = server.create(L"UpDownTextBox");
        const HRESULT result = control.query<IPersistStreamInit>()->Load(streamOf(bytes).get());
        EXPECT_FALSE(stateOf(control.get()).empty());
        return result;
    };
    EXPECT_EQ(load(good), S_OK);
    for (size_t length = 0; length < good.size(); ++length)
        EXPECT_TRUE(FAILED(load(good.substr(0, length)))) << length;
    // Bytes behind the length are the container's no more; damaged ones there give defaults.
    std::string damagedInside = good, huge = good;
    damagedInside[sizeof(uint32_t)] = 'x';
    EXPECT_EQ(load(damagedInside), S_OK);
    huge[3] = 0x7F;
    EXPECT_TRUE(FAILED(load(huge))) << "a length of two thousand million";
}

TEST_F(ServerPersistence, TheAmbientFontIsTheDefaultAndIsFollowed) {
    const auto first = container::makeFont({.name = L"Courier New", .size = 12});
    const auto second = container::makeFont({.name = L"Courier New", .size = 20});
    for (const auto order : {container::SiteOrder::beforeState, container::SiteOrder::afterState}) {
        SCOPED_TRACE(static_cast<int>(order));
        TestWindow window;
        container::ControlForm form(window.handle());
        container::ControlSite site(form, {L"", order});
        site.ambients().set(DISPID_AMBIENT_FONT, first.get());
        const ComPtr<PropertyBagText> empty(new PropertyBagText);
        ASSERT_EQ(site.adopt(server.create(L"UpDownTextBox"), {empty.get()}), S_OK);
        const auto shown = [&] { return Dispatch(site.object().value(L"Font").toObject().get()); };
        EXPECT_NEAR(container::describeFont(shown().get())->size, 12, 0.5);
        site.setAmbient(DISPID_AMBIENT_FONT, second.get());
        EXPECT_NEAR(container::describeFont(shown().get())->size, 20, 0.5);
        EXPECT_EQ(site.query<IPersistStreamInit>()->IsDirty(), S_FALSE)
            << "following the container changes no document";
        // Changed in place it is the control's own.
        shown().put(L"Size", 15.0);
        site.setAmbient(DISPID_AMBIENT_FONT, first.get());
        EXPECT_NEAR(container::describeFont(shown().get())->size, 15, 1);
    }
}

}  // namespace
}  // namespace obk
