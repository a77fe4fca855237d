#include "image_views_page.h"
#include "Desk.h"
#include "picture_samples.h"

#include <plix/controls/PLIXImageView.h>
#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

namespace gallery {

using namespace plix;

namespace {

constexpr Size place { 184, 110 };
constexpr float gap = 24;
constexpr float pageWidth = 3 * place.width + 4 * gap;
constexpr float pageHeight = 424;

class Sheet final : public Desk {
public:
    using Desk::init;
    /// In the next place of three a row, with its caption below.
    void add(NSView& view, std::string_view caption)
    {
        auto const column = static_cast<float>(m_count % 3);
        auto const row = static_cast<float>(m_count / 3);
        Point const corner { gap + column * (place.width + gap), gap + row * (place.height + 40) };
        view.setFrameOrigin(corner);
        addSubview(view);
        addCaption(caption, { corner.x, corner.y + place.height + 6, place.width, 14 });
        ++m_count;
    }
    void addCaption(std::string_view caption, Rect frame)
    {
        auto const label = NSTextField::labelWithString(caption);
        label->setFont(NSFont::systemFontOfSize(11));
        label->setAlignment(NSCenterTextAlignment);
        label->setFrame(frame);
        addSubview(*label);
    }

private:
    int m_count { 0 };
};

Ref<PLIXImageView> imageView()
{
    auto view = make<PLIXImageView>(rectWith({}, place));
    view->setDrawsDefaultImage(true);
    return view;
}

Ref<NSImage> checkered(Size size)
{
    auto image = make<NSImage>(size);
    FocusLock const focus(*image);
    for (int y = 0; static_cast<float>(y) * 20 < size.height; ++y) {
        for (int x = 0; static_cast<float>(x) * 20 < size.width; ++x) {
            NSColor::colorWithCalibratedHue(static_cast<float>(x + y) / 24, 0.5F, (x + y) % 2 ? 0.95F : 0.8F, 1)->set();
            NSRectFill({ static_cast<float>(x) * 20, static_cast<float>(y) * 20, 20, 20 });
        }
    }
    return image;
}

void addImageViews(Sheet& desk, PictureSamples const& samples)
{
    desk.add(*imageView(), "No image, no caption");
    auto const captioned = imageView();
    captioned->setDefaultImageString("Drop a picture here");
    desk.add(*captioned, "No image, a caption");
    auto const styled = imageView();
    styled->setDefaultImageAttributedString(make<NSAttributedString>("No cover yet",
        Attributes { { NSFontAttributeName, NSFont::systemFontOfSize(14) },
            { NSForegroundColorAttributeName, NSColor::colorWithCalibratedRed(0.75F, 0.3F, 0.2F, 1) } }));
    desk.add(*styled, "A caption with a look of its own");
    auto const small = imageView();
    small->setImage(samples.badged.front());
    small->setImageFrameStyle(NSImageFrameGrayBezel);
    desk.add(*small, "A small image keeps its size");
    auto const large = imageView();
    large->setImage(checkered({ 400, 160 }));
    large->setImageFrameStyle(NSImageFrameGrayBezel);
    desk.add(*large, "A large one becomes smaller");
    auto const fitted = imageView();
    fitted->setImage(checkered({ 60, 60 }));
    fitted->setImageScaling(NSScaleToFit);
    fitted->setImageFrameStyle(NSImageFrameGrayBezel);
    desk.add(*fitted, "Other scalings as the platform’s");
}

template <typename Control> Ref<Control> segmented(Ref<NSSegmentedCell> const& cell)
{
    auto control = make<Control>(Rect { 0, 0, place.width, 24 });
    control->setCell(cell);
    control->setSegmentCount(4);
    char const* const labels[] { "A", "B", "C", "D" };
    for (long i = 0; i < 4; ++i)
        control->setLabel(labels[i], i);
    control->setSelectedSegment(2);
    return control;
}

void addSegments(Sheet& desk, PictureSamples const& samples)
{
    float const y = gap + 2 * (place.height + 40) + 10;
    auto const lined = segmented<PLIXSegmentedControl>(make<PLIXSegmentedCell>());
    lined->setFrameOrigin({ gap, y });
    desk.addSubview(*lined);
    desk.addCaption("Lines while the window is key", { gap, y + 32, place.width, 14 });
    auto const picture = make<PLIXSegmentedControlButton>(Rect { 0, 0, 64, 40 });
    picture->setSegmentCount(1);
    picture->setImage(samples.badged.back());
    picture->setFrameOrigin({ 2 * gap + place.width + 58, y - 10 });
    desk.addSubview(*picture);
    desk.addCaption("One picture in the middle", { 2 * gap + place.width, y + 32, place.width, 14 });
}

}

Ref<NSView> makeImageViewsPage()
{
    auto desk = make<Sheet>(Rect { 0, 0, pageWidth, pageHeight });
    auto const samples = PictureSamples::make();
    addImageViews(*desk, samples);
    addSegments(*desk, samples);
    return desk;
}

}
