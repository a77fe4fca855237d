#include <plix/platform/foundation/property_list.h>

#include <array>

namespace plix {

namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noDigit = 0xFF;

constexpr auto digitOfLetter = [] {
    std::array<std::uint8_t, 256> table {};
    table.fill(noDigit);
    for (std::size_t i = 0; i < letters.size(); ++i)
        table[static_cast<unsigned char>(letters[i])] = static_cast<std::uint8_t>(i);
    return table;
}();

}

std::string base64(std::span<std::uint8_t const> bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        auto const count = std::min<std::size_t>(bytes.size() - i, 3);
        std::uint32_t group = 0;
        for (std::size_t j = 0; j < 3; ++j)
            group = group << 8 | (j < count ? bytes[i + j] : 0U);
        for (std::size_t j = 0; j < 4; ++j)
            text += j <= count ? letters[group >> (18 - 6 * j) & 63U] : '=';
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> bytesOfBase64(std::string_view text)
{
    std::vector<std::uint8_t> bytes;
    std::uint32_t group = 0;
    std::size_t digits = 0;
    std::size_t padding = 0;
    for (char const c : text) {
        if (c == ' ' || (c >= '\t' && c <= '\r'))
            continue;
        auto const digit = digitOfLetter[static_cast<unsigned char>(c)];
        if (c == '=')
            ++padding;
        else if (digit == noDigit || padding > 0)
            return {};
        group = group << 6 | (c == '=' ? 0U : digit);
        if (++digits % 4 != 0)
            continue;
        for (std::size_t j = 0; j + padding < 3; ++j)
            bytes.push_back(static_cast<std::uint8_t>(group >> (16 - 8 * j)));
    }
    if (digits % 4 != 0 || padding > 2)
        return {};
    return bytes;
}

}
