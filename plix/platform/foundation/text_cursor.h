#pragma once

#include <plix/platform/base/case_folding.h>

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace plix {

/// A place in a text that is read from the front.
class TextCursor {
public:
    explicit TextCursor(std::string_view text)
        : m_text(text)
    {
    }

    std::string_view rest() const { return m_text; }
    bool isAtEnd() const { return m_text.empty(); }
    char peek() const { return m_text.empty() ? '\0' : m_text.front(); }
    void advance(std::size_t bytes) { m_text.remove_prefix(bytes); }

    void skipBlanks()
    {
        while (!m_text.empty() && isBlank(m_text.front()))
            advance(1);
    }
    bool take(char c)
    {
        bool const isThere = m_text.starts_with(c);
        advance(isThere);
        return isThere;
    }
    /// The text in any case.
    bool takeText(std::string_view text)
    {
        auto const length = foldedPrefixLength(m_text, text);
        if (length == std::string_view::npos)
            return false;
        advance(length);
        return true;
    }
    /// The text in any case, with no letter or digit behind it.
    bool takeWord(std::string_view word)
    {
        auto const length = foldedPrefixLength(m_text, word);
        if (length == std::string_view::npos || (length < m_text.size() && isWordCharacter(m_text[length])))
            return false;
        advance(length);
        return true;
    }
    using Names = std::initializer_list<std::span<std::string const>>;
    /// The index, in its list, of the longest of the names that stands here.
    std::optional<int> takeName(Names lists)
    {
        std::size_t longest = 0;
        int found = -1;
        for (auto const names : lists) {
            for (std::size_t i = 0; i < names.size(); ++i) {
                auto const length = foldedPrefixLength(m_text, names[i]);
                if (length != std::string_view::npos && length > longest) {
                    longest = length;
                    found = static_cast<int>(i);
                }
            }
        }
        if (found < 0)
            return {};
        advance(longest);
        return found;
    }
    struct Number {
        int value;
        int digits;
    };
    /// The number of up to so many digits (nine at most) that stands here.
    std::optional<Number> takeNumber(int mostDigits)
    {
        Number number { 0, 0 };
        while (number.digits < mostDigits && isDigit(peek())) {
            number.value = number.value * 10 + (peek() - '0');
            ++number.digits;
            advance(1);
        }
        return number.digits > 0 ? std::optional(number) : std::nullopt;
    }

    static bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    /// Also each byte of a character beyond ASCII.
    static bool isLetter(char c)
    {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
    }
    static bool isWordCharacter(char c) { return isLetter(c) || isDigit(c); }

private:
    std::string_view m_text;
};

}
