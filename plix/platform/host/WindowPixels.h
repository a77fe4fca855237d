#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/pixel_buffer.h>

#include <cstdint>
#include <vector>

namespace plix {

/// What a window is drawn into that has its pixels in memory: rows from the top, no alpha.
class PLIX_EXPORT WindowPixels {
public:
    /// As many as a content of that size has, with so many pixels a point. Where that changes, what is in them is lost.
    void fit(Size content, float scale);
    /// To draw the next frame into.
    PixelBuffer lock();
    /// What was drawn is to stay.
    void keep() { m_keepsContent = true; }
    /// What is in them counts no longer; who draws next paints them all.
    void lose() { m_keepsContent = false; }
    bool keepsContent() const { return m_keepsContent; }

    std::vector<std::uint32_t> const& values() const { return m_values; }
    int width() const { return m_width; }
    int height() const { return m_height; }

private:
    std::vector<std::uint32_t> m_values;
    int m_width { 0 };
    int m_height { 0 };
    float m_scale { 1 };
    bool m_keepsContent { false };
};

}
