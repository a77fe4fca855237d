#include <plix/format/truncation.h>

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/string_drawing.h>

namespace plix {

namespace {

constexpr double margin = 4.0;

std::string shortened(std::string_view text, long units)
{
    return std::string(substringWithRange(text, { 0, units })) + "...";
}

}

void TruncateStringInCell(NSCell* cell, float width)
{
    if (!cell)
        return;
    Ref<NSCell> const protector(cell);
    auto const isTooWide = [&] { return cell->attributedStringValue()->size().width > width - margin; };
    if (!isTooWide())
        return;
    auto length = utf16Length(cell->stringValue());
    do
        cell->setStringValue(shortened(cell->stringValue(), --length));
    while (isTooWide());
}

std::optional<std::string> TruncateStringWithAttributes(
    std::optional<std::string_view> string, Attributes const* attributes, float width)
{
    if (!string || !attributes)
        return {};
    auto const isTooWide = [&](std::string const& text) { return sizeWithAttributes(text, *attributes).width > width - margin; };
    std::string candidate(*string);
    if (!isTooWide(candidate))
        return candidate;
    auto length = utf16Length(*string);
    do
        candidate = shortened(*string, --length);
    while (isTooWide(candidate));
    return candidate;
}

}
