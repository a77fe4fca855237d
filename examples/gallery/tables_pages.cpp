#include "tables_pages.h"
#include "Form.h"
#include "page_parts.h"
#include "table_samples.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/tables/HighlightGradient.h>
#include <plix/tables/PLIXImageAndTextCell.h>
#include <plix/tables/PLIXNSTableHeaderView.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>
#include <plix/tables/highlight_drawing.h>
#include <plix/tables/row_highlight.h>
#include <plix/tables/table_column_additions.h>

#include <string>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

constexpr Size wide { 520, 244 };

/// Numbers and their title stand at the right.
void addNumbers(NSTableView& table, std::string_view identifier, std::string_view title, float width)
{
    auto const column = addColumn(table, identifier, title, width);
    column->headerCell()->setAlignment(NSRightTextAlignment);
    column->dataCell()->setAlignment(NSRightTextAlignment);
}

/// The catalogue's columns, filled, and telling the page's status line.
Ref<Catalogue> fill(NSTableView& table, Form& form)
{
    auto catalogue = form.keep(make<Catalogue>());
    catalogue->tells = [page = &form](std::string const& text) { page->setStatus(text); };
    addColumn(table, "title", "Title", 230);
    addColumn(table, "composer", "Composer", 170);
    addNumbers(table, "year", "Year", 80);
    return catalogue;
}

template <typename Table> Ref<Catalogue> connect(Table& table, Form& form)
{
    auto catalogue = fill(table, form);
    table.setDataSource(catalogue);
    table.setDelegate(catalogue);
    return catalogue;
}

// MARK: tables

