#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace plix {

/// Reads an XML property list: strings, numbers, truth values, dates, data, arrays and dictionaries. nullopt where it is none or
/// goes beyond what a document from outside may be; `error` then says why. Of a key that comes twice the last value counts.
std::optional<ObjectValue> propertyListFromXML(std::span<std::uint8_t const> bytes, std::string& error);

/// Writes a value as an XML property list, dictionaries in the order of their keys, dates to the whole second. nullopt where the
/// value is or holds nil or an object that is no data, or is nested too deep to be read again. Characters that XML cannot say
/// become U+FFFD.
std::optional<std::string> xmlFromPropertyList(ObjectValue const&);

std::string base64(std::span<std::uint8_t const> bytes);
/// Blanks are passed over; nullopt where the text is not whole.
std::optional<std::vector<std::uint8_t>> bytesOfBase64(std::string_view text);

}
