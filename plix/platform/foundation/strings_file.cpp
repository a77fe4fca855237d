#include <plix/platform/foundation/strings_file.h>

#include <plix/platform/base/utf16.h>

#include <algorithm>

namespace plix {

namespace {

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
        || std::string_view("_.$/:-").find(c) != std::string_view::npos;
}

int hexadecimalDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

class StringsReader {
public:
    explicit StringsReader(std::string_view text)
        : m_text(text)
    {
    }

    bool read(std::map<std::string, std::string>& table)
    {
        while (skipBlanks() && m_at < m_text.size()) {
            std::string key, value;
            if (!token(key) || !skipBlanks())
                return false;
            value = key;
            if (take('=') && (!skipBlanks() || !token(value) || !skipBlanks()))
                return false;
            if (!take(';'))
                return fail("a semicolon is missing");
            table.insert_or_assign(std::move(key), std::move(value));
        }
        return m_reason.empty();
    }
    std::string error() const
    {
        auto const read = m_text.substr(0, m_at);
        return "line " + std::to_string(std::ranges::count(read, '\n') + 1) + ": " + m_reason;
    }

private:
    bool fail(char const* reason)
    {
        if (m_reason.empty())
            m_reason = reason;
        return false;
    }
    bool take(char c)
    {
        bool const isThere = m_at < m_text.size() && m_text[m_at] == c;
        m_at += isThere;
        return isThere;
    }

    /// Blanks and comments.
    bool skipBlanks()
    {
        for (;;) {
            while (m_at < m_text.size() && isBlank(m_text[m_at]))
                ++m_at;
            auto const rest = m_text.substr(m_at);
            if (rest.starts_with("//")) {
                m_at = std::min(m_text.find_first_of("\r\n", m_at), m_text.size());
            } else if (rest.starts_with("/*")) {
                auto const end = m_text.find("*/", m_at + 2);
                if (end == std::string_view::npos)
                    return fail("a comment does not end");
                m_at = end + 2;
            } else {
                return true;
            }
        }
    }

    bool token(std::string& value)
    {
        value.clear();
        if (m_at < m_text.size() && (m_text[m_at] == '"' || m_text[m_at] == '\''))
            return quoted(value, m_text[m_at]);
        while (m_at < m_text.size() && isPlain(m_text[m_at])) {
            auto const rest = m_text.substr(m_at);
            if (rest.starts_with("//") || rest.starts_with("/*"))
                break;
            value += m_text[m_at++];
        }
        return !value.empty() || fail("a string is missing");
    }

    bool quoted(std::string& value, char quote)
    {
        for (++m_at; m_at < m_text.size(); ++m_at) {
            auto const c = m_text[m_at];
            if (c == quote) {
                ++m_at;
                flushUnits(value);
                return true;
            }
            if (c == '\\' && m_at + 1 < m_text.size()) {
                ++m_at;
                escape(value);
                continue;
            }
            flushUnits(value);
            value += c;
        }
        return fail("a string does not end");
    }

    /// Stands on the character behind the backslash, and is left on the last of the escape.
    void escape(std::string& value)
    {
        auto const c = m_text[m_at];
        if (c == 'U' || c == 'u') {
            m_units += static_cast<char16_t>(number(16, 4));
            return;
        }
        flushUnits(value);
        if (c >= '0' && c <= '7') {
            --m_at;
            appendUTF8(value, static_cast<char32_t>(number(8, 3)));
            return;
        }
        constexpr std::string_view letters = "nrtabfv";
        constexpr std::string_view characters = "\n\r\t\a\b\f\v";
        auto const known = letters.find(c);
        value += known == std::string_view::npos ? c : characters[known];
    }

    unsigned number(int base, int mostDigits)
    {
        unsigned value = 0;
        for (int i = 0; i < mostDigits && m_at + 1 < m_text.size(); ++i) {
            auto const digit = hexadecimalDigit(m_text[m_at + 1]);
            if (digit < 0 || digit >= base)
                break;
            value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
            ++m_at;
        }
        return value;
    }

    /// Escaped units are joined first, because two of them may be one character.
    void flushUnits(std::string& value)
    {
        if (m_units.empty())
            return;
        value += utf8FromUTF16(m_units);
        m_units.clear();
    }

    std::string_view m_text;
    std::size_t m_at { 0 };
    std::u16string m_units;
    std::string m_reason;
};

}

std::string textOfFile(std::span<std::uint8_t const> bytes)
{
    bool const isBigEndian = bytes.size() >= 2 && bytes[0] == 0xFE && bytes[1] == 0xFF;
    bool const isLittleEndian = bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
    if (isBigEndian || isLittleEndian) {
        std::u16string units;
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
            units += static_cast<char16_t>(isBigEndian ? bytes[i] << 8 | bytes[i + 1] : bytes[i + 1] << 8 | bytes[i]);
        return utf8FromUTF16(units);
    }
    bool const isMarked = bytes.size() >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF;
    return validUTF8({ reinterpret_cast<char const*>(bytes.data()) + (isMarked ? 3 : 0), bytes.size() - (isMarked ? 3 : 0) });
}

std::optional<std::map<std::string, std::string>> parseStringsFile(std::span<std::uint8_t const> bytes, std::string& error)
{
    auto const text = textOfFile(bytes);
    StringsReader reader(text);
    std::map<std::string, std::string> table;
    if (reader.read(table))
        return table;
    error = reader.error();
    return {};
}

}
