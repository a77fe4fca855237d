#include "DemoTree.h"

#include <algorithm>

namespace example {

using namespace plix;

namespace {

constexpr Size s_size { 400, 280 };
constexpr float s_margin = 12;
constexpr float s_rowsBottom = 84;
constexpr char const* s_draggedRow = "example row";

/// The colour behind everything.
class Ground final : public NSView {
public:
    using NSView::init;
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(dirty);
    }
};

}

bool DemoTree::init()
{
    if (!NSObject::init())
        return false;
    m_rows = { { "Mercury", 88 }, { "Venus", 224.7 }, { "Earth", 365.25 }, { "Mars", 687 }, { "Jupiter", 4332.6 } };
    m_view = make<Ground>(rectWith({}, s_size));
    Rect const place { s_margin, s_size.height - 30, 200, 20 };
    // What is engraved is dark on light.
    Ref<NSTextField> const title
        = currentAppearance() == Appearance::light ? make<PLIXChiseledTextField>(place) : make<NSTextField>(place);
    title->setBezeled(false);
    title->setDrawsBackground(false);
    title->setEditable(false);
    title->setSelectable(false);
    title->setStringValue("Planets and their years");
    title->setFont(NSFont::boldSystemFontOfSize(13));
    title->sizeToFit();
    title->setAutoresizingMask(NSViewMinYMargin);
    m_view->addSubview(*title);
    addTable();
    addControls();
    m_timer = NSTimer::scheduledTimerWithTimeInterval(
        1,
        [this](NSTimer&) {
            m_clock->setStringValue(std::to_string(++m_seconds) + " s");
            report("tick " + std::to_string(m_seconds));
        },
        true);
    return true;
}

void DemoTree::addTable()
{
    Rect const frame { s_margin, s_rowsBottom, s_size.width - 2 * s_margin, s_size.height - s_rowsBottom - 36 };
    m_table = make<PLIXTableView>(rectWith({}, frame.size()));
    for (auto const& [identifier, title, width] : { std::tuple { "name", "Planet", 210.F }, { "days", "Days", 140.F } }) {
        auto const column = make<NSTableColumn>(identifier);
        column->headerCell()->setStringValue(title);
        column->setWidth(width);
        m_table->addTableColumn(*column);
    }
    m_table->setUsesAlternatingRowBackgroundColors(true);
    m_table->registerForDraggedTypes({ s_draggedRow });
    m_table->setDataSource(Ref(this));
    m_table->setDelegate(Ref(this));
    auto const scroll = make<NSScrollView>(frame);
    scroll->setBorderType(NSBezelBorder);
    scroll->setHasVerticalScroller(true);
    scroll->setDocumentView(m_table);
    scroll->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_view->addSubview(*scroll);
}

void DemoTree::addControls()
{
    m_field = make<NSTextField>(Rect { s_margin, 50, 180, 22 });
    m_field->setStringValue("Pluto");
    m_field->setActionFunction([this](NSObject*) { report("field [" + m_field->stringValue() + "]"); });
    m_box = make<NSButton>(Rect { 204, 50, 180, 22 });
    m_box->setButtonType(NSSwitchButton);
    m_box->setTitle("Striped rows");
    m_box->setState(NSOnState);
    m_box->setActionFunction([this](NSObject*) {
        m_table->setUsesAlternatingRowBackgroundColors(m_box->state() == NSOnState);
        report(m_box->state() == NSOnState ? "box on" : "box off");
    });
    m_popUp = make<NSPopUpButton>(Rect { s_margin, 14, 180, 24 }, false);
    for (auto const* const order : { "As they were added", "By name", "By length of the year" })
        m_popUp->addItemWithTitle(order);
    m_popUp->setActionFunction([this](NSObject*) {
        constexpr char const* columns[] = { "", "name", "days" };
        m_sortedBy = columns[std::clamp(m_popUp->indexOfSelectedItem(), 0L, 2L)];
        m_isDescending = false;
        sort();
        report("chosen " + m_popUp->titleOfSelectedItem());
    });
    m_clock = NSTextField::labelWithString("0 s");
    m_clock->setFrame({ 204, 16, 100, 18 });
    for (auto* const view : std::initializer_list<NSView*> { m_field.get(), m_box.get(), m_popUp.get(), m_clock.get() })
        m_view->addSubview(*view);
}

