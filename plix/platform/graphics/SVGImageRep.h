#pragma once

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/image_codecs.h>

#include <memory>

// Private to plix/platform/graphics.

namespace plix {

struct SVGDocument;

/// A drawing that is made into pixels for the scale that it is drawn at, again only where that changes.
class SVGImageRep : public NSImageRep {
    PLIX_CLASS(SVGImageRep, NSImageRep);

public:
    SVGImageRep();
    ~SVGImageRep() override;

    bool init() { return false; }
    /// Nil for what is no drawing or has no usable size. Nothing outside the file is ever read.
    bool init(FileBytes);
    static bool isSVG(FileBytes);

    // NSImageRep:
    using Base::draw;
    bool draw(ImageDrawing const&) const override;

private:
    Ref<NSBitmapImageRep> bitmapAt(int pixelsWide, int pixelsHigh) const;
    void copyStateTo(NSObject& fresh) const override;

    std::shared_ptr<SVGDocument> m_document;
    mutable Ref<NSBitmapImageRep> m_bitmap;
};

}
