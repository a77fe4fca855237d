#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/image_layout.h>
#include <plix/platform/appkit/progress_layout.h>
#include <plix/platform/appkit/theme_pictures.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace plix {

namespace {

constexpr float boxRadius = 4;

void strokeRounded(Rect rect, float radius, NSColor const& color)
{
    GraphicsState const saved;
    auto const path = Theme::roundedRect(NSInsetRect(rect, 0.5F, 0.5F), radius);
    // Hosts may have set another default.
    path->setLineWidth(1);
    color.setStroke();
    path->stroke();
}

void fillRounded(Rect rect, float radius, NSColor const& color)
{
    GraphicsState const saved;
    color.setFill();
    Theme::roundedRect(rect, radius)->fill();
}

}

// MARK: images

void Theme::drawImageFrame(Rect rect, NSImageFrameStyle style, ControlLook const& look) const
{
    auto const& edge = color(look.isPressed ? ThemeRole::buttonOnBorder : ThemeRole::fieldBorder);
    switch (style) {
    case NSImageFrameNone:
        if (look.isPressed)
            strokeRounded(rect, 0, *edge);
        return;
    case NSImageFramePhoto:
        fill({ rect.x + 2, rect.y + 2, rect.width - 2, rect.height - 2 }, ThemeRole::fieldShade);
        fill({ rect.x, rect.y, rect.width - 2, rect.height - 2 }, *NSColor::textBackgroundColor());
        strokeRounded({ rect.x, rect.y, rect.width - 2, rect.height - 2 }, 0, *edge);
        return;
    case NSImageFrameGrayBezel:
        fill(NSInsetRect(rect, 1, 1), ThemeRole::fieldDisabled);
        strokeRounded(rect, 0, *edge);
        return;
    case NSImageFrameGroove:
        drawBorder(NSGrooveBorder, rect);
        return;
    case NSImageFrameButton:
        drawButtonBezel(rect, { .control = look });
        return;
    }
}

// MARK: boxes

namespace {

bool isSquare(NSBorderType border)
{
    return border == NSLineBorder || border == NSBezelBorder;
}

void drawBoxBorder(Theme const& theme, Rect border, NSBorderType type)
{
    auto const& color = theme.color(type == NSBezelBorder ? ThemeRole::fieldBorderTop : ThemeRole::line);
    strokeRounded(border, isSquare(type) ? 0 : boxRadius, *color);
}

}

void Theme::drawBox(Rect border, BoxLook const& look, Rect title) const
{
    float const radius = isSquare(look.border) ? 0 : boxRadius;
    if (look.fill) {
        fillRounded(border, radius, *look.fill);
    } else if (look.isShaded && look.border != NSNoBorder) {
        auto const shade = [&](Rect place) { fillRounded(place, radius, *color(ThemeRole::fieldShade)); };
        ThemePicture const wanted { .kind = ThemePicture::Kind::box, .variant = radius > 0 ? 1 : 0 };
        if (!drawThemePicture(border, wanted, shade))
            shade(border);
    }
    if (look.border == NSNoBorder)
        return;
    // All but the title's place.
    std::vector<Rect> parts;
    if (!title.isEmpty()) {
        bool const isAtTop = title.midY() > border.midY();
        parts = { { border.x, border.y, title.x - border.x, border.height },
            { title.maxX(), border.y, std::max(0.F, border.maxX() - title.maxX()), border.height },
            isAtTop ? Rect { title.x, border.y, title.width, std::max(0.F, title.y - border.y) }
                    : Rect { title.x, title.maxY(), title.width, std::max(0.F, border.maxY() - title.maxY()) } };
    }
    ThemePicture const wanted { .kind = ThemePicture::Kind::box, .variant = 2 + static_cast<int>(look.border) };
    if (drawThemePicture(
            border, wanted, [&](Rect place) { drawBoxBorder(*this, place, look.border); }, parts))
        return;
    GraphicsState const saved;
    if (!parts.empty()) {
        auto const clip = NSBezierPath::bezierPath();
        for (auto const& part : parts)
            clip->appendBezierPathWithRect(NSInsetRect(part, 0, -1));
        clip->addClip();
    }
    drawBoxBorder(*this, border, look.border);
}

void Theme::drawSeparator(Rect rect) const
{
    if (rect.width >= rect.height)
        fill({ rect.x, std::floor(rect.midY()), rect.width, 1 }, ThemeRole::line);
    else
        fill({ std::floor(rect.midX()), rect.y, 1, rect.height }, ThemeRole::line);
}

