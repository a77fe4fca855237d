#include <tests/desktop/support/DesktopTest.h>
#include <tests/support/TestFolder.h>

#include <set>

namespace plix::desktop {
namespace {

/// A folder "plenty" with a folder "inside" and 60 files.
class FilesWindow : public DesktopTest {
protected:
    FilesWindow()
    {
        m_root.write("plenty/inside/one");
        for (int number = 0; number < 60; ++number)
            m_root.write("plenty/file " + std::to_string(number), std::string(static_cast<std::size_t>(number), 'x'));
        moveMouse(1270, 1010);
    }

    /// The window's content on the screen.
    struct Place {
        int x { 0 };
        int y { 0 };
        int width { 0 };
        int height { 0 };
    };
    Place placeOf(std::string const& title)
    {
        auto const seen = tool({ "xwininfo", "-id", windowTitled(title) });
        auto const number = [&seen](char const* name) { return static_cast<int>(numbersAfter(seen, name).at(0)); };
        return { number("Absolute upper-left X:"), number("Absolute upper-left Y:"), number("Width:"), number("Height:") };
    }
    /// The colours of a column of pixels down the middle of the window.
    std::vector<std::uint32_t> colours(std::string const& name)
    {
        auto const place = placeOf("plenty");
        auto const shot = screenshot(name);
        std::vector<std::uint32_t> column;
        for (int y = place.y; y < place.y + place.height; ++y)
            column.push_back(shot.pixel(place.x + place.width / 2, y));
        return column;
    }

    /// The window has the keyboard before its first frame is on the screen.
    bool isDrawn()
    {
        auto const column = colours("shown");
        return std::set(column.begin(), column.end()).size() >= 4;
    }

private:
    TestFolder m_root;

protected:
    std::string const folder { m_root / "plenty" };
};

TEST_F(FilesWindow, ShowsTheFolderOnceItIsThere)
{
    startBrowser(folder);
    EXPECT_TRUE(waitUntil([this] { return isDrawn(); }));
}

TEST_F(FilesWindow, AClickSelectsARow)
{
    startBrowser(folder);
    ASSERT_TRUE(waitUntil([this] { return isDrawn(); }));
    auto const before = colours("before");
    auto const place = placeOf("plenty");
    auto const y = place.y + place.height / 2;
    click(place.x + place.width / 2, y);
    EXPECT_TRUE(waitUntil([&] {
        return colours("after").at(static_cast<std::size_t>(y - place.y)) != before.at(static_cast<std::size_t>(y - place.y));
    }));
    // The row and nothing else: what is far from it is as it was.
    EXPECT_EQ(colours("after").at(5), before.at(5));
}

TEST_F(FilesWindow, TheWheelScrolls)
{
    startBrowser(folder);
    ASSERT_TRUE(waitUntil([this] { return isDrawn(); }));
    auto const place = placeOf("plenty");
    auto const first = place.x + 232; // in the names of files
    auto const before = screenshot("before");
    click(place.x + place.width / 2, place.y + place.height / 2, 5, 3);
    auto const hasScrolled = [&] {
        auto const after = screenshot("after");
        for (int y = place.y + 100; y < place.y + place.height - 60; ++y) {
            if (after.pixel(first, y) != before.pixel(first, y))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(waitUntil(hasScrolled));
}

TEST_F(FilesWindow, ReturnOpensTheFolder)
{
    startBrowser(folder);
    press("Home");
    press("Return");
    EXPECT_TRUE(waitUntil([this] { return !windowTitled("inside").empty(); }));
}

TEST_F(FilesWindow, ClosingItEndsTheBrowser)
{
    auto& app = startBrowser(folder);
    EXPECT_TRUE(waitUntil([this] { return tool({ "wmctrl", "-l" }).find("plenty") != std::string::npos; }));
    tool({ "wmctrl", "-c", "plenty" });
    EXPECT_EQ(app.process().waitForEnd(), 0);
}

TEST_F(FilesWindow, AtTwoPixelsAPointItIsTwiceAsLarge)
{
    startBrowser(folder);
    auto const plain = placeOf("plenty");
    useDisplay({ .width = 2 * 1280, .height = 2 * 1024 });
    startBrowser(folder, { "PLIX_SCALE=2" });
    auto const doubled = placeOf("plenty");
    screenshot("doubled");
    EXPECT_EQ(doubled.width, 2 * plain.width);
    EXPECT_EQ(doubled.height, 2 * plain.height);
}

TEST_F(FilesWindow, ComesBackWhereItWas)
{
    TestFolder const home;
    std::vector<std::string> const environment { "HOME=" + home.path(), "XDG_CONFIG_HOME=" + home / "config" };
    auto& first = startBrowser(folder, environment);
    tool({ "wmctrl", "-r", "plenty", "-e", "0,40,60,640,420" });
    EXPECT_TRUE(waitUntil([this] { return placeOf("plenty").width == 640; }));
    auto const left = placeOf("plenty");
    tool({ "wmctrl", "-c", "plenty" });
    EXPECT_EQ(first.process().waitForEnd(), 0);
    startBrowser(folder, environment);
    auto const found = placeOf("plenty");
    EXPECT_EQ(found.x, left.x);
    EXPECT_EQ(found.y, left.y);
    EXPECT_EQ(found.width, left.width);
    EXPECT_EQ(found.height, left.height);
}

TEST_F(FilesWindow, CopiesWithTheKeyboard)
{
    startBrowser(folder);
    ASSERT_TRUE(waitUntil([this] { return isDrawn(); }));
    press("Home");
    press("ctrl+c");
    press("ctrl+v");
    EXPECT_TRUE(waitUntil([this] { return std::filesystem::exists(folder + "/inside 1/one"); }));
}

}
}
