#include <plix/platform/foundation/collation.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/locale_values.h>
#include <plix/platform/foundation/surroundings.h>

#include <algorithm>
#include <memory>

#include <unicode/ucol.h>

namespace plix {

namespace {

using Collator = std::unique_ptr<UCollator, decltype(&ucol_close)>;

/// Null where the collation data is missing.
Collator openCollator(char const* locale, UColAttributeValue strength)
{
    auto error = U_ZERO_ERROR;
    Collator collator(ucol_open(locale, &error), &ucol_close);
    if (U_FAILURE(error))
        return { nullptr, &ucol_close };
    ucol_setAttribute(collator.get(), UCOL_STRENGTH, strength, &error);
    return collator;
}

NSComparisonResult collate(UCollator const* collator, std::u16string_view a, std::u16string_view b)
{
    if (!collator)
        return a < b ? NSOrderedAscending : b < a ? NSOrderedDescending : NSOrderedSame;
    auto const result
        = ucol_strcoll(collator, a.data(), static_cast<std::int32_t>(a.size()), b.data(), static_cast<std::int32_t>(b.size()));
    return static_cast<NSComparisonResult>(result);
}

/// Opened when a person's text is first sorted, and anew when the locale is another.
UCollator const* localeCollator(UColAttributeValue strength)
{
    struct Opened {
        std::string locale;
        Collator collator { nullptr, &ucol_close };
    };
    static auto& s_tertiary = *new Opened;
    static auto& s_secondary = *new Opened;
    auto& opened = strength == UCOL_SECONDARY ? s_secondary : s_tertiary;
    auto locale = surroundings().localeIdentifier();
    if (!opened.collator || opened.locale != locale) {
        opened.collator = openCollator(knownLocaleIdentifier().c_str(), strength);
        opened.locale = std::move(locale);
    }
    return opened.collator.get();
}

Collator openFileNameCollator()
{
    auto collator = openCollator("root", UCOL_SECONDARY);
    if (collator) {
        auto error = U_ZERO_ERROR;
        ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON, &error);
        ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &error);
    }
    return collator;
}

}

NSComparisonResult collateFileNames(std::u16string_view a, std::u16string_view b)
{
    static auto const& s_collator = *new Collator(openFileNameCollator());
    return collate(s_collator.get(), a, b);
}

NSComparisonResult localizedCompare(std::string_view a, std::string_view b)
{
    return collate(localeCollator(UCOL_TERTIARY), utf16FromUTF8(a), utf16FromUTF8(b));
}

NSComparisonResult localizedCaseInsensitiveCompare(std::string_view a, std::string_view b)
{
    return collate(localeCollator(UCOL_SECONDARY), utf16FromUTF8(a), utf16FromUTF8(b));
}

}
