// What start.*_desktop measures: a window with the list of a folder's files and their sizes, and nothing beside it.

#include <examples/browser/FilesTable.h>
#include <examples/browser/FolderListing.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/tables/PLIXTableView.h>

int main(int count, char** arguments)
{
    using namespace plix;
    auto& application = NSApplication::sharedApplication();
    std::string const folder = count > 1 ? arguments[1] : "/";
    browser::FolderListing listing;
    listing.open(folder);
    while (listing.isReading())
        listing.readOn();
    auto const window
        = make<NSWindow>(Rect { 320, 360, 640, 460 }, NSTitledWindowMask | NSResizableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(folder.substr(folder.rfind('/') + 1));
    auto const path = NSTextField::labelWithString(folder);
    path->setFrame({ 8, 436, 624, 17 });
    auto const items = NSTextField::labelWithString(std::to_string(listing.entries().size()) + " items");
    items->setFrame({ 8, 6, 624, 17 });
    auto const files = make<browser::FilesTable>();
    files->table().hideColumnWithIdentifier("kind");
    files->table().hideColumnWithIdentifier("date");
    files->scrollView().setFrame({ 0, 28, 640, 402 });
    files->table().sizeToFit();
    files->setEntries(&listing.entries(), folder);
    window->contentView()->addSubview(*path);
    window->contentView()->addSubview(files->scrollView());
    window->contentView()->addSubview(*items);
    window->makeKeyAndOrderFront(nullptr);
    application.run();
    return 0;
}
