#include "platform/win32/machine.h"

#include "platform/win32/text_conversion.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace obk::win32 {

namespace {

class OpenKey final : public RegistryKey {
public:
    explicit OpenKey(HKEY key) : key_(key) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() override { RegCloseKey(key_); }

    bool query(TextView name, std::string& buffer, uint32_t& size, uint32_t& type) const override {
        auto bytes = static_cast<DWORD>(buffer.size());
        DWORD kind = 0;
        const LSTATUS status = RegQueryValueExA(key_, toSystemCodePage(name).c_str(), nullptr, &kind,
                                                reinterpret_cast<BYTE*>(buffer.data()), &bytes);
        if (status != ERROR_SUCCESS || bytes > buffer.size()) return false;
        size = bytes;
        type = kind;
        return true;
    }

private:
    HKEY key_;
};

std::wstring localeText(LCTYPE type) {
    wchar_t text[80]{};
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, static_cast<int>(std::size(text))) > 0 ? text
                                                                                                  : L"";
}

// Names of our calendar's, whichever the user's is: other calendars have twelve months too, at other times.
std::wstring gregorianText(CALTYPE type) {
    wchar_t text[80]{};
    return GetCalendarInfoW(LOCALE_USER_DEFAULT, CAL_GREGORIAN, type, text, static_cast<int>(std::size(text)),
                            nullptr) > 0
               ? text
               : L"";
}

// Whether the user's calendar has our years: one of those that differ in the language of their names alone.
bool countsOurYears() {
    DWORD calendar = CAL_GREGORIAN;
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICALENDARTYPE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&calendar), sizeof calendar / sizeof(wchar_t));
    return calendar == CAL_GREGORIAN || calendar == CAL_GREGORIAN_US ||
           (calendar >= CAL_GREGORIAN_ME_FRENCH && calendar <= CAL_GREGORIAN_XLIT_FRENCH);
}

}  // namespace

int32_t SystemClock::tickCount() {
    return static_cast<int32_t>(GetTickCount());
}

std::chrono::year_month_day SystemClock::today() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return std::chrono::year(now.wYear) / std::chrono::month(now.wMonth) / std::chrono::day(now.wDay);
}

DateForms SystemClock::dateForms() {
    using Order = DateForms::Order;
    DateForms forms;
    const std::wstring pattern = localeText(LOCALE_SSHORTDATE);
    const size_t day = pattern.find(L'd'), month = pattern.find(L'M'), year = pattern.find(L'y');
    forms.order = year < month  ? Order::yearMonthDay
                  : day < month ? Order::dayMonthYear
                                : Order::monthDayYear;
    DWORD last = 0;
    if (!countsOurYears())
        forms.lastOfTwoDigits = 99;  // years that no date has, rather than ones that nobody means
    else if (GetCalendarInfoW(LOCALE_USER_DEFAULT, CAL_GREGORIAN, CAL_ITWODIGITYEARMAX | CAL_RETURN_NUMBER,
                              nullptr, 0, &last))
        forms.lastOfTwoDigits = static_cast<int32_t>(last);
    for (CALTYPE each = 0; each < 12; ++each) {
        // A name beside its day is a form of its own in some languages.
        for (const std::wstring& name : {gregorianText(CAL_SMONTHNAME1 + each),
                                         gregorianText((CAL_SMONTHNAME1 + each) | CAL_RETURN_GENITIVE_NAMES),
                                         gregorianText(CAL_SABBREVMONTHNAME1 + each)})
            forms.monthNames.emplace_back(fromWide(name), std::chrono::month(each + 1u));
    }
    return forms;
}

std::unique_ptr<RegistryKey> SystemRegistry::open(int32_t rootKey, TextView subKey, uint32_t access) {
    // Predefined roots are sign-extended to the width of a handle.
    const auto root = reinterpret_cast<HKEY>(static_cast<intptr_t>(rootKey));
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, toSystemCodePage(subKey).c_str(), 0, access, &key) != ERROR_SUCCESS || !key)
        return nullptr;
    return std::make_unique<OpenKey>(key);
}

RegionalFormats regionalFormats() {
    RegionalFormats formats;
    wchar_t separator[4]{};
    // Of several characters none is the one that a key types.
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 4) == 2)
        formats.decimalSeparator = static_cast<char16_t>(separator[0]);
    formats.dates = SystemClock().dateForms();
    return formats;
}

void appendSortKey(TextView text, std::string& key) {
    if (text.empty()) return;
    constexpr DWORD flags = LCMAP_SORTKEY | SORT_STRINGSORT;
    constexpr size_t bytesOfUnit = 10, mostUnits = 0x1000000;
    const auto* const units = reinterpret_cast<const wchar_t*>(text.data());
    const auto length = static_cast<int>(std::min(text.size(), mostUnits));
    const size_t start = key.size();
    const auto map = [&](size_t room) {
        key.resize(start + room);
        // A key is counted in bytes, whatever its type says.
        return LCMapStringW(LOCALE_USER_DEFAULT, flags, units, length,
                            room > 0 ? reinterpret_cast<wchar_t*>(key.data() + start) : nullptr,
                            static_cast<int>(room));
    };
    int size = map(text.size() * bytesOfUnit);
    if (size == 0) size = map(static_cast<size_t>(std::max(map(0), 0)));
    // The zero at its end counts for nothing.
    key.resize(start + static_cast<size_t>(std::max(size - 1, 0)));
}

}  // namespace obk::win32
