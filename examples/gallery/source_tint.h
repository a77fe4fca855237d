#pragma once

#include <plix/platform/base/NSRange.h>

#include <string_view>
#include <vector>

namespace gallery {

/// What a stretch of C++ is shown as.
enum class Tint { comment, text, number, keyword, type };

/// In UTF-16 units.
struct TintedRange {
    plix::NSRange range;
    Tint tint;
    friend bool operator==(TintedRange const&, TintedRange const&) = default;
};

/// The stretches of a C++ source that are not plain, in order. A type is a name that begins with an upper-case letter.
std::vector<TintedRange> tintedRanges(std::string_view source);

}
