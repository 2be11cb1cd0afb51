// The scene functions: what a person might build with each control.
#include <cmath>

#include "container/window_metrics.h"
#include "page_catalog.h"

namespace obk::gallery {

namespace {

double number(const SceneControl& control) {
    return control.object().value(L"Text").toDouble().value_or(0);
}

// "1,256.40": grouped by threes, two places.
std::wstring amount(double value) {
    wchar_t digits[64];
    swprintf(digits, 64, L"%.2f", std::abs(value));
    std::wstring text = digits;
    for (auto place = static_cast<int>(text.size()) - 6; place > 0; place -= 3)
        text.insert(static_cast<size_t>(place), L",");
    return (value < 0 ? L"-" : L"") + text;
}

std::wstring sizeText(SIZE size) {
    return std::to_wstring(size.cx) + L" \x00D7 " + std::to_wstring(size.cy);
}

}  // namespace

void buildOrderLine(Scene& scene) {
    constexpr auto progId = L"OBKCTRLS.UpDownTextBox";
    scene.text({20, 14, 460, fieldHeight}, L"Order 4711 \x2013 position 3", TextLook::heading);

    scene.text({20, 52, 110, fieldHeight}, L"Article");
    scene.input({136, 52, 350, fieldHeight}, L"Writing desk, oak, 160 \x00D7 80 cm");

    scene.text({20, 88, 110, fieldHeight}, L"Quantity");
    SceneControl& quantity = scene.control(L"Quantity", progId, {136, 88, 96, fieldHeight});
    scene.text({242, 88, 60, fieldHeight}, L"pieces", TextLook::dim);
    scene.text({316, 88, 70, fieldHeight}, L"In stock", TextLook::label, DT_RIGHT);
    SceneControl& stock = scene.control(L"Stock", progId, {396, 88, 90, fieldHeight});

    scene.text({20, 124, 110, fieldHeight}, L"Unit price");
    SceneControl& price = scene.control(L"UnitPrice", progId, {136, 124, 96, fieldHeight});
    scene.text({242, 124, 60, fieldHeight}, L"EUR", TextLook::dim);

    scene.text({20, 160, 110, fieldHeight}, L"Discount");
    SceneControl& discount = scene.control(L"Discount", progId, {136, 160, 96, fieldHeight});
    scene.text({242, 160, 60, fieldHeight}, L"%", TextLook::dim);

    scene.panel({20, 206, 466, 44});
    scene.text({34, 206, 90, 44}, L"Amount", TextLook::strong);
    const size_t total = scene.text({136, 206, 336, 44}, L"", TextLook::total, DT_RIGHT);

    struct Start {
        SceneControl& control;
        long maximum;
        bool decimals;
        double interval;
        const wchar_t* text;
    };
    for (const Start& start :
         {Start{quantity, 50, false, 1, L"4"}, Start{stock, 1000, false, 1, L"128"},
          Start{price, 5000, true, 0.5, L"349.0"}, Start{discount, 40, false, 5, L"10"}}) {
        const auto object = start.control.object();
        object.put(L"Max", start.maximum);
        object.put(L"Interval", start.interval);
        object.put(L"AllowDecpoint", start.decimals);
        object.put(L"Text", start.text);
    }
    stock.object().put(L"Enabled", false);

    const auto sum = [&scene, &quantity, &price, &discount, total] {
        const double value = number(quantity) * number(price) * (1 - number(discount) / 100);
        scene.setText(total, amount(value) + L" EUR");
    };
    for (SceneControl* control : {&quantity, &price, &discount})
        control->site->events().on(L"Change", [sum](container::EventCall&) { sum(); });
    sum();
    scene.derived(sum);
    scene.demonstration([&scene, &quantity] {
        if (scene.form().enter(*quantity.site)) {
            const HWND field = GetFocus();
            for (const WPARAM key : {VK_UP, VK_UP, VK_DOWN}) {
                PostMessageW(field, WM_KEYDOWN, key, 1);
                PostMessageW(field, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u));
            }
        }
    });
}

