#include <plix/tables/PLIXNSTableHeaderView.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/tables/column_plan.h>
#include <plix/tables/table_column_additions.h>

#include <vector>

namespace plix {

PLIX_DESCRIBE(PLIXNSTableHeaderView)
{
}

PLIXNSTableHeaderView::PLIXNSTableHeaderView() = default;
PLIXNSTableHeaderView::~PLIXNSTableHeaderView() = default;

bool PLIXNSTableHeaderView::init()
{
    return PLIXNSTableHeaderView::init(Rect {});
}

bool PLIXNSTableHeaderView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    m_resizeColumnsOnDoubleClick = true;
    return true;
}

bool PLIXNSTableHeaderView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_resizeColumnsOnDoubleClick = true;
    coder.read("resizeColumnsOnDoubleClick", [&](ObjectValue const& value) { m_resizeColumnsOnDoubleClick = value.boolValue(); });
    return true;
}

void PLIXNSTableHeaderView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(m_resizeColumnsOnDoubleClick, "resizeColumnsOnDoubleClick");
}

NSTableColumn* PLIXNSTableHeaderView::columnBeforeDivider(NSEvent const& event) const
{
    auto const& columns = tableView()->tableColumns();
    std::vector<float> rightEdges;
    rightEdges.reserve(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        rightEdges.push_back(headerRectOfColumn(static_cast<long>(i)).maxX());
    auto const column = dividerNear(convertPointFromView(event.locationInWindow(), nullptr).x, rightEdges);
    return column ? columns[static_cast<std::size_t>(*column)].get() : nullptr;
}

void PLIXNSTableHeaderView::mouseDown(NSEvent& event)
{
    if (!tableView() || !tableView()->isEnabled())
        return;
    // The pointer is no arrow only over dividers.
    bool const isOverDivider = &NSCursor::currentCursor() != &NSCursor::arrowCursor();
    if (event.clickCount() == 2 && isOverDivider && m_resizeColumnsOnDoubleClick) {
        Ref<NSTableHeaderView> const protector(this);
        if (Ref<NSTableColumn> const column = columnBeforeDivider(event)) {
            sizeToFitData(*column);
            return;
        }
    }
    Base::mouseDown(event);
}

}
