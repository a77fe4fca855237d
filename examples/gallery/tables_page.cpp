#include "tables_page.h"
#include "picture_samples.h"

#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/tables/PLIXImageAndTextCell.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>

#include <functional>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 20;
constexpr float gap = 16;
constexpr Size place { 210, 104 };
constexpr float captionHeight = 16;
constexpr int placesInRow = 3;

struct City {
    char const* name;
    char const* country;
};
constexpr City cities[] { { "Lisbon", "Portugal" }, { "Oslo", "Norway" }, { "Ravenna", "Italy" }, { "Turku", "Finland" } };

class CityRows final : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return count; }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        auto const& city = cities[row];
        return column.identifier() == ObjectValue("name") ? city.name : city.country;
    }
    long count { std::ssize(cities) };
};

/// A part of a tree that is told its text.
class Node final : public NSObject {
public:
    char const* text { "" };
    std::vector<Ref<Node>> children;
};

Ref<Node> makeNode(char const* text, std::vector<Ref<Node>> children = {})
{
    auto node = make<Node>();
    node->text = text;
    node->children = std::move(children);
    return node;
}

class Continents final : public NSObject {
public:
    long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return std::ssize(childrenOf(item)); }
    Ref<NSObject> child(NSOutlineView&, long index, NSObject* item) { return childrenOf(item)[static_cast<std::size_t>(index)]; }
    bool isItemExpandable(NSOutlineView&, NSObject* item) { return !childrenOf(item).empty(); }
    ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject* item)
    {
        return item ? static_cast<Node*>(item)->text : "";
    }
    std::vector<Ref<Node>> roots { makeNode("Europe", { makeNode("Norway", { makeNode("Oslo") }), makeNode("Portugal") }),
        makeNode("Oceania", { makeNode("Fiji") }) };

private:
    std::vector<Ref<Node>> const& childrenOf(NSObject* item) { return item ? static_cast<Node*>(item)->children : roots; }
};

/// What a view shows here whatever window it is in.
struct Staging {
    bool isActive { false };
    std::function<void(NSTableView&)> drawOver;
};

/// A table or outline that looks as if it had the keyboard, or as if something were dragged over it.
template <typename View> class Staged final : public View {
public:
    using View::init;
    Staging staging;

    void drawRect(Rect rect) override
    {
        View::drawRect(rect);
        if (staging.drawOver)
            staging.drawOver(*this);
    }
    void highlightSelectionInClipRect(Rect clipRect) override
    {
        if (!staging.isActive) {
            View::highlightSelectionInClipRect(clipRect);
            return;
        }
        auto const base = NSColor::alternateSelectedControlColor()->components();
        auto paint = m_painter.paintFor(base);
        paint.gradient = this->highlightGradientImage();
        for (long const row : this->selectedRowIndexes().indexes()) {
            int const indentation = this->highlightIndentation(row);
            m_painter.drawRow(rowHighlight(this->rectOfRow(row), this->highlightStyle(), HighlightImage::none, indentation), paint);
        }
    }

private:
    HighlightPainter m_painter;
};

class Desk final : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(dirty);
    }
    /// In the next place of the page.
    void add(std::string_view caption, NSTableView& view, Ref<NSObject> const& source)
    {
        float const x = margin + static_cast<float>(m_count % placesInRow) * (place.width + gap);
        float const y = margin + static_cast<float>(m_count / placesInRow) * (place.height + captionHeight + gap);
        ++m_count;
        auto const label = NSTextField::labelWithString(caption);
        label->setFont(NSFont::boldSystemFontOfSize(11));
        label->setFrame({ x, y, place.width, captionHeight });
        addSubview(*label);
        auto const scrollView = make<NSScrollView>(Rect { x, y + captionHeight + 2, place.width, place.height });
        scrollView->setBorderType(NSBezelBorder);
        scrollView->setDocumentView(&view);
        addSubview(*scrollView);
        m_sources.push_back(source);
    }

private:
    int m_count { 0 };
    std::vector<Ref<NSObject>> m_sources;
};

void addColumn(NSTableView& view, char const* identifier, char const* title, float width)
{
    auto const column = make<NSTableColumn>(ObjectValue(identifier));
    column->headerCell()->setStringValue(title);
    column->setWidth(width);
    column->dataCell()->setFont(NSFont::systemFontOfSize(12));
    column->dataCell()->setLineBreakMode(NSLineBreakByTruncatingTail);
    view.addTableColumn(*column);
}

Ref<Staged<PLIXTableView>> makeTable(Ref<CityRows> const& rows)
{
    auto table = make<Staged<PLIXTableView>>(rectWith({}, place));
    table->setRowHeight(17);
    table->setAllowsMultipleSelection(true);
    addColumn(*table, "name", "Name", 96);
    addColumn(*table, "country", "Country", 96);
    table->setDataSource(rows);
    return table;
}

