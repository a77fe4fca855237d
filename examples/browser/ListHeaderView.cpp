#include "ListHeaderView.h"
#include "list_plan.h"

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <cmath>

namespace browser {

using plix::cellTextPadding;
using plix::Rect;
using plix::Theme;
using plix::ThemeRole;

PLIX_DESCRIBE(ListHeaderView)
{
}

ListHeaderView::ListHeaderView() = default;
ListHeaderView::~ListHeaderView() = default;

bool ListHeaderView::init(Titles titles)
{
    m_titles = titles;
    if (!Base::init(Rect { 0, 0, 100, Theme::headerHeight() }))
        return false;
    m_cell = plix::make<plix::NSTextFieldCell>("");
    m_cell->setFont(plix::NSFont::systemFontOfSize(plix::NSFont::smallSystemFontSize()));
    m_cell->setLineBreakMode(plix::NSLineBreakByTruncatingTail);
    return true;
}

void ListHeaderView::drawRect(Rect)
{
    auto const& theme = Theme::current();
    theme.drawHeaderBackground(bounds());
    if (m_titles == Titles::none)
        return;
    auto const columns = columnPlan(bounds(), listIconSize);
    m_cell->setTextColor(theme.color(ThemeRole::headerText));
    auto draw = [&](Rect column, char const* title, plix::NSTextAlignment alignment) {
        m_cell->setAlignment(alignment);
        m_cell->setStringValue(title);
        float const height = m_cell->cellSize().height;
        m_cell->drawWithFrame({ column.x, column.y + std::floor((column.height - 1 - height) / 2), column.width, height }, *this);
    };
    // The heading stands above the names, whose icons hang to the left of them.
    draw({ columns.icon.x - cellTextPadding, columns.name.y, columns.name.maxX() - columns.icon.x, columns.name.height }, "Name",
        plix::NSLeftTextAlignment);
    draw(columns.size, "Size", plix::NSRightTextAlignment);
    theme.drawHeaderDivider({ columns.name.x, columns.name.y, columns.name.width, columns.name.height });
}

}
