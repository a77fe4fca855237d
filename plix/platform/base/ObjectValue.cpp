#include <plix/platform/base/ObjectValue.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace plix {

namespace {

std::string_view withoutLeadingBlanks(std::string_view text)
{
    auto const start = text.find_first_not_of(" \t\n\v\f\r");
    return start == std::string_view::npos ? std::string_view {} : text.substr(start);
}

std::int64_t integerPrefix(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    std::uint64_t magnitude = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (result.ec == std::errc::result_out_of_range || magnitude > largest)
        return isNegative ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    auto const value = static_cast<std::int64_t>(magnitude);
    return isNegative ? -value : value;
}

template <typename Integer> Integer nearest(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= static_cast<double>(std::numeric_limits<Integer>::min()))
        return std::numeric_limits<Integer>::min();
    if (value >= static_cast<double>(std::numeric_limits<Integer>::max()))
        return std::numeric_limits<Integer>::max();
    return static_cast<Integer>(value);
}

int nearestInt(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::string shortestDecimal(double value)
{
    char buffer[40];
    auto const result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return { buffer, result.ptr };
}

// Of a number other than 0, by the place of its first digit that counts and its exponent.
bool isBelowOne(std::string_view number)
{
    auto const mark = std::min(number.find_first_of("eE"), number.size());
    auto const mantissa = number.substr(0, mark);
    auto const point = std::min(mantissa.find('.'), mark);
    auto const firstDigit = mantissa.find_first_of("123456789");
    auto const place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(firstDigit);
    auto const exponent = mark < number.size() ? integerPrefix(number.substr(mark + 1)) : 0;
    return exponent < -place;
}

}

double doubleValue(std::string_view text)
{
    text = withoutLeadingBlanks(text);
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty() || !(text[0] == '.' || (text[0] >= '0' && text[0] <= '9')))
        return 0;
    double value = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) // which leaves the value alone
        value = isBelowOne({ text.data(), result.ptr }) ? 0 : HUGE_VAL;
    return isNegative ? -value : value;
}

int intValue(std::string_view text)
{
    return nearestInt(integerPrefix(text));
}

bool ObjectValue::boolValue() const
{
    if (auto const* text = string()) {
        auto const trimmed = withoutLeadingBlanks(*text);
        return (!trimmed.empty() && std::string_view("YyTt").find(trimmed[0]) != std::string_view::npos)
            || integerPrefix(trimmed) != 0;
    }
    return doubleValue() != 0;
}

int ObjectValue::intValue() const
{
    return nearestInt(integerValue());
}

std::int64_t ObjectValue::integerValue() const
{
    if (auto const* value = std::get_if<std::int64_t>(&m_value))
        return *value;
    if (auto const* value = std::get_if<bool>(&m_value))
        return *value;
    if (auto const* value = std::get_if<double>(&m_value))
        return nearest<std::int64_t>(*value);
    return string() ? integerPrefix(*string()) : 0;
}

double ObjectValue::doubleValue() const
{
    if (auto const* value = std::get_if<double>(&m_value))
        return *value;
    if (auto const* text = string())
        return plix::doubleValue(*text);
    return static_cast<double>(integerValue());
}

std::string ObjectValue::description() const
{
    if (auto const* text = string())
        return *text;
    if (isBool())
        return boolValue() ? "1" : "0";
    if (isInteger())
        return std::to_string(integerValue());
    if (isDouble())
        return shortestDecimal(doubleValue());
    if (auto const* moment = date())
        return shortestDecimal(moment->timeIntervalSinceReferenceDate);
    if (auto const* thing = object())
        return thing->description();
    if (auto const* items = array()) {
        std::string text = "(";
        for (auto const& item : *items)
            text += (text.size() > 1 ? ", " : "") + item.description();
        return text + ")";
    }
    if (auto const* entries = dictionary()) {
        std::string text = "{";
        for (auto const& [key, value] : *entries)
            text += (text.size() > 1 ? "; " : "") + key + " = " + value.description();
        return text + "}";
    }
    return {};
}

bool operator==(ObjectValue const& a, ObjectValue const& b)
{
    if (a.isNumber() && b.isNumber()) {
        if (a.isDouble() || b.isDouble())
            return a.doubleValue() == b.doubleValue();
        return a.integerValue() == b.integerValue();
    }
    if (a.isObject() && b.isObject())
        return a.object()->isEqual(b.object());
    return a.m_value == b.m_value;
}

bool ObjectValue::isIdentical(ObjectValue const& other) const
{
    if (isObject() || other.isObject())
        return object() == other.object();
    return *this == other;
}

}
