#include "Desk.h"

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace gallery {

using namespace plix;

bool Desk::looksActive() const
{
    return m_isActive && (!superview() || superview()->looksActive());
}

void Desk::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
}

}
