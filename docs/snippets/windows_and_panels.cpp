#include <plix/plix.h>

#include <functional>

using namespace plix;

class Papers : public NSObject {
    PLIX_CLASS(Papers, NSObject);

public:
    bool init()
    {
        m_window = make<PLIXWindow>(Rect { 200, 300, 360, 160 }, NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask,
            NSBackingStoreBuffered, false);
        m_window->setTitle("Papers");
        m_window->setMinSize({ 300, 160 });
        m_window->setFrameAutosaveName("papers");
        m_window->setDelegate(Ref<Papers>(this));

        auto const button = make<NSButton>(Rect { 240, 16, 104, 28 });
        button->setTitle("Rename…");
        button->setBezelStyle(NSRoundedBezelStyle);
        button->setAutoresizingMask(NSViewMinXMargin);
        button->setTarget(*this, &Papers::askForName);
        m_window->contentView()->addSubview(*button);
        m_window->makeKeyAndOrderFront(nullptr);
        return Base::init();
    }

    bool windowShouldClose(NSObject&) { return !m_window->isDocumentEdited(); }

private:
    void askForName(NSObject*)
    {
        m_sheet = make<NSPanel>(Rect { 0, 0, 300, 90 }, NSTitledWindowMask | NSDocModalWindowMask, NSBackingStoreBuffered, false);
        m_name = make<NSTextField>(Rect { 20, 52, 260, 22 });
        m_name->setStringValue(m_window->title());
        m_sheet->contentView()->addSubview(*m_name);
        auto const done = make<NSButton>(Rect { 200, 12, 84, 28 });
        done->setTitle("Rename");
        done->setBezelStyle(NSRoundedBezelStyle);
        done->setKeyEquivalent("\r");
        done->setTarget(*this, &Papers::rename);
        m_sheet->contentView()->addSubview(*done);
        NSApp->beginSheet(*m_sheet, *m_window);
    }

    void rename(NSObject*)
    {
        NSApp->endSheet(*m_sheet);
        m_sheet->orderOut(nullptr);
        m_window->setTitle(m_name->stringValue());
    }

    Ref<PLIXWindow> m_window;
    Ref<NSPanel> m_sheet;
    Ref<NSTextField> m_name;
};
PLIX_DESCRIBE(Papers)
{
}

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const papers = make<Papers>();
    application.run();
}
