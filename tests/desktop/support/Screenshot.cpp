#include <tests/desktop/support/Screenshot.h>

#include <tests/desktop/support/ChildProcess.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace plix::desktop {

std::uint32_t colourOnScreen(std::string const& name, int x, int y)
{
    std::unique_ptr<Display, decltype(&XCloseDisplay)> const display(XOpenDisplay(name.c_str()), XCloseDisplay);
    if (!display)
        throw std::runtime_error("the virtual display does not answer");
    auto* const image = XGetImage(display.get(), DefaultRootWindow(display.get()), x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image)
        throw std::runtime_error("no such pixel");
    auto const colour = static_cast<std::uint32_t>(XGetPixel(image, 0, 0) & 0xFFFFFF);
    XDestroyImage(image);
    return colour;
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
