// The clock, the registry and the regional formats.
#pragma once

#include "widgets/platform.h"

namespace obk::win32 {

class SystemClock final : public Clock {
public:
    int32_t tickCount() override;
    std::chrono::year_month_day today() override;
    DateForms dateForms() override;
};

class SystemRegistry final : public Registry {
public:
    // The access mask goes to the system as given.
    std::unique_ptr<RegistryKey> open(int32_t rootKey, TextView subKey, uint32_t access) override;
};

// The user's own; where the system does not say, those of RegionalFormats.
RegionalFormats regionalFormats();
void appendSortKey(TextView text, std::string& key);

}  // namespace obk::win32
