#include "host_pages.h"
#include "LivePage.h"
#include "page_parts.h"

#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/pixel_buffer.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/HostEvent.h>
#include <plix/platform/host/HostSound.h>
#include <plix/platform/host/HostWindow.h>
#include <plix/platform/host/Speech.h>

#include <array>
#include <cmath>
#include <memory>

namespace gallery {

using namespace plix;

namespace {

/// Lines that say nothing until they are asked for.
long addQuestions(Transcript& transcript, std::initializer_list<char const*> questions)
{
    long const first = transcript.lineCount();
    for (auto const* question : questions)
        transcript.add(question, "–");
    return first;
}

Ref<NSView> makeHostPage()
{
    auto const transcript = make<Transcript>();
    auto const first = addQuestions(*transcript,
        { "host().name()", "host().display().screens().size()", "host().clipboard().hasText()", "host().audio() != nullptr",
            "host().speech() != nullptr", "host().media() != nullptr" });
    transcript->addNote("The one door to the machine: a display, or windows in memory. Services that it lacks are null.");
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("Ask", [first, transcript = transcript.get()] {
        transcript->update(first, host().name());
        transcript->update(first + 1, host().display().screens().size());
        transcript->update(first + 2, host().clipboard().hasText());
        transcript->update(first + 3, host().audio() != nullptr);
        transcript->update(first + 4, host().speech() != nullptr);
        transcript->update(first + 5, host().media() != nullptr);
    }));
    return page;
}

Ref<NSView> makeDisplayPage()
{
    auto const transcript = make<Transcript>();
    auto const first = addQuestions(*transcript,
        { "display.screens()[0].frame", "display.screens()[0].visibleFrame", "display.screens()[0].backingScale",
            "display.mouseLocation()", "display.pressedButtons()", "display.modifiers()", "display.doubleClickInterval()" });
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("Ask", [first, transcript = transcript.get()] {
        auto const& display = host().display();
        auto const screen = display.screens().front();
        transcript->update(first, screen.frame);
        transcript->update(first + 1, screen.visibleFrame);
        transcript->update(first + 2, screen.backingScale);
        transcript->update(first + 3, display.mouseLocation());
        transcript->update(first + 4, display.pressedButtons());
        transcript->update(first + 5, display.modifiers());
        transcript->update(first + 6, display.doubleClickInterval());
    }));
    page->addControl(pushButton("Beep", [] { host().display().beep(); }));
    return page;
}

Ref<NSView> makeHostWindowPage()
{
    class Client : public NSObject, public HostWindowClient {
    public:
        void open()
        {
            HostWindowAttributes attributes;
            attributes.contentRect = { 200, 200, 240, 120 };
            window = host().display().makeWindow(attributes, *this);
            window->setTitle("A window of the host’s");
            window->show();
            hostWindowNeedsRepaint({});
        }
        void hostWindowEvent(HostEvent const& event) override
        {
            if (log && event.type == HostEvent::Type::mouseDown)
                log->show("mouseDown", event.locationOnScreen);
            if (log && event.type == HostEvent::Type::keyDown)
                log->show("keyDown", event.characters);
        }
        void hostWindowContentRectChanged(Rect rect) override
        {
            if (log)
                log->show("content rect", rect);
        }
        void hostWindowFocusChanged(bool hasFocus) override
        {
            if (log)
                log->show("focus", hasFocus);
        }
        void hostWindowCloseRequested() override { window = nullptr; }
        void hostWindowNeedsRepaint(Rect) override
        {
            if (!window)
                return;
            auto const pixels = window->lockPixels();
            auto const context = make<NSGraphicsContext>(pixels);
            CurrentContext const current(context);
            NSColor::colorWithCalibratedRed(0.25F, 0.5F, 0.9F, 1)->set();
            NSRectFill(context->clipBounds());
            context->flushGraphics();
            window->present(std::array { PixelRect { 0, 0, pixels.width, pixels.height } });
        }
        void hostWindowScaleChanged(float) override { }
        void hostWindowMiniaturizedChanged(bool) override { }
        void hostWindowLiveResizeChanged(bool) override { }
        std::unique_ptr<HostWindow> window;
        Weak<Transcript> log; // the page may go first
    };
    auto const log = make<Transcript>();
    log->addNote("What NSWindow stands on: pixels to draw into, and a client that is told what happens.");
    log->setLimit(6);
    auto const page = LivePage::page(log);
    auto const client = page->keep(make<Client>());
    client->log = log;
    page->addControl(pushButton("Open", [client = client.get()] { client->open(); }));
    page->addControl(pushButton("Close", [client = client.get()] { client->window = nullptr; }));
    return page;
}

Ref<NSView> makeClipboardPage()
{
    auto const transcript = make<Transcript>();
    auto const first = addQuestions(*transcript, { "clipboard.text()", "clipboard.hasText()", "clipboard.changeCount()" });
    auto const page = LivePage::page(transcript);
    auto const field = textField("A cup of tea", 180);
    auto const ask = [first, transcript = transcript.get()] {
        auto& clipboard = host().clipboard();
        transcript->update(first, clipboard.text());
        transcript->update(first + 1, clipboard.hasText());
        transcript->update(first + 2, clipboard.changeCount());
    };
    page->addControl(field);
    page->addControl(pushButton("Set", [ask, field = field.get()] {
        host().clipboard().setText(field->stringValue());
        ask();
    }));
    page->addControl(pushButton("Ask", ask));
    return page;
}

