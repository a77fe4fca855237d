#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/foundation/date_text.h>

#include <memory>
#include <string>
#include <string_view>

namespace plix {

/// How a locale writes dates and numbers.
struct LocaleValues {
    DateNames dates;
    std::string decimalSeparator { "." };
    std::string thousandsSeparator { "," };
    std::string currencySymbol { "$" };
};

/// Of the surroundings' locale; looked up once for each. English where the locale is not known.
PLIX_EXPORT LocaleValues const& localeValues();

/// The names and formats of dates: the user's defaults where they set them, else the locale's.
PLIX_EXPORT std::shared_ptr<DateNames const> currentDateNames();

/// The surroundings' locale where it is well formed and its language known, else "en_US": what tables can be asked for without
/// harm.
PLIX_EXPORT std::string knownLocaleIdentifier();

}
