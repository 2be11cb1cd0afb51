// Saving and loading through bags, streams and storages, also of what nobody wrote properly.
#include "../support/kept_properties.h"
#include "server_support.h"

#include "container/property_bag_text.h"
#include "container/text.h"
#include "container/type_members.h"

#include <gtest/gtest.h>

#include <olectl.h>

#include <functional>
#include <map>

namespace obk {
namespace {

using namespace testing_support;
using container::Dispatch;
using container::PropertyBagText;
using container::StoredFont;
using container::Variant;

ComPtr<IPicture> makePicture(int width, int height) {
    const HDC screen = GetDC(nullptr);
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateCompatibleBitmap(screen, width, height);
    ReleaseDC(nullptr, screen);
    ComPtr<IPicture> picture;
    EXPECT_EQ(OleCreatePictureIndirect(&description, IID_IPicture, TRUE, picture.putVoid()), S_OK);
    return picture;
}

std::wstring pictureText(IPicture& picture) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    short type = 0;
    picture.get_Width(&width);
    picture.get_Height(&height);
    picture.get_Type(&type);
    return std::to_wstring(width) + L" by " + std::to_wstring(height) + L" of type " + std::to_wstring(type);
}

// What a form keeps of a control: every property as text, fonts by their description, pictures by size and
// type.
std::map<std::wstring, std::wstring> stateOf(IUnknown* control) {
    std::map<std::wstring, std::wstring> state;
    const container::TypeMembers members = container::TypeMembers::of(control);
    for (const auto& member : members.properties()) {
        if (!member.readable || !member.writable ||
            !test::comesBack(container::toUtf8(members.className()), container::toUtf8(member.name)))
            continue;
        const Variant value = Dispatch(control).value(member.number);
        const ComPtr<IUnknown> object = value.toObject();
        const auto font = container::describeFont(object.get());
        const auto picture = object ? object.query<IPicture>() : ComPtr<IPicture>();
        state[member.name] = font      ? container::fontText(*font)
                             : picture ? pictureText(*picture)
                                       : value.toText();
    }
    return state;
}

// Another value of the same type for every property that has a plain one.
void changeEverything(IUnknown* control) {
    const Dispatch object(control);
    const container::TypeMembers members = container::TypeMembers::of(control);
    for (const auto& member : members.properties()) {
        if (!member.readable || !member.writable) continue;
        const Variant value = object.value(member.number);
        switch (member.type.kind) {
            case container::ValueKind::boolean:
                object.put(member.number, !*value.toBool());
                break;
            case container::ValueKind::colour:
                object.put(member.number, static_cast<long>(0x80000011u));
                break;
            case container::ValueKind::font: {
                StoredFont font;
                font.name = L"Courier New";
                font.size = 12;
                font.italic = true;
                object.put(member.number, container::makeFont(font).get());
                break;
            }
            case container::ValueKind::picture:
                break;  // has a test of its own
            case container::ValueKind::text:
                object.put(member.number, L"-3.25");
                break;
            case container::ValueKind::number:
                object.put(member.number, 0.1);
                break;
            default:
                object.put(member.number, *value.toLong() == 1 ? 2L : 1L);
        }
    }
}

ComPtr<IStorage> newStorage() {
    ComPtr<ILockBytes> bytes;
    CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.put());
    ComPtr<IStorage> storage;
    EXPECT_EQ(StgCreateDocfileOnILockBytes(bytes.get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                           0, storage.put()),
              S_OK);
    return storage;
}

// One way to keep a control: saves it, and loads another one from what was saved.
struct Way {
    const char* name;
    std::function<void(IUnknown* from, IUnknown* to)> carry;
};

