#include <plix/system/name_comparison.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/collation.h>

namespace plix {

namespace {

constexpr std::size_t greatestLength = 1024;

std::u16string comparedUnits(std::string_view text)
{
    // No unit takes more than three bytes, so these hold enough of them.
    auto units = utf16FromUTF8(text.substr(0, 3 * greatestLength + 3));
    if (units.size() > greatestLength)
        units.resize(greatestLength);
    return units;
}

}

NSComparisonResult PLIXCompareDirectoryContents(std::optional<std::string_view> a, std::optional<std::string_view> b)
{
    if (!a || !b)
        return NSOrderedSame;
    return compare(*a, *b, NSCaseInsensitiveSearch | NSNumericSearch);
}

NSComparisonResult PLIXCompareLastPathComponent(std::optional<std::string_view> a, std::optional<std::string_view> b)
{
    if (!a || !b)
        return NSOrderedSame;
    return collateFileNames(comparedUnits(*a), comparedUnits(*b));
}

}
