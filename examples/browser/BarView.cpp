#include "BarView.h"
#include "icons.h"

#include <plix/platform/appkit/Theme.h>

namespace browser {

using plix::Rect;
using plix::Theme;
using plix::ThemeRole;

PLIX_DESCRIBE(BarView)
{
}

bool BarView::init(Rect frame, Edge edge)
{
    m_edge = edge;
    setAutoresizingMask(plix::NSViewWidthSizable | (edge == Edge::top ? plix::NSViewMinYMargin : plix::NSViewMaxYMargin));
    return Base::init(frame);
}

void BarView::drawRect(Rect)
{
    auto const& theme = Theme::current();
    Rect const area = bounds();
    theme.fill(area, ThemeRole::barBackground);
    theme.fill({ 0, m_edge == Edge::top ? area.maxY() - 1 : 0, area.width, 1 }, ThemeRole::line);
    if (m_showsFolder)
        drawIcon(EntryKind::folder, false, { 12, 8, 32, 32 });
}

}