Ref<NSView> makeNSTableViewPage()
{
    class Rivers : public NSObject {
    public:
        long numberOfRowsInTableView(NSTableView&) { return std::ssize(rivers); }
        ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
        {
            auto const& river = rivers[static_cast<std::size_t>(row)];
            return column.identifier() == ObjectValue("name") ? ObjectValue(river.first) : ObjectValue(river.second);
        }
        void setObjectValue(NSTableView&, ObjectValue value, NSTableColumn&, long row)
        {
            rivers[static_cast<std::size_t>(row)].first = value.description();
            if (form)
                form->setStatus("Renamed to " + value.description());
        }
        bool shouldEditTableColumn(NSTableView&, NSTableColumn& column, long) { return column.identifier() == ObjectValue("name"); }
        void tableViewSelectionDidChange(NSNotification const& notification)
        {
            auto const& table = *static_cast<NSTableView*>(notification.object.get());
            if (form)
                form->setStatus(std::to_string(table.numberOfSelectedRows()) + " selected");
        }
        std::vector<std::pair<std::string, int>> rivers { { "Danube", 2850 }, { "Dnieper", 2201 }, { "Ebro", 930 },
            { "Elbe", 1094 }, { "Loire", 1006 }, { "Oder", 854 }, { "Rhine", 1233 }, { "Rhône", 813 }, { "Seine", 777 },
            { "Tagus", 1007 }, { "Thames", 346 }, { "Tiber", 405 }, { "Vistula", 1047 }, { "Volga", 3531 } };
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const rivers = form->keep(make<Rivers>());
    rivers->form = form;
    auto const table = make<NSTableView>(rectWith({}, wide));
    addColumn(*table, "name", "River", 360);
    addNumbers(*table, "length", "Kilometres", 130);
    table->setAllowsMultipleSelection(true);
    table->setUsesAlternatingRowBackgroundColors(true);
    table->setDataSource(rivers);
    table->setDelegate(rivers);
    table->selectRowIndexes(NSIndexSet::indexSetWithIndex(1), false);
    form->addView(scrolled(table, wide));
    form->addRow("Grid", { checkBox("Lines", [table](bool isOn) {
        table->setGridStyleMask(isOn ? NSTableViewSolidHorizontalGridLineMask | NSTableViewSolidVerticalGridLineMask : 0U);
    }) });
    form->addStatus("Select with Shift and Ctrl, type “se”, press Return to rename.");
    form->sizeToRows();
    return form;
}

constexpr char rowType[] = "gallery row";

/// Rows are dragged to another place: the pasteboard carries them, a line shows where they would go.
Ref<NSView> makeNSDraggingInfoPage()
{
    class Steps : public NSObject {
    public:
        long numberOfRowsInTableView(NSTableView&) { return std::ssize(steps); }
        ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row)
        {
            return steps[static_cast<std::size_t>(row)];
        }
        bool writeRowsWithIndexes(NSTableView&, NSIndexSet const& rows, NSPasteboard& board)
        {
            board.declareTypes({ rowType });
            return board.setString(std::to_string(rows.firstIndex()), rowType);
        }
        unsigned validateDrop(NSTableView& table, NSDraggingInfo& info, long row, NSTableViewDropOperation)
        {
            if (info.draggingSource() != &table)
                return NSDragOperationNone;
            table.setDropRow(row, NSTableViewDropAbove);
            return NSDragOperationMove;
        }
        bool acceptDrop(NSTableView& table, NSDraggingInfo& info, long row, NSTableViewDropOperation)
        {
            auto const from = std::stol(info.draggingPasteboard().stringForType(rowType).value_or("0"));
            auto const moved = steps[static_cast<std::size_t>(from)];
            steps.erase(steps.begin() + from);
            steps.insert(steps.begin() + row - (row > from ? 1 : 0), moved);
            if (form)
                form->setStatus("“" + moved + "” moved from place " + std::to_string(from + 1));
            table.reloadData();
            return true;
        }
        std::vector<std::string> steps { "Tune", "Play the scales", "Read the score", "Practise slowly", "Play it through",
            "Rest" };
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const steps = form->keep(make<Steps>());
    steps->form = form;
    auto const table = make<NSTableView>(Rect { 0, 0, 300, 160 });
    addColumn(*table, "step", "What comes first?", 360);
    table->setDataSource(steps);
    table->registerForDraggedTypes({ rowType });
    table->setDraggingSourceOperationMask(NSDragOperationMove, true);
    table->setVerticalMotionCanBeginDrag(true);
    form->addRow("Drag rows", { scrolled(table, { 390, 160 }) });
    form->addNote("The info tells a destination what is dragged, from where, and which operations the source allows.");
    form->addStatus("Drag a row to another place.");
    form->sizeToRows();
    return form;
}

/// A column has a width with limits, a header, and a cell that draws and edits its values.
Ref<NSView> makeNSTableColumnPage()
{
    auto const form = Form::page();
    auto const table = make<NSTableView>(rectWith({}, wide));
    auto const heard = addColumn(*table, "heard", "Heard", 50);
    auto const box = make<NSButtonCell>("");
    box->setButtonType(NSSwitchButton);
    heard->setDataCell(box);
    heard->setResizingMask(NSTableColumnNoResizing);
    auto const catalogue = connect(*table, *form);
    auto const title = table->tableColumnWithIdentifier("title");
    title->setMinWidth(90);
    title->setMaxWidth(260);
    title->setWidth(180);
    title->setHeaderToolTip("Between 90 and 260 points wide");
    auto const year = table->tableColumnWithIdentifier("year");
    year->setEditable(false);
    year->dataCell()->setFont(NSFont::boldSystemFontOfSize(13));
    form->addView(scrolled(table, wide));
    form->addRow("Title",
        { pushButton("90", [title] { title->setWidth(90); }), pushButton("Fit Header", [title] { title->sizeToFit(); }),
            pushButton("Fit Data", [title] { sizeToFitData(*title); }) });
    auto const shown = checkBox("Year is shown", [year = Ref<NSTableColumn>(year)](bool isOn) { year->setHidden(!isOn); });
    shown->setState(NSOnState);
    form->addRow("", { shown });
    form->addStatus("Check a box, drag the dividers, double-click to edit.");
    form->sizeToRows();
    return form;
}

// MARK: headers

Ref<NSView> makeNSTableHeaderViewPage()
{
    class Listener : public Catalogue {
    public:
        void tableViewColumnDidMove(NSNotification const& notification)
        {
            std::string order;
            for (auto const& column : static_cast<NSTableView*>(notification.object.get())->tableColumns())
                order += (order.empty() ? "" : ", ") + column->headerCell()->stringValue();
            tell("Order: " + order);
        }
        void tableViewColumnDidResize(NSNotification const& notification)
        {
            auto const& header = *static_cast<NSTableView*>(notification.object.get())->tableHeaderView();
            if (auto const column = header.resizedColumn(); column >= 0)
                tell("Column " + std::to_string(column) + " ends at "
                    + std::to_string(static_cast<int>(header.headerRectOfColumn(column).maxX())));
        }
    };
    auto const form = Form::page();
    auto const table = make<NSTableView>(rectWith({}, wide));
    fill(*table, *form);
    auto const listener = form->keep(make<Listener>());
    listener->tells = [page = form.get()](std::string const& text) { page->setStatus(text); };
    table->setDataSource(listener);
    table->setDelegate(listener);
    table->tableHeaderView()->setOffersColumnMenu(true);
    form->addView(scrolled(table, wide));
    form->addStatus("Drag titles and dividers, click a title to sort, right-click for columns.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSTableHeaderCellPage()
{
    auto const form = Form::page();
    auto const table = make<NSTableView>(rectWith({}, Size { 520, 130 }));
    connect(*table, *form);
    for (auto const& [identifier, alignment] :
        { std::pair { "title", NSLeftTextAlignment }, { "composer", NSCenterTextAlignment }, { "year", NSRightTextAlignment } })
        table->tableColumnWithIdentifier(identifier)->headerCell()->setAlignment(alignment);
    auto* const composer = table->tableColumnWithIdentifier("composer");
    table->setIndicatorImage(sortTriangle(true), *composer);
    table->setHighlightedTableColumn(composer);
    auto const pictured = make<NSTableHeaderCell>("");
    pictured->setImage(icon(Icon::star));
    auto const starred = make<NSTableColumn>(ObjectValue("heard"));
    starred->setHeaderCell(pictured);
    auto const box = make<NSButtonCell>("");
    box->setButtonType(NSSwitchButton);
    starred->setDataCell(box);
    starred->setWidth(24);
    table->addTableColumn(*starred);
    table->tableColumnWithIdentifier("title")->setWidth(200);
    form->addView(scrolled(table, { 520, 150 }));
    form->addRow("Indicator",
        { pushButton("Up", [composer, table] { table->setIndicatorImage(sortTriangle(true), *composer); }),
            pushButton("Down", [composer, table] { table->setIndicatorImage(sortTriangle(false), *composer); }),
            pushButton("None", [composer, table] { table->setIndicatorImage(nullptr, *composer); }) });
    form->addStatus("A header’s cell has a title or a picture, an alignment and an indicator.");
    form->sizeToRows();
    return form;
}

/// On the ground of the header that it continues.
class CornerButton final : public NSButton {
public:
    using NSButton::init;
    void drawRect(Rect dirty) override
    {
        Theme::current().drawHeaderBackground(bounds());
        NSButton::drawRect(dirty);
    }
};

/// What lies above the vertical scroller, beside the header.
Ref<NSView> makeNSTableCornerViewPage()
{
    auto const form = Form::page();
    for (bool const isOwn : { false, true }) {
        auto const table = make<NSTableView>(Rect { 0, 0, 370, 100 });
        auto const catalogue = connect(*table, *form);
        table->tableColumnWithIdentifier("title")->setWidth(190);
        table->removeTableColumn(*table->tableColumnWithIdentifier("year"));
        if (isOwn) {
            auto const button = make<CornerButton>(Rect { 0, 0, 16, 22 });
            button->setBordered(false);
            button->setImage(icon(Icon::star, 12));
            button->setImagePosition(NSImageOnly);
            button->setActionFunction([page = form.get()](NSObject*) { page->setStatus("The corner was pressed."); });
            table->setCornerView(button);
        }
        auto const scroll = scrolled(table, { 390, 130 });
        scroll->setAutohidesScrollers(false);
        form->addRow(isOwn ? "A button" : "The usual one", { scroll });
    }
    form->addStatus("Press the star in the corner.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXNSTableHeaderViewPage()
{
    auto const form = Form::page();
    auto const table = make<PLIXTableView>(rectWith({}, wide));
    connect(*table, *form);
    table->tableColumnWithIdentifier("title")->setWidth(110);
    auto* const header = dynamic_cast<PLIXNSTableHeaderView*>(table->headerView());
    form->addView(scrolled(table, wide));
    auto const fits = checkBox("Double clicks fit columns", [header, page = form.get()](bool isOn) {
        header->setResizeColumnsOnDoubleClick(isOn);
        page->setStatus(isOn ? "Double-click a divider." : "A double click is two clicks.");
    });
    fits->setState(NSOnState);
    form->addRow("", { fits });
    form->addStatus("Double-click a divider: the column before it becomes as wide as its data.");
    form->sizeToRows();
    return form;
}

// MARK: outlines

Ref<Orchestra> fillOutline(NSOutlineView& outline, Form& form)
{
    auto orchestra = form.keep(make<Orchestra>());
    orchestra->tells = [page = &form](std::string const& text) { page->setStatus(text); };
    outline.setOutlineTableColumn(addColumn(outline, "name", "Section", 390).get());
    addNumbers(outline, "count", "Players", 100);
    return orchestra;
}

Ref<NSView> makeNSOutlineViewPage()
{
    class Planets : public NSObject {
    public:
        long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return std::ssize(nodeOf(item).children); }
        Ref<NSObject> child(NSOutlineView&, long index, NSObject* item)
        {
            return nodeOf(item).children[static_cast<std::size_t>(index)];
        }
        bool isItemExpandable(NSOutlineView&, NSObject* item) { return !nodeOf(item).children.empty(); }
        ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject* item) { return nodeOf(item).text; }
        void setObjectValue(NSOutlineView&, ObjectValue value, NSTableColumn&, NSObject* item)
        {
            nodeOf(item).text = value.description();
        }
        void outlineViewItemDidExpand(NSNotification const& notification)
        {
            auto const& outline = *static_cast<NSOutlineView*>(notification.object.get());
            if (form)
                form->setStatus(std::to_string(outline.numberOfRows()) + " rows");
        }
        Node& nodeOf(NSObject* item) { return item ? *static_cast<Node*>(item) : *sun; }
        Ref<Node> sun = Node::with("Sun", 0,
            { Node::with("Mercury", 0), Node::with("Venus", 0), Node::with("Earth", 0, { Node::with("Moon", 0) }),
                Node::with("Mars", 0, { Node::with("Phobos", 0), Node::with("Deimos", 0) }),
                Node::with("Jupiter", 0,
                    { Node::with("Io", 0), Node::with("Europa", 0), Node::with("Ganymede", 0), Node::with("Callisto", 0) }) });
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const planets = form->keep(make<Planets>());
    planets->form = form;
    auto const outline = make<NSOutlineView>(rectWith({}, wide));
    outline->setOutlineTableColumn(addColumn(*outline, "name", "Planets and moons", 490).get());
    outline->setDataSource(planets);
    outline->setDelegate(planets);
    outline->expandItem(planets->sun->children[2].get());
    outline->expandItem(planets->sun->children[4].get());
    outline->selectRow(5, false);
    form->addView(scrolled(outline, wide));
    form->addRow("Everything",
        { pushButton("Expand", [outline] { outline->expandItem(nullptr, true); }),
            pushButton("Collapse", [outline] { outline->collapseItem(nullptr, true); }) });
    form->addStatus("Click a triangle, or press the left and right arrow keys.");
    form->sizeToRows();
    return form;
}

// MARK: the library's tables

Ref<NSSegmentedControl> styleChooser(std::function<void(std::uint32_t)> chosen)
{
    auto control = make<NSSegmentedControl>(Rect { 0, 0, 250, 24 });
    control->setSegmentCount(3);
    for (long i = 0; auto const* label : { "Rectangle", "Capsule", "Rounded" })
        control->setLabel(label, i++);
    control->setSelectedSegment(2);
    control->setActionFunction([chosen = std::move(chosen)](NSObject* sender) {
        chosen(static_cast<std::uint32_t>(static_cast<NSSegmentedControl*>(sender)->selectedSegment()));
    });
    return control;
}

Ref<NSView> makePLIXTableViewPage()
{
    class Keys : public Catalogue {
    public:
        void returnKey(NSTableView& table, NSTableView&) { tell("Return in row " + std::to_string(table.selectedRow() + 1)); }
        void deleteBackward(NSTableView& table, NSTableView&)
        {
            if (table.selectedRow() < 0)
                return;
            tell("Deleted: " + pieces[static_cast<std::size_t>(table.selectedRow())].title);
            pieces.erase(pieces.begin() + table.selectedRow());
            table.reloadData();
        }
    };
    auto const form = Form::page();
    auto const table = make<PLIXTableView>(rectWith({}, wide));
    fill(*table, *form);
    auto const keys = form->keep(make<Keys>());
    keys->tells = [page = form.get()](std::string const& text) { page->setStatus(text); };
    table->setDataSource(keys);
    table->setDelegate(keys);
    table->setEmptyString("Nothing is left");
    table->setAllowsMultipleSelection(true);
    table->setHighlightStyle(PLIXHighlightRounded);
    table->selectRowIndexes(NSIndexSet::indexSetWithIndex(2), false);
    form->addView(scrolled(table, { 520, 220 }));
    form->addRow("Selection", { styleChooser([table](std::uint32_t style) {
        table->setHighlightStyle(style);
        table->setNeedsDisplay(true);
    }) });
    auto const shown = checkBox("Composer is shown",
        [table](bool isOn) { isOn ? table->showColumnWithIdentifier("composer") : table->hideColumnWithIdentifier("composer"); });
    shown->setState(NSOnState);
    form->addRow("", { shown, pushButton("Remove All", [keys, table] {
                          keys->pieces.clear();
                          table->reloadData();
                      }) });
    form->addStatus("Press Return, or Delete to remove a row.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXOutlineViewPage()
{
    class Icons : public Orchestra {
    public:
        void willDisplayCell(NSOutlineView& outline, NSCell& cell, NSTableColumn& column, NSObject* item)
        {
            if (column.identifier() == ObjectValue("name"))
                cell.setImage(outline.isExpandable(item) ? icon(Icon::folder) : icon(Icon::note));
        }
        void returnKey(NSOutlineView& outline, NSOutlineView&) { outline.editColumn(0, outline.selectedRow(), nullptr, true); }
    };
    auto const form = Form::page();
    auto const outline = make<PLIXOutlineView>(rectWith({}, wide));
    fillOutline(*outline, *form);
    auto const name = make<PLIXImageAndTextCell>("");
    name->setEditable(true);
    name->setImageSize({ 16, 16 });
    outline->outlineTableColumn()->setDataCell(name);
    outline->setRowHeight(18);
    auto const icons = form->keep(make<Icons>());
    icons->tells = [page = form.get()](std::string const& text) { page->setStatus(text); };
    outline->setDataSource(icons);
    outline->setDelegate(icons);
    outline->setHighlightStyle(PLIXHighlightRounded);
    outline->expandItem(icons->root->children[0].get());
    outline->selectRow(2, false);
    form->addView(scrolled(outline, { 520, 220 }));
    auto const indented = checkBox("Indented", [outline](bool isOn) {
        outline->setHighlightFollowsIndentation(isOn);
        outline->setNeedsDisplay(true);
    });
    indented->setState(NSOnState);
    auto const styles = styleChooser([outline](std::uint32_t style) {
        outline->setHighlightStyle(style);
        outline->setNeedsDisplay(true);
    });
    form->addRow("Selection", { styles, indented });
    auto const enabled = checkBox("Enabled", [outline](bool isOn) { outline->setEnabled(isOn); });
    enabled->setState(NSOnState);
    form->addRow("", { enabled });
    form->addStatus("Return renames what is selected.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXImageAndTextCellPage()
{
    class Files : public NSObject {
    public:
        long numberOfRowsInTableView(NSTableView&) { return 4; }
        ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row)
        {
            return names[static_cast<std::size_t>(row)];
        }
        void setObjectValue(NSTableView&, ObjectValue value, NSTableColumn&, long row)
        {
            names[static_cast<std::size_t>(row)] = value.description();
            if (form)
                form->setStatus("Renamed to " + value.description());
        }
        void willDisplayCell(NSTableView&, NSCell& cell, NSTableColumn&, long row)
        {
            constexpr Icon icons[] { Icon::folder, Icon::note, Icon::paper, Icon::star };
            cell.setImage(icon(icons[row], 32));
        }
        std::vector<std::string> names { "Recordings", "A piece for two flutes", "Programme notes", "Favourites" };
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const files = form->keep(make<Files>());
    files->form = form;
    for (float const side : { 16.0F, 28.0F }) {
        auto const table = make<PLIXTableView>(Rect { 0, 0, 390, 100 });
        auto const cell = make<PLIXImageAndTextCell>("");
        cell->setEditable(true);
        cell->setImageSize({ side, side });
        cell->setFont(NSFont::systemFontOfSize(side * 0.8F));
        addColumn(*table, "name", "Name", 370)->setDataCell(cell);
        table->setRowHeight(side + 2);
        table->setHeaderView(nullptr);
        table->setDataSource(files);
        table->setDelegate(files);
        form->addRow(std::to_string(static_cast<int>(side)) + " points", { scrolled(table, { 390, 4 * (side + 4) + 4 }) });
    }
    form->addStatus("Double-click a name: only the text is edited.");
    form->sizeToRows();
    return form;
}

/// Draws what tables show behind selected rows and where something would be dropped.
Ref<NSView> makeHighlightPainterPage()
{
    class Rows : public NSView {
    public:
        using NSView::init;
        bool isFlipped() const override { return true; }
        void drawRect(Rect) override
        {
            auto const color = NSColor::alternateSelectedControlColor();
            auto const& paint = m_painter.paintFor(color->components());
            Rect row { 0, 0, 520, 24 };
            for (auto const style : { PLIXHighlightRectangle, PLIXHighlightCapsule, PLIXHighlightRounded }) {
                m_painter.drawRow(rowHighlight(row, style, HighlightImage::none, 0), paint);
                row.y += 36;
            }
            m_painter.drawRow(rowHighlight(row, PLIXHighlightRounded, HighlightImage::none, 40), paint);
            row.y += 36;
            drawDropHighlight(dropHighlightRect(row, HighlightImage::none), paint, DropTarget::unselected);
            row.y += 44;
            InsertionMarker const between { { 12, row.y }, { 520, row.y }, { 2, row.y - 4, 8, 8 } };
            drawInsertionMarker(between, paint);
        }

    private:
        HighlightPainter m_painter;
    };
    auto const form = Form::page();
    form->addHeading("Selected rows, indentation, a drop target, a place between");
    form->addView(make<Rows>(Rect { 0, 0, 520, 210 }));
    form->addNote("Where each goes is said by plain functions of row_highlight.h; the painter carries that out.");
    form->sizeToRows();
    return form;
}

/// The image that selected rows are filled with, made for a height and kept.
Ref<NSView> makeHighlightGradientPage()
{
    class Rows : public NSView {
    public:
        using NSView::init;
        bool isFlipped() const override { return true; }
        void drawRect(Rect) override
        {
            float y = 0;
            for (float const height : { 14.0F, 17.0F, 20.0F, 28.0F, 40.0F }) {
                auto const image = m_gradient.imageForRowHeight(height, HighlightGradient::Orientation::flipped);
                image->drawInRect({ 0, y, 380, height }, {}, NSCompositeSourceOver, 1);
                y += height + 12;
            }
        }

    private:
        HighlightGradient m_gradient;
    };
    auto const form = Form::page();
    form->addRow("14 to 40 points", { make<Rows>(Rect { 0, 0, 380, 180 }) });
    form->addNote("It is in the user’s highlight colour and lighter at the top, 64 points wide, and drawn as wide as the row.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "tables_pages.cpp";
constexpr Page familyPages[] {
    { "NSTableView", "Table", tablesSection, source, makeNSTableViewPage },
    { "NSTableColumn", "Column", tablesSection, source, makeNSTableColumnPage },
    { "NSTableHeaderView", "Header", tablesSection, source, makeNSTableHeaderViewPage },
    { "NSTableHeaderCell", "Header cell", tablesSection, source, makeNSTableHeaderCellPage },
    { "NSTableCornerView", "Corner", tablesSection, source, makeNSTableCornerViewPage },
    { "NSOutlineView", "Outline", tablesSection, source, makeNSOutlineViewPage },
    { "NSDraggingInfo", "Dragging rows", tablesSection, source, makeNSDraggingInfoPage },
    { "PLIXTableView", "Table with the library’s looks", tablesSection, source, makePLIXTableViewPage },
    { "PLIXOutlineView", "Outline with the library’s looks", tablesSection, source, makePLIXOutlineViewPage },
    { "PLIXNSTableHeaderView", "Header that fits columns", tablesSection, source, makePLIXNSTableHeaderViewPage },
    { "PLIXImageAndTextCell", "Picture and text", tablesSection, source, makePLIXImageAndTextCellPage },
    { "HighlightPainter", "Highlights", tablesSection, source, makeHighlightPainterPage },
    { "HighlightGradient", "Gradient of selected rows", tablesSection, source, makeHighlightGradientPage },
};

}

std::span<Page const> tablesPages()
{
    return familyPages;
}

}
