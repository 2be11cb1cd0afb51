// Any tab strings: the two readings of a tab string agree with readings done step by step, and the active tab
// is brought into view.
#include "fuzz_values.h"
#include "pagetab/page_tab.h"
#include "pagetab/tab_string.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/accessible_walk.h"

#include <algorithm>

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
    return static_cast<int32_t>(std::count(commas.begin(), commas.end(), u',')) + 1;
}

void run(FuzzedDataProvider& input) {
    headless::HeadlessPlatform platform;
    const auto control = PageTab::memberTable().create(platform);
    auto& strip = static_cast<PageTab&>(*control);
    control->initNew();
    control->activate(1000, {0, 0, 300, 25});
    for (int round = 0; round < 20 && input.remaining_bytes() > 0; ++round) {
        const Text tabs = tabStringFrom(input);
        strip.SetActiveTabs(tabs);
        require(strip.ActiveTabs() == tabs, "a tab string is kept as it is");
        const int32_t count = countedStepByStep(tabs);
        require(countCaptions(tabs) == count, "captions are counted");
        for (int32_t k = 1; k <= count; ++k) {
            const Text caption(trimmed(fieldOf(tabs, u',', k)));
            const Text shown = caption.empty() ? u"Tab " + decimalText(k) : caption;
            require(strip.ActiveTabNameGet(k) == shown, "captions are those of the fields");
        }
        const auto index = input.ConsumeIntegralInRange<int32_t>(-2, 70);
        const bool exists = index >= 0 && index <= count;
        control->setBounds(
            {0, 0, input.ConsumeIntegralInRange(11, 500), input.ConsumeIntegralInRange(6, 60)});
        strip.SetActiveTab(index);
        require(!exists || strip.ActiveTab() == index, "a tab that exists is selected");
        for (const AccessibleItem& item :
             test::partsOf(*platform.surface(control->window()), AccessibleItem::Role::pageTab))
            require(!item.is(AccessibleItem::selected) || !item.bounds.empty(), "the active tab is in view");
    }
    control->deactivate();
}

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::run(input);
    return 0;
}
