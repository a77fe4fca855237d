#pragma once

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/graphics/paragraph_layout.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace plix {

inline constexpr std::string_view ellipsisText = "\xE2\x80\xA6";

/// What of a text is left on both sides of an ellipsis, in bytes.
struct Truncation {
    std::uint32_t prefixEnd { 0 };
    std::uint32_t suffixStart { 0 };
    friend bool operator==(Truncation const&, Truncation const&) = default;
};

/// Makes the text fit.
struct TruncationInput {
    std::string_view text;
    std::span<std::uint32_t const> bytes; ///< where each character starts, and the text's size
    std::span<std::int32_t const> lefts; ///< where each character stands, and the text's advance
    int ellipsisWidth { 0 };
    int width { 0 };
};

/// As much of the text as fits with the ellipsis, at its head, its tail, or between both, the tail taking what the head leaves of
/// its half; blanks next to the ellipsis go. Where not even the ellipsis fits, it stands alone. `measure` tells the advance of a
/// text with its ellipsis, below 0 where it can't, which ends the search.
Truncation truncationToFit(TruncationInput const&, NSLineBreakMode, FunctionRef<int(std::string_view)> measure);
/// What is then shown.
void writeTruncated(std::string& shown, std::string_view text, Truncation);

}
