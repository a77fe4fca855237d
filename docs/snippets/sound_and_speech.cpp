#include <plix/plix.h>

using namespace plix;

class Announcer : public NSObject {
    PLIX_CLASS(Announcer, NSObject);

public:
    bool init()
    {
        m_sound = NSSound::soundNamed("bell");
        m_window
            = make<NSWindow>(Rect { 200, 200, 300, 100 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
        m_window->setTitle("Announcer");
        m_text = make<NSTextField>(Rect { 20, 58, 260, 22 });
        m_text->setStringValue("The kettle boils.");
        m_window->contentView()->addSubview(*m_text);
        addButton("Ring", { 100, 14, 85, 28 }, &Announcer::ring);
        addButton("Say it", { 195, 14, 85, 28 }, &Announcer::say);
        m_window->makeKeyAndOrderFront(nullptr);
        return Base::init();
    }

private:
    void addButton(char const* title, Rect frame, void (Announcer::*operation)(NSObject*))
    {
        auto const button = make<NSButton>(frame);
        button->setTitle(title);
        button->setBezelStyle(NSRoundedBezelStyle);
        button->setTarget(*this, operation);
        m_window->contentView()->addSubview(*button);
    }

    void ring(NSObject*)
    {
        if (!m_sound || !m_sound->play())
            NSBeep();
    }

    void say(NSObject*)
    {
        PLIXSpeechSynthesizer::classStopSpeaking();
        PLIXSpeechSynthesizer::classSpeakString(m_text->stringValue());
    }

    Ref<NSWindow> m_window;
    Ref<NSTextField> m_text;
    Ref<NSSound> m_sound;
};
PLIX_DESCRIBE(Announcer)
{
}

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const announcer = make<Announcer>();
    application.run();
}
