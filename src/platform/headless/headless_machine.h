// A machine that tests set: clock, registry, colours and metrics.
#pragma once

#include "widgets/platform.h"

#include <array>
#include <map>
#include <string>
#include <utility>

namespace obk::headless {

class ManualClock : public Clock {
public:
    // Moves on each time it is read, so that loops which poll it end.
    int32_t tickCount() override;
    std::chrono::year_month_day today() override { return today_; }
    DateForms dateForms() override { return dateForms_; }

    void setTickCount(int32_t ticks) { ticks_ = ticks; }
    // By how much it moves on; at first one millisecond.
    void setPace(std::chrono::milliseconds pace) { pace_ = pace; }
    void advance(std::chrono::milliseconds time);
    void setToday(std::chrono::year_month_day today) { today_ = today; }
    void setDateForms(DateForms forms) { dateForms_ = std::move(forms); }

private:
    int32_t ticks_ = 1000;
    std::chrono::milliseconds pace_{1};
    std::chrono::year_month_day today_{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{14}};
    DateForms dateForms_;
};

class MemoryRegistry : public Registry {
public:
    struct Entry {
        uint32_t type = 1;
        std::string bytes;  // as stored, with the terminating zero of strings
    };

    std::unique_ptr<RegistryKey> open(int32_t rootKey, TextView subKey, uint32_t access) override;

    // Key and value names without regard to case.
    void set(TextView subKey, TextView name, Entry entry);
    void setString(TextView subKey, TextView name, std::string text);
    // Refuses every access with more rights than reading, as an ordinary user gets.
    void refuseWriting() { refusesWriting_ = true; }

private:
    std::map<Text, std::map<Text, Entry>> keys_;
    bool refusesWriting_ = false;
};

class FixedAppearance : public Appearance {
public:
    FixedAppearance();
    std::optional<Rgb> systemColour(uint8_t index) override;
    bool highContrast() override { return highContrast_; }
    Dpi systemDpi() override { return dpi_; }
    FontMetrics metrics(const FontDescription& font, Dpi dpi) override;
    PixelSize measure(TextView text, const FontDescription& font, Dpi dpi) override;
    FontDescription dialogFont() override { return {}; }
    Metrics metrics() override { return {}; }

    void setSystemColour(SystemColour index, Rgb colour) { colours_[static_cast<uint8_t>(index)] = colour; }
    void setHighContrast(bool highContrast) { highContrast_ = highContrast; }
    void setDpi(Dpi dpi) { dpi_ = dpi; }

private:
    std::array<Rgb, 31> colours_{};
    bool highContrast_ = false;
    Dpi dpi_;
};

}  // namespace obk::headless
