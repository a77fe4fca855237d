#include "value_text.h"

#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSObject.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/foundation/calendar_fields.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace gallery {

using namespace plix;

std::string quotedText(std::string_view text)
{
    std::string quoted = "\"";
    for (char const character : text) {
        if (character == '"' || character == '\\') {
            quoted += { '\\', character };
        } else if (character == '\n') {
            quoted += "\\n";
        } else if (character == '\t') {
            quoted += "\\t";
        } else if (static_cast<unsigned char>(character) < ' ' || character == '\x7F') {
            std::array<char, 8> escape {};
            std::snprintf(escape.data(), escape.size(), "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(character)));
            quoted += escape.data();
        } else {
            quoted += character;
        }
    }
    return quoted + '"';
}

std::string numberText(double value)
{
    std::array<char, 32> digits {};
    bool const isFloat = !std::isfinite(value) || static_cast<double>(static_cast<float>(value)) == value;
    auto const end = isFloat ? std::to_chars(digits.begin(), digits.end(), static_cast<float>(value))
                             : std::to_chars(digits.begin(), digits.end(), value);
    return std::string(digits.begin(), end.ptr);
}

std::string valueText(NSRange range)
{
    return "{" + (range.location == NSNotFound ? "NSNotFound" : std::to_string(range.location)) + ", "
        + std::to_string(range.length) + "}";
}

std::string valueText(Point point)
{
    return NSStringFromPoint(point);
}

std::string valueText(Size size)
{
    return NSStringFromSize(size);
}

std::string valueText(Rect rect)
{
    return NSStringFromRect(rect);
}

std::string valueText(NSDate date)
{
    auto const fields = NSTimeZone::timeZoneForSecondsFromGMT(0).fieldsForDate(date);
    std::array<char, 80> text {};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", static_cast<int>(fields.year),
        static_cast<int>(fields.month), static_cast<int>(fields.day), static_cast<int>(fields.hour),
        static_cast<int>(fields.minute), static_cast<int>(fields.second));
    return text.data();
}

std::string valueText(NSIndexSet const& indexes)
{
    std::string text;
    for (long index = indexes.firstIndex(); index != NSNotFound; index = indexes.indexGreaterThanIndex(index))
        text += (text.empty() ? "" : ", ") + std::to_string(index);
    return "{" + text + "}";
}

std::string valueText(ObjectValue const& value)
{
    if (value.isNil())
        return "nil";
    if (value.isBool())
        return valueText(value.boolValue());
    if (auto const* text = value.string())
        return quotedText(*text);
    if (auto const* date = value.date())
        return valueText(*date);
    if (auto const* array = value.array())
        return valueText(*array);
    if (auto const* object = value.object()) {
        auto const description = object->description();
        // What has no description of its own is numbered, never twice alike.
        return description == object->NSObject::description() ? object->describedClass().name() : description;
    }
    if (value.isDictionary())
        return valueText(*value.dictionary());
    return value.description();
}

}
