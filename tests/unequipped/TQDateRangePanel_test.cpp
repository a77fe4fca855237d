#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/windows/TQDateRangePanel.h>
#include <plix/windows/TQLegacyDatePicker.h>

#include <filesystem>
#include <fstream>

namespace plix {
namespace {

/// A program that has nothing beside it but what the test puts there.
class UnequippedTest : public HeadlessTest {
protected:
    UnequippedTest()
        : m_sinkBefore(installLogSink([this](std::string_view line) { lines.emplace_back(line); }))
    {
    }
    ~UnequippedTest() override { installLogSink(m_sinkBefore); }

    void write(std::string const& name, std::string_view text) const
    {
        std::filesystem::create_directories(bundle);
        std::ofstream(bundle + '/' + name) << text;
    }
    void writeInfo(std::string const& executable) const
    {
        write("Info.plist",
            "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>" + executable + "</string></dict></plist>");
    }
    /// The panel has no entries, and is otherwise whole: it runs, and ends with the present date.
    void expectPanelWithoutEntries()
    {
        auto const then = NSCalendarDate::dateWithYear(2027, 3, 14, 9, 5, 30);
        auto const panel = make<TQDateRangePanel>(Point {}, then, then);
        ASSERT_TRUE(panel);
        EXPECT_EQ(panel->fromObject(), nullptr);
        EXPECT_EQ(panel->toObject(), nullptr);
        EXPECT_EQ(panel->title(), "Enter Date Range");
        auto const& views = panel->contentView()->subviews().back()->subviews();
        ASSERT_EQ(views.size(), 3U);
        auto const* button = dynamic_cast<NSButton*>(views[0].get());
        ASSERT_TRUE(button);
        Rect const from = views[1]->frame();
        Rect const to = views[2]->frame();
        // As if the entries had no size.
        Size const content { 12 + from.width + 1 + 12 + to.width + 1 + 12, 10 + 12 + button->frame().height + 10 };
        EXPECT_EQ(panel->contentView()->frame().size(), content);
        EXPECT_EQ(from.origin(), (Point { 12, content.height - 10 - from.height - 7 }));
        EXPECT_EQ(to.origin(), (Point { from.maxX() + 1 + 12, from.y }));
        bool wasOpen = false;
        person().then([&] { wasOpen = panel->isVisible(); });
        person().key(NSCarriageReturnCharacter);
        EXPECT_TRUE(panel->run());
        EXPECT_TRUE(wasOpen);
        EXPECT_EQ(panel->fromDate(), NSDate::date());
        EXPECT_EQ(panel->toDate(), NSDate::date());
    }

    std::string const bundle { NSBundle::mainBundle().bundlePath() + "/DatePicker.bundle" };
    std::vector<std::string> lines;

private:
    LogSink m_sinkBefore;
};

// One test, since what is beside a program and the classes in it are there for all of its tests.
TEST_F(UnequippedTest, ThePanelOpensWithoutEntriesWhateverIsWrongWithThePlugin)
{
    // Nothing there: nothing is said.
    std::filesystem::remove_all(bundle);
    expectPanelWithoutEntries();
    EXPECT_EQ(lines, std::vector<std::string> {});

    // A folder that is no plug-in: one line each time.
    write("readme.txt", "no plug-in");
    expectPanelWithoutEntries();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], "NSBundle: " + bundle + " is not loaded: it has no Info.plist that names a module");

    writeInfo("DatePicker");
    write("DatePicker.so", "no module");
    expectPanelWithoutEntries();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1], "NSBundle: " + bundle + " is not loaded: it is no module");

    // A plug-in whose class is no view: a plug-in may be so.
    lines.clear();
    writeInfo("PickerThatIsNoView");
    std::filesystem::copy(PLIX_TEST_PLUGINS "/PickerThatIsNoView.bundle/PickerThatIsNoView.so", bundle + "/PickerThatIsNoView.so");
    expectPanelWithoutEntries();
    EXPECT_TRUE(NSClassFromString("PLIXTextDatePicker"));
    EXPECT_EQ(lines, std::vector<std::string> {});
    std::filesystem::remove_all(bundle);
}

TEST_F(UnequippedTest, TheKeysAreTheWords)
{
    auto const picker = make<TQLegacyDatePicker>(Rect { 0, 0, 300, 60 });
    EXPECT_EQ(picker->month_Title_Field()->stringValue(), "Month");
    EXPECT_EQ(picker->day_Title_Field()->stringValue(), "Day");
    EXPECT_EQ(picker->year_Title_Field()->stringValue(), "Year");
}

}
}
