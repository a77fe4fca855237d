#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct _XDisplay;

namespace plix::desktop {

/// Looks at pixels of a virtual screen again and again.
class ScreenWatch {
public:
    explicit ScreenWatch(std::string const& display);
    ~ScreenWatch();
    ScreenWatch(ScreenWatch const&) = delete;
    ScreenWatch& operator=(ScreenWatch const&) = delete;

    /// The colours now from a place downwards, 0xRRGGBB.
    std::vector<std::uint32_t> column(int x, int y, int height) const;

private:
    _XDisplay* m_display { nullptr };
};

/// The colour of one pixel of a virtual screen now, 0xRRGGBB.
std::uint32_t colourOnScreen(std::string const& display, int x, int y);

/// What the pointer looks like on a virtual screen now: the pixels of its picture, 0xAARRGGBB.
std::vector<std::uint32_t> pointerOnScreen(std::string const& display);

/// What the whole virtual screen shows.
class Screenshot {
public:
    /// Takes it and writes it as a PNG file.
    Screenshot(std::string const& display, std::string path);

    int width() const { return m_width; }
    int height() const { return m_height; }
    std::string const& path() const { return m_path; }
    /// Red, green, blue: 0xRRGGBB; from the upper left corner.
    std::uint32_t pixel(int x, int y) const;

private:
    std::string m_path;
    int m_width { 0 };
    int m_height { 0 };
    std::vector<std::uint8_t> m_bytes;
};

}
