#include "PageList.h"
#include "SearchField.h"
#include "bars.h"
#include "page_search.h"

#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/Selector.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/tables/PLIXOutlineView.h>

#include <algorithm>
#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr float rowHeight = 20;
constexpr float footHeight = 24;
constexpr float fieldHeight = 24;

/// Its text stands in the middle of a row, level with the triangle of a section.
class RowCell final : public NSTextFieldCell {
    PLIX_CLASS(RowCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    Rect titleRectForBounds(Rect bounds) const override
    {
        auto place = NSTextFieldCell::titleRectForBounds(bounds);
        float const spare = std::max(0.0F, place.height - std::ceil(cellSize().height));
        place.y += std::floor(spare / 2);
        place.height -= spare;
        return place;
    }
};

PLIX_DESCRIBE(RowCell)
{
}

}

/// A section, or a page in one.
class PageList::Item final : public NSObject {
public:
    bool init(std::string_view itemTitle, Page const* itemPage)
    {
        title = itemTitle;
        page = itemPage;
        return true;
    }

    std::string title;
    Page const* page { nullptr };
    std::vector<Ref<Item>> items;
    /// Those that match what is searched for.
    std::vector<Ref<Item>> shown;
};

PageList::PageList() = default;
PageList::~PageList() = default;

bool PageList::init(Rect frame, std::span<Page const> pages)
{
    if (!NSView::init(frame))
        return false;
    m_pages = pages;
    makeItems(pages);
    makeSearchField();
    makeOutline();
    makeLabels();
    showMatches("");
    return true;
}

void PageList::makeItems(std::span<Page const> pages)
{
    for (auto const& page : pages) {
        if (m_sections.empty() || m_sections.back()->title != page.section)
            m_sections.push_back(make<Item>(page.section, nullptr));
        m_sections.back()->items.push_back(make<Item>(listedName(page), &page));
    }
}

void PageList::makeSearchField()
{
    m_searchField = make<SearchField>(Rect { 10, (barHeight - fieldHeight) / 2, bounds().width - 20, fieldHeight });
    m_searchField->setAutoresizingMask(NSViewWidthSizable);
    m_searchField->setDelegate(Ref<PageList>(this));
    addSubview(*m_searchField);
}

void PageList::makeOutline()
{
    auto const scroll = make<NSScrollView>(Rect { 0, barHeight, bounds().width, bounds().height - barHeight - footHeight });
    scroll->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    scroll->setHasVerticalScroller(true);
    scroll->setAutohidesScrollers(true);
    m_outline = make<PLIXOutlineView>(rectWith({}, scroll->contentSize()));
    m_outline->setRowHeight(rowHeight);
    m_outline->setHeaderView(nullptr);
    m_outline->setCornerView(nullptr);
    m_outline->setColumnAutoresizingStyle(NSTableViewLastColumnOnlyAutoresizingStyle);
    m_outline->setIndentationPerLevel(8);
    m_outline->setHighlightFollowsIndentation(false);
    auto const column = make<NSTableColumn>(ObjectValue("page"));
    column->setEditable(false);
    auto const cell = make<RowCell>("");
    cell->setLineBreakMode(NSLineBreakByTruncatingTail);
    column->setDataCell(cell);
    column->setWidth(bounds().width - 20);
    m_outline->addTableColumn(*column);
    m_outline->setOutlineTableColumn(column.get());
    m_outline->setDataSource(Ref<PageList>(this));
    m_outline->setDelegate(Ref<PageList>(this));
    scroll->setDocumentView(m_outline);
    addSubview(*scroll);
    m_outline->sizeLastColumnToFit();
}

void PageList::makeLabels()
{
    m_countLabel = NSTextField::labelWithString("");
    m_countLabel->setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    m_countLabel->setFrame({ 10, bounds().height - footHeight + 5, bounds().width - 20, 15 });
    m_countLabel->setAutoresizingMask(NSViewWidthSizable | NSViewMinYMargin);
    addSubview(*m_countLabel);
    m_emptyLabel = NSTextField::labelWithString("");
    m_emptyLabel->cell()->setWraps(true);
    m_emptyLabel->setAlignment(NSCenterTextAlignment);
    m_emptyLabel->setTextColor(NSColor::disabledControlTextColor());
    m_emptyLabel->setFrame({ 16, barHeight + 40, bounds().width - 32, 60 });
    m_emptyLabel->setAutoresizingMask(NSViewWidthSizable);
    addSubview(*m_emptyLabel);
}

void PageList::drawRect(Rect)
{
    drawBar({ 0, 0, bounds().width, barHeight }, NSMaxYEdge);
    drawBar({ 0, bounds().height - footHeight, bounds().width, footHeight }, NSMinYEdge);
}

// MARK: searching

void PageList::searchFor(std::string_view query)
{
    m_searchField->setStringValue(query);
    search();
}

