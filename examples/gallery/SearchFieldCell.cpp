#include "SearchFieldCell.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>

#include <cmath>

namespace gallery {

using namespace plix;

PLIX_DESCRIBE(SearchFieldCell)
{
}

CellInsets SearchFieldCell::frameInsets() const
{
    auto insets = NSTextFieldCell::frameInsets();
    insets.left += lensWidth;
    insets.right += buttonWidth;
    return insets;
}

void SearchFieldCell::drawWithFrame(Rect frame, NSView& controlView)
{
    NSTextFieldCell::drawWithFrame(frame, controlView);
    float const middle = std::floor(frame.midY());
    auto const lens = NSBezierPath::bezierPath();
    lens->setLineWidth(1.5F);
    lens->appendBezierPathWithOvalInRect({ frame.x + 9, middle - 5, 7, 7 });
    lens->moveToPoint({ frame.x + 15, middle + 1 });
    lens->lineToPoint({ frame.x + 19, middle + 5 });
    Theme::current().color(ThemeRole::secondaryText)->set();
    lens->stroke();
}

}
