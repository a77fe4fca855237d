#include <plix/platform/graphics/utf16_index.h>

#include <plix/platform/base/utf16.h>

#include <algorithm>

namespace plix {

namespace {

constexpr std::size_t bytesBetweenMarks = 1024;

long unitsOf(char32_t character)
{
    return character > 0xFFFF ? 2 : 1;
}

}

void Utf16Index::extend(std::string_view text)
{
    if (m_isComplete)
        return;
    if (m_marks.empty())
        m_marks.push_back({ 0, 0 });
    std::size_t byte = m_marks.back().byte;
    long unit = m_marks.back().unit;
    std::size_t nextMark = byte + bytesBetweenMarks;
    while (byte < text.size()) {
        if (byte >= nextMark) {
            m_marks.push_back({ byte, unit });
            nextMark = byte + bytesBetweenMarks;
        }
        if (static_cast<unsigned char>(text[byte]) < 0x80) {
            ++byte;
            ++unit;
        } else {
            unit += unitsOf(decodeUTF8(text, byte));
        }
    }
    m_length = unit;
    m_isASCII = m_length == static_cast<long>(text.size());
    m_isComplete = true;
}

long Utf16Index::length(std::string_view text)
{
    extend(text);
    return m_length;
}

std::size_t Utf16Index::byteOfUnit(std::string_view text, long unit)
{
    extend(text);
    if (unit <= 0)
        return 0;
    if (unit >= m_length)
        return text.size();
    if (m_isASCII)
        return static_cast<std::size_t>(unit);
    auto const isBeyond = [](long wanted, Mark const& mark) { return wanted < mark.unit; };
    auto const& mark = *(std::upper_bound(m_marks.begin(), m_marks.end(), unit, isBeyond) - 1);
    return mark.byte + byteOffsetOfUnit(text.substr(mark.byte), unit - mark.unit);
}

long Utf16Index::unitOfByte(std::string_view text, std::size_t byte)
{
    extend(text);
    if (byte >= text.size())
        return m_length;
    if (m_isASCII)
        return static_cast<long>(byte);
    auto const isBeyond = [](std::size_t wanted, Mark const& mark) { return wanted < mark.byte; };
    auto const& mark = *(std::upper_bound(m_marks.begin(), m_marks.end(), byte, isBeyond) - 1);
    return mark.unit + unitAtByteOffset(text.substr(mark.byte), byte - mark.byte);
}

void Utf16Index::textChangedFrom(std::size_t byte)
{
    while (!m_marks.empty() && m_marks.back().byte > byte)
        m_marks.pop_back();
    m_isComplete = false;
}

}
