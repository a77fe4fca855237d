#include <plix/platform/appkit/nib/nib_values.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/property_list.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace plix {

namespace {

template <typename Number> std::optional<Number> wholeNumber(std::string_view text)
{
    Number number {};
    auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc {} || result.ptr != text.data() + text.size())
        return {};
    return number;
}

using FontMaker = Ref<NSFont> (*)(float);

constexpr struct {
    std::string_view name;
    FontMaker maker;
    float size; // 0: the maker's own
} fontsForPurposes[] = {
    { "system", NSFont::systemFontOfSize, 0 },
    { "systemBold", NSFont::boldSystemFontOfSize, 0 },
    { "smallSystem", NSFont::systemFontOfSize, 11 },
    { "smallSystemBold", NSFont::boldSystemFontOfSize, 11 },
    { "miniSystem", NSFont::systemFontOfSize, 9 },
    { "miniSystemBold", NSFont::boldSystemFontOfSize, 9 },
    { "label", NSFont::labelFontOfSize, 0 },
    { "message", NSFont::messageFontOfSize, 0 },
    { "menu", NSFont::menuFontOfSize, 0 },
    { "menuBar", NSFont::menuBarFontOfSize, 0 },
    { "titleBar", NSFont::titleBarFontOfSize, 0 },
    { "utilityTitleBar", NSFont::titleBarFontOfSize, 11 },
    { "palette", NSFont::paletteFontOfSize, 0 },
    { "toolTip", NSFont::toolTipsFontOfSize, 0 },
    { "controlContent", NSFont::controlContentFontOfSize, 0 },
    { "cellTitle", NSFont::controlContentFontOfSize, 12 },
    { "user", NSFont::userFontOfSize, 0 },
    { "userFixedPitch", NSFont::userFixedPitchFontOfSize, 0 },
    { "fixedUser", NSFont::userFixedPitchFontOfSize, 0 },
};

}

std::optional<bool> nibFlag(std::string_view text)
{
    if (text == "YES")
        return true;
    if (text == "NO")
        return false;
    return {};
}

std::optional<double> nibNumber(std::string_view text)
{
    auto const number = wholeNumber<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<long> nibInteger(std::string_view text)
{
    auto const number = wholeNumber<std::int32_t>(text);
    return number ? std::optional<long>(*number) : std::nullopt;
}

std::optional<std::string> nibString(CFXMLTree const& element)
{
    auto text = element.text();
    auto const* encoded = element.node().attribute("base64-UTF8");
    if (!encoded || *encoded != "YES")
        return text;
    std::erase_if(text, [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
    text.append((4 - text.size() % 4) % 4, '='); // written without its padding
    auto const bytes = bytesOfBase64(text);
    if (!bytes)
        return {};
    std::string decoded(bytes->begin(), bytes->end());
    return isValidUTF8(decoded) ? std::optional(decoded) : std::nullopt;
}

Ref<NSFont> nibFont(CFXMLTree const& element)
{
    float size = 0;
    if (auto const* written = element.node().attribute("size")) {
        auto const number = nibNumber(*written);
        if (!number || *number < 0 || *number > 10000)
            return nullptr;
        size = static_cast<float>(*number);
    }
    if (auto const* purpose = element.node().attribute("metaFont")) {
        auto const* found = std::ranges::find(fontsForPurposes, *purpose, [](auto const& font) { return font.name; });
        if (found != std::end(fontsForPurposes))
            return found->maker(size > 0 ? size : found->size);
    }
    auto const* name = element.node().attribute("name");
    auto font = name ? NSFont::fontWithName(*name, size) : nullptr;
    return font ? font : NSFont::systemFontOfSize(size);
}

Ref<NSColor> nibColor(CFXMLTree const& element)
{
    auto const& node = element.node();
    if (auto const* name = node.attribute("name"))
        return NSColor::colorWithCatalogName("System", *name);
    bool isDamaged = false;
    auto const component = [&](std::string_view attribute, double otherwise) {
        auto const* written = node.attribute(attribute);
        auto const number = written ? nibNumber(*written) : otherwise;
        isDamaged = isDamaged || !number;
        return static_cast<float>(std::clamp(number.value_or(0), 0.0, 1.0));
    };
    auto const* space = node.attribute("colorSpace");
    bool const isDevice = space && space->starts_with("device");
    float const alpha = component("alpha", 1);
    Ref<NSColor> color;
    if (node.attribute("white")) {
        float const white = component("white", 0);
        color = isDevice ? NSColor::colorWithDeviceWhite(white, alpha) : NSColor::colorWithCalibratedWhite(white, alpha);
    } else if (node.attribute("cyan")) {
        float const light = 1 - component("black", 0);
        color = NSColor::colorWithDeviceRed(
            (1 - component("cyan", 0)) * light, (1 - component("magenta", 0)) * light, (1 - component("yellow", 0)) * light, alpha);
    } else {
        float const red = component("red", 0);
        float const green = component("green", 0);
        float const blue = component("blue", 0);
        color = isDevice ? NSColor::colorWithDeviceRed(red, green, blue, alpha)
                         : NSColor::colorWithCalibratedRed(red, green, blue, alpha);
    }
    return isDamaged ? nullptr : color;
}

}
