#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/graphics/geometry.h>

#include <concepts>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace gallery {

// Values as a programmer writes them. Dates are UTC; nothing depends on the machine.
std::string quotedText(std::string_view); ///< in quotation marks, with escapes for what does not print
std::string numberText(double); ///< the shortest decimal that reads back as a float
std::string valueText(plix::NSRange);
std::string valueText(plix::Point);
std::string valueText(plix::Size);
std::string valueText(plix::Rect);
std::string valueText(plix::NSDate);
std::string valueText(plix::NSIndexSet const&);
/// Text in quotation marks; an object by its own description, or by its class.
std::string valueText(plix::ObjectValue const&);

template <std::same_as<bool> Bool> std::string valueText(Bool value)
{
    return value ? "true" : "false";
}
template <typename Number>
requires(std::is_arithmetic_v<Number> || std::is_enum_v<Number>) && (!std::same_as<Number, bool>)std::string valueText(Number value)
{
    if constexpr (std::is_enum_v<Number>)
        return std::to_string(static_cast<long>(value));
    else if constexpr (std::is_floating_point_v<Number>)
        return numberText(value);
    else
        return std::to_string(value);
}
template <std::convertible_to<std::string_view> Text> std::string valueText(Text const& text)
{
    return quotedText(text);
}
template <typename T> std::string valueText(std::vector<T> const& values);
template <typename T> std::string valueText(std::map<std::string, T> const& values);
template <typename T> std::string valueText(std::optional<T> const& value)
{
    return value ? valueText(*value) : "nil";
}
template <typename T> std::string valueText(plix::Ref<T> const& object)
{
    return valueText(plix::ObjectValue(object));
}

template <typename T> std::string valueText(std::vector<T> const& values)
{
    std::string text;
    for (auto const& value : values)
        text += (text.empty() ? "" : ", ") + valueText(value);
    return "(" + text + ")";
}
template <typename T> std::string valueText(std::map<std::string, T> const& values)
{
    std::string text;
    for (auto const& [key, value] : values)
        text += (text.empty() ? "" : "; ") + key + " = " + valueText(value);
    return "{" + text + "}";
}

}
