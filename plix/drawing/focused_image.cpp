#include <plix/drawing/focused_image.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

bool isFocusFlipped()
{
    if (auto const* view = NSView::focusView())
        return view->isFlipped();
    auto const context = NSGraphicsContext::currentContext();
    return context && context->isFlipped();
}

void drawFocusedImage(NSImage const& image, Rect destination, Rect source, ImageTurn turn)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    GraphicsState const saved(context);
    if (turn == ImageTurn::mirrored)
        context->concat(AffineTransform::mirror(destination));
    image.drawInRect(destination, source, NSCompositeSourceOver, 1.0F);
}

void drawUpright(NSImage const& image, Rect destination)
{
    auto const turn = isFocusFlipped() != image.isFlipped() ? ImageTurn::mirrored : ImageTurn::none;
    drawFocusedImage(image, destination, rectWith({}, image.size()), turn);
}

}
