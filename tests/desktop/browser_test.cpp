#include <tests/desktop/support/DesktopTest.h>
#include <tests/support/TestFolder.h>

#include <filesystem>
#include <fstream>
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
    ASSERT_TRUE(waitUntil([this] { return isDrawn(); }));
    auto const statusBar = colours("before").back();
    tool({ "wmctrl", "-r", "plenty", "-e", "0,40,60,640,420" });
    EXPECT_TRUE(waitUntil([this] { return placeOf("plenty").width == 640; }));
    auto const left = placeOf("plenty");
    EXPECT_TRUE(waitForPixel(left.x + left.width / 2, left.y + left.height - 1, statusBar));
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

/// Copies a folder of 2,000 files, some so large that it takes seconds.
class LongCopy : public FilesWindow {
protected:
    LongCopy()
    {
        for (int number = 0; number < 2000; ++number)
            std::ofstream(folder + "/inside/file " + std::to_string(number)) << number;
        for (int number = 0; number < 60; ++number) {
            auto const path = folder + "/inside/large " + std::to_string(number);
            std::ofstream { path };
            std::filesystem::resize_file(path, 100'000'000);
        }
    }
    void begin()
    {
        startBrowser(folder);
        ASSERT_TRUE(waitUntil([this] { return isDrawn(); }));
        press("Home");
        press("ctrl+c");
        press("ctrl+v");
        ASSERT_TRUE(waitUntil([this] { return !windowTitled("Progress").empty(); }));
    }
    bool isCopyThere() const { return std::filesystem::exists(folder + "/inside 1"); }
};

TEST_F(LongCopy, LeavesTheWindowToThePersonUntilItIsCanceled)
{
    begin();
    screenshot("copying");
    auto const place = placeOf("plenty");
    auto const y = place.y + place.height - 100;
    auto const before = screenshot("before").pixel(place.x + place.width / 2, y);
    click(place.x + place.width / 2, y);
    EXPECT_TRUE(waitUntil([&] { return screenshot("after").pixel(place.x + place.width / 2, y) != before; }));
    EXPECT_TRUE(isCopyThere());
    tool({ "wmctrl", "-a", "Progress" });
    auto const panel = placeOf("Progress");
    click(panel.x + panel.width - 64, panel.y + panel.height / 2);
    EXPECT_TRUE(waitUntil([this] { return windowTitled("Progress").empty(); }));
    EXPECT_FALSE(isCopyThere());
    EXPECT_TRUE(std::filesystem::exists(folder + "/inside/file 1999"));
}

TEST_F(LongCopy, EndsWithEscape)
{
    begin();
    press("Escape");
    EXPECT_TRUE(waitUntil([this] { return windowTitled("Progress").empty(); }));
    EXPECT_FALSE(isCopyThere());
}

TEST_F(LongCopy, GoesOnWithoutItsWindow)
{
    begin();
    tool({ "wmctrl", "-c", "plenty" });
    EXPECT_TRUE(waitUntil([this] { return windowTitled("plenty").empty(); }));
    EXPECT_FALSE(windowTitled("Progress").empty());
    tool({ "wmctrl", "-a", "Progress" });
    press("Escape");
    EXPECT_TRUE(waitUntil([this] { return windowTitled("Progress").empty(); }));
    EXPECT_FALSE(isCopyThere());
}

}
}