const std::vector<Way>& ways() {
    static const std::vector<Way> all{
        {"bag",
         [](IUnknown* from, IUnknown* to) {
             container::FormText form;
             const auto saved = form.add(L"Control", L"A.B").bag;
             EXPECT_EQ(ComPtr<IUnknown>(from).query<IPersistPropertyBag>()->Save(saved.get(), TRUE, FALSE),
                       S_OK);
             std::vector<container::TextProblem> problems;
             const auto read = container::FormText::read(form.write(), problems);
             const auto bag = read.sections().at(0).bag;
             EXPECT_EQ(ComPtr<IUnknown>(to).query<IPersistPropertyBag>()->Load(bag.get(), bag.get()), S_OK);
             EXPECT_TRUE(problems.empty() && bag->errors().empty());
         }},
        {"stream",
         [](IUnknown* from, IUnknown* to) {
             ComPtr<IStream> stream;
             CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
             const auto saving = ComPtr<IUnknown>(from).query<IPersistStreamInit>();
             ULARGE_INTEGER largest{}, written{};
             EXPECT_EQ(saving->GetSizeMax(&largest), S_OK);
             EXPECT_EQ(saving->Save(stream.get(), TRUE), S_OK);
             stream->Seek({}, STREAM_SEEK_CUR, &written);
             EXPECT_LE(written.QuadPart, largest.QuadPart);
             stream->Write("next", 4, nullptr);  // whatever follows is left for the container
             stream->Seek({}, STREAM_SEEK_SET, nullptr);
             EXPECT_EQ(ComPtr<IUnknown>(to).query<IPersistStreamInit>()->Load(stream.get()), S_OK);
             char next[5] = "";
             stream->Read(next, 4, nullptr);
             EXPECT_STREQ(next, "next");
         }},
        {"storage",
         [](IUnknown* from, IUnknown* to) {
             const ComPtr<IStorage> storage = newStorage();
             const auto saving = ComPtr<IUnknown>(from).query<IPersistStorage>();
             EXPECT_EQ(saving->Save(storage.get(), FALSE), S_OK);
             EXPECT_EQ(saving->SaveCompleted(storage.get()), S_OK);
             CLSID stored{}, own{};
             EXPECT_EQ(ReadClassStg(storage.get(), &stored), S_OK);
             EXPECT_EQ(saving->GetClassID(&own), S_OK);
             EXPECT_EQ(stored, own);
             EXPECT_EQ(ComPtr<IUnknown>(to).query<IPersistStorage>()->Load(storage.get()), S_OK);
         }},
    };
    return all;
}

class ServerPersistence : public testing::Test {
protected:
    ComPtr<IUnknown> loadedFrom(PropertyBagText& bag) {
        auto control = server.create(L"UpDownTextBox");
        EXPECT_EQ(control.query<IPersistPropertyBag>()->Load(&bag, &bag), S_OK);
        return control;
    }
    LoadedServer server;
};

TEST_F(ServerPersistence, EveryPropertyComesBackByEveryWay) {
    for (const std::wstring& name : serverClasses()) {
        for (const Way& way : ways()) {
            const auto from = server.create(name), to = server.create(name);
            from.query<IPersistStreamInit>()->InitNew();
            changeEverything(from.get());
            way.carry(from.get(), to.get());
            EXPECT_EQ(stateOf(to.get()), stateOf(from.get()))
                << container::toUtf8(name) << " by " << way.name;
            EXPECT_EQ(from.query<IPersistStreamInit>()->IsDirty(), S_FALSE) << way.name;
            EXPECT_EQ(to.query<IPersistStreamInit>()->IsDirty(), S_FALSE) << way.name;
        }
    }
}

