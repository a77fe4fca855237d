#include <tests/desktop/support/Screenshot.h>

#include <tests/support/ChildProcess.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xfixes.h>

namespace plix::desktop {

ScreenWatch::ScreenWatch(std::string const& display)
    : m_display(XOpenDisplay(display.c_str()))
{
    if (!m_display)
        throw std::runtime_error("the virtual display does not answer");
}

ScreenWatch::~ScreenWatch()
{
    XCloseDisplay(m_display);
}

std::vector<std::uint32_t> ScreenWatch::column(int x, int y, int height) const
{
    auto* const image
        = XGetImage(m_display, DefaultRootWindow(m_display), x, y, 1, static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (!image)
        throw std::runtime_error("no such pixels");
    std::vector<std::uint32_t> colours;
    for (int row = 0; row < height; ++row)
        colours.push_back(static_cast<std::uint32_t>(XGetPixel(image, 0, row) & 0xFFFFFF));
    XDestroyImage(image);
    return colours;
}

std::uint32_t colourOnScreen(std::string const& display, int x, int y)
{
    return ScreenWatch(display).column(x, y, 1).front();
}

std::vector<std::uint32_t> pointerOnScreen(std::string const& display)
{
    auto* const connection = XOpenDisplay(display.c_str());
    if (!connection)
        throw std::runtime_error("the virtual display does not answer");
    std::vector<std::uint32_t> pixels;
    if (auto* const image = XFixesGetCursorImage(connection)) {
        // Each in a long of its own.
        for (int at = 0; at < image->width * image->height; ++at)
            pixels.push_back(static_cast<std::uint32_t>(image->pixels[at]));
        XFree(image);
    }
    XCloseDisplay(connection);
    return pixels;
}

Screenshot::Screenshot(std::string const& display, std::string path)
    : m_path(std::move(path))
{
    std::filesystem::create_directories(std::filesystem::path(m_path).parent_path());
    auto const onDisplay = std::vector { "DISPLAY=" + display };
    outputOf({ "import", "-silent", "-window", "root", "-strip", m_path }, onDisplay);
    auto const size = outputOf({ "identify", "-format", "%w %h", m_path });
    if (std::sscanf(size.c_str(), "%d %d", &m_width, &m_height) != 2)
        throw std::runtime_error("no screenshot");
    auto const bytes = outputOf({ "convert", m_path, "-depth", "8", "rgb:-" });
    m_bytes.assign(bytes.begin(), bytes.end());
}

std::uint32_t Screenshot::pixel(int x, int y) const
{
    auto const at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x)) * 3;
    return static_cast<std::uint32_t>(m_bytes.at(at) << 16 | m_bytes.at(at + 1) << 8 | m_bytes.at(at + 2));
}

}
