#include <plix/plix.h>

#include <string>
#include <vector>

using namespace plix;

class Folder : public NSObject {
public:
    bool init(std::string name, std::vector<Ref<Folder>> folders)
    {
        m_name = std::move(name);
        m_folders = std::move(folders);
        return NSObject::init();
    }
    std::string const& name() const { return m_name; }
    std::vector<Ref<Folder>> const& folders() const { return m_folders; }

private:
    std::string m_name;
    std::vector<Ref<Folder>> m_folders;
};

class Folders : public NSObject {
public:
    bool init(Ref<Folder> const& top)
    {
        m_top = top;
        return NSObject::init();
    }

    long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return static_cast<long>(folder(item).folders().size()); }
    Ref<NSObject> child(NSOutlineView&, long index, NSObject* item)
    {
        return folder(item).folders()[static_cast<std::size_t>(index)];
    }
    bool isItemExpandable(NSOutlineView&, NSObject* item) { return !folder(item).folders().empty(); }
    ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject* item) { return folder(item).name(); }

private:
    Folder const& folder(NSObject* item) const { return item ? static_cast<Folder&>(*item) : *m_top; }

    Ref<Folder> m_top;
};

Ref<Folder> folder(char const* name, std::vector<Ref<Folder>> folders = {})
{
    return make<Folder>(name, std::move(folders));
}

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const letters = folder("Letters", { folder("Family"), folder("Work") });
    auto const pictures = folder("Pictures", { folder("Summer", { folder("Sea") }), folder("Winter") });
    auto const folders = make<Folders>(folder("", { letters, folder("Music"), pictures }));

    auto const outline = make<PLIXOutlineView>(Rect { 0, 0, 240, 160 });
    auto const column = make<NSTableColumn>("name");
    column->headerCell()->setStringValue("Folder");
    column->setWidth(220);
    outline->addTableColumn(*column);
    outline->setOutlineTableColumn(column.get());
    outline->setDataSource(folders);
    outline->expandItem(pictures.get());
    outline->selectRow(outline->rowForItem(pictures.get()), false);

    auto const scroll = make<NSScrollView>(Rect { 0, 0, 240, 160 });
    scroll->setHasVerticalScroller(true);
    scroll->setDocumentView(outline);
    auto const window
        = make<NSWindow>(Rect { 200, 200, 240, 160 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("Folders");
    window->setContentView(scroll);
    window->makeKeyAndOrderFront(nullptr);
    application.run();
}
