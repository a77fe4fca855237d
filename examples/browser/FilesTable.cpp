#include "FilesTable.h"
#include "EntriesView.h"
#include "file_facts.h"
#include "icons.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/tables/PLIXImageAndTextCell.h>

#include <algorithm>
#include <tuple>

namespace browser {

using namespace plix;

namespace {

constexpr float rowHeight = 20;
constexpr float iconSide = 16;

struct ColumnPlan {
    char const* identifier;
    char const* title;
    float width;
    NSTextAlignment alignment;
    SortKey key;
};
constexpr ColumnPlan columns[] {
    { "name", "Name", 240, NSLeftTextAlignment, SortKey::name },
    { "size", "Size", 80, NSRightTextAlignment, SortKey::size },
    { "kind", "Kind", 90, NSLeftTextAlignment, SortKey::kind },
    { "date", "Modified", 120, NSLeftTextAlignment, SortKey::date },
};

ColumnPlan const& planOf(NSTableColumn const& column)
{
    return *std::ranges::find_if(columns, [&](auto const& plan) { return column.identifier() == ObjectValue(plan.identifier); });
}

// A small triangle that points the way the values grow.
Ref<NSImage> sortIndicator(bool isDescending)
{
    auto image = make<NSImage>(Size { 9, 6 });
    FocusLock const focus(*image);
    auto const triangle = NSBezierPath::bezierPath();
    float const base = isDescending ? 5.5F : 0.5F;
    triangle->moveToPoint({ 0.5F, base });
    triangle->lineToPoint({ 8.5F, base });
    triangle->lineToPoint({ 4.5F, isDescending ? 0.5F : 5.5F });
    triangle->closePath();
    Theme::current().color(ThemeRole::headerText)->set();
    triangle->fill();
    return image;
}

}

Ref<NSImage> iconImage(EntryKind kind, bool isLink)
{
    static auto& s_icons = *new std::map<std::tuple<EntryKind, bool, Appearance>, Ref<NSImage>>;
    auto& icon = s_icons[{ kind, isLink, currentAppearance() }];
    if (!icon) {
        icon = make<NSImage>(Size { iconSide, iconSide });
        icon->setFlipped(true);
        FocusLock const focus(*icon);
        drawIcon(kind, isLink, { 0, 0, iconSide, iconSide });
    }
    return icon;
}

std::vector<std::string> pathsOn(NSPasteboard& board)
{
    std::vector<std::string> paths;
    auto const names = board.propertyListForType(NSFilenamesPboardType);
    for (auto const& name : names.array() ? *names.array() : ObjectValue::Array {})
        paths.push_back(name.description());
    return paths;
}

PLIX_DESCRIBE(FilesTable)
{
}

FilesTable::FilesTable() = default;
FilesTable::~FilesTable() = default;

std::function<void()> FilesTable::whileAlive(std::function<void(FilesTable&)> call)
{
    return [weakly = Weak<FilesTable>(*this), call = std::move(call)] {
        if (auto const files = weakly.ref())
            call(*files);
    };
}

bool FilesTable::init()
{
    m_scrollView = make<NSScrollView>(Rect { 0, 0, 400, 300 });
    m_scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_scrollView->setHasVerticalScroller(true);
    m_scrollView->setAutohidesScrollers(true);
    auto const view = make<EntriesView>(rectWith({}, m_scrollView->contentSize()));
    view->setCommands({
        .leave = whileAlive([](FilesTable& files) { files.leave(); }),
        .info = whileAlive([](FilesTable& files) { files.showInfo(); }),
        .total = whileAlive([](FilesTable& files) { files.showTotal(); }),
        .copy = whileAlive([](FilesTable& files) { files.copySelected(); }),
        .paste = whileAlive([](FilesTable& files) { files.paste(); }),
        .preferences = whileAlive([](FilesTable& files) { files.showPreferences(); }),
    });
    m_table = view;
    m_table->setRowHeight(rowHeight);
    m_table->setAllowsMultipleSelection(true);
    m_table->setVerticalMotionCanBeginDrag(true);
    m_table->setColumnAutoresizingStyle(NSTableViewFirstColumnOnlyAutoresizingStyle);
    m_table->setUsesAlternatingRowBackgroundColors(true);
    makeColumns();
    m_table->setDataSource(Ref<FilesTable>(this));
    m_table->setDelegate(Ref<FilesTable>(this));
    m_table->setDoubleActionFunction([weakly = Weak<FilesTable>(*this)](NSTableView& table) {
        if (auto const files = weakly.ref(); files && table.clickedRow() >= 0)
            files->openSelected();
    });
    m_table->registerForDraggedTypes({ NSFilenamesPboardType });
    m_table->setDraggingSourceOperationMask(NSDragOperationMove, true);
    m_table->setMenu(makeMenu());
    m_table->tableHeaderView()->setOffersColumnMenu(true);
    m_scrollView->setDocumentView(m_table);
    showOrder();
    return true;
}

void FilesTable::makeColumns()
{
    for (auto const& plan : columns) {
        auto const column = make<NSTableColumn>(ObjectValue(plan.identifier));
        column->headerCell()->setStringValue(plan.title);
        column->headerCell()->setAlignment(plan.alignment);
        column->setWidth(plan.width);
        column->setMinWidth(40);
        column->setEditable(false);
        if (plan.key == SortKey::name) {
            auto const cell = make<PLIXImageAndTextCell>("");
            cell->setImageSize({ iconSide, iconSide });
            cell->setLineBreakMode(NSLineBreakByTruncatingMiddle);
            column->setDataCell(cell);
        } else {
            column->dataCell()->setAlignment(plan.alignment);
            column->dataCell()->setLineBreakMode(NSLineBreakByTruncatingTail);
        }
        m_table->addTableColumn(*column);
    }
}

Ref<NSMenu> FilesTable::makeMenu()
{
    auto menu = make<NSMenu>();
    menu->setAutoenablesItems(false);
    // The menu may be open when the table's window goes.
    auto const add = [this](NSMenu& to, std::string const& title, std::string_view key, auto call) {
        to.addItemWithTitle(title, {}, key)->setActionFunction([call = whileAlive(call)](NSObject*) { call(); });
    };
    add(*menu, "Open", "", [](FilesTable& files) { files.openSelected(); });
    add(*menu, "Info", "i", [](FilesTable& files) { files.showInfo(); });
    add(*menu, "Total Size", "t", [](FilesTable& files) { files.showTotal(); });
    menu->addItem(*NSMenuItem::separatorItem());
    add(*menu, "Copy", "c", [](FilesTable& files) { files.copySelected(); });
    add(*menu, "Paste", "v", [](FilesTable& files) { files.paste(); });
    add(*menu, "Delete…", "", [](FilesTable& files) { files.removeSelected(); });
    menu->addItem(*NSMenuItem::separatorItem());
    auto const sorting = make<NSMenu>("Sort By");
    sorting->setAutoenablesItems(false);
    for (auto const& plan : columns)
        add(*sorting, plan.title, "", [key = plan.key](FilesTable& files) { files.sortBy(key, false); });
    menu->addItemWithTitle("Sort By", {}, "")->setSubmenu(sorting);
    menu->addItem(*NSMenuItem::separatorItem());
    add(*menu, "Preferences…", ",", [](FilesTable& files) { files.showPreferences(); });
    return menu;
}

// MARK: entries

void FilesTable::setEntries(std::vector<FolderEntry> const* entries, std::string folderPath)
{
    m_entries = entries;
    m_folderPath = std::move(folderPath);
    m_table->deselectAll(nullptr);
    takeEntries();
    sortBy(m_sortKey, m_isDescending);
    m_table->scrollRowToVisible(0);
}

void FilesTable::takeEntries()
{
    m_order.clear();
    for (std::size_t i = 0; m_entries && i < m_entries->size(); ++i) {
        if (isShown((*m_entries)[i]))
            m_order.push_back(i);
    }
}

bool FilesTable::isShown(FolderEntry const& entry) const
{
    return (m_showsHiddenFiles || !entry.isHidden()) && (!m_filter || m_filter(entry));
}

void FilesTable::setFilter(std::function<bool(FolderEntry const&)> filter)
{
    m_filter = std::move(filter);
    showEntriesAnew();
}

void FilesTable::setShowsHiddenFiles(bool shows)
{
    if (m_showsHiddenFiles == shows)
        return;
    m_showsHiddenFiles = shows;
    showEntriesAnew();
}

void FilesTable::setShowsExactSizes(bool shows)
{
    if (m_showsExactSizes == shows)
        return;
    m_showsExactSizes = shows;
    m_table->setNeedsDisplay(true);
}

void FilesTable::showEntriesAnew()
{
    auto const* selected = selectedEntry();
    m_table->deselectAll(nullptr);
    takeEntries();
    sortBy(m_sortKey, m_isDescending);
    selectName(selected ? selected->name : std::string_view {});
}

FolderEntry const& FilesTable::entryAt(long row) const
{
    return m_entries->at(m_order.at(static_cast<std::size_t>(row)));
}

long FilesTable::rowOfName(std::string_view name) const
{
    for (std::size_t row = 0; row < m_order.size(); ++row) {
        if (entryAt(static_cast<long>(row)).name == name)
            return static_cast<long>(row);
    }
    return -1;
}

void FilesTable::selectName(std::string_view name)
{
    long const row = std::max(0L, rowOfName(name));
    if (m_order.empty())
        return;
    m_table->selectRow(row, false);
    m_table->scrollRowToVisible(row);
}

std::vector<std::string> FilesTable::selectedNames() const
{
    std::vector<std::string> names;
    for (long row = 0; row < static_cast<long>(m_order.size()); ++row) {
        if (m_table->isRowSelected(row))
            names.push_back(entryAt(row).name);
    }
    return names;
}

FolderEntry const* FilesTable::selectedEntry() const
{
    long const row = m_table->selectedRow();
    return row >= 0 ? &entryAt(row) : nullptr;
}

void FilesTable::setMessage(std::string const& message)
{
    m_table->setEmptyString(message);
    m_table->setNeedsDisplay(true);
}

void FilesTable::sortBy(SortKey key, bool isDescending)
{
    auto const selected = selectedNames();
    m_sortKey = key;
    m_isDescending = isDescending;
    std::ranges::stable_sort(m_order,
        [&](std::size_t a, std::size_t b) { return comesInOrder((*m_entries)[a], (*m_entries)[b], m_sortKey, m_isDescending); });
    m_table->reloadData();
    NSIndexSet rows;
    for (auto const& name : selected)
        rows.addIndex(rowOfName(name));
    if (!selected.empty())
        m_table->selectRowIndexes(rows, false);
    showOrder();
}

void FilesTable::showOrder()
{
    for (auto const& column : m_table->tableColumns()) {
        bool const isSorted = planOf(*column).key == m_sortKey;
        m_table->setIndicatorImage(isSorted ? sortIndicator(m_isDescending) : nullptr, *column);
        if (isSorted)
            m_table->setHighlightedTableColumn(column.get());
    }
}

// MARK: what a person does

void FilesTable::openSelected()
{
    auto const* entry = selectedEntry();
    if (entry && m_actions.open)
        m_actions.open(*entry);
}

void FilesTable::leave()
{
    if (m_actions.leave)
        m_actions.leave();
}

void FilesTable::showInfo()
{
    if (m_actions.info)
        m_actions.info();
}

void FilesTable::showTotal()
{
    auto const names = selectedNames();
    if (names.empty())
        NSBeep();
    else if (m_actions.total)
        m_actions.total(names);
}

void FilesTable::showPreferences()
{
    if (m_actions.preferences)
        m_actions.preferences();
}

void FilesTable::copySelected()
{
    auto const names = selectedNames();
    if (names.empty())
        return NSBeep();
    ObjectValue::Array paths;
    std::string text;
    for (auto const& name : names) {
        paths.emplace_back(pathInFolder(m_folderPath, name));
        text += (text.empty() ? "" : "\n") + validUTF8(pathInFolder(m_folderPath, name));
    }
    auto& board = NSPasteboard::generalPasteboard();
    board.declareTypes({ NSFilenamesPboardType, NSStringPboardType });
    board.setPropertyList(std::move(paths), NSFilenamesPboardType);
    board.setString(text, NSStringPboardType);
}

void FilesTable::paste()
{
    auto const paths = pathsOn(NSPasteboard::generalPasteboard());
    if (paths.empty() || !m_actions.paste)
        return NSBeep();
    m_actions.paste(paths);
}

void FilesTable::removeSelected()
{
    auto const names = selectedNames();
    if (!names.empty() && m_actions.remove)
        m_actions.remove(names);
}

void FilesTable::returnKey(NSTableView&, NSTableView&)
{
    openSelected();
}

void FilesTable::deleteBackward(NSTableView&, NSTableView&)
{
    removeSelected();
}

void FilesTable::tableViewSelectionDidChange(NSNotification const&)
{
    if (m_actions.select)
        m_actions.select();
}

void FilesTable::didClickTableColumn(NSTableView&, NSTableColumn& column)
{
    auto const key = planOf(column).key;
    sortBy(key, key == m_sortKey && !m_isDescending);
}

// MARK: rows

long FilesTable::numberOfRowsInTableView(NSTableView&)
{
    return static_cast<long>(m_order.size());
}

ObjectValue FilesTable::objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
{
    auto const& entry = entryAt(row);
    switch (planOf(column).key) {
    case SortKey::name:
        return entry.shownName;
    case SortKey::size:
        return m_showsExactSizes && entry.kind == EntryKind::file ? exactSizeText(entry.size) : sizeText(entry);
    case SortKey::kind:
        return kindText(entry);
    case SortKey::date:
        return dateText(entry);
    }
    return {};
}

void FilesTable::willDisplayCell(NSTableView&, NSCell& cell, NSTableColumn& column, long row)
{
    auto const& entry = entryAt(row);
    if (planOf(column).key == SortKey::name)
        cell.setImage(iconImage(entry.kind, entry.isLink));
    auto* text = dynamic_cast<NSTextFieldCell*>(&cell);
    if (text && !m_table->isRowSelected(row)) {
        bool const isPale = planOf(column).key != SortKey::name || entry.isHidden();
        text->setTextColor(isPale ? Theme::current().color(ThemeRole::secondaryText) : NSColor::controlTextColor());
    }
}

// MARK: dragging

bool FilesTable::writeRowsWithIndexes(NSTableView&, NSIndexSet const& rows, NSPasteboard& board)
{
    ObjectValue::Array paths;
    for (long row = 0; row < static_cast<long>(m_order.size()); ++row) {
        if (rows.containsIndex(row))
            paths.emplace_back(pathInFolder(m_folderPath, entryAt(row).name));
    }
    board.declareTypes({ NSFilenamesPboardType });
    return board.setPropertyList(std::move(paths), NSFilenamesPboardType);
}

unsigned FilesTable::validateDrop(NSTableView& table, NSDraggingInfo& info, long row, NSTableViewDropOperation operation)
{
    bool const isOnFolder = operation == NSTableViewDropOn && row >= 0 && row < static_cast<long>(m_order.size())
        && entryAt(row).kind == EntryKind::folder && !table.isRowSelected(row);
    if (isOnFolder)
        return NSDragOperationMove;
    // Anywhere else the shown folder takes what comes from elsewhere.
    if (info.draggingSource() == &table)
        return NSDragOperationNone;
    table.setDropRow(-1, NSTableViewDropOn);
    return NSDragOperationMove;
}

bool FilesTable::acceptDrop(NSTableView&, NSDraggingInfo& info, long row, NSTableViewDropOperation)
{
    auto const paths = pathsOn(info.draggingPasteboard());
    if (paths.empty() || !m_actions.drop)
        return false;
    m_actions.drop(paths, row >= 0 ? entryAt(row).name : "");
    return true;
}

}