Ref<NSView> makeAudioPage()
{
    auto const transcript = make<Transcript>();
    auto const first = addQuestions(*transcript,
        { "audio->fileTypes()", "audio->outputVolume()->left", "audio->outputVolume()->right", "audio->beepVolume()",
            "audio->beep()" });
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("Ask", [first, transcript = transcript.get()] {
        auto* const audio = host().audio();
        auto const volume = audio ? audio->outputVolume() : std::nullopt;
        transcript->update(first, audio ? audio->fileTypes() : std::vector<std::string>());
        transcript->update(first + 1, volume ? std::optional(volume->left) : std::nullopt);
        transcript->update(first + 2, volume ? std::optional(volume->right) : std::nullopt);
        transcript->update(first + 3, audio ? audio->beepVolume() : 0);
    }));
    page->addControl(pushButton("Beep",
        [first, transcript = transcript.get()] { transcript->update(first + 4, host().audio() && host().audio()->beep()); }));
    return page;
}

/// A WAV file of a tone that fades away: one channel, 16 bits, 8000 samples a second.
std::vector<std::uint8_t> fadingTone(float seconds)
{
    auto const count = static_cast<std::uint32_t>(seconds * 8000);
    std::vector<std::uint8_t> bytes;
    auto const add = [&](std::uint32_t value, int size) {
        for (int i = 0; i < size; ++i)
            bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    };
    auto const addText = [&](std::string_view text) { bytes.insert(bytes.end(), text.begin(), text.end()); };
    addText("RIFF");
    add(36 + 2 * count, 4);
    addText("WAVEfmt ");
    for (auto const& [value, size] : { std::pair { 16, 4 }, { 1, 2 }, { 1, 2 }, { 8000, 4 }, { 16000, 4 }, { 2, 2 }, { 16, 2 } })
        add(static_cast<std::uint32_t>(value), size);
    addText("data");
    add(2 * count, 4);
    for (std::uint32_t i = 0; i < count; ++i) {
        double const loudness = 6000.0 * (count - i) / count;
        add(static_cast<std::uint32_t>(static_cast<int>(loudness * std::sin(i * 2 * M_PI * 440 / 8000))), 2);
    }
    return bytes;
}

Ref<NSView> makeHostSoundPage()
{
    class Player : public NSObject {
    public:
        void tell()
        {
            if (!shown)
                return;
            shown->update(0, sound ? std::optional(sound->isPlaying()) : std::nullopt);
            shown->update(1, sound ? std::optional(sound->isPaused()) : std::nullopt);
        }
        void open()
        {
            sound = host().audio() ? host().audio()->openSound(fadingTone(2)) : nullptr;
            if (sound)
                sound->setFinished([this](bool playedToEnd) {
                    if (shown)
                        shown->update(2, playedToEnd);
                    tell();
                });
        }
        std::unique_ptr<HostSound> sound;
        Weak<Transcript> shown; // the page may go first
    };
    auto const transcript = make<Transcript>();
    addQuestions(*transcript, { "sound->isPlaying()", "sound->isPaused()", "playedToEnd" });
    transcript->addNote("A tone of two seconds that is computed here.");
    auto const page = LivePage::page(transcript);
    auto const player = page->keep(make<Player>());
    player->shown = transcript;
    auto const add = [&](char const* title, bool (HostSound::*operation)()) {
        page->addControl(pushButton(title, [player = player.get(), operation] {
            if (!player->sound)
                player->open();
            if (player->sound)
                ((*player->sound).*operation)();
            player->tell();
        }));
    };
    add("Play", &HostSound::play);
    add("Pause", &HostSound::pause);
    add("Resume", &HostSound::resume);
    add("Stop", &HostSound::stop);
    return page;
}

Ref<NSView> makeSpeechDoorPage()
{
    class Speaker : public NSObject {
    public:
        ~Speaker() override
        {
            if (auto* const speech = Speech::knowing(channel))
                speech->closeChannel(channel);
        }
        void speak(std::string const& text)
        {
            auto* const speech = host().speech();
            if (speech && !channel)
                channel = speech->openChannel("",
                    { [this](SpeechEnd end) {
                         if (shown)
                             shown->add("ended", end == SpeechEnd::Finished ? "finished" : "stopped");
                     },
                        nullptr });
            if (shown)
                shown->show("speech->start(channel, " + quotedText(text) + ")", speech && speech->start(channel, text));
        }
        void stop()
        {
            if (auto* const speech = Speech::knowing(channel))
                speech->stop(channel);
        }
        SpeechChannel channel;
        Weak<Transcript> shown; // the page may go first
    };
    auto const log = make<Transcript>();
    log->setLimit(7);
    log->addNote("What the synthesizers stand on: a channel that speaks one text after another.");
    auto const page = LivePage::page(log);
    auto const speaker = page->keep(make<Speaker>());
    speaker->shown = log;
    auto const field = textField("Tea is ready.", 180);
    page->addControl(field);
    page->addControl(pushButton("Speak", [speaker = speaker.get(), field = field.get()] { speaker->speak(field->stringValue()); }));
    page->addControl(pushButton("Stop", [speaker = speaker.get()] { speaker->stop(); }));
    return page;
}

constexpr Page all[] {
    { "Host", "Host", eventsSection, "host_pages.cpp", makeHostPage },
    { "Display", "Display", eventsSection, "host_pages.cpp", makeDisplayPage },
    { "HostWindow", "HostWindow", eventsSection, "host_pages.cpp", makeHostWindowPage },
    { "Clipboard", "Clipboard", eventsSection, "host_pages.cpp", makeClipboardPage },
    { "Audio", "Audio", soundSection, "host_pages.cpp", makeAudioPage },
    { "HostSound", "HostSound", soundSection, "host_pages.cpp", makeHostSoundPage },
    { "speech_door", "Speech", soundSection, "host_pages.cpp", makeSpeechDoorPage },
};

}

std::span<Page const> hostPages()
{
    return all;
}

}
