#include <tests/desktop/support/DesktopTest.h>
#include <tests/support/TestFolder.h>

namespace plix::desktop {
namespace {

class GalleryWindow : public DesktopTest {
protected:
    Application& startGalleryAtHome() { return startGallery({ "HOME=" + m_home.path(), "XDG_CONFIG_HOME=" + m_home / "config" }); }
    std::string windowOf(std::string const& page) { return windowTitled(page + " - plix gallery"); }
    bool isShown(std::string const& page)
    {
        return waitUntil([&] { return !windowOf(page).empty(); });
    }
    /// A place of the window's content.
    void clickInWindow(std::string const& page, int x, int y)
    {
        auto const seen = tool({ "xwininfo", "-id", windowOf(page) });
        auto const number = [&seen](char const* name) { return static_cast<int>(numbersAfter(seen, name).at(0)); };
        click(number("Absolute upper-left X:") + x, number("Absolute upper-left Y:") + y);
    }

private:
    TestFolder m_home;
};

TEST_F(GalleryWindow, AClickInTheListShowsAPage)
{
    startGalleryAtHome();
    ASSERT_TRUE(isShown("Welcome to plix"));
    clickInWindow("Welcome to plix", 80, 119);
    EXPECT_TRUE(isShown("NSButton"));
    screenshot("clicked");
}

TEST_F(GalleryWindow, TypingSearchesAndTheArrowKeyGoesOn)
{
    startGalleryAtHome();
    ASSERT_TRUE(isShown("Welcome to plix"));
    type("nsscr");
    EXPECT_TRUE(isShown("NSScrollView"));
    screenshot("searched");
    press("Down");
    EXPECT_TRUE(isShown("NSScroller"));
    press("ctrl+f");
    press("BackSpace");
    type("ns combo");
    EXPECT_TRUE(isShown("NSComboBox"));
}

TEST_F(GalleryWindow, ComesBackOnThePageThatWasShown)
{
    auto& first = startGalleryAtHome();
    ASSERT_TRUE(isShown("Welcome to plix"));
    press("ctrl+Next");
    ASSERT_TRUE(isShown("NSButton"));
    tool({ "wmctrl", "-c", "plix gallery" });
    ASSERT_EQ(first.process().waitForEnd(), 0);
    startGalleryAtHome();
    EXPECT_TRUE(isShown("NSButton"));
}

}
}
