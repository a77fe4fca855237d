#include "bars.h"

#include <plix/platform/appkit/Theme.h>

namespace gallery {

using namespace plix;

void drawBar(Rect bar, NSRectEdge lineEdge)
{
    auto const& theme = Theme::current();
    theme.fill(bar, ThemeRole::barBackground);
    theme.fill({ bar.x, lineEdge == NSMinYEdge ? bar.y : bar.maxY() - 1, bar.width, 1 }, ThemeRole::line);
}

}
