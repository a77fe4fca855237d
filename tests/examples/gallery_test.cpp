#include <examples/gallery/Transcript.h>
#include <examples/gallery/pages.h>
#include <examples/gallery/picture_samples.h>
#include <examples/gallery/speech_page.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/speech/PLIXSpeakingTextField.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace gallery {
namespace {

using namespace plix;

class GalleryTest : public HeadlessTest { };

/// The pages at one scale, light and dark.
template <typename Test> class GalleryLooks : public Test, public testing::WithParamInterface<Appearance> {
protected:
    void SetUp() override
    {
        setCurrentAppearance(this->GetParam());
        Test::SetUp();
    }
    void TearDown() override { setCurrentAppearance(Appearance::light); }
    GalleryLooks()
    {
        // The same sounds and kinds of media on every machine.
        m_surroundings.sharedData = { m_folder.path() };
        for (auto const* name :
            { "bell.wav", "dialog-warning.wav", "message.wav", "phone-incoming-call.wav", "window-attention.wav" })
            m_folder.write(std::string("sounds/freedesktop/stereo/") + name);
        auto& media = this->machine().headlessMedia();
        ComponentDescription component { movieExportType, fourCharCode("MooV"), fourCharCode("isom"), canMovieExportFiles, 0 };
        media.add({ component, "QuickTime Muxer" });
        component.subtype = fourCharCode("mpg4");
        media.add({ component, "MP4 Muxer" });
        media.add({ { movieExportType, fourCharCode("WAVE"), fourCharCode("wave"), canMovieExportFiles, 0 }, "WAV audio muxer" });
        this->machine().headlessAudio().setOutputVolume(StereoVolume { 0.3F, 0.7F });
    }
    /// Sheets of states have references at both scales, light and dark; other pages one light at 1x and one dark at 2x.
    testing::AssertionResult pagesMatch(bool isDoubled)
    {
        bool const isDark = this->GetParam() == Appearance::dark;
        auto all = testing::AssertionSuccess();
        for (auto const& page : pages()) {
            bool const isSheet = page.section == std::string_view(statesSection) && page.name != std::string_view("all_states");
            if (!isSheet && isDark != isDoubled)
                continue;
            auto const look = std::string(page.name) + (isDark ? "_dark" : "") + (isDoubled ? "@2x" : "");
            if (auto const one = matchesReference(render(page), "gallery/" + look); !one)
                all = (all ? testing::AssertionFailure() : all) << one.message() << '\n';
        }
        return all;
    }

private:
    TestFolder m_folder;
    TestSurroundings m_surroundings;
};
using GalleryPages = GalleryLooks<HeadlessTest>;
using GalleryRetinaPages = GalleryLooks<RetinaTest>;

TEST_P(GalleryPages, LookAsTheirReferencesShow)
{
    EXPECT_TRUE(pagesMatch(false));
}

TEST_P(GalleryRetinaPages, LookAsTheirReferencesShow)
{
    EXPECT_TRUE(pagesMatch(true));
}

auto const bothAppearances = testing::Values(Appearance::light, Appearance::dark);
std::string appearanceName(testing::TestParamInfo<Appearance> const& info)
{
    return info.param == Appearance::dark ? "Dark" : "Light";
}

INSTANTIATE_TEST_SUITE_P(Appearances, GalleryPages, bothAppearances, appearanceName);
INSTANTIATE_TEST_SUITE_P(Appearances, GalleryRetinaPages, bothAppearances, appearanceName);

// Also where its page is the first that is opened.
TEST_F(GalleryTest, KnowsTheLibrarysClassesByName)
{
    EXPECT_NE(NSClassFromString("TQComboBoxCell"), nullptr);
}

TEST_F(GalleryTest, DumpsPagesAtBothScalesLightAndDark)
{
    TestFolder const folder;
    testing::internal::CaptureStdout();
    auto const dumped = pages().first(3);
    bool const isWritten = dump(folder / "pictures", dumped);
    auto const paths = testing::internal::GetCapturedStdout();
    ASSERT_TRUE(isWritten);
    EXPECT_EQ(std::ranges::count(paths, '\n'), 4 * std::ssize(dumped));
    for (auto const& page : dumped) {
        for (std::string const look : { "", "_dark" }) {
            auto const path = folder / "pictures/" + page.name + look;
            auto const plain = NSBitmapImageRep::imageRepWithContentsOfFile(path + ".png");
            auto const doubled = NSBitmapImageRep::imageRepWithContentsOfFile(path + "@2x.png");
            ASSERT_TRUE(plain && doubled) << path;
            EXPECT_EQ(doubled->pixelsWide(), 2 * plain->pixelsWide()) << path;
            EXPECT_EQ(doubled->size(), plain->size()) << path;
        }
    }
}

TEST_F(GalleryTest, TheSpeechPageSpeaksItsListAndWhatIsTyped)
{
    auto const window = showWindowWith(makeSpeechPage());
    std::map<std::string, NSButton*> buttons;
    PLIXSpeakingTextField* typing = nullptr;
    for (auto const& view : window->contentView()->subviews()) {
        if (auto* const button = dynamic_cast<NSButton*>(view.get()))
            buttons[button->title()] = button;
        if (auto* const field = dynamic_cast<PLIXSpeakingTextField*>(view.get()))
            typing = field;
    }
    auto& speech = machine().headlessSpeech();
    ASSERT_TRUE(buttons.contains("Speak") && buttons.contains("Stop") && typing);
    clickCenter(*buttons["Speak"]);
    pass(20);
    EXPECT_THAT(speech.texts(), testing::ElementsAre("One string.", "Another string.", "The last one."));
    clickCenter(*buttons["Speak"]);
    pass(0.5);
    clickCenter(*buttons["Stop"]);
    EXPECT_FALSE(speech.isAnyApplicationSpeaking());
    speech.forgetUtterances();
    window->makeFirstResponder(typing);
    type("a7");
    pass(2);
    EXPECT_THAT(speech.texts(), testing::ElementsAre("7"));
    plix::sharedSpeechSynthesizer = nullptr;
}

TEST_F(GalleryTest, SaysWhereItCannotWrite)
{
    TestFolder const folder;
    auto const file = folder.write("a file");
    EXPECT_FALSE(dump(file));
}

TEST_F(GalleryTest, ShowsEverySampleAtTheScaleAround)
{
    auto const samples = PictureSamples::make();
    EXPECT_EQ(samples.operations.size(), 14U);
    EXPECT_EQ(samples.badged.size(), 9U);
    for (auto const* image : samples.all())
        EXPECT_TRUE(image->isValid());
}

TEST_F(GalleryTest, ATranscriptIsAsHighAsItsLines)
{
    auto const transcript = make<Transcript>();
    float const empty = transcript->frame().height;
    long const line = transcript->show("1 + 1", 1 + 1);
    transcript->run("auto const made = 1;");
    float const two = transcript->frame().height;
    EXPECT_GT(two, empty);
    transcript->update(line, std::string(200, 'x'));
    EXPECT_GT(transcript->frame().height, two);
    transcript->update(line, 2);
    EXPECT_EQ(transcript->frame().height, two);
    EXPECT_EQ(transcript->expressionAt(line), "1 + 1");
    EXPECT_EQ(transcript->resultAt(line), "2");
    transcript->clear();
    EXPECT_EQ(transcript->frame().height, empty);
    EXPECT_EQ(transcript->lineCount(), 0);
}

TEST_F(GalleryTest, ALogKeepsItsLastLinesInRoomForAsMany)
{
    auto const log = make<Transcript>();
    log->setLimit(3);
    float const height = log->frame().height;
    for (int i = 1; i <= 5; ++i)
        log->show("event", i);
    EXPECT_EQ(log->lineCount(), 3);
    EXPECT_EQ(log->resultAt(0), "3");
    EXPECT_EQ(log->resultAt(2), "5");
    EXPECT_EQ(log->frame().height, height);
}

}
}
