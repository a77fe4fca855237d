#include "table_samples.h"
#include "page_parts.h"

#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace gallery {

using namespace plix;

// MARK: pieces

ObjectValue Catalogue::objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
{
    auto const& piece = pieces.at(static_cast<std::size_t>(row));
    auto const key = column.identifier().description();
    if (key == "heard")
        return piece.isHeard;
    if (key == "year")
        return piece.year;
    return key == "title" ? piece.title : piece.composer;
}

void Catalogue::setObjectValue(NSTableView&, ObjectValue value, NSTableColumn& column, long row)
{
    auto& piece = pieces.at(static_cast<std::size_t>(row));
    auto const key = column.identifier().description();
    if (key == "heard")
        piece.isHeard = value.boolValue();
    else if (key == "year")
        piece.year = static_cast<int>(value.integerValue());
    else
        (key == "title" ? piece.title : piece.composer) = value.description();
    tell(piece.title + " by " + piece.composer + ", " + std::to_string(piece.year) + (piece.isHeard ? ", heard" : ""));
}

void Catalogue::sort()
{
    std::stable_sort(pieces.begin(), pieces.end(), [this](Piece const& a, Piece const& b) {
        auto const& [less, greater] = m_isAscending ? std::tie(a, b) : std::tie(b, a);
        if (m_sortedBy == "heard")
            return less.isHeard < greater.isHeard;
        if (m_sortedBy == "year")
            return less.year < greater.year;
        return m_sortedBy == "title" ? less.title < greater.title : less.composer < greater.composer;
    });
}

void Catalogue::didClickTableColumn(NSTableView& table, NSTableColumn& column)
{
    auto const key = column.identifier().description();
    m_isAscending = key != m_sortedBy || !m_isAscending;
    m_sortedBy = key;
    std::vector<Piece> selected;
    for (long const row : table.selectedRowIndexes().indexes())
        selected.push_back(pieces.at(static_cast<std::size_t>(row)));
    sort();
    for (auto const& other : table.tableColumns())
        table.setIndicatorImage(nullptr, *other);
    table.setIndicatorImage(sortTriangle(m_isAscending), column);
    table.setHighlightedTableColumn(&column);
    table.reloadData();
    NSIndexSet rows;
    for (auto const& piece : selected)
        rows.addIndex(std::find(pieces.begin(), pieces.end(), piece) - pieces.begin());
    table.selectRowIndexes(rows, false);
    tell("Sorted by " + key + (m_isAscending ? "" : ", backwards"));
}

void Catalogue::tableViewSelectionDidChange(NSNotification const& notification)
{
    auto const& table = *static_cast<NSTableView*>(notification.object.get());
    auto const count = table.numberOfSelectedRows();
    tell(count == 1 ? "Selected: " + pieces.at(static_cast<std::size_t>(table.selectedRow())).title
                    : std::to_string(count) + " of " + std::to_string(pieces.size()) + " selected");
}

// MARK: an orchestra

Ref<Node> Node::with(std::string text, int count, std::vector<Ref<Node>> children)
{
    auto node = make<Node>();
    node->text = std::move(text);
    node->count = count;
    node->children = std::move(children);
    for (auto const& child : node->children)
        node->count += child->count;
    return node;
}

bool Orchestra::init()
{
    auto const player = [](char const* name, int count) { return Node::with(name, count); };
    root = Node::with("", 0,
        { Node::with("Strings", 0,
              { Node::with("Violins", 0, { player("First", 14), player("Second", 12) }), player("Violas", 10), player("Cellos", 8),
                  player("Double basses", 6) }),
            Node::with("Woodwinds", 0, { player("Flutes", 3), player("Oboes", 2), player("Clarinets", 2), player("Bassoons", 2) }),
            Node::with("Brass", 0, { player("Horns", 4), player("Trumpets", 2), player("Trombones", 3) }), player("Timpani", 1) });
    return true;
}

Ref<NSObject> Orchestra::child(NSOutlineView&, long index, NSObject* item)
{
    return nodeOf(item).children.at(static_cast<std::size_t>(index));
}

ObjectValue Orchestra::objectValueForTableColumn(NSOutlineView&, NSTableColumn& column, NSObject* item)
{
    auto const& node = nodeOf(item);
    return column.identifier() == ObjectValue("count") ? ObjectValue(node.count) : ObjectValue(node.text);
}

void Orchestra::setObjectValue(NSOutlineView&, ObjectValue value, NSTableColumn&, NSObject* item)
{
    auto& node = nodeOf(item);
    tell(node.text + " is called " + value.description() + " now.");
    node.text = value.description();
}

void Orchestra::outlineViewSelectionDidChange(NSNotification const& notification)
{
    auto& outline = *static_cast<NSOutlineView*>(notification.object.get());
    auto* const item = outline.itemAtRow(outline.selectedRow());
    if (!item)
        return tell("Nothing is selected.");
    tell("Selected: " + nodeOf(item).text + ", level " + std::to_string(outline.levelForItem(item)));
}

}
