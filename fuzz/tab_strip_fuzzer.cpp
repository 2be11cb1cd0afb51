// Any tab strings, and a person and a host at the strip that they make: the two readings of a tab string
// agree with readings done step by step, the active tab is one of the strip's and in view when it was
// selected, and nothing is left in the end.
#include "fuzz_values.h"
#include "pagetab/page_tab.h"
#include "pagetab/tab_string.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

namespace obk::fuzz {
namespace {

// Out of the few characters that mean something, and some that do not.
Text tabStringFrom(FuzzedDataProvider& input) {
    constexpr char16_t units[] = {u',', u',', u'-', u'\r', u'\n', u' ',
                                  u'a', u'B', u'&', u'|',  u'0',  u'\xD800'};
    if (input.ConsumeIntegralInRange(0, 31) == 31) return Text(300, input.PickValueInArray(units));
    Text text;
    for (int left = input.ConsumeIntegralInRange(0, 60); left > 0; --left) {
        text += input.PickValueInArray(units);
        if (text.back() == u'\r' && input.ConsumeBool()) text += u'\n';
    }
    return text;
}

Text replaced(Text text, TextView what, TextView with) {
    for (size_t at = text.find(what); at != Text::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

int32_t countedStepByStep(const Text& tabString) {
    const Text commas(trimmed(replaced(Text(trimmed(replaced(tabString, u"-\r\n", u","))), u"\r\n", u",")));
    if (commas.empty()) return 0;
    int32_t pieces = 1;
    for (const char16_t unit : commas) pieces += unit == u',';
    return pieces;
}

class Strip {
public:
    explicit Strip(FuzzedDataProvider& input) : input_(input) {
        control_->initNew();
        control_->activate(1000, {0, 0, 300, 25});
    }

    void run() {
        for (int step = 0; step < 300 && input_.remaining_bytes() > 0; ++step) {
            act();
            check();
        }
        control_->deactivate();
        require(platform_.windowCount() == 0 && platform_.capture() == 0, "nothing is left");
    }

private:
    PageTab& strip() { return static_cast<PageTab&>(*control_); }
    headless::HeadlessSurface& surface() { return *platform_.surface(control_->window()); }

    void act() {
        switch (input_.ConsumeIntegralInRange(0, 9)) {
            case 0: {
                const Text tabs = tabStringFrom(input_);
                strip().SetActiveTabs(tabs);
                require(strip().ActiveTabs() == tabs, "a tab string is kept as it is");
                const int32_t count = countedStepByStep(tabs);
                require(countCaptions(tabs) == count, "captions are counted");
                for (int32_t k = 1; k <= count; ++k) {
                    const Text caption(trimmed(fieldOf(tabs, u',', k)));
                    const Text shown = caption.empty() ? u"Tab " + decimalText(k) : caption;
                    require(strip().ActiveTabNameGet(k) == shown, "captions are those of the fields");
                }
                break;
            }
            case 1:
                strip().AddTab(tabStringFrom(input_));
                break;
            case 2: {
                const auto index = input_.ConsumeIntegralInRange<int32_t>(-2, 70);
                strip().SetActiveTab(index);
                const bool exists = index == 0 || !strip().ActiveTabNameGet(index).empty();
                require(!exists || strip().ActiveTab() == index, "a tab that exists is selected");
                checkActiveInView();
                break;
            }
            case 3:
                strip().SetstrPUBSKINCOLORPAGE(tabStringFrom(input_));
                strip().SetPageMainColor(OleColour(input_.ConsumeIntegral<uint32_t>()));
                break;
            case 4:
                strip().SetFont(textFrom(input_), textFrom(input_));
                break;
            case 5:
                control_->setBounds(
                    {0, 0, input_.ConsumeIntegralInRange(0, 500), input_.ConsumeIntegralInRange(0, 60)});
                checkActiveInView();
                break;
            case 6:
                platform_.wheel(control_->window(),
                                {input_.ConsumeIntegral<int16_t>(), input_.ConsumeBool(), 0, point()});
                break;
            case 7: {
                constexpr int16_t keys[] = {key::left, key::right, key::home, key::end,
                                            key::tab,  'A',        'B',       '0'};
                control_->focus();
                platform_.pressKey(input_.PickValueInArray(keys),
                                   input_.ConsumeIntegralInRange<int16_t>(0, 4));
                break;
            }
            case 8:
                platform_.advance(std::chrono::milliseconds(input_.ConsumeIntegralInRange(0, 1000)));
                break;
            default: {
                constexpr MouseEvent::Kind kinds[] = {MouseEvent::Kind::down, MouseEvent::Kind::up,
                                                      MouseEvent::Kind::move, MouseEvent::Kind::doubleClick};
                platform_.mouse(control_->window(),
                                {input_.PickValueInArray(kinds), button::left, 0, point()});
                break;
            }
        }
    }
    PixelPoint point() {
        return {input_.ConsumeIntegralInRange(-3, 303), input_.ConsumeIntegralInRange(-3, 28)};
    }
    size_t tabs(std::vector<AccessibleItem>& selected) {
        size_t count = 0;
        for (const AccessibleItem& item : surface().surfaceClient().accessibleItems()) {
            if (item.role != AccessibleItem::Role::pageTab) continue;
            ++count;
            if (item.pressed) selected.push_back(item);
        }
        return count;
    }
    void check() {
        std::vector<AccessibleItem> selected;
        const size_t count = tabs(selected);
        const int32_t active = strip().ActiveTab();
        require(active >= 0 && active <= static_cast<int32_t>(count), "the active tab exists");
        require(selected.size() == (active == 0 ? 0u : 1u), "one tab is selected, or none");
        surface().paint();
    }
    void checkActiveInView() {
        std::vector<AccessibleItem> selected;
        tabs(selected);
        const PixelRect& own = surface().bounds();
        const bool room = own.width() > 10 && own.height() > 5;
        require(!room || selected.empty() || !selected[0].bounds.empty(), "the active tab is in view");
    }

    FuzzedDataProvider& input_;
    headless::HeadlessPlatform platform_;
    std::shared_ptr<Control> control_ = PageTab::memberTable().create(platform_);
};

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::Strip(input).run();
    return 0;
}
