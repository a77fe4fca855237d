#include <plix/format/number_text.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace plix {

namespace {

template <typename Integer> Integer truncated(double value)
{
    // The least value is a power of two and exact; the greatest is not, its successor is.
    constexpr auto least = static_cast<double>(std::numeric_limits<Integer>::min());
    bool const fits = std::trunc(value) >= least && value < -least;
    return fits ? static_cast<Integer>(value) : std::numeric_limits<Integer>::min();
}

}

std::int32_t truncatedTo32Bits(double value)
{
    return truncated<std::int32_t>(value);
}

std::int64_t truncatedTo64Bits(double value)
{
    return truncated<std::int64_t>(value);
}

void appendInteger(std::string& text, std::int64_t value)
{
    std::array<char, 24> digits;
    auto const result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    text.append(digits.data(), result.ptr);
}

void appendTwoDigits(std::string& text, std::int64_t value)
{
    if (value >= 0 && value < 100) [[likely]] {
        text.push_back(static_cast<char>('0' + value / 10));
        text.push_back(static_cast<char>('0' + value % 10));
        return;
    }
    if (value < 10)
        text.push_back('0');
    appendInteger(text, value);
}

void appendFixed(std::string& text, double value, int decimals)
{
    if (std::isnan(value)) {
        text += "nan"; // whatever its sign
        return;
    }
    // The greatest double has 309 digits before its point.
    std::array<char, 340> digits;
    auto const result = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
    text.append(digits.data(), result.ptr);
}

}