void addHighlights(Desk& desk)
{
    struct Style {
        PLIXHighlightStyle style;
        char const* active;
        char const* inactive;
    };
    static constexpr Style styles[] { { PLIXHighlightRectangle, "Rectangle", "Rectangle, inactive" },
        { PLIXHighlightCapsule, "Capsule", "Capsule, inactive" }, { PLIXHighlightRounded, "Rounded", "Rounded, inactive" } };
    for (bool const isActive : { true, false }) {
        for (auto const& style : styles) {
            auto const rows = make<CityRows>();
            auto const table = makeTable(rows);
            table->setHighlightStyle(style.style);
            table->staging.isActive = isActive;
            table->selectRowIndexes({ 1, 3 }, false);
            desk.add(isActive ? style.active : style.inactive, *table, rows);
        }
    }
}

/// What is dragged over a table that has the keyboard.
HighlightPaint activePaint()
{
    auto const fill = NSColor::alternateSelectedControlColor();
    auto const edge = selectionEdge(fill->components());
    return { fill, NSColor::colorWithCalibratedRed(edge.red, edge.green, edge.blue, edge.alpha), nullptr };
}

void addDrops(Desk& desk)
{
    struct Drop {
        char const* caption;
        std::function<void(NSTableView&)> draw;
    };
    auto const highlight = [](NSTableView& table, long row, DropTarget target) {
        drawDropHighlight(dropHighlightRect(table.rectOfRow(row), HighlightImage::none), activePaint(), target);
    };
    Drop const drops[] {
        { "Drop on a row",
            [highlight](NSTableView& table) {
                highlight(table, 1, DropTarget::unselected);
                highlight(table, 3, DropTarget::selected);
            } },
        { "Drop between rows",
            [](NSTableView& table) {
                InsertionPlace const between { 1, 2, table.numberOfRows(), {}, table.rectOfRow(2), {} };
                drawInsertionMarker(insertionMarker(between, 10), activePaint());
            } },
        { "Drop on the table", [](NSTableView& table) { drawDropFrame(table.superview()->bounds(), activePaint()); } },
    };
    float const lineWidth = NSBezierPath::defaultLineWidth();
    for (auto const& drop : drops) {
        auto const rows = make<CityRows>();
        auto const table = makeTable(rows);
        table->selectRow(3, false);
        table->staging.isActive = true;
        table->staging.drawOver = [draw = drop.draw, lineWidth](NSTableView& view) {
            draw(view);
            NSBezierPath::setDefaultLineWidth(lineWidth);
        };
        desk.add(drop.caption, *table, rows);
    }
}

/// The sample of a folder, a little larger than the box that cells show it in.
Ref<NSImage> folderImage()
{
    auto const folder = PictureSamples::make().folder;
    auto image = make<NSImage>(Size { 26, 26 });
    FocusLock const focus(image);
    folder->drawInRect({ 0, 0, 26, 26 }, {}, NSCompositeSourceOver, 1);
    return image;
}

void addImageCells(Desk& desk)
{
    static constexpr char const* captions[] { "Images in proportion", "Images to fit", "Images not scaled" };
    auto const picture = folderImage();
    for (int scaling = 0; scaling < 3; ++scaling) {
        auto const rows = make<CityRows>();
        auto const table = makeTable(rows);
        auto const cell = make<PLIXImageAndTextCell>("");
        cell->setFont(NSFont::systemFontOfSize(12));
        cell->setImage(picture);
        cell->setImageScaling(scaling);
        cell->setImageSize({ 22, 15 });
        table->tableColumns()[0]->setDataCell(cell);
        table->setHighlightStyle(PLIXHighlightRounded);
        table->staging.isActive = true;
        table->selectRow(1, false);
        desk.add(captions[scaling], *table, rows);
    }
}

Ref<Staged<PLIXOutlineView>> makeOutline(Ref<Continents> const& tree)
{
    auto outline = make<Staged<PLIXOutlineView>>(rectWith({}, place));
    outline->setRowHeight(17);
    addColumn(*outline, "name", "Place", 192);
    outline->setOutlineTableColumn(outline->tableColumns()[0].get());
    outline->setDataSource(tree);
    outline->expandItem(tree->roots[0].get(), true);
    return outline;
}

void addOutlinesAndMessage(Desk& desk)
{
    auto const tree = make<Continents>();
    auto const outline = makeOutline(tree);
    outline->setHighlightStyle(PLIXHighlightCapsule);
    outline->staging.isActive = true;
    outline->selectRow(2, false);
    desk.add("Outline", *outline, tree);

    auto const grayTree = make<Continents>();
    auto const gray = makeOutline(grayTree);
    gray->selectRow(1, false);
    desk.add("Outline, disabled", *gray, grayTree);
    gray->setEnabled(false);

    auto const nothing = make<CityRows>();
    nothing->count = 0;
    auto const empty = makeTable(nothing);
    empty->setEmptyString("No cities");
    desk.add("Empty, with a message", *empty, nothing);
}

}

Ref<NSView> makeTablesPage()
{
    constexpr float width = 2 * margin + placesInRow * place.width + (placesInRow - 1) * gap;
    constexpr float height = 2 * margin + 5 * (place.height + captionHeight + gap);
    auto desk = make<Desk>(Rect { 0, 0, width, height });
    addHighlights(*desk);
    addDrops(*desk);
    addImageCells(*desk);
    addOutlinesAndMessage(*desk);
    return desk;
}

}
