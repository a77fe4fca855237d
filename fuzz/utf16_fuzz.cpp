#include "fuzz.h"

#include <plix/platform/base/utf16.h>

#include <string_view>

using namespace plix;

static void checkPositions(std::string_view text)
{
    auto const length = utf16Length(text);
    FUZZ_CHECK(length >= 0 && static_cast<std::size_t>(length) <= text.size());
    long unit = 0;
    for (std::size_t byte = 0; byte < text.size();) {
        FUZZ_CHECK(unitAtByteOffset(text, byte) == unit);
        FUZZ_CHECK(byteOffsetOfUnit(text, unit) == byte);
        auto const before = byte;
        auto const character = decodeUTF8(text, byte);
        FUZZ_CHECK(byte > before && byte <= text.size());
        FUZZ_CHECK(character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF));
        unit += character > 0xFFFF ? 2 : 1;
    }
    FUZZ_CHECK(unit == length);
    FUZZ_CHECK(byteOffsetOfUnit(text, length) == text.size());
    FUZZ_CHECK(unitAtByteOffset(text, text.size()) == length);
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    // The walk is quadratic.
    if (size > 4096)
        return 0;
    checkPositions(text);

    auto const valid = validUTF8(text);
    FUZZ_CHECK(isValidUTF8(valid));
    FUZZ_CHECK(isValidUTF8(text) == (valid == text));
    FUZZ_CHECK(utf16Length(valid) == utf16Length(text));
    auto const units = utf16FromUTF8(text);
    FUZZ_CHECK(static_cast<long>(units.size()) == utf16Length(text));
    FUZZ_CHECK(utf8FromUTF16(units) == valid);
    return 0;
}
