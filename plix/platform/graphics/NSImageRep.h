#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/compositing.h>
#include <plix/platform/graphics/geometry.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// What a part of an image drawn somewhere is to look like; see NSImage::drawInRect.
struct ImageDrawing {
    Rect destination; ///< user space
    Rect source; ///< points of the representation, y upwards
    NSCompositingOperation operation { NSCompositeSourceOver };
    float fraction { 1 };
    bool isMirrored { false }; ///< the source's rows in reverse order
};

/// One form of an image: a size in points and something that draws it.
class PLIX_EXPORT NSImageRep : public NSObject {
    PLIX_CLASS(NSImageRep, NSObject);

public:
    /// Every representation found in a file or in bytes; empty where there is none that can be read, or it is refused.
    static std::vector<Ref<NSImageRep>> imageRepsWithContentsOfFile(std::string_view path);
    static std::vector<Ref<NSImageRep>> imageRepsWithData(NSData const&);

    // Its size in points, its pixels, and what these are.
    Size size() const { return m_size; }
    virtual void setSize(Size size) { m_size = size; }
    int pixelsWide() const { return m_pixelsWide; }
    int pixelsHigh() const { return m_pixelsHigh; }
    void setPixelsWide(int pixels) { m_pixelsWide = pixels; }
    void setPixelsHigh(int pixels) { m_pixelsHigh = pixels; }
    bool hasAlpha() const { return m_hasAlpha; }
    void setAlpha(bool hasAlpha) { m_hasAlpha = hasAlpha; }
    bool isOpaque() const { return !m_hasAlpha; }
    int bitsPerSample() const { return m_bitsPerSample; }
    void setBitsPerSample(int bits) { m_bitsPerSample = bits; }
    std::string const& colorSpaceName() const { return m_colorSpaceName; }
    void setColorSpaceName(std::string_view name) { m_colorSpaceName = name; }

    /// Draws the whole of it at the origin, at its own size, source over. False where it can't be drawn.
    virtual bool draw() const;
    bool drawAtPoint(Point) const;
    bool drawInRect(Rect) const;
    /// Draws a part of it into the current context. What every other drawing operation comes down to.
    virtual bool draw(ImageDrawing const&) const;

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    Size m_size;
    int m_pixelsWide { 0 };
    int m_pixelsHigh { 0 };
    int m_bitsPerSample { 8 };
    bool m_hasAlpha { true };
    std::string m_colorSpaceName { "NSCalibratedRGBColorSpace" };
};

}
