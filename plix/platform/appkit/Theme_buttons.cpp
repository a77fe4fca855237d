#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/button_layout.h>
#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/appkit/theme_pictures.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

// How much black is in the lower end of a lit face while it is pressed.
constexpr float pressedShade = 0.25F;

struct FaceColors {
    ThemeRole top;
    ThemeRole bottom;
    ThemeRole border;
    ThemeRole edge;
    float shade { 0 };
};

FaceColors faceColors(ButtonLook const& look)
{
    auto const& control = look.control;
    if (!control.isEnabled)
        return { ThemeRole::buttonDisabled, ThemeRole::buttonDisabled, ThemeRole::buttonDisabledBorder,
            ThemeRole::buttonDisabledBorder };
    if ((look.isOn || look.isDefault) && control.isWindowActive && !control.isPressed)
        return { ThemeRole::buttonOnTop, ThemeRole::buttonOnBottom, ThemeRole::buttonOnBorder, ThemeRole::buttonOnBorder };
    if ((look.isOn || look.isDefault) && control.isPressed)
        return { ThemeRole::buttonOnBottom, ThemeRole::buttonOnBottom, ThemeRole::buttonOnBorder, ThemeRole::buttonOnBorder,
            pressedShade };
    if (control.isPressed || look.isOn)
        return { ThemeRole::buttonPressedTop, ThemeRole::buttonPressedBottom, ThemeRole::buttonEdge, ThemeRole::buttonEdge };
    if (control.isHovered)
        return { ThemeRole::buttonHoveredTop, ThemeRole::buttonHoveredBottom, ThemeRole::buttonBorder, ThemeRole::buttonEdge };
    return { ThemeRole::buttonTop, ThemeRole::buttonBottom, ThemeRole::buttonBorder, ThemeRole::buttonEdge };
}

float cornerRadius(NSBezelStyle style, Rect rect)
{
    switch (style) {
    case NSRoundRectBezelStyle:
    case NSRecessedBezelStyle:
        return rect.height / 2;
    case NSCircularBezelStyle:
    case NSHelpButtonBezelStyle:
        return std::min(rect.width, rect.height) / 2;
    case NSShadowlessSquareBezelStyle:
    case NSSmallSquareBezelStyle:
        return 0;
    case NSRegularSquareBezelStyle:
    case NSThickSquareBezelStyle:
    case NSThickerSquareBezelStyle:
    case NSTexturedSquareBezelStyle:
        return 3;
    default:
        return 5;
    }
}

Rect bezelRect(NSBezelStyle style, Rect rect)
{
    if (style != NSCircularBezelStyle && style != NSHelpButtonBezelStyle)
        return rect;
    float const side = std::min(rect.width, rect.height);
    return { std::round(rect.midX() - side / 2), std::round(rect.midY() - side / 2), side, side };
}

// The corners on sides that join another segment are square.
Ref<NSBezierPath> facePath(Rect rect, float radius, ButtonLook const& look)
{
    if (radius <= 0)
        return NSBezierPath::bezierPathWithRect(rect);
    if (!look.joinsLeft && !look.joinsRight)
        return Theme::roundedRect(rect, radius);
    radius = std::min({ radius, rect.width / 2, rect.height / 2 });
    float const left = look.joinsLeft ? 0 : radius;
    float const right = look.joinsRight ? 0 : radius;
    auto path = NSBezierPath::bezierPath();
    path->moveToPoint({ rect.x + left, rect.y });
    auto const corner = [&](Point at, Point next, float cornerRadius) {
        if (cornerRadius > 0)
            path->appendBezierPathWithArcFromPoint(at, next, cornerRadius);
        else
            path->lineToPoint(at);
    };
    corner({ rect.maxX(), rect.y }, { rect.maxX(), rect.maxY() }, right);
    corner({ rect.maxX(), rect.maxY() }, { rect.x, rect.maxY() }, right);
    corner({ rect.x, rect.maxY() }, { rect.x, rect.y }, left);
    corner({ rect.x, rect.y }, { rect.maxX(), rect.y }, left);
    path->closePath();
    return path;
}

// Rows of one colour each: faces are a few dozen points high.
void fillVertically(Rect rect, NSColor const& top, NSColor const& bottom)
{
    int const steps = std::max(1, static_cast<int>(std::ceil(rect.height)));
    float const height = rect.height / static_cast<float>(steps);
    for (int i = 0; i < steps; ++i) {
        float const share = steps > 1 ? static_cast<float>(i) / static_cast<float>(steps - 1) : 0;
        top.blendedColorWithFraction(share, bottom)->setFill();
        NSRectFill({ rect.x, rect.y + static_cast<float>(i) * height, rect.width, height });
    }
}

void drawCheckMark(Rect rect, NSColor const& color)
{
    auto const mark = NSBezierPath::bezierPath();
    float const unit = rect.width / 14;
    mark->moveToPoint({ rect.x + 3.5F * unit, rect.y + 7.2F * unit });
    mark->lineToPoint({ rect.x + 6 * unit, rect.y + 10 * unit });
    mark->lineToPoint({ rect.x + 10.6F * unit, rect.y + 4 * unit });
    mark->setLineWidth(1.9F * unit);
    mark->setLineCapStyle(NSRoundLineCapStyle);
    mark->setLineJoinStyle(NSRoundLineJoinStyle);
    color.setStroke();
    mark->stroke();
}

