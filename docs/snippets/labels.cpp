#include <plix/plix.h>

using namespace plix;

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const window
        = make<PLIXWindow>(Rect { 200, 200, 300, 110 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("Labels");
    auto& content = *window->contentView();

    auto const title = make<PLIXChiseledTextField>(Rect { 20, 74, 260, 20 });
    title->setStringValue("Engraved, dark on light");
    title->setFont(NSFont::boldSystemFontOfSize(13));
    title->sizeToFit();
    content.addSubview(*title);

    auto const disabled = make<PLIXChiseledTextField>(Rect { 20, 50, 260, 20 });
    disabled->setStringValue("Nothing to choose here");
    disabled->setEnabled(false);
    content.addSubview(*disabled);

    auto const choice = make<PLIXChiseledTextPopUpButton>(Rect { 20, 16, 120, 20 });
    choice->SetFrameAnchorMask(0);
    for (auto const* order : { "By name", "By size", "By date" })
        choice->addItemWithTitle(order);
    choice->setTitle("By name");
    content.addSubview(*choice);

    window->makeKeyAndOrderFront(nullptr);
    application.run();
}
