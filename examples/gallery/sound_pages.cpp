#include "sound_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSSound.h>
#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/speech/PLIXSpeakingTextField.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

/// The bytes of a sound file: a tone of a second that fades away.
std::vector<std::uint8_t> toneFile(double hertz)
{
    constexpr unsigned rate = 22050;
    std::vector<std::uint8_t> bytes;
    auto const text = [&](std::string_view name) { bytes.insert(bytes.end(), name.begin(), name.end()); };
    auto const number = [&](unsigned value, int size) {
        for (int i = 0; i < size; ++i)
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i) & 0xFF));
    };
    text("RIFF");
    number(36 + 2 * rate, 4);
    text("WAVEfmt ");
    number(16, 4);
    number(1, 2);
    number(1, 2);
    number(rate, 4);
    number(2 * rate, 4);
    number(2, 2);
    number(16, 2);
    text("data");
    number(2 * rate, 4);
    for (unsigned i = 0; i < rate; ++i) {
        double const seconds = static_cast<double>(i) / rate;
        constexpr double fullCircle = 6.283185307179586;
        auto const sample = std::lround(12000 * (1 - seconds) * std::sin(fullCircle * hertz * seconds));
        number(static_cast<unsigned>(sample) & 0xFFFF, 2);
    }
    return bytes;
}