void buildBooking(Scene& scene) {
    constexpr auto progId = L"OBKCTRLS.DateCalendar";
    scene.text({20, 14, 460, fieldHeight}, L"Hotel Aurora \x2013 new booking", TextLook::heading);

    scene.text({20, 52, 110, fieldHeight}, L"Guest");
    scene.input({136, 52, 350, fieldHeight}, L"Ms Ingrid Solberg");

    scene.text({20, 88, 110, fieldHeight}, L"Arrival");
    SceneControl& arrival = scene.control(L"Arrival", progId, {136, 88, 150, fieldHeight});
    const size_t arrives = scene.text({300, 88, 186, fieldHeight}, L"", TextLook::dim);

    scene.text({20, 124, 110, fieldHeight}, L"Departure");
    SceneControl& departure = scene.control(L"Departure", progId, {136, 124, 150, fieldHeight});
    const size_t departs = scene.text({300, 124, 186, fieldHeight}, L"", TextLook::dim);

    scene.text({20, 160, 110, fieldHeight}, L"Room");
    scene.choice({136, 160, 150, fieldHeight}, {L"Single", L"Double", L"Suite"}, 1);

    scene.text({20, 196, 110, fieldHeight}, L"Invoice");
    SceneControl& invoice = scene.control(L"InvoiceDate", progId, {136, 196, 150, fieldHeight});
    scene.text({300, 196, 186, fieldHeight}, L"set when the stay ends", TextLook::dim);

    arrival.object().put(L"Text", L"Fri 4 Dec 2026");
    departure.object().put(L"Text", L"Mon 7 Dec 2026");
    invoice.object().put(L"Text", L"Mon 7 Dec 2026");
    invoice.object().put(L"Enabled", false);

    const auto follow = [&scene](SceneControl& field, size_t beside) {
        const auto show = [&scene, &field, beside] {
            const std::wstring text = field.object().value(L"Text").toText();
            const size_t end = text.find_last_not_of(L' ');
            scene.setText(beside, end == std::wstring::npos ? L"no date" : text.substr(0, end + 1));
        };
        field.site->events().on(L"DateUpdated", [show](container::EventCall&) { show(); });
        show();
    };
    follow(arrival, arrives);
    follow(departure, departs);
    scene.demonstration([&scene, &departure] {
        if (scene.form().enter(*departure.site)) departure.object().call(L"ShowPopUp");
    });
}

void buildOrderStates(Scene& scene) {
    constexpr auto progId = L"OBKCTRLS.ButtonPalette";
    scene.text({20, 14, 460, fieldHeight}, L"Colours of the order states", TextLook::heading);

    struct State {
        const wchar_t* label;
        const wchar_t* name;
        long colour;
    };
    constexpr State states[] = {{L"Confirmed", L"Confirmed", 0x00FFC0},
                                {L"In production", L"InProduction", 0x00C0FF},
                                {L"Delayed", L"Delayed", 0x4040FF},
                                {L"Delivered", L"Delivered", 0xC0C0C0}};
    int y = 44;
    for (const State& state : states) {
        scene.text({20, y, 100, fieldHeight}, state.label);
        SceneControl& control = scene.control(state.name, progId, {124, y, 100, fieldHeight});
        const size_t chosen = scene.text({236, y, 250, fieldHeight}, L"", TextLook::dim);
        control.object().put(L"Caption", L"Colour");
        control.object().put(L"Color", state.colour);
        const auto show = [&scene, &control, chosen] {
            scene.setText(chosen, control.object().value(L"Text").toText());
        };
        control.site->events().on(L"Click", [show](container::EventCall&) { show(); });
        y += 30;
    }

    // One button for each palette, named as a host names them.
    scene.text({20, 166, 466, fieldHeight}, L"The twelve palettes", TextLook::strong);
    int at = 0;
    if (const auto* palette = scene.find(L"Confirmed")->members.property(L"Palette")) {
        for (const container::Choice& choice : palette->type.choices) {
            SceneControl& control =
                scene.control(choice.name, progId, {20 + at % 4 * 118, 192 + at / 4 * 30, 110, fieldHeight});
            control.object().put(L"Palette", choice.value);
            control.object().put(L"Caption", choice.name);
            control.object().put(L"ShowButtonColor", false);
            ++at;
        }
    }
    scene.demonstration([&scene] { scene.find(L"InProduction")->object().call(L"ShowPopUp"); });
}

