#include <plix/plix.h>

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

        auto const pages = make<PLIXChiseledTextField>(Rect { 20, 120, 320, 20 });
        pages->setStringValue("Twelve pages, none of them read");
        m_window->contentView()->addSubview(*pages);
        addButton("Rename…", 240, &Papers::askForName);
        addButton("Delete…", 130, &Papers::askToDelete);
        m_window->makeKeyAndOrderFront(nullptr);
        return Base::init();
    }

    bool windowShouldClose(NSObject&) { return !m_window->isDocumentEdited(); }

    void progressWindowCanceled(PLIXProgressWindow& window)
    {
        window.close();
        m_progress = nullptr;
    }

private:
    void addButton(char const* title, float x, void (Papers::*operation)(NSObject*))
    {
        auto const button = make<NSButton>(Rect { x, 16, 104, 28 });
        button->setTitle(title);
        button->setBezelStyle(NSRoundedBezelStyle);
        button->setAutoresizingMask(NSViewMinXMargin);
        button->setTarget(*this, operation);
        m_window->contentView()->addSubview(*button);
    }

    void askToDelete(NSObject*)
    {
        auto const alert
            = make<TQAlert>("Papers", "Delete these papers?", "Nothing brings them back.", nullptr, "Delete", "Cancel", "");
        if (alert->runAsSheetForWindow(*m_window) == 1)
            showProgress();
    }

    void showProgress()
    {
        m_progress = make<PLIXProgressWindow>();
        m_progress->titleField()->setStringValue("Deleting papers");
        m_progress->stepField()->setStringValue("Page 1 of 12");
        m_progress->setDelegate(Ref<Papers>(this));
        m_progress->center();
        m_progress->makeKeyAndOrderFront(nullptr);
    }

    void askForName(NSObject*)
    {
        m_sheet = make<NSPanel>(Rect { 0, 0, 300, 90 }, NSTitledWindowMask | NSDocModalWindowMask, NSBackingStoreBuffered, false);
        m_sheet->setAppearance(Appearance::light);
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
    Ref<PLIXProgressWindow> m_progress;
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