Ref<NSView> makeNSSoundPage()
{
    class Listener : public NSObject {
    public:
        void didFinishPlaying(NSSound& sound, bool toItsEnd)
        {
            if (form)
                form->setStatus(sound.name() + (toItsEnd ? " was played to its end." : " was stopped."));
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const listener = form->keep(make<Listener>());
    listener->form = form;
    for (auto const& [name, hertz] : { std::pair { "Low A", 220.0 }, { "Middle A", 440.0 }, { "High A", 880.0 } }) {
        auto const sound = make<NSSound>(*make<NSData>(toneFile(hertz)));
        if (sound) {
            sound->setName(name);
            sound->setDelegate(listener);
        }
        auto const button = [&, name = name](char const* title, bool (NSSound::*act)(), char const* done) {
            return pushButton(title, [sound, act, page = form.get(), text = std::string(name) + done] {
                page->setStatus(!sound ? "Sounds can’t be decoded here." : (sound.get()->*act)() ? text : "Not in this state.");
            });
        };
        form->addRow(name,
            { button("Play", &NSSound::play, " plays."), button("Pause", &NSSound::pause, " pauses."),
                button("Resume", &NSSound::resume, " goes on."), button("Stop", &NSSound::stop, " was stopped.") });
    }
    form->addNote("A sound is made from a file, from bytes as here, or found by its name. Several play at once.");
    form->addStatus("Play one, or all.");
    form->sizeToRows();
    return form;
}

/// Speaks, and says which word it speaks.
Ref<NSView> makeNSSpeechSynthesizerPage()
{
    class Listener : public NSObject {
    public:
        void willSpeakWord(NSSpeechSynthesizer&, NSRange word, std::string const&) { text->setSelectedRange(word); }
        void didFinishSpeaking(NSSpeechSynthesizer&, bool finished)
        {
            if (form)
                form->setStatus(finished ? "Said it all." : "Stopped.");
        }
        Ref<NSTextView> text;
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const listener = form->keep(make<Listener>());
    listener->form = form;
    listener->text = make<NSTextView>(Rect { 0, 0, 504, 90 });
    listener->text->setTextContainerInset({ 4, 6 });
    listener->text->setFont(NSFont::systemFontOfSize(13));
    listener->text->setString("Every word that is spoken is selected here, as far as the machine tells which one it is.");
    listener->text->setSelectedRange({ 0, 0 });
    auto const synthesizer = form->keep(make<NSSpeechSynthesizer>());
    synthesizer->setDelegate(listener);
    form->addView(scrolled(listener->text, { 520, 100 }));
    auto const voices = make<NSPopUpButton>(Rect { 0, 0, 200, 26 }, false);
    auto const list = [voices = voices.get()] {
        voices->removeAllItems();
        voices->addItemWithTitle("Default voice");
        for (auto const& voice : NSSpeechSynthesizer::availableVoices()) {
            voices->addItemWithTitle(NSSpeechSynthesizer::attributesForVoice(voice)[NSVoiceName].description());
            voices->lastItem()->setRepresentedObject(voice);
        }
    };
    list();
    form->keep(NSNotificationCenter::defaultCenter().addObserver(
        [list](NSNotification const&) { list(); }, NSSpeechSynthesizerAvailableVoicesDidChangeNotification));
    voices->setActionFunction([synthesizer](NSObject* sender) {
        synthesizer->setVoice(static_cast<NSPopUpButton*>(sender)->selectedItem()->representedObject().description());
    });
    form->addRow("Voice", { voices });
    form->addRow("",
        { pushButton("Speak",
              [synthesizer, listener] {
                  bool const speaks = synthesizer->startSpeakingString(listener->text->string());
                  listener->form->setStatus(speaks ? "Speaking." : "This machine has no speech.");
              }),
            pushButton("Stop", [synthesizer] { synthesizer->stopSpeaking(); }) });
    form->addStatus("Speak the text.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXSpeechSynthesizerPage()
{
    auto const form = Form::page();
    auto const synthesizer = form->keep(make<PLIXSpeechSynthesizer>());
    auto const text = textField("One sentence, once.", 260);
    form->addRow("A text", { text, pushButton("Speak", [synthesizer, text, page = form.get()] {
                                synthesizer->speakString(text->stringValue());
                                page->setStatus("Speaks “" + text->stringValue() + "”");
                            }) });
    std::vector<Ref<NSTextField>> fields;
    for (auto const* line : { "First the violins.", "Then the flutes.", "At last everybody." }) {
        fields.push_back(textField(line, 260));
        form->addRow(fields.size() == 1 ? "A list" : "", { fields.back() });
    }
    auto const silence = textField("0.5", 60);
    form->addRow("Silence", { silence, hint("seconds between the texts") });
    form->addRow("",
        { pushButton("Speak List",
              [synthesizer, fields, silence, page = form.get()] {
                  ObjectValue::Array texts;
                  for (auto const& field : fields)
                      texts.emplace_back(field->stringValue());
                  synthesizer->speakStrings(texts, silence->doubleValue());
                  page->setStatus("Speaks " + std::to_string(texts.size()) + " texts.");
              }),
            pushButton("Stop", [synthesizer, page = form.get()] {
                synthesizer->stopSpeaking();
                page->setStatus("Silent, and the list is forgotten.");
            }) });
    form->addStatus("Where the machine has no speech, nothing is heard and nothing waits.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXSpeakingTextFieldPage()
{
    auto const form = Form::page();
    auto const field = make<PLIXSpeakingTextField>(Rect { 0, 0, 220, 22 });
    field->cell()->setScrollable(true);
    field->setSpeaks(true);
    field->setSpeakableCharacters("0123456789.,");
    form->addRow("Type a number", { field });
    auto const speaks = checkBox("Speaks", [field, page = form.get()](bool isOn) {
        field->setSpeaks(isOn);
        page->setStatus(isOn ? "Digits are spoken as they are typed." : "Digits are typed in silence.");
    });
    speaks->setState(NSOnState);
    form->addRow("", { speaks });
    form->addRow("Besides", { pushButton("Say “Ready”", [field] {
        field->addItemToSpeak("Ready");
        field->speakNextItem(nullptr);
    }) });
    form->addNote("What is typed while something is spoken waits its turn; all such fields share one voice.");
    form->addStatus("Digits are spoken as they are typed.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "sound_pages.cpp";
constexpr Page familyPages[] {
    { "NSSound", "Sound", soundSection, source, makeNSSoundPage },
    { "NSSpeechSynthesizer", "Speech synthesizer", soundSection, source, makeNSSpeechSynthesizerPage },
    { "PLIXSpeechSynthesizer", "Texts and lists of texts", soundSection, source, makePLIXSpeechSynthesizerPage },
    { "PLIXSpeakingTextField", "Field that speaks", soundSection, source, makePLIXSpeakingTextFieldPage },
};

}

std::span<Page const> soundPages()
{
    return familyPages;
}

}
