#include <plix/inspector/ViewOutline.h>

#include <plix/inspector/TextTable.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>

namespace plix {

namespace {

constexpr float viewColumnWidth = 250;
constexpr float frameColumnWidth = 150;

}

class ViewOutline::Item : public NSObject {
public:
    std::uint64_t id { 0 };
    std::string title;
    std::string frame;
    bool isHidden { false };
    std::vector<Ref<Item>> children;
};

PLIX_DESCRIBE(ViewOutline)
{
}

ViewOutline::ViewOutline() = default;
ViewOutline::~ViewOutline() = default;

bool ViewOutline::init()
{
    m_outline = make<NSOutlineView>(Rect { 0, 0, viewColumnWidth + frameColumnWidth, 100 });
    auto const views = addTextColumn(*m_outline, { "view", "View", viewColumnWidth });
    addTextColumn(*m_outline, { "frame", "Frame", frameColumnWidth });
    m_outline->setOutlineTableColumn(views.get());
    m_outline->setIndentationPerLevel(12);
    m_outline->setDataSource(Ref<ViewOutline>(this));
    m_outline->setDelegate(Ref<ViewOutline>(this));
    m_scrollView = makeScrollView(*m_outline);
    return true;
}

Ref<ViewOutline::Item> ViewOutline::itemOf(ViewNode const& node, std::map<std::uint64_t, Ref<Item>>& items) const
{
    auto const known = m_items.find(node.id);
    auto const item = known == m_items.end() ? make<Item>() : known->second;
    item->id = node.id;
    item->title = nodeTitle(node);
    item->frame = frameText(node.frame);
    item->isHidden = node.isHidden;
    item->children.clear();
    for (auto const& child : node.children)
        item->children.push_back(itemOf(child, items));
    items[node.id] = item;
    return item;
}

void ViewOutline::setTree(ViewNode tree)
{
    if (tree == m_tree)
        return;
    bool const isOther = tree.id != m_tree.id;
    m_tree = std::move(tree);
    std::map<std::uint64_t, Ref<Item>> items;
    m_top = m_tree.id == 0 ? nullptr : itemOf(m_tree, items);
    m_items = std::move(items);
    m_isQuiet = true;
    m_outline->reloadData();
    if (isOther && m_top) {
        m_outline->deselectAll(nullptr);
        m_outline->expandItem(m_top.get(), true);
    }
    m_isQuiet = false;
}

std::uint64_t ViewOutline::selectedView() const
{
    auto const* const item = dynamic_cast<Item*>(m_outline->itemAtRow(m_outline->selectedRow()));
    return item ? item->id : 0;
}

void ViewOutline::selectView(std::uint64_t id)
{
    auto const path = pathToView(m_tree, id);
    if (path.empty())
        return;
    m_isQuiet = true;
    for (auto const* const node : path) {
        if (node->id != id)
            m_outline->expandItem(m_items.at(node->id).get());
    }
    long const row = m_outline->rowForItem(m_items.at(id).get());
    m_outline->selectRow(row, false);
    m_outline->scrollRowToVisible(row);
    m_isQuiet = false;
}

long ViewOutline::numberOfChildrenOfItem(NSOutlineView&, NSObject* item)
{
    return item ? static_cast<long>(static_cast<Item*>(item)->children.size()) : m_top ? 1 : 0;
}

Ref<NSObject> ViewOutline::child(NSOutlineView&, long index, NSObject* item)
{
    if (!item)
        return m_top;
    return static_cast<Item*>(item)->children.at(static_cast<std::size_t>(index));
}

bool ViewOutline::isItemExpandable(NSOutlineView&, NSObject* item)
{
    return !static_cast<Item*>(item)->children.empty();
}

ObjectValue ViewOutline::objectValueForTableColumn(NSOutlineView&, NSTableColumn& column, NSObject* item)
{
    auto const& line = *static_cast<Item*>(item);
    return column.identifier() == ObjectValue("view") ? line.title : line.frame;
}

void ViewOutline::willDisplayCell(NSOutlineView&, NSCell& cell, NSTableColumn&, NSObject* item)
{
    bool const isHidden = static_cast<Item*>(item)->isHidden;
    if (auto* const text = dynamic_cast<NSTextFieldCell*>(&cell))
        text->setTextColor(isHidden ? Theme::current().color(ThemeRole::secondaryText) : NSColor::controlTextColor());
}

void ViewOutline::outlineViewSelectionDidChange(NSNotification const&)
{
    if (!m_isQuiet && m_selected)
        m_selected(selectedView());
}

}
