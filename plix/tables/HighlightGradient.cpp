#include <plix/tables/HighlightGradient.h>

#include <plix/drawing/PLIXShading.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/tables/selection_colors.h>

namespace plix {

namespace {

constexpr float imageWidth = 64.0F;

PLIXShading::Components shadingComponents(ColorComponents const& color)
{
    return { color.red, color.green, color.blue, color.alpha };
}

}

HighlightGradient::HighlightGradient() = default;
HighlightGradient::~HighlightGradient() = default;

Ref<NSImage> const& HighlightGradient::imageForRowHeight(float rowHeight, Orientation orientation)
{
    if (m_image && rowHeight == static_cast<float>(m_lastRowHeight))
        return m_image;
    bool const isFlipped = orientation == Orientation::flipped;
    auto const image = make<NSImage>(Size { imageWidth, rowHeight });
    if (isFlipped) {
        image->setFlipped(true);
        image->recache();
    }
    auto const colors = highlightGradientColors(NSColor::alternateSelectedControlColor()->components());
    auto const shading = make<PLIXShading>();
    shading->setStartColorComponents(shadingComponents(colors.top));
    shading->setEndColorComponents(shadingComponents(colors.bottom));
    float const height = image->size().height;
    shading->setStartPoint({ 0, height });
    shading->setEndPoint({ 0, 0 });
    {
        FocusLock const focus(image);
        shading->drawShading();
    }
    m_image = image;
    m_lastRowHeight = static_cast<int>(rowHeight);
    return m_image;
}

}
