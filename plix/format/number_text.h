#pragma once

#include <cstdint>
#include <string>

namespace plix {

/// Without its fraction; what is outside the type, or no number, gives the type's least value.
std::int32_t truncatedTo32Bits(double);
std::int64_t truncatedTo64Bits(double);

/// As %i.
void appendInteger(std::string& text, std::int64_t value);
/// As %i, with a "0" in front of everything below 10, also of negative numbers.
void appendTwoDigits(std::string& text, std::int64_t value);
/// As %.<decimals>f, exactly rounded, with a point in every locale. What is no number gives "nan".
void appendFixed(std::string& text, double value, int decimals);

}
