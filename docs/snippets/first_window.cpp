#include <plix/plix.h>

using namespace plix;

class Counter : public NSObject {
    PLIX_CLASS(Counter, NSObject);

public:
    bool init()
    {
        m_window = make<NSWindow>(Rect { 200, 200, 320, 120 },
            NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask, NSBackingStoreBuffered, false);
        m_window->setTitle("Counter");

        m_label = NSTextField::labelWithString("Nobody has pressed the button.");
        m_label->setFrame({ 20, 72, 280, 20 });
        m_window->contentView()->addSubview(*m_label);

        auto const button = make<NSButton>(Rect { 206, 16, 100, 28 });
        button->setTitle("Press");
        button->setBezelStyle(NSRoundedBezelStyle);
        button->setKeyEquivalent("\r");
        button->setTarget(*this, &Counter::press);
        m_window->contentView()->addSubview(*button);

        m_window->makeKeyAndOrderFront(nullptr);
        return Base::init();
    }

    bool applicationShouldTerminateAfterLastWindowClosed(NSApplication&) { return true; }

private:
    void press(NSObject*)
    {
        ++m_count;
        m_label->setStringValue(m_count == 1 ? "Pressed once." : "Pressed " + std::to_string(m_count) + " times.");
    }

    Ref<NSWindow> m_window;
    Ref<NSTextField> m_label;
    int m_count { 0 };
};
PLIX_DESCRIBE(Counter)
{
}

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const counter = make<Counter>();
    application.setDelegate(counter);
    application.run();
}
