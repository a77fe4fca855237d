#include <plix/platform/appkit/Theme.h>

#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>

namespace plix {

namespace {

constexpr float disabledImageFraction = 0.5F;

}

Theme::Theme()
{
    for (auto appearance : { Appearance::light, Appearance::dark }) {
        auto& colors = m_colors[static_cast<std::size_t>(appearance)];
        for (std::size_t role = 0; role < themeRoleCount; ++role) {
            auto const c = themeColor(static_cast<ThemeRole>(role), appearance);
            colors[role] = NSColor::colorWithCalibratedRed(c.red, c.green, c.blue, c.alpha);
        }
    }
}

Theme const& Theme::current()
{
    static auto const& s_theme = *new Theme;
    return s_theme;
}

Ref<NSColor> const& Theme::color(ThemeRole role) const
{
    return m_colors[static_cast<std::size_t>(currentAppearance())][static_cast<std::size_t>(role)];
}

Ref<NSColor> Theme::selectionColor(ControlLook const& look) const
{
    return look.isWindowActive && look.isFocused ? NSColor::alternateSelectedControlColor()
                                                 : NSColor::secondarySelectedControlColor();
}

Ref<NSColor> Theme::selectionTextColor(ControlLook const& look) const
{
    return look.isWindowActive && look.isFocused ? NSColor::alternateSelectedControlTextColor() : NSColor::controlTextColor();
}

void Theme::fill(Rect rect, NSColor const& color) const
{
    GraphicsState const saved;
    color.setFill();
    NSRectFillUsingOperation(rect, NSCompositeSourceOver);
}

void Theme::fill(Rect rect, ThemeRole role) const
{
    fill(rect, *color(role));
}

void Theme::drawImage(NSImage const& image, Rect rect, bool isEnabled)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || rect.isEmpty())
        return;
    GraphicsState const saved(context);
    if (context->isFlipped() != image.isFlipped()) {
        context->translateBy(0, rect.y + rect.maxY());
        context->scaleBy(1, -1);
    }
    image.drawInRect(rect, Rect {}, NSCompositeSourceOver, isEnabled ? 1.F : disabledImageFraction);
}

Ref<NSBezierPath> Theme::roundedRect(Rect rect, float radius)
{
    auto path = NSBezierPath::bezierPath();
    radius = std::min({ radius, rect.width / 2, rect.height / 2 });
    Point const corners[] = { { rect.maxX(), rect.y }, { rect.maxX(), rect.maxY() }, { rect.x, rect.maxY() }, { rect.x, rect.y } };
    path->moveToPoint({ rect.midX(), rect.y });
    for (int index = 0; index < 4; ++index) {
        Point const next = index < 3 ? corners[index + 1] : Point { rect.midX(), rect.y };
        path->appendBezierPathWithArcFromPoint(corners[index], next, radius);
    }
    path->closePath();
    return path;
}

}
