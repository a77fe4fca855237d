#pragma once

#include <tests/desktop/support/Application.h>
#include <tests/desktop/support/Screenshot.h>
#include <tests/desktop/support/VirtualDisplay.h>

#include <gtest/gtest.h>

#include <deque>
#include <memory>

namespace plix::desktop {

/// A test of real windows: programs on a virtual display, driven from outside as a person would. For example
///
///     class FilesWindow : public DesktopTest { protected: Application& app { startBrowser(folder) }; };
///     TEST_F(FilesWindow, ReturnOpens)
///     {
///         press("Home");
///         press("Return");
///         EXPECT_TRUE(waitUntil([this] { return !windowTitled("subfolder").empty(); }));
///     }
///
/// Programs of tests/desktop/programs report what happens to them, and tests wait for that; of the browser they see what a person
/// sees. Places are in the display's pixels, from the upper left corner.
class DesktopTest : public ::testing::Test {
public:
    ~DesktopTest() override;

protected:
    /// The display of this test: the one that tests share, unless useDisplay() made one of its own. Once it crashed, it is no
    /// longer shared.
    VirtualDisplay& display();
    void useDisplay(DisplayOptions const&);

    /// Starts one of the programs of tests/desktop/programs and waits until it is ready.
    Application& start(std::string const& program, std::vector<std::string> const& environment = {},
        std::vector<std::string> const& arguments = {});
    /// Starts the browser on a folder and waits until its window, which bears the folder's name, has the keyboard.
    Application& startBrowser(std::string const& folder, std::vector<std::string> const& environment = {});
    /// Starts the gallery and waits until its window has the keyboard.
    Application& startGallery(std::vector<std::string> const& environment = {});
    static std::string programPath(std::string const& name);
    std::string tool(std::vector<std::string> const& command, std::string_view input = {})
    {
        return display().tool(command, input);
    }

    void moveMouse(int x, int y);
    /// Presses and releases buttons as the window system counts them: 1 left, 2 middle, 3 right, 4 to 7 the wheel.
    void click(int x, int y, int button = 1, int count = 1);
    void holdButton(int button = 1);
    void releaseButton(int button = 1);
    /// Keys by their names: "Return", "ctrl+a", "dead_acute".
    void press(std::string const& keys);
    void type(std::string const& text);
    /// Types one character that the layout lacks, by its key name: "eacute", "U2192". The name's key is put on the keyboard first
    /// and stays there: programs that are busy when a key comes and goes at once would look in vain for what it was.
    void typeForeign(std::string const& name);

    /// The window system's number of the window with that title, "" while there is none.
    std::string windowTitled(std::string const& title);
    /// A property of a window as xprop shows it.
    std::string property(std::string const& title, std::string const& name);
    bool waitForProperty(std::string const& title, std::string const& name, std::string const& part);

    /// Written below the build folder, to be looked at.
    Screenshot screenshot(std::string const& name);
    /// Waits until the screen has that colour there.
    bool waitForPixel(int x, int y, std::uint32_t colour);

private:
    Application& startExample(
        std::vector<std::string> const& command, std::vector<std::string> const& environment, std::string const& title);

    std::unique_ptr<VirtualDisplay> m_ownDisplay;
    std::deque<Application> m_applications;
};

}
