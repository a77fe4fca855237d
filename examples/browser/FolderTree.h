#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <functional>
#include <string>
#include <vector>

namespace plix {

class NSCell;
class NSDraggingInfo;
class NSOutlineView;
class NSPasteboard;
class NSScrollView;
class NSTableColumn;
class PLIXOutlineView;
struct NSNotification;

}

namespace browser {

/// The machine's folders in an outline. A folder is read when it is expanded; folders in it take what is dropped on them.
class FolderTree : public plix::NSObject {
    PLIX_CLASS(FolderTree, plix::NSObject);

public:
    struct Actions {
        std::function<void(std::string const& path)> select;
        std::function<void(std::vector<std::string> const& paths, std::string const& folder)> drop;
    };

    FolderTree();
    ~FolderTree() override;
    bool init();
    void setActions(Actions actions) { m_actions = std::move(actions); }

    plix::NSScrollView& scrollView() const { return *m_scrollView; }
    plix::PLIXOutlineView& outline() const { return *m_outline; }

    /// Expands the folders above a path and selects it, without telling anybody.
    void showPath(std::string const& absolutePath);
    /// Reads the folders in one again, where they have been read.
    void folderChanged(std::string const& absolutePath);
    std::string selectedPath() const;

    // As the outline's data source and delegate.
    long numberOfChildrenOfItem(plix::NSOutlineView&, plix::NSObject* item);
    plix::Ref<plix::NSObject> child(plix::NSOutlineView&, long index, plix::NSObject* item);
    bool isItemExpandable(plix::NSOutlineView&, plix::NSObject* item);
    plix::ObjectValue objectValueForTableColumn(plix::NSOutlineView&, plix::NSTableColumn&, plix::NSObject* item);
    void willDisplayCell(plix::NSOutlineView&, plix::NSCell&, plix::NSTableColumn&, plix::NSObject* item);
    void outlineViewSelectionDidChange(plix::NSNotification const&);
    unsigned validateDrop(plix::NSOutlineView&, plix::NSDraggingInfo&, plix::NSObject* item, long childIndex);
    bool acceptDrop(plix::NSOutlineView&, plix::NSDraggingInfo&, plix::NSObject* item, long childIndex);

private:
    class Folder;

    Folder* folderAtPath(std::string const& path, bool expands);

    plix::Ref<plix::NSScrollView> m_scrollView;
    plix::Ref<plix::PLIXOutlineView> m_outline;
    plix::Ref<Folder> m_root;
    Actions m_actions;
    bool m_isQuiet { false };
};

}