void buildAddressRows(Scene& scene) {
    constexpr auto progId = L"OBKCTRLS.ButtonArrow";
    scene.text({20, 14, 460, fieldHeight}, L"Delivery address", TextLook::heading);
    struct Row {
        const wchar_t* label;
        const wchar_t* text;
        const wchar_t* name;
        int width;
    };
    constexpr Row rows[] = {
        {L"Customer", L"Lindqvist Interiors AB", L"CustomerArrow", 320},
        {L"Street", L"Kungsgatan 12", L"StreetArrow", 320},
        {L"Town", L"111 43 Stockholm", L"TownArrow", 220},
        {L"Carrier", L"Nordic Freight", L"CarrierArrow", 220},
    };
    int y = 52;
    for (const Row& row : rows) {
        scene.text({20, y, 110, fieldHeight}, row.label);
        scene.input({136, y, row.width, fieldHeight}, row.text);
        // The button keeps its size of 12 by 14 pixels; it stands in the middle of the field's height.
        scene.control(row.name, progId, {136 + row.width + 6, y + 5, 12, 14});
        y += 36;
    }
    const size_t answer = scene.text({20, 212, 300, fieldHeight},
                                     L"An arrow keeps its size, whatever it is asked for.", TextLook::dim);
    scene.button({346, 210, 140, 28}, L"Stretch the arrows", [&scene, answer] {
        for (const auto& control : scene.controls()) {
            RECT place = control->site->position();
            InflateRect(&place, 20, 20);
            const SIZE asked = container::sizeOf(place);
            control->site->moveTo(place);
            const SIZE kept = container::sizeOf(control->site->position());
            scene.setText(answer, L"Asked for " + sizeText(asked) + L" pixels, is " + sizeText(kept) + L".");
        }
        scene.layOut();
    });
}

void buildSettingsGroups(Scene& scene) {
    constexpr auto progId = L"OBKCTRLS.lns";
    const auto group = [&](int y, const wchar_t* title, int titleWidth,
                           const wchar_t* name) -> SceneControl& {
        scene.text({20, y, titleWidth, fieldHeight}, title, TextLook::strong);
        return scene.control(name, progId, {20 + titleWidth, y + 12, 466 - titleWidth, 3});
    };
    std::vector<SceneControl*> lines;
    lines.push_back(&group(12, L"Documents", 80, L"DocumentsLine"));
    scene.checkBox({36, 40, 260, fieldHeight}, L"Print a delivery note with each order", true);
    scene.checkBox({36, 66, 260, fieldHeight}, L"Show prices on delivery notes", false);

    lines.push_back(&group(98, L"Reminders", 80, L"RemindersLine"));
    scene.text({36, 126, 120, fieldHeight}, L"First reminder after");
    scene.choice({160, 126, 120, 160}, {L"14 days", L"30 days", L"Never"}, 0);

    lines.push_back(&group(158, L"Currency", 80, L"CurrencyLine"));
    scene.choice({36, 188, 200, 160}, {L"Euro (EUR)", L"Krona (SEK)", L"Pound (GBP)", L"Dollar (USD)"}, 0);

    lines.push_back(&group(222, L"", 0, L"BottomLine"));
    scene.button({346, 240, 140, 28}, L"Recolour the lines", [lines] {
        for (const SceneControl* control : lines) control->object().call(L"ColorRefresh");
    });
}

}  // namespace obk::gallery
