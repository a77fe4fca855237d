#include <tests/desktop/support/DesktopTest.h>

#include <filesystem>
#include <sstream>

namespace plix::desktop {

namespace {

/// Lives until the test program ends, so that a display is not started for each test.
std::unique_ptr<VirtualDisplay>& sharedDisplay()
{
    static std::unique_ptr<VirtualDisplay> s_display;
    return s_display;
}

}

DesktopTest::~DesktopTest() = default;

std::string DesktopTest::programPath(std::string const& name)
{
    return name == "browser" ? PLIX_BROWSER
        : name == "gallery"  ? PLIX_GALLERY
                             : std::string(PLIX_DESKTOP_PROGRAMS) + "/desktop_" + name;
}

VirtualDisplay& DesktopTest::display()
{
    if (m_ownDisplay)
        return *m_ownDisplay;
    auto& shared = sharedDisplay();
    if (!shared)
        shared = std::make_unique<VirtualDisplay>();
    return *shared;
}

void DesktopTest::useDisplay(DisplayOptions const& options)
{
    m_ownDisplay = std::make_unique<VirtualDisplay>(options);
}

Application& DesktopTest::start(
    std::string const& program, std::vector<std::string> const& environment, std::vector<std::string> const& arguments)
{
    std::vector<std::string> command { programPath(program) };
    command.insert(command.end(), arguments.begin(), arguments.end());
    auto all = display().environment();
    all.insert(all.end(), environment.begin(), environment.end());
    auto& application = m_applications.emplace_back(command, all);
    application.expect("ready");
    return application;
}

Application& DesktopTest::startBrowser(std::string const& folder, std::vector<std::string> const& environment)
{
    return startExample({ programPath("browser"), folder }, environment, std::filesystem::path(folder).filename().string());
}

Application& DesktopTest::startGallery(std::vector<std::string> const& environment)
{
    return startExample({ programPath("gallery") }, environment, "plix gallery");
}

Application& DesktopTest::startExample(
    std::vector<std::string> const& command, std::vector<std::string> const& environment, std::string const& title)
{
    auto all = display().environment();
    all.insert(all.end(), environment.begin(), environment.end());
    auto& application = m_applications.emplace_back(command, all);
    auto const hasKeyboard = [&] {
        return tool({ "xdotool", "getactivewindow", "getwindowname" }).find(title) != std::string::npos;
    };
    EXPECT_TRUE(waitUntil(hasKeyboard)) << application.transcript();
    return application;
}

void DesktopTest::moveMouse(int x, int y)
{
    tool({ "xdotool", "mousemove", std::to_string(x), std::to_string(y) });
}

void DesktopTest::click(int x, int y, int button, int count)
{
    tool({ "xdotool", "mousemove", std::to_string(x), std::to_string(y), "click", "--repeat", std::to_string(count), "--delay",
        "20", std::to_string(button) });
}

void DesktopTest::holdButton(int button)
{
    tool({ "xdotool", "mousedown", std::to_string(button) });
}

void DesktopTest::releaseButton(int button)
{
    tool({ "xdotool", "mouseup", std::to_string(button) });
}

void DesktopTest::press(std::string const& keys)
{
    tool({ "xdotool", "key", keys });
}

void DesktopTest::type(std::string const& text)
{
    tool({ "xdotool", "type", text });
}

void DesktopTest::typeForeign(std::string const& name)
{
    // A key that no keyboard has.
    tool({ "xmodmap", "-e", "keycode 248 = " + name + " " + name });
    press(name);
}

std::string DesktopTest::windowTitled(std::string const& title)
{
    std::istringstream found(tool({ "xdotool", "search", "--onlyvisible", "--name", "^" + title + "$" }));
    std::string number;
    found >> number;
    return number;
}

std::string DesktopTest::property(std::string const& title, std::string const& name)
{
    auto const window = windowTitled(title);
    return window.empty() ? std::string() : tool({ "xprop", "-id", window, name });
}

bool DesktopTest::waitForProperty(std::string const& title, std::string const& name, std::string const& part)
{
    return waitUntil([this, &title, &name, &part] { return property(title, name).find(part) != std::string::npos; });
}

Screenshot DesktopTest::screenshot(std::string const& name)
{
    auto const* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    return { display().name(),
        std::string(PLIX_SCREENSHOTS) + '/' + test->test_suite_name() + '.' + test->name() + '.' + name + ".png" };
}

bool DesktopTest::waitForPixel(int x, int y, std::uint32_t colour)
{
    return waitUntil([this, x, y, colour] { return colourOnScreen(display().name(), x, y) == colour; });
}

}
