#pragma once

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/color_components.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/pixel_buffer.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

// Probes of pixels. Positions and areas are device pixels, y downwards from the top left; what lies outside reads as transparent.

namespace plix {

/// The pixels of anything that is probed: a buffer, a bitmap representation or an image (at one pixel a point).
class Pixels {
public:
    Pixels(PixelBuffer const& buffer)
        : m_buffer(buffer)
    {
    }
    Pixels(NSBitmapImageRep const& rep)
        : m_rep(const_cast<NSBitmapImageRep*>(&rep))
        , m_buffer(rep.pixels())
    {
    }
    Pixels(Ref<NSBitmapImageRep> const& rep)
        : m_rep(rep)
        , m_buffer(rep ? rep->pixels() : PixelBuffer {})
    {
    }
    Pixels(NSImage const& image);
    Pixels(Ref<NSImage> const& image);

    int width() const { return m_buffer.width; }
    int height() const { return m_buffer.height; }
    PixelRect all() const { return { 0, 0, m_buffer.width, m_buffer.height }; }
    /// Premultiplied, alpha in the highest byte (255 where the buffer has none).
    std::uint32_t at(int x, int y) const;
    /// Not premultiplied.
    ColorComponents colorAt(int x, int y) const;

private:
    Ref<NSBitmapImageRep> m_rep;
    PixelBuffer m_buffer;
};

inline constexpr float pixelTolerance = 2.0F / 255;

namespace colors {

inline constexpr ColorComponents clear { 0, 0, 0, 0 };
inline constexpr ColorComponents black { 0, 0, 0, 1 };
inline constexpr ColorComponents white { 1, 1, 1, 1 };
inline constexpr ColorComponents red { 1, 0, 0, 1 };
inline constexpr ColorComponents green { 0, 1, 0, 1 };
inline constexpr ColorComponents blue { 0, 0, 1, 1 };

}

/// EXPECT_TRUE(pixelNear(bitmap, 3, 4, colors::red)). Compares premultiplied components, so that transparent pixels are equal.
testing::AssertionResult pixelNear(Pixels const&, int x, int y, ColorComponents expected, float tolerance = pixelTolerance);
/// Every pixel of the area.
testing::AssertionResult areaNear(Pixels const&, PixelRect area, ColorComponents expected, float tolerance = pixelTolerance);
/// How many pixels of the area are near the colour, or fulfil the condition on their premultiplied value.
int countPixels(Pixels const&, PixelRect area, ColorComponents, float tolerance = pixelTolerance);
int countPixels(Pixels const&, PixelRect area, FunctionRef<bool(std::uint32_t)> condition);
int countPixels(Pixels const&, ColorComponents, float tolerance = pixelTolerance);
int countPixels(Pixels const&, FunctionRef<bool(std::uint32_t)> condition);
/// Whether anything in the area differs visibly from the ground it is drawn on.
bool hasInk(Pixels const&, PixelRect area, ColorComponents ground);
/// The smallest rectangle around all that differs from the ground; empty where nothing does.
PixelRect inkBounds(Pixels const&, ColorComponents ground);
int countDifferences(Pixels const&, Pixels const&, float tolerance = pixelTolerance);

/// Draws into a new bitmap of that many points with the bitmap's context as the current one. On a transparent ground unless one is
/// given.
Ref<NSBitmapImageRep> renderBitmap(Size points, float scale, FunctionRef<void()> draw, ColorComponents ground = colors::clear);

/// Compares with tests/references/<name>.png. A few pixels may differ a little, since other versions of the libraries round
/// otherwise. With PLIX_UPDATE_REFERENCES=1 in the environment the reference is written instead, with patterns there
/// ("gallery/NSButton*,appkit/*") only where one fits the name. On a difference the rendering and
/// a map of what differs are written to test_output/ in the working folder.
testing::AssertionResult matchesReference(Pixels const&, std::string_view name);

void writePNG(Pixels const&, std::string const& path);

}
