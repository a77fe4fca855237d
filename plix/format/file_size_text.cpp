#include <plix/format/file_size_text.h>

#include <plix/format/number_text.h>

#include <cmath>
#include <cstring>

namespace plix {

std::string StringForFileSize(std::uint64_t size)
{
    std::string text;
    if (size <= 0x3FF) {
        appendInteger(text, static_cast<std::int64_t>(size));
        return text += " bytes";
    }
    bool const isKilo = size <= 0xFFFFF;
    bool const isMega = size <= 0x3FFFFFFF;
    double const factor = isKilo ? 0x1p-10 : isMega ? 0x1p-20 : 0x1p-30;
    // Through single precision, which is meant. Its 24 bits times ten stay exact, so that rounding tenths rounds as %.1f does.
    auto const tenths = static_cast<std::int64_t>(std::nearbyint(double { static_cast<float>(size) } * factor * 10));
    appendInteger(text, tenths / 10);
    char const tail[] = { '.', static_cast<char>('0' + tenths % 10), isKilo ? 'K' : isMega ? 'M' : 'G', 'B' };
    return text.append(tail, sizeof tail);
}

}
