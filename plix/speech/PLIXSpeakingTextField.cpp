#include <plix/speech/PLIXSpeakingTextField.h>

#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/host/speech_manager.h>
#include <plix/platform/host/spoken_text.h>
#include <plix/speech/speech_branch.h>
#include <plix/speech/typed_text.h>

namespace plix {

namespace {

constinit Global<NSSpeechSynthesizer> PLIXSpeakingTextField_SpeechSynthesizer;

}

PLIX_DESCRIBE(PLIXSpeakingTextField)
{
    description.action("speakNextItem:", &PLIXSpeakingTextField::speakNextItem);
}

bool PLIXSpeakingTextField::init()
{
    return PLIXSpeakingTextField::init(Rect {});
}

bool PLIXSpeakingTextField::init(Rect frame)
{
    return Base::init(frame);
}

bool PLIXSpeakingTextField::init(NSCoder& coder)
{
    return Base::init(coder);
}

Ref<NSSpeechSynthesizer> PLIXSpeakingTextField::speechSynthesizer()
{
    if (!PLIXSpeakingTextField_SpeechSynthesizer)
        PLIXSpeakingTextField_SpeechSynthesizer = make<NSSpeechSynthesizer>(std::nullopt);
    return PLIXSpeakingTextField_SpeechSynthesizer;
}

void PLIXSpeakingTextField::setSpeakableCharacters(std::optional<std::string_view> characters)
{
    m_speakableCharacters = characters.value_or(std::string_view {});
}

bool PLIXSpeakingTextField::shouldChangeTextInRange(NSTextView& editor, NSRange range, std::string_view replacement)
{
    if (!Base::shouldChangeTextInRange(editor, range, replacement))
        return false;
    if (!m_speaks || !isSpeakable(replacement, m_speakableCharacters))
        return true;
    std::string const wordKey(spokenWordKey(replacement));
    addItemToSpeak(wordKey.empty() ? std::string(replacement) : NSBundle::mainBundle().localizedStringForKey(wordKey));
    speakNextItem(this);
    return true;
}

void PLIXSpeakingTextField::addItemToSpeak(std::optional<std::string_view> item)
{
    if (item)
        m_itemsToSpeak.emplace_back(*item);
}

void PLIXSpeakingTextField::speakFirstItem()
{
    auto const item = std::move(m_itemsToSpeak.front());
    m_itemsToSpeak.pop_front();
    if (hasSpeechSynthesizers())
        speechSynthesizer()->startSpeakingString(item);
    else
        SpeakString(pascalString(lossyCString(item)));
}

// Each call may begin a timer of its own, so that several may be running: that is meant.
void PLIXSpeakingTextField::speakNextItem(NSObject*)
{
    constexpr NSTimeInterval secondsBetweenLooks = 0.1;
    if (m_itemsToSpeak.empty())
        return;
    bool const isAnythingSpoken = hasSpeechSynthesizers() ? NSSpeechSynthesizer::isAnyApplicationSpeaking() : SpeechBusy();
    if (!isAnythingSpoken)
        speakFirstItem();
    if (m_itemsToSpeak.empty())
        return;
    NSTimer::scheduledTimerWithTimeInterval(
        secondsBetweenLooks, [self = Ref<PLIXSpeakingTextField>(*this)](NSTimer& timer) { self->speakNextItem(&timer); }, false);
}

}
