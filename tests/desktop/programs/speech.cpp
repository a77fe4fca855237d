// A window with a field that speaks digits, points and commas. What is in it is reported on standard output, and when the program
// begins and ends to speak. An l in the field has a long text spoken, an s stops that, a q ends the program.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/speech/PLIXSpeakingTextField.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <string>

namespace plix {
namespace {

constexpr char const* longText
    = "This is a long text that goes on and on, for quite a while, with many words and many more of them, "
      "until it is stopped at last, or the one who speaks it is no longer there to speak it.";

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    void windowDidBecomeKey(NSNotification const&) { report("key"); }
    void controlTextDidChange(NSNotification const& notification)
    {
        auto const text = static_cast<NSControl&>(*notification.object).stringValue();
        report("text '" + text + "'");
        if (text.ends_with('l'))
            PLIXSpeechSynthesizer::classSpeakString(longText);
        if (text.ends_with('s'))
            PLIXSpeechSynthesizer::classStopSpeaking();
        if (text.ends_with('q'))
            NSApp->terminate(nullptr);
    }
    void look(NSTimer&)
    {
        bool const isSpeaking
            = PLIXSpeechSynthesizer::classIsSpeaking() || PLIXSpeakingTextField::speechSynthesizer()->isSpeaking();
        if (isSpeaking != m_wasSpeaking)
            report(isSpeaking ? "speaking" : "silent");
        m_wasSpeaking = isSpeaking;
    }

private:
    bool m_wasSpeaking { false };
};

PLIX_DESCRIBE(Watcher)
{
}

int run()
{
    NSApplication::sharedApplication();
    auto const watcher = make<Watcher>();
    auto const window = make<NSWindow>(Rect { 100, 724, 400, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("speech");
    window->setDelegate(watcher);
    auto const field = make<PLIXSpeakingTextField>(Rect { 20, 40, 360, 22 });
    field->cell()->setScrollable(true);
    field->setDelegate(watcher);
    field->setSpeaks(true);
    field->setSpeakableCharacters("0123456789.,");
    window->contentView()->addSubview(*field);
    window->makeFirstResponder(field.get());
    constexpr NSTimeInterval secondsBetweenLooks = 0.02;
    NSTimer::scheduledTimerWithTimeInterval(secondsBetweenLooks, *watcher, &Watcher::look, nullptr, true);
    window->makeKeyAndOrderFront(nullptr);
    return runReporting();
}

}
}

int main()
{
    return plix::run();
}