void DemoTree::report(std::string const& line) const
{
    if (m_report)
        m_report(line);
}

void DemoTree::addRow(std::string const& name)
{
    m_rows.push_back({ name, 0 });
    m_table->reloadData();
    auto const row = static_cast<long>(m_rows.size()) - 1;
    m_table->selectRowIndexes(NSIndexSet::indexSetWithIndex(row), false);
    m_table->scrollRowToVisible(row);
}

void DemoTree::sort()
{
    auto const isBefore = [this](Row const& a, Row const& b) { return m_sortedBy == "name" ? a.name < b.name : a.days < b.days; };
    if (m_sortedBy.empty())
        return;
    if (m_isDescending)
        std::ranges::stable_sort(m_rows, [&](auto const& a, auto const& b) { return isBefore(b, a); });
    else
        std::ranges::stable_sort(m_rows, isBefore);
    m_table->reloadData();
}

// The table's rows.

ObjectValue DemoTree::objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
{
    auto const& shown = m_rows[static_cast<std::size_t>(row)];
    return column.identifier() == ObjectValue("name") ? ObjectValue(shown.name) : ObjectValue(shown.days);
}

void DemoTree::setObjectValue(NSTableView&, ObjectValue value, NSTableColumn&, long row)
{
    auto& edited = m_rows[static_cast<std::size_t>(row)];
    edited.name = value.description();
    report("row " + std::to_string(row) + " [" + edited.name + "]");
}

bool DemoTree::shouldEditTableColumn(NSTableView&, NSTableColumn& column, long)
{
    return column.identifier() == ObjectValue("name");
}

void DemoTree::didClickTableColumn(NSTableView& table, NSTableColumn& column)
{
    auto const identifier = column.identifier().description();
    m_isDescending = m_sortedBy == identifier && !m_isDescending;
    m_sortedBy = identifier;
    table.setHighlightedTableColumn(&column);
    sort();
    report("sorted by " + identifier + (m_isDescending ? " downwards" : ""));
}

void DemoTree::tableViewSelectionDidChange(NSNotification const&)
{
    auto const row = m_table->selectedRow();
    auto const line = row < 0 ? std::string("Nothing is selected") : m_rows[static_cast<std::size_t>(row)].name + " is selected";
    report(line);
    if (m_selectionChanged)
        m_selectionChanged(line);
}

bool DemoTree::writeRowsWithIndexes(NSTableView&, NSIndexSet const& rows, NSPasteboard& board)
{
    board.declareTypes({ s_draggedRow });
    return board.setString(std::to_string(rows.firstIndex()), s_draggedRow);
}

unsigned DemoTree::validateDrop(NSTableView& table, NSDraggingInfo&, long row, NSTableViewDropOperation operation)
{
    if (operation == NSTableViewDropOn)
        table.setDropRow(row, NSTableViewDropAbove);
    return NSDragOperationMove;
}

bool DemoTree::acceptDrop(NSTableView& table, NSDraggingInfo& info, long row, NSTableViewDropOperation)
{
    auto const text = info.draggingPasteboard().stringForType(s_draggedRow);
    if (!text)
        return false;
    auto const from = std::stol(*text);
    auto const moved = m_rows[static_cast<std::size_t>(from)];
    m_rows.insert(m_rows.begin() + row, moved);
    m_rows.erase(m_rows.begin() + from + (from >= row ? 1 : 0));
    m_sortedBy.clear();
    table.reloadData();
    report("moved " + moved.name + " to " + std::to_string(row));
    return true;
}

}
