// Draws the library's named images, at 1x and 2x, into the folder that is given. `make resources` runs it; the results are in the
// repository.

#include <plix/drawing/bezier_path_additions.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace plix {
namespace {

/// A picture's name, its size in points, and what draws it into an unflipped image of that size.
struct Resource {
    std::string name;
    Size size;
    void (*draw)(Size);
};

void setGrey(float white, float alpha)
{
    NSColor::colorWithCalibratedWhite(white, alpha)->set();
}

Ref<NSBezierPath> polygon(std::vector<Point> const& points)
{
    auto path = NSBezierPath::bezierPath();
    path->appendBezierPathWithPoints(points);
    path->closePath();
    return path;
}

void strokeChevron(Point start, Point tip, Point end, float width)
{
    auto const path = NSBezierPath::bezierPath();
    path->moveToPoint(start);
    path->lineToPoint(tip);
    path->lineToPoint(end);
    path->setLineWidth(width);
    path->setLineCapStyle(NSRoundLineCapStyle);
    path->setLineJoinStyle(NSRoundLineJoinStyle);
    path->stroke();
}

void drawKnob(Size size)
{
    setGrey(0.25F, 0.85F);
    float const middle = size.width / 2;
    strokeChevron({ middle - 2.5F, 7.5F }, { middle, 10 }, { middle + 2.5F, 7.5F }, 1.4F);
    strokeChevron({ middle - 2.5F, 4.5F }, { middle, 2 }, { middle + 2.5F, 4.5F }, 1.4F);
}

void drawExpanded(Size)
{
    setGrey(0.42F, 1);
    polygon({ { 1, 8 }, { 10, 8 }, { 5.5F, 2.5F } })->fill();
}

void drawCollapsed(Size)
{
    setGrey(0.42F, 1);
    polygon({ { 3, 10 }, { 3, 1 }, { 8.5F, 5.5F } })->fill();
}

/// The pill behind a pop-up's title: the whole one is drawn and a slice of it shows through.
void drawPill(Size slice, float offset, float alpha)
{
    float const capWidth = slice.width;
    float const inset = 1;
    float const radius = slice.height / 2 - inset;
    Rect const pill { offset + 1, inset, 3 * capWidth - 2, slice.height - 2 * inset };
    auto const path = NSBezierPath::bezierPath();
    path->appendBezierPathWithArcWithCenter({ pill.x + radius, pill.y + radius }, radius, 90, 270);
    path->appendBezierPathWithArcWithCenter({ pill.maxX() - radius, pill.y + radius }, radius, 270, 90);
    path->closePath();
    setGrey(0.1F, alpha);
    path->fill();
}

constexpr float hoverAlpha = 0.42F;
constexpr float pressedAlpha = 0.68F;

void drawLeftHover(Size size)
{
    drawPill(size, 0, hoverAlpha);
}
void drawMiddleHover(Size size)
{
    drawPill(size, -size.width, hoverAlpha);
}
void drawRightHover(Size size)
{
    drawPill(size, -2 * size.width, hoverAlpha);
}
void drawLeftPressed(Size size)
{
    drawPill(size, 0, pressedAlpha);
}
void drawMiddlePressed(Size size)
{
    drawPill(size, -size.width, pressedAlpha);
}
void drawRightPressed(Size size)
{
    drawPill(size, -2 * size.width, pressedAlpha);
}

/// The button centres the image on the title's height, without asking where the title is: it is high up in its image so that it
/// stands beside the middle of the letters.
void drawDownArrow(float white)
{
    setGrey(white, white < 0.5F ? 0.75F : 1.0F);
    polygon({ { 0.5F, 11 }, { 7.5F, 11 }, { 4, 7 } })->fill();
}

void drawBlackArrow(Size)
{
    drawDownArrow(0.1F);
}
void drawWhiteArrow(Size)
{
    drawDownArrow(1.0F);
}

/// Light at the top, darkening quickly through the upper half and slowly through the lower one, so that the middle rows can be
/// stretched.
void drawWindowBackground(Size size)
{
    for (float y = 0; y < size.height; ++y) {
        float const fromTop = 1 - (y + 0.5F) / size.height;
        float const white = fromTop < 0.5F ? 0.93F - 0.20F * fromTop : 0.83F - 0.06F * (fromTop - 0.5F) * 2;
        setGrey(white, 1);
        NSRectFill({ 0, y, size.width, 1 });
    }
    setGrey(0.98F, 1);
    NSRectFill({ 0, size.height - 1, size.width, 1 });
}

void drawResizeIndicator(Size size)
{
    for (float distance : { 3.0F, 7.0F, 11.0F }) {
        for (auto const [offset, white, alpha] : { std::array { -0.75F, 1.0F, 0.6F }, std::array { 0.0F, 0.25F, 0.6F } }) {
            setGrey(white, alpha);
            auto const line = NSBezierPath::bezierPath();
            line->moveToPoint({ size.width - distance, 0.5F + offset });
            line->lineToPoint({ size.width - 0.5F, distance + offset });
            line->setLineWidth(1);
            line->stroke();
        }
    }
}

void fillBands(Rect rect, float radius, std::array<float, 3> lower, std::array<float, 3> upper)
{
    GraphicsState const saved;
    bezierPathWithRoundedRect(rect, radius)->addClip();
    for (float y = 0; y < rect.height; y += 0.5F) {
        float const part = y / rect.height;
        auto const mixed = [&](std::size_t i) { return lower[i] + (upper[i] - lower[i]) * part; };
        NSColor::colorWithCalibratedRed(mixed(0), mixed(1), mixed(2), 1)->set();
        NSRectFill({ rect.x, rect.y + y, rect.width, 0.5F });
    }
}

/// For applications without an icon of their own: a window with a list on a tile.
void drawApplicationIcon(Size)
{
    fillBands({ 4, 4, 56, 56 }, 13, { 0.22F, 0.40F, 0.72F }, { 0.50F, 0.70F, 0.96F });
    setGrey(0, 0.22F);
    bezierPathWithRoundedRect({ 14, 14, 36, 34 }, 4)->fill();
    fillBands({ 14, 16, 36, 33 }, 4, { 0.94F, 0.95F, 0.97F }, { 1, 1, 1 });
    {
        GraphicsState const saved;
        bezierPathWithRoundedRect({ 14, 16, 36, 33 }, 4)->addClip();
        NSColor::colorWithCalibratedRed(0.80F, 0.83F, 0.88F, 1)->set();
        NSRectFill({ 14, 41, 36, 8 });
        NSColor::colorWithCalibratedRed(0.30F, 0.50F, 0.85F, 1)->set();
        NSRectFill({ 14, 31, 36, 5 });
    }
    setGrey(0.72F, 1);
    for (float const y : { 37.5F, 26.5F, 21.5F })
        bezierPathWithRoundedRect({ 18, y, y > 30 ? 20.0F : 26.0F, 2 }, 1)->fill();
    setGrey(1, 1);
    bezierPathWithRoundedRect({ 18, 32.5F, 24, 2 }, 1)->fill();
    for (float const x : { 18.0F, 23.0F, 28.0F })
        bezierPathWithRoundedRect({ x, 43.5F, 3, 3 }, 1.5F)->fill();
}

Resource const resources[] = {
    { "NSApplicationIcon", { 64, 64 }, drawApplicationIcon },
    { "popupknob_small", { 9, 12 }, drawKnob },
    { "expanded", { 11, 11 }, drawExpanded },
    { "collapsed", { 11, 11 }, drawCollapsed },
    // The middle is as wide as the left cap: a pressed pop-up begins its middle at the middle's own width.
    { "chiseledPopUp_LeftCap_MouseOver", { 10, 20 }, drawLeftHover },
    { "chiseledPopUp_Middle_MouseOver", { 10, 20 }, drawMiddleHover },
    { "chiseledPopUp_RightCap_MouseOver", { 10, 20 }, drawRightHover },
    { "chiseledPopUp_LeftCap_MouseDown", { 10, 20 }, drawLeftPressed },
    { "chiseledPopUp_Middle_MouseDown", { 10, 20 }, drawMiddlePressed },
    { "chiseledPopUp_RightCap_MouseDown", { 10, 20 }, drawRightPressed },
    { "chiseledPopUp_DownArrow_Black", { 8, 12 }, drawBlackArrow },
    { "chiseledPopUp_DownArrow_White", { 8, 12 }, drawWhiteArrow },
    { "windowbackground", { 16, 800 }, drawWindowBackground },
    { "resizeindicator", { 12, 12 }, drawResizeIndicator },
};

bool write(NSData const& data, std::string const& path)
{
    auto* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    bool const isWritten = std::fwrite(data.bytes().data(), 1, data.length(), file) == data.length();
    return std::fclose(file) == 0 && isWritten;
}

bool drawAll(std::string const& folder)
{
    for (float const scale : { 1.0F, 2.0F }) {
        NSImage::setDefaultBackingScale(scale);
        for (auto const& resource : resources) {
            auto const image = make<NSImage>(resource.size);
            {
                FocusLock const focus(image);
                resource.draw(resource.size);
            }
            auto const png = image->bitmapAtScale(scale)->representationUsingType(NSPNGFileType);
            auto const path = folder + "/" + resource.name + (scale > 1 ? "@2x" : "") + ".png";
            if (!write(*png, path)) {
                std::fprintf(stderr, "cannot write %s\n", path.c_str());
                return false;
            }
            std::printf("%s\n", path.c_str());
        }
    }
    return true;
}

}
}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: draw_resources FOLDER\n");
        return 2;
    }
    return plix::drawAll(argv[1]) ? 0 : 1;
}
