#include <plix/format/color_text.h>

#include <plix/format/number_text.h>
#include <plix/platform/base/ObjectValue.h>

#include <algorithm>
#include <array>

namespace plix {

namespace {

// Clamped before it becomes a float, which it might not fit.
float component(std::string_view text)
{
    double const value = doubleValue(text);
    return value > 0 ? static_cast<float>(std::min(value, 1.0)) : 0;
}

}

std::string textForColorComponents(ColorComponents const& color)
{
    std::string text;
    for (float const value : { color.red, color.green, color.blue, color.alpha }) {
        if (!text.empty())
            text += ',';
        appendFixed(text, value, 5);
    }
    return text;
}

ColorComponents colorComponentsForText(std::optional<std::string_view> text)
{
    if (!text)
        return {};
    std::array<float, 4> components {};
    auto rest = *text;
    for (std::size_t i = 0; i < components.size(); ++i) {
        auto const comma = rest.find(',');
        if (comma == std::string_view::npos && i + 1 < components.size())
            return {};
        components[i] = component(rest.substr(0, comma));
        rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
    }
    return { components[0], components[1], components[2], components[3] };
}

}