void drawFace(Theme const& theme, Rect rect, ButtonLook const& look)
{
    auto const colors = faceColors(look);
    float const radius = cornerRadius(look.style, rect);
    GraphicsState const saved;
    {
        GraphicsState const clipped;
        facePath(rect, radius, look)->addClip();
        auto const bottom = theme.color(colors.bottom)->blendedColorWithFraction(colors.shade, *NSColor::blackColor());
        fillVertically(rect, *theme.color(colors.top), *bottom);
        // The lower edge is darker, as if light came from above.
        if (colors.edge != colors.border && radius < rect.height / 2)
            theme.fill({ rect.x, rect.maxY() - 1, rect.width, 1 }, colors.edge);
    }
    auto const outline = facePath(NSInsetRect(rect, 0.5F, 0.5F), std::max(0.F, radius - 0.5F), look);
    outline->setLineWidth(1);
    theme.color(colors.border)->setStroke();
    outline->stroke();
}

void drawFaceFocus(Rect rect, ButtonLook const& look)
{
    GraphicsState const saved;
    float const radius = cornerRadius(look.style, rect);
    auto const ring = facePath(NSInsetRect(rect, 1, 1), std::max(0.F, radius - 1), look);
    ring->setLineWidth(2);
    NSColor::alternateSelectedControlColor()->colorWithAlphaComponent(look.isOn || look.isDefault ? 0.9F : 0.75F)->setStroke();
    if (look.isOn || look.isDefault)
        NSColor::colorWithCalibratedWhite(1, 0.75F)->setStroke();
    ring->stroke();
}

void drawIndicatorMark(Rect rect, ButtonFace face, int state, NSColor const& ink)
{
    GraphicsState const saved;
    ink.setFill();
    if (state == NSMixedState) {
        Theme::roundedRect({ rect.x + 3, std::round(rect.midY()) - 1, rect.width - 6, 2 }, 1)->fill();
    } else if (face == ButtonFace::radio) {
        float const inset = std::round(rect.width * 0.32F);
        NSBezierPath::bezierPathWithOvalInRect(NSInsetRect(rect, inset, inset))->fill();
    } else {
        drawCheckMark(rect, ink);
    }
}

}

void Theme::drawButtonBezel(Rect frame, ButtonLook const& look) const
{
    Rect const rect = bezelRect(look.style, frame);
    if (rect.isEmpty())
        return;
    // The ring is drawn over the face, which looks the same without it.
    ButtonLook face = look;
    face.control.isFocused = false;
    if (!drawThemePicture(rect, { .look = face }, [&](Rect place) { drawFace(*this, place, face); }))
        drawFace(*this, rect, face);
    if (look.control.isFocused && look.control.isWindowActive)
        drawFaceFocus(rect, look);
}

Ref<NSColor> const& Theme::buttonTextColor(ButtonLook const& look) const
{
    if (!look.control.isEnabled)
        return color(ThemeRole::buttonDisabledText);
    bool const isLit = (look.isOn || look.isDefault) && (look.control.isWindowActive || look.control.isPressed);
    return color(isLit ? ThemeRole::buttonOnText : ThemeRole::buttonText);
}

void Theme::drawIndicator(Rect rect, ButtonFace face, int state, ButtonLook const& wanted) const
{
    ButtonLook look = wanted;
    look.isOn = state != NSOffState;
    look.isDefault = false;
    look.style = face == ButtonFace::radio ? NSCircularBezelStyle : NSTexturedSquareBezelStyle;
    drawButtonBezel(rect, look);
    if (state == NSOffState)
        return;
    look.control.isFocused = false;
    auto const& ink = *buttonTextColor(look);
    if (!drawThemePicture(
            rect, { .look = look, .face = face, .state = state }, [&](Rect place) { drawIndicatorMark(place, face, state, ink); }))
        drawIndicatorMark(rect, face, state, ink);
}

void Theme::drawDisclosureTriangle(Rect rect, bool isOpen, ControlLook const& look) const
{
    drawDisclosureTriangle(rect, isOpen, *color(look.isEnabled ? ThemeRole::secondaryText : ThemeRole::buttonDisabledText));
}

void Theme::drawDisclosureTriangle(Rect rect, bool isOpen, NSColor const& color)
{
    constexpr float halfBase = 4.5F;
    constexpr float reach = 7;
    GraphicsState const saved;
    color.setFill();
    auto const triangle = NSBezierPath::bezierPath();
    Point const middle { std::round(rect.midX()), std::round(rect.midY()) };
    if (isOpen) {
        triangle->moveToPoint({ middle.x - halfBase, middle.y - reach / 2 });
        triangle->lineToPoint({ middle.x + halfBase, middle.y - reach / 2 });
        triangle->lineToPoint({ middle.x, middle.y + reach / 2 });
    } else {
        triangle->moveToPoint({ middle.x - reach / 2, middle.y - halfBase });
        triangle->lineToPoint({ middle.x + reach / 2, middle.y });
        triangle->lineToPoint({ middle.x - reach / 2, middle.y + halfBase });
    }
    triangle->closePath();
    triangle->fill();
}

}
