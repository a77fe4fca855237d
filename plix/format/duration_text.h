#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace plix {

/// What PLIXLongStringForTimeInterval and TimeIntervalDescription do, apart from where the words come from.

/// Gives the word for one of "day", "days", "hour", "hours", "minute", "minutes", "second", "seconds".
using UnitWords = std::function<std::string(std::string_view key)>;
std::string longTextForTimeInterval(double seconds, UnitWords const&);

/// Hours, minutes and seconds as "01:02:05".
std::string clockTextForTimeInterval(double seconds);
/// The text with the user's decimal separator in the place of each point.
std::string textWithDecimalSeparator(std::string_view text, std::string_view separator);

}
