#pragma once

#include <cmath>

namespace plix {

/// What is measured of a font, in points.
struct FontMetrics {
    float ascender { 0 };
    float descender { 0 }; ///< negative
    float leading { 0 };
    float capHeight { 0 };
    float xHeight { 0 };
    float italicAngle { 0 };
    float underlinePosition { 0 }; ///< negative: below the baseline
    float underlineThickness { 0 };
    float maximumAdvance { 0 };

    // As lines are laid out: whole points keep every baseline on a pixel.
    float lineAscent() const { return std::round(ascender); }
    float lineDescent() const { return std::round(-descender); } ///< positive
    float lineLeading() const { return leading > 0 ? std::round(leading) : 0; }
};

}
