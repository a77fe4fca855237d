#include <plix/platform/graphics/text_lines.h>

namespace plix {

namespace {

/// How many bytes the line end at this place has; 0 where there is none.
std::size_t lineEndAt(std::string_view text, std::size_t byte)
{
    constexpr std::string_view paragraphSeparator = "\xE2\x80\xA9";
    if (text[byte] == '\n')
        return 1;
    if (text[byte] == '\r')
        return byte + 1 < text.size() && text[byte + 1] == '\n' ? 2 : 1;
    return text.substr(byte).starts_with(paragraphSeparator) ? paragraphSeparator.size() : 0;
}

}

ParagraphBytes paragraphAt(std::string_view text, std::size_t start)
{
    for (std::size_t byte = start;; ++byte) {
        byte = text.find_first_of("\n\r\xE2", byte);
        if (byte == std::string_view::npos)
            return { start, text.size(), text.size() };
        if (auto const length = lineEndAt(text, byte))
            return { start, byte, byte + length };
    }
}

}
