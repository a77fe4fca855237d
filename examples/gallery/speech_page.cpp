#include "speech_page.h"
#include "Form.h"

#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/speech/PLIXSpeakingTextField.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <utility>

namespace gallery {

using namespace plix;

namespace {

constexpr float fieldWidth = 300;
constexpr char const* silentText = "Silent.";

Ref<NSTextField> field(std::string_view text, float width = fieldWidth)
{
    auto made = make<NSTextField>(Rect { 0, 0, width, 22 });
    made->cell()->setScrollable(true);
    made->setStringValue(text);
    return made;
}

Ref<NSButton> button(std::string_view title, NSButtonType type, float width)
{
    auto made = make<NSButton>(Rect { 0, 0, width, type == NSSwitchButton ? 18.F : 28.F });
    made->setButtonType(type);
    made->setTitle(title);
    return made;
}

class SpeechForm final : public Form {
public:
    using Form::init;

    // A window that goes away does not tell the views in it.
    ~SpeechForm() override
    {
        if (m_looks)
            m_looks->invalidate();
    }

    void addControls()
    {
        for (auto const& [caption, text] :
            { std::pair { "First", "One string." }, { "Second", "Another string." }, { "Third", "The last one." } }) {
            m_strings.push_back(field(text));
            addRow(caption, { m_strings.back() });
        }
        m_interval = field("1.8", 60);
        addRow("Silence", { m_interval, NSTextField::labelWithString("seconds; below 0, the usual 1.8") });
        auto const speak = button("Speak", NSMomentaryPushInButton, 90);
        speak->setActionFunction([this](NSObject*) { speakStrings(); });
        auto const stop = button("Stop", NSMomentaryPushInButton, 90);
        stop->setActionFunction([this](NSObject*) { stopSpeaking(); });
        addRow("", { speak, stop });
        addGap();
        addTyping();
        addStatus(silentText);
    }

    // NSView:
    void viewDidMoveToWindow() override
    {
        Form::viewDidMoveToWindow();
        if (!window())
            stopLooking();
    }

private:
    void addTyping()
    {
        m_typing = make<PLIXSpeakingTextField>(Rect { 0, 0, fieldWidth, 22 });
        m_typing->cell()->setScrollable(true);
        m_typing->setSpeaks(true);
        auto const speaks = button("Speaks", NSSwitchButton, 80);
        speaks->setState(NSOnState);
        speaks->setActionFunction(
            [this](NSObject* sender) { m_typing->setSpeaks(static_cast<NSButton*>(sender)->state() == NSOnState); });
        addRow("Type here", { m_typing, speaks });
        auto const characters = field("0123456789.,");
        m_typing->setSpeakableCharacters(characters->stringValue());
        m_observer = NSNotificationCenter::defaultCenter().addObserver(
            [this](NSNotification const& notification) {
                m_typing->setSpeakableCharacters(static_cast<NSControl*>(notification.object.get())->stringValue());
            },
            NSControlTextDidChangeNotification, characters.get());
        addRow("Spoken", { characters });
    }
    void speakStrings()
    {
        ObjectValue::Array strings;
        for (auto const& string : m_strings)
            strings.emplace_back(string->stringValue());
        PLIXSpeechSynthesizer::classSpeakStrings(strings, m_interval->doubleValue());
        startLooking();
    }
    void stopSpeaking()
    {
        PLIXSpeechSynthesizer::classStopSpeaking();
        stopLooking();
    }
    void startLooking()
    {
        stopLooking();
        m_lastSpeech = NSDate::date();
        constexpr NSTimeInterval secondsBetweenLooks = 0.2;
        m_looks = NSTimer::scheduledTimerWithTimeInterval(
            secondsBetweenLooks, [this](NSTimer&) { look(); }, true);
        look();
    }
    void stopLooking()
    {
        if (auto const looks = std::exchange(m_looks, nullptr))
            looks->invalidate();
        setStatus(silentText);
    }
    void look()
    {
        bool const isSpeaking = PLIXSpeechSynthesizer::classIsSpeaking();
        setStatus(isSpeaking ? "Speaking." : silentText);
        if (isSpeaking)
            m_lastSpeech = NSDate::date();
        constexpr NSTimeInterval longSilence = 60;
        if (-m_lastSpeech.timeIntervalSinceNow() > longSilence)
            stopLooking();
    }

    std::vector<Ref<NSTextField>> m_strings;
    Ref<NSTextField> m_interval;
    Ref<PLIXSpeakingTextField> m_typing;
    Ref<NSTimer> m_looks;
    Ref<NSObject> m_observer;
    /// When it was last heard.
    NSDate m_lastSpeech;
};

}

Ref<NSView> makeSpeechPage()
{
    auto form = make<SpeechForm>(Rect { 0, 0, 560, 330 });
    form->addControls();
    return form;
}

}
