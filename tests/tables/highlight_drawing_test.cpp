#include <plix/tables/HighlightGradient.h>
#include <plix/tables/highlight_drawing.h>
#include <plix/tables/table_shadows.h>

#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

HighlightPaint paint(ColorComponents const& fill, ColorComponents const& edge, Ref<NSImage> const& gradient = nullptr)
{
    return { NSColor::colorWithDeviceRed(fill.red, fill.green, fill.blue, fill.alpha),
        NSColor::colorWithDeviceRed(edge.red, edge.green, edge.blue, edge.alpha), gradient };
}

HighlightPaint redOnBlack()
{
    return paint(colors::red, colors::black);
}

void drawRowHighlight(RowHighlight const& plan, HighlightPaint const& paint)
{
    HighlightPainter().drawRow(plan, paint);
}

Ref<NSBitmapImageRep> highlight(std::uint32_t style, HighlightPaint const& paint = redOnBlack(), float scale = 1)
{
    auto const plan = rowHighlight({ 0, 0, 60, 20 }, style, HighlightImage::none, 0);
    return renderBitmap(
        { 60, 20 }, scale, [&] { drawRowHighlight(plan, paint); }, colors::white);
}

TEST(RowHighlightDrawing, StandsOnWholePixelsWithItsEdgeAround)
{
    // y grows upwards here: the point that is left free is at the top.
    auto const drawn = highlight(PLIXHighlightRectangle);
    EXPECT_TRUE(areaNear(drawn, { 1, 2, 58, 17 }, colors::red));
    // The edge's inner half is under the fill.
    constexpr ColorComponents edge { 0.5F, 0, 0, 1 };
    EXPECT_TRUE(areaNear(drawn, { 1, 1, 58, 1 }, edge));
    EXPECT_TRUE(areaNear(drawn, { 1, 19, 58, 1 }, edge));
    EXPECT_TRUE(areaNear(drawn, { 0, 2, 1, 17 }, edge));
    EXPECT_TRUE(areaNear(drawn, { 59, 2, 1, 17 }, edge));
    EXPECT_TRUE(areaNear(drawn, { 0, 0, 60, 1 }, colors::white));
}

TEST(RowHighlightDrawing, TheFillCoversTheEdgesInnerHalf)
{
    auto const drawn = highlight(PLIXHighlightRectangle, redOnBlack(), 2);
    EXPECT_TRUE(areaNear(drawn, { 0, 39, 120, 1 }, colors::black));
    EXPECT_TRUE(areaNear(drawn, { 1, 38, 118, 1 }, colors::red));
}

TEST(RowHighlightDrawing, RoundsTheEndsByStyle)
{
    auto const capsule = highlight(PLIXHighlightCapsule);
    auto const rounded = highlight(PLIXHighlightRounded);
    for (auto const& drawn : { capsule, rounded }) {
        EXPECT_TRUE(pixelNear(drawn, 0, 1, colors::white));
        EXPECT_TRUE(pixelNear(drawn, 59, 19, colors::white));
        EXPECT_TRUE(pixelNear(drawn, 30, 10, colors::red));
    }
    EXPECT_TRUE(pixelNear(capsule, 2, 2, colors::white));
    EXPECT_TRUE(pixelNear(rounded, 3, 3, colors::red));
    EXPECT_TRUE(pixelNear(capsule, 8, 10, colors::red));
}

TEST(RowHighlightDrawing, AGradientTakesTheFillsPlace)
{
    auto const gradient = imageOfColor({ 64, 20 }, colors::green);
    auto const drawn = highlight(PLIXHighlightCapsule, paint(colors::red, colors::black, gradient));
    EXPECT_TRUE(areaNear(drawn, { 12, 4, 36, 13 }, colors::green));
    EXPECT_EQ(countPixels(drawn, colors::red), 0);
    EXPECT_TRUE(pixelNear(drawn, 2, 2, colors::white));
}

TEST(RowHighlightDrawing, ACustomImageIsStretchedAndClippedAndHasNoEdge)
{
    auto const image = imageOfColor({ 7, 5 }, colors::blue);
    auto const draw = [&](std::uint32_t style) {
        auto const plan = rowHighlight({ 0, 0, 60, 20 }, style, HighlightImage::custom, 10);
        return renderBitmap(
            { 60, 20 }, 1, [&] { HighlightPainter().drawRowImage(plan, *image); }, colors::white);
    };
    auto const plain = draw(PLIXHighlightRectangle);
    EXPECT_TRUE(areaNear(plain, { 10, 0, 50, 20 }, colors::blue));
    EXPECT_TRUE(areaNear(plain, { 0, 0, 10, 20 }, colors::white));
    auto const capsule = draw(PLIXHighlightCapsule);
    EXPECT_TRUE(pixelNear(capsule, 11, 1, colors::white));
    EXPECT_TRUE(areaNear(capsule, { 20, 0, 30, 20 }, colors::blue));
}

