#include "Desk.h"

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace gallery {

using namespace plix;

void Desk::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
}

}
