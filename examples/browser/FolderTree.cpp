#include "FolderTree.h"
#include "FilesTable.h"
#include "FolderReader.h"

#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/tables/PLIXImageAndTextCell.h>
#include <plix/tables/PLIXOutlineView.h>

#include <algorithm>

namespace browser {

using namespace plix;

namespace {

constexpr float rowHeight = 20;
constexpr float iconSide = 16;
/// A folder with more folders in it shows these.
constexpr std::size_t mostFolders = 20000;

}

class FolderTree::Folder : public NSObject {
public:
    bool init(std::string folderPath, std::string folderName)
    {
        path = std::move(folderPath);
        name = std::move(folderName);
        return true;
    }
    std::vector<Ref<Folder>> const& folders()
    {
        if (!m_isRead)
            read();
        return m_folders;
    }
    bool isRead() const { return m_isRead; }
    /// Folders that were there stay the same objects.
    void read()
    {
        m_isRead = true;
        FolderReader reader(path);
        while (!reader.isFinished() && reader.entriesRead() < mostFolders)
            reader.readSome(1000);
        auto const old = std::exchange(m_folders, {});
        if (!reader.isFinished())
            return;
        for (auto const& entry : reader.takeEntries()) {
            if (entry.kind != EntryKind::folder || entry.isLink || entry.isHidden())
                continue;
            auto const known = std::ranges::find(old, entry.name, [](auto const& folder) { return folder->name; });
            m_folders.push_back(known == old.end() ? make<Folder>(pathInFolder(path, entry.name), entry.name) : *known);
        }
    }

    std::string path;
    std::string name;

private:
    std::vector<Ref<Folder>> m_folders;
    bool m_isRead { false };
};

PLIX_DESCRIBE(FolderTree)
{
}

FolderTree::FolderTree() = default;
FolderTree::~FolderTree() = default;

bool FolderTree::init()
{
    m_root = make<Folder>("/", "/");
    m_scrollView = make<NSScrollView>(Rect { 0, 0, 180, 300 });
    m_scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_scrollView->setHasVerticalScroller(true);
    m_scrollView->setAutohidesScrollers(true);
    m_outline = make<PLIXOutlineView>(rectWith({}, m_scrollView->contentSize()));
    m_outline->setRowHeight(rowHeight);
    m_outline->setHeaderView(nullptr);
    m_outline->setCornerView(nullptr);
    m_outline->setColumnAutoresizingStyle(NSTableViewLastColumnOnlyAutoresizingStyle);
    auto const column = make<NSTableColumn>(ObjectValue("folder"));
    column->setEditable(false);
    auto const cell = make<PLIXImageAndTextCell>("");
    cell->setImageSize({ iconSide, iconSide });
    cell->setLineBreakMode(NSLineBreakByTruncatingTail);
    column->setDataCell(cell);
    column->setWidth(180);
    m_outline->addTableColumn(*column);
    m_outline->setOutlineTableColumn(column.get());
    m_outline->setDataSource(Ref<FolderTree>(this));
    m_outline->setDelegate(Ref<FolderTree>(this));
    m_outline->registerForDraggedTypes({ NSFilenamesPboardType });
    m_scrollView->setDocumentView(m_outline);
    m_outline->sizeLastColumnToFit();
    m_outline->reloadData();
    return true;
}

// MARK: paths

FolderTree::Folder* FolderTree::folderAtPath(std::string const& path, bool expands)
{
    auto* folder = m_root.get();
    while (folder->path != path) {
        if (expands)
            m_outline->expandItem(folder);
        else if (!folder->isRead())
            return nullptr;
        auto const& folders = folder->folders();
        auto const next = std::ranges::find_if(
            folders, [&](auto const& inside) { return path == inside->path || path.starts_with(inside->path + '/'); });
        if (next == folders.end())
            return expands ? folder : nullptr;
        folder = next->get();
    }
    return folder;
}

void FolderTree::showPath(std::string const& path)
{
    m_isQuiet = true;
    long const row = m_outline->rowForItem(folderAtPath(path, true));
    if (row >= 0) {
        m_outline->selectRow(row, false);
        m_outline->scrollRowToVisible(row);
    }
    m_isQuiet = false;
}

void FolderTree::folderChanged(std::string const& path)
{
    auto* folder = folderAtPath(path, false);
    if (!folder || !folder->isRead())
        return;
    folder->read();
    m_isQuiet = true;
    m_outline->reloadItem(folder, true);
    m_isQuiet = false;
}

std::string FolderTree::selectedPath() const
{
    auto const* folder = dynamic_cast<Folder*>(m_outline->itemAtRow(m_outline->selectedRow()));
    return folder ? folder->path : "";
}

// MARK: rows

long FolderTree::numberOfChildrenOfItem(NSOutlineView&, NSObject* item)
{
    return item ? static_cast<long>(static_cast<Folder*>(item)->folders().size()) : 1;
}

Ref<NSObject> FolderTree::child(NSOutlineView&, long index, NSObject* item)
{
    if (!item)
        return m_root;
    return static_cast<Folder*>(item)->folders().at(static_cast<std::size_t>(index));
}

// A folder is looked into when it is expanded; until then it may have something in it.
bool FolderTree::isItemExpandable(NSOutlineView&, NSObject* item)
{
    auto* folder = static_cast<Folder*>(item);
    return !folder->isRead() || !folder->folders().empty();
}

ObjectValue FolderTree::objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject* item)
{
    return shownName(static_cast<Folder*>(item)->path);
}

void FolderTree::willDisplayCell(NSOutlineView&, NSCell& cell, NSTableColumn&, NSObject*)
{
    cell.setImage(iconImage(EntryKind::folder, false));
}

void FolderTree::outlineViewSelectionDidChange(NSNotification const&)
{
    auto const path = selectedPath();
    if (!m_isQuiet && !path.empty() && m_actions.select)
        m_actions.select(path);
}

// MARK: dropping

unsigned FolderTree::validateDrop(NSOutlineView& outline, NSDraggingInfo&, NSObject* item, long)
{
    if (!item)
        return NSDragOperationNone;
    outline.setDropItem(item, NSOutlineViewDropOnItemIndex);
    return NSDragOperationMove;
}

bool FolderTree::acceptDrop(NSOutlineView&, NSDraggingInfo& info, NSObject* item, long)
{
    auto const paths = pathsOn(info.draggingPasteboard());
    if (paths.empty() || !item || !m_actions.drop)
        return false;
    m_actions.drop(paths, static_cast<Folder*>(item)->path);
    return true;
}

}
