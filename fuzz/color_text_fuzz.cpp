#include "fuzz.h"

#include <plix/format/color_text.h>

using namespace plix;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    auto const color = colorComponentsForText(text);
    for (float const component : { color.red, color.green, color.blue, color.alpha })
        FUZZ_CHECK(component >= 0 && component <= 1);
    auto const written = textForColorComponents(color);
    FUZZ_CHECK(written.size() == 31);
    FUZZ_CHECK(textForColorComponents(colorComponentsForText(written)) == written);
    return 0;
}
