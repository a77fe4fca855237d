#pragma once

#include "picture_samples.h"

#include <plix/platform/appkit/NSView.h>

#include <optional>

namespace gallery {

/// The page of stretched, badged, recoloured and composed images, shadings, operations, interpolation, shadows and paths.
class PictureView : public plix::NSView {
    PLIX_CLASS(PictureView, plix::NSView);

public:
    bool init();

    // NSView:
    void drawRect(plix::Rect) override;
    bool isOpaque() const override { return true; }

private:
    PictureSamples const& samples();

    std::optional<PictureSamples> m_samples;
    float m_samplesScale { 0 };
};

plix::Ref<plix::NSView> makePicturesPage();

}