// Text bags are left out: some systems cannot load a picture from the bytes that they wrote themselves.
TEST_F(ServerPersistence, PicturesComeBackFromStreamsAndStorages) {
    for (const Way& way : ways()) {
        if (way.name == std::string("bag")) continue;
        const auto from = server.create(L"ButtonPalette"), to = server.create(L"ButtonPalette");
        from.query<IPersistStreamInit>()->InitNew();
        EXPECT_EQ(Dispatch(from.get()).put(L"Picture", makePicture(12, 7).query<IDispatch>().get()), S_OK);
        EXPECT_EQ(stateOf(from.get())[L"Picture"], L"318 by 185 of type 1");
        way.carry(from.get(), to.get());
        EXPECT_EQ(stateOf(to.get()), stateOf(from.get())) << way.name;
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
    for (const std::wstring& name : serverClasses()) {
        const auto placed = server.create(name), used = server.create(name);
        placed.query<IPersistStreamInit>()->InitNew();
        EXPECT_EQ(stateOf(used.get()), stateOf(placed.get())) << container::toUtf8(name);
        SIZEL wanted{}, found{};
        placed.query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &wanted);
        used.query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &found);
        EXPECT_EQ(std::pair(found.cx, found.cy), std::pair(wanted.cx, wanted.cy)) << container::toUtf8(name);
        EXPECT_EQ(used.query<IPersistStreamInit>()->IsDirty(), S_FALSE) << container::toUtf8(name);
    }
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
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
    source.query<IPersistStreamInit>()->Save(stream.get(), FALSE);
    ULARGE_INTEGER end{};
    stream->Seek({}, STREAM_SEEK_CUR, &end);
    std::vector<char> good(static_cast<size_t>(end.QuadPart));
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    stream->Read(good.data(), static_cast<ULONG>(good.size()), nullptr);

    const auto load = [&](const std::vector<char>& bytes) {
        ComPtr<IStream> damaged;
        CreateStreamOnHGlobal(nullptr, TRUE, damaged.put());
        damaged->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
        damaged->Seek({}, STREAM_SEEK_SET, nullptr);
        const auto control = server.create(L"UpDownTextBox");
        const HRESULT result = control.query<IPersistStreamInit>()->Load(damaged.get());
        EXPECT_FALSE(stateOf(control.get()).empty());
        return result;
    };
    EXPECT_EQ(load(good), S_OK);
    for (size_t length = 0; length < good.size(); ++length)
        EXPECT_TRUE(FAILED(load({good.begin(), good.begin() + static_cast<ptrdiff_t>(length)}))) << length;
    // Bytes behind the length are the container's no more; damaged ones there give defaults.
    auto damagedInside = good;
    damagedInside[sizeof(uint32_t)] = 'x';
    EXPECT_EQ(load(damagedInside), S_OK);
    auto huge = good;
    huge[3] = 0x7F;
    EXPECT_TRUE(FAILED(load(huge))) << "a length of two thousand million";
}

TEST_F(ServerPersistence, TheAmbientFontIsTheDefaultAndIsFollowed) {
    StoredFont first, second;
    first.name = L"Courier New";
    first.size = 12;
    second = first;
    second.size = 20;
    for (const auto order : {container::SiteOrder::beforeState, container::SiteOrder::afterState}) {
        TestWindow window;
        container::ControlForm form(window.handle());
        container::SiteSettings settings;
        settings.order = order;
        container::ControlSite site(form, settings);
        site.ambients().set(DISPID_AMBIENT_FONT, container::makeFont(first).get());
        const ComPtr<container::PropertyBagText> empty = new container::PropertyBagText;
        ASSERT_EQ(site.adopt(server.create(L"UpDownTextBox"), {empty.get()}), S_OK);
        const auto shown = [&] {
            const auto font = container::describeFont(site.object().value(L"Font").toObject().get());
            return font ? font->size : 0;
        };
        EXPECT_NEAR(shown(), 12, 0.5) << static_cast<int>(order);
        site.setAmbient(DISPID_AMBIENT_FONT, container::makeFont(second).get());
        EXPECT_NEAR(shown(), 20, 0.5) << static_cast<int>(order);
        const auto stream = site.query<IPersistStreamInit>();
        EXPECT_EQ(stream->IsDirty(), S_FALSE) << "following the container changes no document";
        // Changed in place it is the control's own.
        container::Dispatch(site.object().value(L"Font").toObject().get()).put(L"Size", 15.0);
        site.setAmbient(DISPID_AMBIENT_FONT, container::makeFont(first).get());
        EXPECT_NEAR(shown(), 15, 1) << static_cast<int>(order);
    }
}

}  // namespace
}  // namespace obk