TEST(RowHighlightDrawing, LooksAsItsReferenceShows)
{
    auto const base = NSColor::alternateSelectedControlColor()->components();
    auto const fill = selectionFill(base, ViewFocus::active, ViewState::enabled);
    for (int const scale : { 1, 2 }) {
        HighlightGradient gradient;
        NSImage::setDefaultBackingScale(static_cast<float>(scale));
        auto const image = gradient.imageForRowHeight(20, HighlightGradient::Orientation::unflipped);
        NSImage::setDefaultBackingScale(1);
        auto const drawn = renderBitmap(
            { 220, 130 }, static_cast<float>(scale),
            [&] {
                float y = 106;
                for (std::uint32_t const style : { 0U, 1U, 2U }) {
                    auto const plan = [&](float x) { return rowHighlight({ x, y, 100, 20 }, style, HighlightImage::none, 0); };
                    drawRowHighlight(plan(5), paint(fill, selectionEdge(fill), image));
                    auto const grey = selectionFill(base, ViewFocus::inactive, ViewState::enabled);
                    drawRowHighlight(plan(115), paint(grey, selectionEdge(grey)));
                    y -= 24;
                }
                drawDropHighlight(dropHighlightRect({ 5, y, 100, 20 }, HighlightImage::none), paint(fill, selectionEdge(fill)),
                    DropTarget::unselected);
                drawDropHighlight(dropHighlightRect({ 115, y, 100, 20 }, HighlightImage::none), paint(fill, selectionEdge(fill)),
                    DropTarget::selected);
                drawInsertionMarker(
                    insertionMarker({ 0, 1, 4, {}, { 5, y - 12, 210, 20 }, {} }, 12), paint(fill, selectionEdge(fill)));
            },
            colors::white);
        NSBezierPath::setDefaultLineWidth(1);
        EXPECT_TRUE(matchesReference(drawn, scale == 2 ? "tables/highlights@2x" : "tables/highlights"));
    }
}

TEST(DropHighlightDrawing, WashesOnlyRowsThatAreNotSelected)
{
    auto const draw = [](DropTarget target) {
        auto drawn = renderBitmap(
            { 40, 20 }, 1,
            [&] {
                drawDropHighlight({ 4, 4, 32, 12 }, redOnBlack(), target);
            },
            colors::white);
        NSBezierPath::setDefaultLineWidth(1);
        return drawn;
    };
    auto const unselected = draw(DropTarget::unselected);
    EXPECT_TRUE(pixelNear(unselected, 20, 10, { 1, 0.85F, 0.85F, 1 }));
    EXPECT_TRUE(pixelNear(unselected, 20, 3, { 0.1F, 0.1F, 0.1F, 1 }));
    auto const selected = draw(DropTarget::selected);
    EXPECT_TRUE(pixelNear(selected, 20, 10, colors::white));
    EXPECT_TRUE(areaNear(selected, { 10, 3, 20, 2 }, colors::black));
    EXPECT_TRUE(pixelNear(selected, 3, 3, colors::white, 0.3F));
}

TEST(DropHighlightDrawing, LeavesTheDefaultLineWidthAtTwo)
{
    NSBezierPath::setDefaultLineWidth(1);
    renderBitmap({ 40, 20 }, 1, [] { drawDropHighlight({ 4, 4, 32, 12 }, redOnBlack(), DropTarget::selected); });
    EXPECT_EQ(NSBezierPath::defaultLineWidth(), 2);
    NSBezierPath::setDefaultLineWidth(1);
    renderBitmap({ 40, 20 }, 1, [] { drawInsertionMarker({ { 4, 4 }, { 30, 4 }, { 0, 0, 6, 6 } }, redOnBlack()); });
    EXPECT_EQ(NSBezierPath::defaultLineWidth(), 2);
    NSBezierPath::setDefaultLineWidth(1);
}

TEST(DropHighlightDrawing, FramesAWholeViewTwoPointsWide)
{
    auto const drawn = renderBitmap(
        { 30, 20 }, 1,
        [] {
            drawDropFrame({ 0, 0, 30, 20 }, redOnBlack());
        },
        colors::white);
    constexpr ColorComponents line { 0, 0, 0, 0.9F }; // in place of what was there
    EXPECT_TRUE(areaNear(drawn, { 0, 0, 30, 2 }, line));
    EXPECT_TRUE(areaNear(drawn, { 28, 0, 2, 20 }, line));
    EXPECT_TRUE(areaNear(drawn, { 2, 2, 26, 16 }, colors::white));
}

