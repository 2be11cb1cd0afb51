// Bags out of raw bytes, and bags with keys that a control knows: it loads them, and what it saves it loads
// and saves again alike.
#include "framework/control.h"
#include "framework/member_call.h"
#include "fuzz_values.h"
#include "library/library.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/recording_canvas.h"

#include <algorithm>

namespace obk::fuzz {
namespace {

std::optional<MemoryBag> bagFrom(const ControlTable& table, FuzzedDataProvider& input) {
    if (input.ConsumeBool()) {
        const std::vector<uint8_t> bytes = input.ConsumeRemainingBytes<uint8_t>();
        return MemoryBag::parsed(std::as_bytes(std::span(bytes)));
    }
    MemoryBag bag;
    while (input.remaining_bytes() > 0) {
        if (table.persisted.empty() || input.ConsumeIntegralInRange(0, 15) == 0) {
            bag.write(textFrom(input), anyValue(input));
            continue;
        }
        const PersistedValue& row =
            table.persisted[input.ConsumeIntegralInRange<size_t>(0, table.persisted.size() - 1)];
        bag.write(row.readKey, valueFor(row.type, input));
    }
    return bag;
}

// Without the values that are written otherwise than they are read, which need not come back.
std::vector<std::byte> lastingBytes(const Control& control) {
    MemoryBag lasting;
    const auto& rows = control.table().persisted;
    MemoryBag bag;
    control.save(bag);
    for (const auto& [key, value] : bag.entries()) {
        const auto row = std::ranges::find(rows, key, &PersistedValue::writeKey);
        if (row == rows.end() ||
            (row->readKey == row->writeKey && row->readDefault.index() == row->writeDefault.index()))
            lasting.write(key, value);
    }
    return lasting.serialized();
}

void run(FuzzedDataProvider& input) {
    const auto& controls = library().controls;
    const ControlTable& table = *controls[input.ConsumeIntegralInRange<size_t>(0, controls.size() - 1)];
    std::optional<MemoryBag> bag = bagFrom(table, input);
    if (!bag) return;
    const std::vector<std::byte> bytes = bag->serialized();
    std::optional<MemoryBag> again = MemoryBag::parsed(bytes);
    require(again && again->serialized() == bytes, "a bag's bytes make the same bag");

    headless::HeadlessPlatform platform;
    const auto first = table.create(platform), second = table.create(platform);
    first->load(*bag);
    for (const Member& member : table.members) {
        Value value;
        require(!member.get ||
                    (getProperty(*first, member, value) == CallStatus::done && typeOf(value) == member.type),
                "properties have their declared types");
    }
    // What is loaded shows, too.
    headless::RecordingCanvas canvas(Dpi(144), {0, 0, 120, 32});
    first->draw(canvas, {0, 0, 120, 32});

    MemoryBag saved;
    first->save(saved);
    const std::vector<std::byte> lasting = lastingBytes(*first);
    second->load(saved);
    require(lastingBytes(*second) == lasting, "what was saved is saved again alike");
    std::optional<MemoryBag> parsed = MemoryBag::parsed(saved.serialized());
    require(parsed.has_value(), "what was saved can be read");
    // Over what is there already, nothing of which may stay.
    second->load(*bag);
    second->load(*parsed);
    require(lastingBytes(*second) == lasting, "bytes that were saved are saved again alike");
}

}  // namespace
}  // namespace obk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    obk::fuzz::run(input);
    return 0;
}