void Theme::drawSplitDivider(Rect rect, bool isVertical, bool isPaneSplitter) const
{
    float const thickness = isVertical ? rect.width : rect.height;
    if (thickness < 1)
        return;
    if (!isPaneSplitter) {
        fill(rect, ThemeRole::barBackground);
        if (thickness > 2) {
            fill(isVertical ? Rect { rect.x, rect.y, 1, rect.height } : Rect { rect.x, rect.y, rect.width, 1 }, ThemeRole::line);
            fill(isVertical ? Rect { rect.maxX() - 1, rect.y, 1, rect.height } : Rect { rect.x, rect.maxY() - 1, rect.width, 1 },
                ThemeRole::line);
        } else {
            fill(rect, ThemeRole::line);
        }
    }
    if (thickness < 5)
        return;
    // Three dots say that it can be dragged.
    Point const middle { std::round(rect.midX()), std::round(rect.midY()) };
    for (int i = -1; i <= 1; ++i) {
        float const along = static_cast<float>(i) * 5;
        Rect const dot = isVertical ? Rect { rect.x + (thickness - 3) / 2, middle.y + along - 1.5F, 3, 3 }
                                    : Rect { middle.x + along - 1.5F, rect.y + (thickness - 3) / 2, 3, 3 };
        fillRounded(dot, 1.5F, *color(ThemeRole::scrollerKnob));
    }
}

// MARK: progress

void Theme::drawProgressSlot(Rect rect, bool isBezeled) const
{
    auto const draw = [&](Rect place) {
        // Seen on every ground that text is readable on.
        fillRounded(place, place.height / 2, *NSColor::controlTextColor()->colorWithAlphaComponent(0.1F));
        if (isBezeled)
            strokeRounded(place, place.height / 2, *color(ThemeRole::fieldBorder));
    };
    if (!drawThemePicture(rect, { .kind = ThemePicture::Kind::progressSlot, .variant = isBezeled ? 1 : 0 }, draw))
        draw(rect);
}

void Theme::drawProgressBar(Rect done, ControlLook const& look) const
{
    if (done.isEmpty())
        return;
    auto const& ink = color(look.isWindowActive ? ThemeRole::buttonOnTop : ThemeRole::scrollerKnob);
    // Only its ends are round: a bar of every width comes from two small pictures and what is between them.
    float const end = std::ceil(done.height / 2);
    if (done.width < 2 * end + 1) {
        fillRounded(done, done.height / 2, *ink);
        return;
    }
    Rect const whole { 0, 0, 2 * end, done.height };
    ThemePicture const wanted { .kind = ThemePicture::Kind::progressBar, .variant = look.isWindowActive ? 1 : 0 };
    auto const drawEnd = [&](float x, float from) {
        Rect const place { x - from, done.y, whole.width, whole.height };
        Rect const part { x, done.y, end, done.height };
        return drawThemePicture(
            place, wanted, [&](Rect rect) { fillRounded(rect, rect.height / 2, *ink); }, std::span(&part, 1));
    };
    if (!drawEnd(done.x, 0) || !drawEnd(done.maxX() - end, end))
        fillRounded(done, done.height / 2, *ink);
    else
        fill({ done.x + end, done.y, done.width - 2 * end, done.height }, *ink);
}

void Theme::drawProgressWheel(Rect rect, double seconds, bool turns, ControlLook const&) const
{
    GraphicsState const saved;
    float const radius = rect.width / 2;
    auto const ink = color(ThemeRole::secondaryText);
    for (int spoke = 0; spoke < progressSpokes; ++spoke) {
        double const angle = spoke * 2 * 3.14159265358979323846 / progressSpokes;
        auto const x = static_cast<float>(std::sin(angle));
        auto const y = static_cast<float>(-std::cos(angle));
        auto const line = NSBezierPath::bezierPath();
        line->moveToPoint({ rect.midX() + x * radius * 0.5F, rect.midY() + y * radius * 0.5F });
        line->lineToPoint({ rect.midX() + x * radius * 0.9F, rect.midY() + y * radius * 0.9F });
        line->setLineWidth(std::max(1.F, radius / 6));
        line->setLineCapStyle(NSRoundLineCapStyle);
        double const strength = turns ? progressSpokeStrength(spoke, seconds) : 0.25;
        ink->colorWithAlphaComponent(static_cast<float>(strength))->setStroke();
        line->stroke();
    }
}

}
