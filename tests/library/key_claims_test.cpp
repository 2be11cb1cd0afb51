// Every key in every state of every control: what is claimed is used, and what is used is claimed.
#include "library/library.h"
#include "support/control_fixture.h"
#include "widgets/text_line_keys.h"

#include <algorithm>
#include <set>

namespace obk {
namespace {

using namespace test;

class KeyClaims : public ControlFixture {
public:
    void TestBody() override {}
    void begin(const char16_t* name) {
        place(*library().control(name));
        activate({0, 0, 400, 200});
        control->focus();
    }
    using ControlFixture::call;
    using ControlFixture::control;
    using ControlFixture::host;
    using ControlFixture::platform;
    using ControlFixture::put;

    KeyRoute route(const KeyEvent& event) const { return control->preTranslate(event); }
    // Whether anything but the reports of the key itself tells that it was pressed.
    bool press(int16_t code, int16_t shift) {
        platform.paintInvalid();
        bool menu = false;
        platform.answerMenu([&menu](auto, const auto&) {
            menu = true;
            return std::nullopt;
        });
        const Text clipboard = platform.clipboard();
        const NativeWindow focus = platform.focus();
        const size_t windows = platform.windowCount();
        const auto picture = visible();
        host.take();
        platform.keyDown(code, shift);
        bool told = false;
        const std::string offered = "offered " + std::to_string(code);
        for (const std::string& line : host.take()) told |= line.rfind("Key", 0) != 0 && line != offered;
        const bool used = told || menu || visible() != picture || clipboard != platform.clipboard() ||
                          focus != platform.focus() || windows != platform.windowCount();
        platform.keyUp(code, shift);
        return used;
    }

private:
    // Which windows show, and which of them have something new to show.
    std::set<NativeWindow> visible() const {
        std::set<NativeWindow> found;
        for (const NativeWindow window : platform.windows()) {
            const headless::HeadlessSurface* surface = platform.surface(window);
            if (!surface) continue;
            if (surface->visible()) found.insert(2 * window);
            if (!surface->invalid().empty()) found.insert(2 * window + 1);
        }
        return found;
    }
};

struct Situation {
    const char* name;
    std::function<void(KeyClaims&)> prepare;
    bool writes = false;  // into a text line, whose window uses its keys by itself
    // Of these and some keys held with them: used once the container has had them.
    std::vector<int16_t> late = {};
    // And these are kept from it whatever is held with them.
    std::vector<int16_t> kept = {};
};

void inCell(KeyClaims& test, int32_t type, bool open) {
    test.begin(u"GridEdit");
    test.call(u"ColsSet", {3});
    test.call(u"RowsSet", {0});
    for (int32_t col = 0; col < 3; ++col) test.call(u"ColTypeSet", {col, type});
    for (const char16_t* item : {u"Desk", u"Lamp", u"Safe"}) test.call(u"ComboAdd", {Text(item)});
    for (int32_t row = 0; row < 3; ++row)
        test.call(u"RowAddQuick", {Text(type == 5 ? u"5\t5\t5" : u"Lamp\tLamp\tLamp"), row});
    test.call(u"RowSetFocus", {1});
    test.call(u"ColSetFocus", {1});
    test.platform.setClipboard(u"pasted");
    if (!open) return;
    test.call(u"BoxShow");
    const bool drawn = type == 4 || type == 6;
    EXPECT_EQ(test.platform.focus() == test.control->window(), drawn) << "the keyboard is in the editor";
}

const std::vector<Situation>& situations() {
    const std::vector<int16_t> window{key::deleteKey};  // of a text, by itself
    const std::vector<int16_t> button{key::escape};
    // There is but one cell to paste.
    const std::vector<int16_t> block{key::insert, 'V', 'Z', 'Y'};
    const auto shown = [](const char16_t* name, bool dropped = false) {
        return [=](KeyClaims& test) {
            test.begin(name);
            if (dropped) test.call(u"ShowPopUp");
        };
    };
    const auto cell = [](int32_t type, bool open) {
        return [=](KeyClaims& test) { inCell(test, type, open); };
    };
    static const std::vector<Situation> all{
        {"UpDownTextBox",
         [](KeyClaims& test) {
             test.begin(u"UpDownTextBox");
             test.put(u"Interval", 1.0);
             test.put(u"Text", Text(u"5"));
         },
         true, window},
        {"DateCalendar", shown(u"DateCalendar"), true},
        {"DateCalendar, open", shown(u"DateCalendar", true), true},
        {"ButtonPalette", shown(u"ButtonPalette"), false, button},
        {"ButtonPalette, open", shown(u"ButtonPalette", true), false, button},
        {"ButtonPalette, walked",
         [](KeyClaims& test) {
             test.begin(u"ButtonPalette");
             test.call(u"ShowPopUp");
             for (const int16_t code : {key::home, key::right, key::down}) test.platform.pressKey(code);
         },
         false, button},
        {"PageTab",
         [](KeyClaims& test) {
             test.begin(u"PageTab");
             test.put(u"ActiveTabs", Text(u"Cut,Zoom,&See,Apple,Violet,1,X"));
             test.put(u"ActiveTab", 2);
         }},
        {"PageTab without tabs", shown(u"PageTab")},
        // Nothing was done yet that could be taken back; a menu comes with a key's release.
        {"cells", cell(0, false), false, {key::escape}, {'Y', 'Z', key::menu, key::f10}},
        {"cells that are not edited",
         [](KeyClaims& test) {
             inCell(test, 0, false);
             test.put(u"AllowGridEdit", false);
         },
         false,
         {key::escape},
         {key::menu, key::f10}},
        {"text editor", cell(0, true), true, {}, {'Y'}},
        {"date editor", cell(1, true), true, {}, {'Y'}},
        {"check editor", cell(3, true), false, {}, block},
        {"list editor", cell(4, true), false, {}, block},
        {"number editor", cell(5, true), true, {}, {'Y'}},
        {"time editor", cell(6, true), false, {}, block},
        {"list editor, open",
         [](KeyClaims& test) {
             inCell(test, 4, true);
             test.platform.pressKey(key::f4);
         },
         false,
         {},
         {key::enter, key::escape}},
    };
    return all;
}

TEST(KeyClaimsOfEveryControl, AreWhatTheControlDoesWithTheKey) {
    const int16_t codes[] = {'N', 'P', 8,  9,  12,  13,  16,  17,  18,  20,  27,  32,  33,  34,  35,  36,
                             37,  38,  39, 40, 44,  45,  46,  '1', 'A', 'C', 'D', 'F', 'S', 'V', 'X', 'Y',
                             'Z', 91,  93, 96, 112, 113, 114, 115, 116, 117, 120, 121, 123, 144, 188};
    for (const Situation& situation : situations()) {
        auto test = std::make_unique<KeyClaims>();
        situation.prepare(*test);
        ASSERT_TRUE(test->control->hasFocus()) << situation.name;
        std::string faults;
        for (const int16_t code : codes) {
            for (int16_t shift = 0; shift < 8; ++shift) {  // Shift, Ctrl and Alt, alone and together
                const KeyEvent event{code, shift, false};
                const bool claimed = test->route(event) != KeyRoute::container;
                const bool used = test->press(code, shift);
                const bool windows =
                    situation.writes && (isClaimed(event, textLineKeys) || isClaimed(event, textLineArrows));
                const auto among = [code](const std::vector<int16_t>& keys) {
                    return std::find(keys.begin(), keys.end(), code) != keys.end();
                };
                const bool expected =
                    claimed ? windows || isTyped(event) || among(situation.kept) : among(situation.late);
                if (claimed != used && !expected)
                    faults += (claimed ? "\nclaimed in vain: " : "\nused without a claim: ") +
                              std::to_string(code) + " with " + std::to_string(shift);
                if (!used && !claimed) continue;
                test = std::make_unique<KeyClaims>();
                situation.prepare(*test);
            }
        }
        EXPECT_EQ(faults, "") << situation.name;
    }
}

// The shortcuts that forms have are pressed in windows.
TEST(KeyClaimsOfEveryControl, LeaveTheFormItsMenuAndTakeWhatIsWritten) {
    for (const Situation& situation : situations()) {
        KeyClaims test;
        situation.prepare(test);
        EXPECT_EQ(test.route({key::f10}), KeyRoute::container) << situation.name;
        const KeyEvent written{'Q', shift::control | shift::alt, false, true};
        EXPECT_EQ(test.route(written) == KeyRoute::child, test.route({'Q'}) == KeyRoute::child)
            << situation.name << ": AltGr writes as other keys do";
    }
}

}  // namespace
}  // namespace obk