TEST(InsertionMarkerDrawing, IsALineBehindAWhiteRing)
{
    auto const marker = insertionMarker({ 0, 1, 4, {}, { 9, 10, 50, 20 }, {} }, 0);
    auto const drawn = renderBitmap({ 60, 20 }, 1, [&] { drawInsertionMarker(marker, redOnBlack()); }, { 0.5F, 0.5F, 0.5F, 1 });
    NSBezierPath::setDefaultLineWidth(1);
    EXPECT_TRUE(areaNear(drawn, { 12, 9, 46, 2 }, colors::black));
    EXPECT_TRUE(areaNear(drawn, { 6, 9, 2, 2 }, colors::white));
    EXPECT_TRUE(pixelNear(drawn, 59, 9, { 0.5F, 0.5F, 0.5F, 1 }));
    EXPECT_FALSE(pixelNear(drawn, 3, 9, { 0.5F, 0.5F, 0.5F, 1 }));
}

TEST(HighlightGradientImage, IsKeptUntilTheRowHeightChanges)
{
    HighlightGradient gradient;
    EXPECT_EQ(gradient.image(), nullptr);
    EXPECT_EQ(gradient.lastRowHeight(), -1);
    auto const first = gradient.imageForRowHeight(17, HighlightGradient::Orientation::flipped);
    EXPECT_EQ(first->size(), (Size { 64, 17 }));
    EXPECT_EQ(gradient.lastRowHeight(), 17);
    EXPECT_EQ(gradient.imageForRowHeight(17, HighlightGradient::Orientation::flipped), first);
    auto const second = gradient.imageForRowHeight(18, HighlightGradient::Orientation::flipped);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->size(), (Size { 64, 18 }));
}

TEST(HighlightGradientImage, OfAFractionalHeightIsMadeEveryTime)
{
    HighlightGradient gradient;
    auto const first = gradient.imageForRowHeight(17.5F, HighlightGradient::Orientation::flipped);
    EXPECT_EQ(gradient.lastRowHeight(), 17);
    EXPECT_EQ(first->size(), (Size { 64, 17.5F }));
    EXPECT_NE(gradient.imageForRowHeight(17.5F, HighlightGradient::Orientation::flipped), first);
}

TEST(HighlightGradientImage, IsMadeAnewOnceItWasInvalidated)
{
    HighlightGradient gradient;
    auto const first = gradient.imageForRowHeight(17, HighlightGradient::Orientation::unflipped);
    NSColor::setUserHighlightColor(NSColor::redColor());
    EXPECT_EQ(gradient.imageForRowHeight(17, HighlightGradient::Orientation::unflipped), first);
    gradient.invalidate();
    auto const second = gradient.imageForRowHeight(17, HighlightGradient::Orientation::unflipped);
    NSColor::setUserHighlightColor(nullptr);
    EXPECT_NE(second, first);
    EXPECT_TRUE(pixelNear(second, 32, 16, { 0.9F, 0, 0, 1 }, 0.03F));
}

TEST(HighlightGradientImage, IsLightAtTheVisualTopAndReachesItsColorsAtTheEnds)
{
    auto const colors = highlightGradientColors(NSColor::alternateSelectedControlColor()->components());
    for (bool const isFlipped : { false, true }) {
        HighlightGradient gradient;
        auto const image = gradient.imageForRowHeight(
            100, isFlipped ? HighlightGradient::Orientation::flipped : HighlightGradient::Orientation::unflipped);
        EXPECT_EQ(image->isFlipped(), isFlipped);
        auto const drawn = renderBitmap({ 10, 100 }, 1, [&] {
            auto const context = NSGraphicsContext::currentContext();
            if (isFlipped) {
                context->translateBy(0, 100);
                context->scaleBy(1, -1);
                context->setFlipped(true);
            }
            image->drawInRect({ 0, 0, 10, 100 }, { 0, 0, 64, 100 }, NSCompositeSourceOver, 1);
        });
        EXPECT_TRUE(pixelNear(drawn, 5, 0, colors.top, 0.02F)) << isFlipped;
        EXPECT_TRUE(pixelNear(drawn, 5, 99, colors.bottom, 0.02F)) << isFlipped;
        EXPECT_TRUE(pixelNear(drawn, 5, 50, blended(colors.top, colors.bottom, 0.5F), 0.02F)) << isFlipped;
    }
}

TEST(TableShadows, AreMadeOnceAndDifferInTheirAlpha)
{
    auto const standard = standardTableShadow();
    auto const deactivated = deactivatedTableShadow();
    EXPECT_EQ(standardTableShadow(), standard);
    EXPECT_EQ(deactivatedTableShadow(), deactivated);
    EXPECT_EQ(plixTableView_StandardShadow.get(), standard.get());
    EXPECT_EQ(plixTableView_DeactivatedShadow.get(), deactivated.get());
    for (auto const& [shadow, alpha] : { std::pair(standard, 0.8F), std::pair(deactivated, 0.3F) }) {
        EXPECT_EQ(shadow->shadowOffset(), (Size { 0, -1 }));
        EXPECT_EQ(shadow->shadowBlurRadius(), 1);
        EXPECT_EQ(shadow->shadowColor()->components(), (ColorComponents { 0, 0, 0, alpha }));
    }
}

}
}
