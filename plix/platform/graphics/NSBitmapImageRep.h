#pragma once

#include <plix/platform/graphics/NSImageRep.h>
#include <plix/platform/graphics/pixel_buffer.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace plix {

struct BitmapStorage;

/// What representationUsingType() writes.
enum NSBitmapImageFileType : int {
    NSTIFFFileType = 0,
    NSBMPFileType = 1,
    NSGIFFileType = 2,
    NSJPEGFileType = 3,
    NSPNGFileType = 4,
};

/// Pixels. Copies share them until one of the copies is written to.
class PLIX_EXPORT NSBitmapImageRep : public NSImageRep {
    PLIX_CLASS(NSBitmapImageRep, NSImageRep);

public:
    NSBitmapImageRep();
    ~NSBitmapImageRep() override;

    /// More pixels than this are refused everywhere, before anything is allocated.
    static constexpr long maximumPixels = 64L * 1024 * 1024;

    using Base::init;
    /// Transparent; one pixel a point. Nil for sides below 1 or too many pixels.
    bool init(int pixelsWide, int pixelsHigh);
    /// A copy of what a rectangle of the current context's user space shows; its size is the rectangle's. Pixels outside the
    /// context are transparent. Nil without a context or for an empty rectangle.
    bool init(Rect focusedViewRect);
    /// The first picture in the bytes of a file.
    bool init(NSData const& fileContents);
    /// For the other sources of this folder: shares pixels, `pixelsPerPoint` of them to a point of `size`.
    bool init(std::shared_ptr<BitmapStorage> storage, Size size, Size pixelsPerPoint);
    static Ref<NSBitmapImageRep> imageRepWithData(NSData const&);
    static Ref<NSBitmapImageRep> imageRepWithContentsOfFile(std::string_view path);

    /// x from the left, y from the top, as components that are not premultiplied. Null outside.
    Ref<NSColor> colorAtX(int x, int y) const;
    void setColor(NSColor const&, int x, int y);
    /// The pixel itself: premultiplied, alpha in the highest byte, then red, green, blue. 0 outside.
    std::uint32_t pixelAtX(int x, int y) const;

    /// To read. Valid until the representation is drawn into or destroyed.
    PixelBuffer pixels() const;
    /// To write: the pixels become this representation's own. The content counts as changed from here on.
    PixelBuffer mutablePixels();
    /// The same number means the same content; it changes when the pixels may have changed.
    std::uint64_t contentStamp() const;
    /// Says that something else has written to the pixels.
    void contentChanged();
    Size pixelsPerPoint() const { return m_pixelsPerPoint; }
    /// Also makes the size fit.
    void setPixelsPerPoint(Size);
    /// While something else writes to the pixels, copies get pixels of their own.
    void setExposed(bool isExposed) { m_isExposed = isExposed; }

    /// The bytes of a file; null for a type that can't be written (GIF). JPEG and BMP files have no alpha: white shows through.
    Ref<NSData> representationUsingType(NSBitmapImageFileType) const;
    Ref<NSData> TIFFRepresentation() const;
    /// One file with all of them; null for none.
    static Ref<NSData> TIFFRepresentationOfImageRepsInArray(std::vector<Ref<NSBitmapImageRep>> const&);

    // NSImageRep:
    /// The whole bitmap fills the new size.
    void setSize(Size) override;
    using Base::draw;
    bool draw(ImageDrawing const&) const override;

    // For the other sources of this folder.
    BitmapStorage const* storage() const { return m_storage.get(); }
    std::shared_ptr<BitmapStorage> const& sharedStorage() const { return m_storage; }

private:
    void copyStateTo(NSObject& fresh) const override;

    std::shared_ptr<BitmapStorage> m_storage;
    Size m_pixelsPerPoint { 1, 1 };
    bool m_isExposed { false };
};

}
