#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plix {

/// A rectangle of premultiplied pixels in memory.
struct PixelView {
    std::uint32_t const* pixels { nullptr };
    std::ptrdiff_t stride { 0 }; ///< in pixels; below 0 where the rows lie in reverse order
    int width { 0 };
    int height { 0 };

    std::uint32_t const* row(int y) const { return pixels + y * stride; }
};

enum class ScalingQuality {
    nearest,
    linear, ///< between the nearest two along each axis, also where that leaves pixels out
    averaged, ///< linear where an axis grows, the average of all pixels covered where it shrinks
    smooth, ///< a cubic through the pixels where an axis grows, averaged where it shrinks
};

/// How the pixels along one axis make up those of another length: for each place in the result as many weighted source pixels in a
/// row.
class ScalingAxis {
public:
    /// Weights of one place add up to this.
    static constexpr int weightSum = 1 << 14;

    /// Both lengths at least 1. Beyond the ends the end pixels count on.
    void prepare(int sourceLength, int resultLength, ScalingQuality);

    int taps() const { return m_taps; }
    int first(int place) const { return m_first[static_cast<std::size_t>(place)]; }
    std::int16_t const* weights(int place) const { return m_weights.data() + static_cast<std::ptrdiff_t>(place) * m_taps; }
    bool isIdentity() const { return m_isIdentity; }
    /// Of a linear axis: from one place to the next in the source, as a 32.32 fixed-point number.
    std::int64_t step() const { return m_step; }
    /// Of a linear axis: how many places from one on lie before a source pixel.
    int placesUpTo(int pixel, int place) const;

private:
    void prepareNearest(int sourceLength, int resultLength);
    void prepareAveraged(int sourceLength, int resultLength);
    void prepareLinear(int sourceLength, int resultLength);
    void prepareCubic(int sourceLength, int resultLength);

    int m_sourceLength { 0 };
    int m_resultLength { 0 };
    ScalingQuality m_quality { ScalingQuality::nearest };
    std::int64_t m_step { 0 };
    std::int64_t m_start { 0 };
    int m_taps { 1 };
    bool m_isIdentity { false };
    std::vector<int> m_first;
    std::vector<std::int16_t> m_weights;
};

/// Scales a view row by row. Keeps its memory, so that one that is used again allocates nothing.
class PixelScaler {
public:
    void prepare(PixelView const& source, int width, int height, ScalingQuality);
    /// The columns from `left` to `right` of a row of the result, valid until the next call; the first one answered is at `left`.
    /// Rows are asked for in ascending order, all with the same columns.
    std::uint32_t const* row(int y, int left, int right);

private:
    std::uint32_t const* horizontalRow(int sourceRow, int left, int right);

    PixelView m_source;
    ScalingAxis m_horizontal;
    ScalingAxis m_vertical;
    int m_width { 0 };
    std::vector<std::uint32_t> m_kept; ///< as many rows as the vertical axis has taps
    std::vector<int> m_keptRows;
    std::vector<std::uint32_t> m_result;
    std::vector<std::uint32_t const*> m_tapRows;
};

}
