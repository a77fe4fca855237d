#pragma once

#include <string>
#include <string_view>

namespace plix {

/// A date format for a pattern of letters as CLDR writes them: "d. MMMM y" gives "%e. %B %Y". Fields that have no directive are
/// left out.
std::string dateFormatFromPattern(std::string_view pattern);

}