void PageList::search()
{
    auto const query = m_searchField->stringValue();
    auto const* const before = m_current;
    showMatches(query);
    auto const* const best = query.empty() ? before : bestMatch(m_shown, query);
    if (!best)
        return;
    selectPage(*best);
    if (best != before && m_select)
        m_select(*best);
}

void PageList::beginSearching()
{
    m_searchField->selectText(nullptr);
}

void PageList::showMatches(std::string_view query)
{
    m_shown = pagesMatching(m_pages, query);
    m_shownSections.clear();
    for (auto const& section : m_sections) {
        section->shown.clear();
        for (auto const& item : section->items) {
            if (std::ranges::find(m_shown, item->page) != m_shown.end())
                section->shown.push_back(item);
        }
        if (!section->shown.empty())
            m_shownSections.push_back(section);
    }
    m_isQuiet = true;
    m_outline->deselectAll(nullptr);
    m_outline->reloadData();
    for (auto const& section : m_shownSections)
        m_outline->expandItem(section.get());
    m_isQuiet = false;
    m_emptyLabel->setHidden(!m_shown.empty());
    m_emptyLabel->setStringValue("No page matches \u201C" + std::string(query) + "\u201D.");
    showCount();
}

void PageList::showCount()
{
    auto const all = std::to_string(m_pages.size());
    bool const areAll = m_shown.size() == m_pages.size();
    m_countLabel->setStringValue((areAll ? all : std::to_string(m_shown.size()) + " of " + all) + " pages");
}

void PageList::controlTextDidChange(NSNotification const&)
{
    search();
}

bool PageList::controlDoCommandBySelector(NSControl&, NSTextView&, Selector command)
{
    if (command == Selector("cancelOperation:") && !m_searchField->stringValue().empty()) {
        m_searchField->clear();
        beginSearching();
        return true;
    }
    bool const goesDown = command == Selector("moveDown:");
    if (!goesDown && command != Selector("moveUp:") && command != Selector("insertNewline:"))
        return false;
    if (m_shown.empty() || !window() || !window()->makeFirstResponder(m_outline.get()))
        return true;
    if (goesDown) {
        m_outline->moveDown(this);
    } else if (command == Selector("moveUp:")) {
        m_outline->moveUp(this);
    }
    return true;
}

// MARK: pages

PageList::Item* PageList::itemOfPage(Page const& page) const
{
    for (auto const& section : m_shownSections) {
        for (auto const& item : section->shown) {
            if (item->page == &page)
                return item.get();
        }
    }
    return nullptr;
}

long PageList::rowOfPage(Page const& page) const
{
    auto* const item = itemOfPage(page);
    return item ? m_outline->rowForItem(item) : -1;
}

void PageList::selectPage(Page const& page)
{
    if (!itemOfPage(page)) {
        m_searchField->setStringValue("");
        showMatches("");
    }
    auto* const item = itemOfPage(page);
    if (!item)
        return;
    m_current = &page;
    m_isQuiet = true;
    m_outline->expandItem(m_outline->parentForItem(item));
    long const row = m_outline->rowForItem(item);
    m_outline->selectRow(row, false);
    m_outline->scrollRowToVisible(row);
    m_isQuiet = false;
}

Page const* PageList::selectedPage() const
{
    auto const* const item = dynamic_cast<Item*>(m_outline->itemAtRow(m_outline->selectedRow()));
    return item ? item->page : nullptr;
}

// MARK: rows

long PageList::numberOfChildrenOfItem(NSOutlineView&, NSObject* item)
{
    return static_cast<long>(item ? static_cast<Item*>(item)->shown.size() : m_shownSections.size());
}

Ref<NSObject> PageList::child(NSOutlineView&, long index, NSObject* item)
{
    auto const& items = item ? static_cast<Item*>(item)->shown : m_shownSections;
    return items.at(static_cast<std::size_t>(index));
}

bool PageList::isItemExpandable(NSOutlineView&, NSObject* item)
{
    return !static_cast<Item*>(item)->page;
}

ObjectValue PageList::objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject* item)
{
    return static_cast<Item*>(item)->title;
}

void PageList::willDisplayCell(NSOutlineView&, NSCell& cell, NSTableColumn&, NSObject* item)
{
    cell.setFont(static_cast<Item*>(item)->page ? NSFont::systemFontOfSize(12) : NSFont::boldSystemFontOfSize(11));
}

bool PageList::shouldSelectItem(NSOutlineView&, NSObject* item)
{
    return static_cast<Item*>(item)->page;
}

void PageList::outlineViewSelectionDidChange(NSNotification const&)
{
    auto const* const page = selectedPage();
    if (!page || m_isQuiet)
        return;
    m_current = page;
    if (m_select)
        m_select(*page);
}

}
