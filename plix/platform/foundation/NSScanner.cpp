#include <plix/platform/foundation/NSScanner.h>

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace plix {

namespace {

constexpr auto npos = std::string_view::npos;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t afterDigits(std::string_view text, std::size_t byte)
{
    while (byte < text.size() && isDigit(text[byte]))
        ++byte;
    return byte;
}

std::size_t afterSign(std::string_view text, std::size_t byte)
{
    return byte < text.size() && (text[byte] == '-' || text[byte] == '+') ? byte + 1 : byte;
}

/// The byte behind an exponent that begins here; `byte` itself where none does.
std::size_t afterExponent(std::string_view text, std::size_t byte)
{
    if (byte >= text.size() || (text[byte] != 'e' && text[byte] != 'E'))
        return byte;
    auto const digits = afterSign(text, byte + 1);
    auto const end = afterDigits(text, digits);
    return end > digits ? end : byte;
}

}

PLIX_DESCRIBE(NSScanner)
{
}

Ref<NSScanner> NSScanner::scannerWithString(std::string string)
{
    return make<NSScanner>(std::move(string));
}

bool NSScanner::init(std::string string)
{
    m_string = std::move(string);
    return true;
}

long NSScanner::scanLocation() const
{
    return unitAtByteOffset(m_string, m_byte);
}

void NSScanner::setScanLocation(long location)
{
    auto const length = utf16Length(m_string);
    if (location < 0 || location > length)
        raiseRangeException("NSScanner::setScanLocation", location, length);
    m_byte = byteOffsetOfUnit(m_string, location);
}

std::size_t NSScanner::afterSkipped() const
{
    return findCharacterNotInSet(m_string, m_skipped, m_byte);
}

bool NSScanner::isAtEnd() const
{
    return afterSkipped() == m_string.size();
}

bool NSScanner::take(std::size_t start, std::size_t end, std::string* value)
{
    if (end == npos || end <= start)
        return false;
    m_byte = end;
    if (value)
        *value = m_string.substr(start, end - start);
    return true;
}

bool NSScanner::scanInt(int& value)
{
    std::int64_t wide = 0;
    if (!scanLongLong(wide))
        return false;
    value = static_cast<int>(std::clamp<std::int64_t>(wide, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    return true;
}

bool NSScanner::scanLongLong(std::int64_t& value)
{
    auto const start = afterSkipped();
    auto const digits = afterSign(m_string, start);
    auto const end = afterDigits(m_string, digits);
    if (end == digits)
        return false;
    value = ObjectValue(std::string_view(m_string).substr(start, end - start)).integerValue();
    m_byte = end;
    return true;
}

bool NSScanner::scanHexInt(unsigned& value)
{
    auto const text = std::string_view(m_string);
    auto start = afterSkipped();
    auto const isHexDigit = [&](std::size_t byte) {
        return byte < text.size() && std::string_view("0123456789abcdefABCDEF").find(text[byte]) != npos;
    };
    auto const mark = text.substr(start, 2);
    if ((mark == "0x" || mark == "0X") && isHexDigit(start + 2))
        start += 2;
    if (!isHexDigit(start))
        return false;
    auto const result = std::from_chars(text.data() + start, text.data() + text.size(), value, 16);
    if (result.ec == std::errc::result_out_of_range)
        value = std::numeric_limits<unsigned>::max();
    m_byte = static_cast<std::size_t>(result.ptr - text.data());
    return true;
}

bool NSScanner::scanFloat(float& value)
{
    double wide = 0;
    if (!scanDouble(wide))
        return false;
    constexpr double largest = std::numeric_limits<float>::max();
    value = std::abs(wide) > largest ? static_cast<float>(std::copysign(HUGE_VALF, wide)) : static_cast<float>(wide);
    return true;
}

bool NSScanner::scanDouble(double& value)
{
    auto const text = std::string_view(m_string);
    auto const start = afterSkipped();
    auto const digits = afterSign(text, start);
    auto const pointAt = afterDigits(text, digits);
    auto fraction = pointAt;
    auto end = pointAt;
    if (!m_decimalSeparator.empty() && text.substr(pointAt).starts_with(m_decimalSeparator)) {
        fraction = pointAt + m_decimalSeparator.size();
        end = afterDigits(text, fraction);
    }
    if (pointAt == digits && end == fraction)
        return false;
    auto const behind = afterExponent(text, end);
    std::string number(text.substr(start, pointAt - start));
    if (fraction > pointAt)
        number.append(".").append(text.substr(fraction, end - fraction));
    value = doubleValue(number.append(text.substr(end, behind - end)));
    m_byte = behind;
    return true;
}

std::size_t NSScanner::matchAt(std::size_t byte, std::string_view searched) const
{
    if (m_caseSensitive)
        return std::string_view(m_string).substr(byte).starts_with(searched) ? byte + searched.size() : npos;
    auto const length = foldedPrefixLength(std::string_view(m_string).substr(byte), searched);
    return length == npos ? npos : byte + length;
}

std::size_t NSScanner::findString(std::size_t byte, std::string_view searched) const
{
    while (byte < m_string.size() && matchAt(byte, searched) == npos)
        decodeUTF8(m_string, byte);
    return byte;
}

bool NSScanner::scanString(std::string_view searched)
{
    auto const start = afterSkipped();
    return !searched.empty() && take(start, matchAt(start, searched), nullptr);
}

bool NSScanner::scanString(std::string_view searched, std::string& value)
{
    auto const start = afterSkipped();
    return !searched.empty() && take(start, matchAt(start, searched), &value);
}

bool NSScanner::scanCharactersFromSet(NSCharacterSet const& set)
{
    auto const start = afterSkipped();
    return take(start, findCharacterNotInSet(m_string, set, start), nullptr);
}

bool NSScanner::scanCharactersFromSet(NSCharacterSet const& set, std::string& value)
{
    auto const start = afterSkipped();
    return take(start, findCharacterNotInSet(m_string, set, start), &value);
}

bool NSScanner::scanUpToString(std::string_view stop)
{
    auto const start = afterSkipped();
    return take(start, findString(start, stop), nullptr);
}

bool NSScanner::scanUpToString(std::string_view stop, std::string& value)
{
    auto const start = afterSkipped();
    return take(start, findString(start, stop), &value);
}

bool NSScanner::scanUpToCharactersFromSet(NSCharacterSet const& set)
{
    auto const start = afterSkipped();
    return take(start, findCharacterInSet(m_string, set, start), nullptr);
}

bool NSScanner::scanUpToCharactersFromSet(NSCharacterSet const& set, std::string& value)
{
    auto const start = afterSkipped();
    return take(start, findCharacterInSet(m_string, set, start), &value);
}

}
