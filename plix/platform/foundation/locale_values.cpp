#include <plix/platform/foundation/locale_values.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/date_pattern.h>
#include <plix/platform/foundation/surroundings.h>

#include <algorithm>
#include <map>

#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

namespace plix {

namespace {

template <auto Close> struct Closer {
    template <typename T> void operator()(T* opened) const { Close(opened); }
};
using DateFormat = std::unique_ptr<UDateFormat, Closer<udat_close>>;
using NumberFormat = std::unique_ptr<UNumberFormat, Closer<unum_close>>;

/// The text that an ICU function writes into a buffer, or `otherwise` where it fails.
template <typename Function> std::string textFrom(Function function, std::string otherwise)
{
    char16_t buffer[256];
    auto error = U_ZERO_ERROR;
    auto const length = function(buffer, std::int32_t { 256 }, &error);
    if (U_FAILURE(error) || length < 0 || length > 256)
        return otherwise;
    return utf8FromUTF16({ buffer, static_cast<std::size_t>(length) });
}

DateFormat openDateFormat(char const* locale, UDateFormatStyle time, UDateFormatStyle date)
{
    auto error = U_ZERO_ERROR;
    DateFormat format(udat_open(time, date, locale, u"UTC", 3, nullptr, 0, &error));
    if (U_FAILURE(error))
        return nullptr;
    return format;
}

std::string pattern(char const* locale, UDateFormatStyle time, UDateFormatStyle date, std::string const& otherwise)
{
    auto const format = openDateFormat(locale, time, date);
    if (!format)
        return otherwise;
    auto const text = textFrom([&](char16_t* buffer, std::int32_t size,
                                   UErrorCode* error) { return udat_toPattern(format.get(), false, buffer, size, error); },
        {});
    return text.empty() ? otherwise : dateFormatFromPattern(text);
}

template <std::size_t Count>
void readSymbols(UDateFormat const* format, UDateFormatSymbolType type, std::int32_t first, std::array<std::string, Count>& names)
{
    for (std::size_t i = 0; i < Count; ++i) {
        names[i] = textFrom(
            [&](char16_t* buffer, std::int32_t size, UErrorCode* error) {
                return udat_getSymbols(format, type, first + static_cast<std::int32_t>(i), buffer, size, error);
            },
            names[i]);
    }
}

DateNames lookUpDates(char const* locale)
{
    auto names = DateNames::english();
    auto const format = openDateFormat(locale, UDAT_SHORT, UDAT_SHORT);
    if (!format)
        return names;
    readSymbols(format.get(), UDAT_MONTHS, 0, names.months);
    readSymbols(format.get(), UDAT_SHORT_MONTHS, 0, names.shortMonths);
    readSymbols(format.get(), UDAT_WEEKDAYS, UCAL_SUNDAY, names.weekdays);
    readSymbols(format.get(), UDAT_SHORT_WEEKDAYS, UCAL_SUNDAY, names.shortWeekdays);
    readSymbols(format.get(), UDAT_AM_PMS, 0, names.amPm);
    auto error = U_ZERO_ERROR;
    std::unique_ptr<UCalendar, Closer<ucal_close>> const calendar(ucal_open(u"UTC", 3, locale, UCAL_GREGORIAN, &error));
    if (U_SUCCESS(error))
        names.firstWeekday = ucal_getAttribute(calendar.get(), UCAL_FIRST_DAY_OF_WEEK) - UCAL_SUNDAY;
    names.dateFormat = pattern(locale, UDAT_NONE, UDAT_FULL, names.dateFormat);
    names.timeFormat = pattern(locale, UDAT_MEDIUM, UDAT_NONE, names.timeFormat);
    names.shortDateFormat = pattern(locale, UDAT_NONE, UDAT_SHORT, names.shortDateFormat);
    return names;
}

LocaleValues lookUp(std::string const& locale)
{
    LocaleValues values { DateNames::english() };
    // What most programs start with needs no tables.
    if (locale == "en_US" || locale == "en")
        return values;
    values.dates = lookUpDates(locale.c_str());
    auto error = U_ZERO_ERROR;
    NumberFormat const numbers(unum_open(UNUM_DECIMAL, nullptr, 0, locale.c_str(), nullptr, &error));
    if (U_FAILURE(error))
        return values;
    auto const symbol = [&](UNumberFormatSymbol which, std::string& value) {
        value = textFrom([&](char16_t* buffer, std::int32_t size,
                             UErrorCode* status) { return unum_getSymbol(numbers.get(), which, buffer, size, status); },
            value);
    };
    symbol(UNUM_DECIMAL_SEPARATOR_SYMBOL, values.decimalSeparator);
    symbol(UNUM_GROUPING_SEPARATOR_SYMBOL, values.thousandsSeparator);
    symbol(UNUM_CURRENCY_SYMBOL, values.currencySymbol);
    return values;
}

}

std::string knownLocaleIdentifier()
{
    auto locale = surroundings().localeIdentifier();
    bool const isPlain = locale.size() <= 40 && std::ranges::all_of(locale, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    });
    bool const isKnown = isPlain && !locale.empty() && *uloc_getISO3Language(locale.c_str());
    return isKnown ? locale : "en_US";
}

LocaleValues const& localeValues()
{
    static auto& s_known = *new std::map<std::string, LocaleValues>;
    auto const locale = surroundings().localeIdentifier();
    auto const known = s_known.find(locale);
    return known != s_known.end() ? known->second : s_known.emplace(locale, lookUp(knownLocaleIdentifier())).first->second;
}

}
