#include <plix/platform/appkit/button_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float imageGap = 4;
constexpr float indicatorGap = 5;

bool isBeside(NSCellImagePosition position)
{
    return position == NSImageLeft || position == NSImageRight;
}

bool isStacked(NSCellImagePosition position)
{
    return position == NSImageAbove || position == NSImageBelow;
}

ButtonContent shownContent(ButtonContent content)
{
    if (content.position == NSNoImage)
        content.image = {};
    if (content.position == NSImageOnly)
        content.title = {};
    return content;
}

float gapOf(ButtonContent const& content)
{
    bool const hasBoth = content.image.width > 0 && content.title.width > 0;
    return hasBoth && (isBeside(content.position) || isStacked(content.position)) ? imageGap : 0;
}

Size scaledDown(Size size, float width, float height)
{
    if (size.width <= 0 || size.height <= 0)
        return {};
    float const scale = std::min({ 1.F, width / size.width, height / size.height });
    return scale > 0 ? Size { size.width * scale, size.height * scale } : Size {};
}

float alignedStart(NSTextAlignment alignment, float start, float room, float width)
{
    if (alignment == NSLeftTextAlignment || alignment == NSNaturalTextAlignment)
        return start;
    return std::round(alignment == NSRightTextAlignment ? start + room - width : start + (room - width) / 2);
}

Rect centered(Size size, Rect area, NSTextAlignment alignment)
{
    return { alignedStart(alignment, area.x, area.width, size.width), std::round(area.y + (area.height - size.height) / 2),
        size.width, size.height };
}

ButtonContentPlan planBeside(ButtonContent const& content, Rect area, float gap)
{
    Size const image = scaledDown(content.image, area.width, area.height);
    float const titleWidth = std::min(content.title.width, std::max(0.F, area.width - image.width - gap));
    float const width = image.width + gap + titleWidth;
    float const x = alignedStart(content.alignment, area.x, area.width, width);
    bool const isLeft = content.position == NSImageLeft;
    float const titleHeight = std::min(content.title.height, area.height);
    Rect const imageRect { isLeft ? x : x + titleWidth + gap, std::round(area.y + (area.height - image.height) / 2), image.width,
        image.height };
    Rect const titleRect { isLeft ? x + image.width + gap : x, std::round(area.y + (area.height - titleHeight) / 2), titleWidth,
        titleHeight };
    return { titleRect, imageRect };
}

ButtonContentPlan planStacked(ButtonContent const& content, Rect area, float gap)
{
    float const titleHeight = std::min(content.title.height, area.height);
    Size const image = scaledDown(content.image, area.width, std::max(0.F, area.height - titleHeight - gap));
    float const height = image.height + gap + titleHeight;
    float const y = std::round(area.y + (area.height - height) / 2);
    bool const isAbove = content.position == NSImageAbove;
    Size const title { std::min(content.title.width, area.width), titleHeight };
    Rect const imageRow { area.x, isAbove ? y : y + titleHeight + gap, area.width, image.height };
    Rect const titleRow { area.x, isAbove ? y + image.height + gap : y, area.width, titleHeight };
    return { centered(title, titleRow, content.alignment), centered(image, imageRow, content.alignment) };
}

}

ButtonContentPlan buttonContentPlan(ButtonContent const& wanted, Rect area)
{
    auto const content = shownContent(wanted);
    float const gap = gapOf(content);
    if (isBeside(content.position))
        return planBeside(content, area, gap);
    if (isStacked(content.position))
        return planStacked(content, area, gap);
    Size const title { std::min(content.title.width, area.width), std::min(content.title.height, area.height) };
    return { centered(title, area, content.alignment),
        centered(scaledDown(content.image, area.width, area.height), area, content.alignment) };
}

Size buttonContentSize(ButtonContent const& wanted)
{
    auto const content = shownContent(wanted);
    float const gap = gapOf(content);
    if (isBeside(content.position))
        return { content.title.width + gap + content.image.width, std::max(content.title.height, content.image.height) };
    if (isStacked(content.position))
        return { std::max(content.title.width, content.image.width), content.title.height + gap + content.image.height };
    return { std::max(content.title.width, content.image.width), std::max(content.title.height, content.image.height) };
}

float indicatorSide(NSControlSize size)
{
    constexpr float sides[] { 14, 12, 10 };
    return sides[std::clamp<int>(size, 0, 2)];
}

Rect indicatorRect(Rect frame, NSControlSize size)
{
    float const side = indicatorSide(size);
    return { frame.x + 1, std::round(frame.y + (frame.height - side) / 2), side, side };
}

CellInsets buttonInsets(ButtonFace face, NSBezelStyle style, NSControlSize size)
{
    int const step = std::clamp<int>(size, 0, 2);
    switch (face) {
    case ButtonFace::plain:
        return {};
    case ButtonFace::checkBox:
    case ButtonFace::radio:
        return { indicatorSide(size) + 1 + indicatorGap, 1, 1, 1 };
    case ButtonFace::bezel:
        break;
    }
    float const sides[] { 12, 9, 7 };
    float const rims[] { 4, 2, 1 };
    switch (style) {
    case NSRoundedBezelStyle:
        return { sides[step], rims[step], sides[step], rims[step] };
    case NSRoundRectBezelStyle:
    case NSRecessedBezelStyle:
    case NSTexturedRoundedBezelStyle:
    case NSTexturedSquareBezelStyle:
        return { sides[step] - 3, rims[step] - 1, sides[step] - 3, rims[step] - 1 };
    case NSDisclosureBezelStyle:
    case NSRoundedDisclosureBezelStyle:
    case NSCircularBezelStyle:
    case NSHelpButtonBezelStyle:
        return { 3, 3, 3, 3 };
    default:
        return { 5, 3, 5, 3 };
    }
}

}
