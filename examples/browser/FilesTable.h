#pragma once

#include "folder_entry.h"

#include <plix/platform/appkit/drag_operation.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/ObjectValue.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace plix {

class NSCell;
class NSDraggingInfo;
class NSImage;
class NSMenu;
class NSPasteboard;
class NSScrollView;
class NSTableColumn;
class NSTableView;
class PLIXTableView;
enum NSTableViewDropOperation : int;
struct NSNotification;

}

namespace browser {

/// The entries of a folder in a table: an icon and a name, size, kind and date. Its headers sort it, its rows can be dragged, and
/// folders among them take what is dropped on them.
class FilesTable : public plix::NSObject {
    PLIX_CLASS(FilesTable, plix::NSObject);

public:
    struct Actions {
        std::function<void(FolderEntry const&)> open;
        std::function<void(std::vector<std::string> const& names)> remove;
        /// Paths that were dropped on a folder's name, or on "" for the shown folder itself.
        std::function<void(std::vector<std::string> const& paths, std::string const& folderName)> drop;
        /// Paths that were copied, to go into the shown folder.
        std::function<void(std::vector<std::string> const& paths)> paste;
        std::function<void()> info;
        /// How much there is in what is selected.
        std::function<void(std::vector<std::string> const& names)> total;
        std::function<void()> preferences;
        std::function<void()> select;
        std::function<void()> leave;
    };

    FilesTable();
    ~FilesTable() override;
    bool init();
    void setActions(Actions actions) { m_actions = std::move(actions); }

    plix::NSScrollView& scrollView() const { return *m_scrollView; }
    plix::PLIXTableView& table() const { return *m_table; }

    /// Kept by the caller until others take their place; null for none. Selects nothing.
    void setEntries(std::vector<FolderEntry> const*, std::string folderPath);
    /// Only entries that it lets through are shown; null shows all.
    void setFilter(std::function<bool(FolderEntry const&)>);
    /// True at first.
    void setShowsHiddenFiles(bool);
    /// Sizes to the byte. False at first.
    void setShowsExactSizes(bool);
    std::size_t shownEntries() const { return m_order.size(); }
    FolderEntry const& entryAt(long row) const;
    long rowOfName(std::string_view name) const;
    void selectName(std::string_view name);
    std::vector<std::string> selectedNames() const;
    /// The first one that is selected; null where none is.
    FolderEntry const* selectedEntry() const;
    /// Shown where there are no entries.
    void setMessage(std::string const&);
    void sortBy(SortKey, bool isDescending);
    SortKey sortKey() const { return m_sortKey; }
    bool isDescending() const { return m_isDescending; }

    // As the table's data source and delegate.
    long numberOfRowsInTableView(plix::NSTableView&);
    plix::ObjectValue objectValueForTableColumn(plix::NSTableView&, plix::NSTableColumn&, long row);
    void willDisplayCell(plix::NSTableView&, plix::NSCell&, plix::NSTableColumn&, long row);
    void didClickTableColumn(plix::NSTableView&, plix::NSTableColumn&);
    void tableViewSelectionDidChange(plix::NSNotification const&);
    void returnKey(plix::NSTableView&, plix::NSTableView& sender);
    void deleteBackward(plix::NSTableView&, plix::NSTableView& sender);
    bool writeRowsWithIndexes(plix::NSTableView&, plix::NSIndexSet const&, plix::NSPasteboard&);
    unsigned validateDrop(plix::NSTableView&, plix::NSDraggingInfo&, long row, plix::NSTableViewDropOperation);
    bool acceptDrop(plix::NSTableView&, plix::NSDraggingInfo&, long row, plix::NSTableViewDropOperation);

private:
    void makeColumns();
    plix::Ref<plix::NSMenu> makeMenu();
    void showOrder();
    void takeEntries();
    void showEntriesAnew();
    std::function<void()> whileAlive(std::function<void(FilesTable&)>);
    void openSelected();
    void leave();
    void showInfo();
    void showTotal();
    void showPreferences();
    bool isShown(FolderEntry const&) const;
    void copySelected();
    void paste();
    void removeSelected();

    plix::Ref<plix::NSScrollView> m_scrollView;
    plix::Ref<plix::PLIXTableView> m_table;
    std::vector<FolderEntry> const* m_entries { nullptr };
    std::function<bool(FolderEntry const&)> m_filter;
    /// The entries that are shown, in the order of the rows.
    std::vector<std::size_t> m_order;
    std::string m_folderPath;
    Actions m_actions;
    bool m_showsHiddenFiles { true };
    bool m_showsExactSizes { false };
    SortKey m_sortKey { SortKey::name };
    bool m_isDescending { false };
};

/// The paths on a pasteboard, of files that are dragged or were copied.
std::vector<std::string> pathsOn(plix::NSPasteboard&);
/// The picture for an entry, in the present appearance's colours; drawn once each.
plix::Ref<plix::NSImage> iconImage(EntryKind, bool isLink);

}
