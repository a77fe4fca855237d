#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

/// The gradient image that a view draws in its selected rows, kept until the height of rows changes.
class PLIX_EXPORT HighlightGradient {
public:
    HighlightGradient();
    ~HighlightGradient();

    enum class Orientation { unflipped, flipped };
    /// The kept image where it was made for that height; else a new one in the user's highlight colour, 64 points wide and as high
    /// as a row, lighter at the visual top. Heights are compared after the kept one was cut to whole points: with a fraction the
    /// image is made anew each time.
    Ref<NSImage> const& imageForRowHeight(float rowHeight, Orientation);
    /// The kept image; null at first.
    NSImage* image() const { return m_image.get(); }
    /// -1 where the next call makes a new image.
    int lastRowHeight() const { return m_lastRowHeight; }
    void invalidate() { m_lastRowHeight = -1; }

private:
    Ref<NSImage> m_image;
    int m_lastRowHeight { -1 };
};

}
