#include <plix/controls/PLIXImageView.h>

#include <plix/controls/image_view_plan.h>
#include <plix/drawing/bezier_path_additions.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/drawing/text_height.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>

namespace plix {

namespace {

constexpr float captionFontSize = 18;
constexpr float captionMargins = 20;
constexpr float borderWidth = 3;

/// While it lives a view with the keyboard, which is to show no ring, has it not.
class WithoutFocus {
public:
    explicit WithoutFocus(NSView& view)
    {
        if (view.focusRingType() != NSFocusRingTypeNone || !view.window() || view.window()->firstResponder() != &view)
            return;
        m_view = Ref<NSView>(view);
        m_window = Ref<NSWindow>(view.window());
        m_window->makeFirstResponder(m_window.get());
    }
    ~WithoutFocus()
    {
        if (m_window)
            m_window->makeFirstResponder(m_view.get());
    }
    WithoutFocus(WithoutFocus const&) = delete;
    WithoutFocus& operator=(WithoutFocus const&) = delete;

private:
    Ref<NSView> m_view;
    Ref<NSWindow> m_window;
};

}

PLIX_DESCRIBE(PLIXImageView)
{
}

PLIXImageView::PLIXImageView() = default;
PLIXImageView::~PLIXImageView() = default;

bool PLIXImageView::init()
{
    return PLIXImageView::init(Rect {});
}

bool PLIXImageView::init(Rect frame)
{
    return Base::init(frame);
}

bool PLIXImageView::init(NSCoder& coder)
{
    return Base::init(coder);
}

void PLIXImageView::setDrawsDefaultImage(bool draws)
{
    m_drawsDefaultImage = draws;
    setNeedsDisplay(true);
}

void PLIXImageView::setDefaultImage(Ref<NSImage> const& image)
{
    m_defaultImage = image;
    setNeedsDisplay(true);
}

void PLIXImageView::setDefaultImageString(std::optional<std::string_view> text)
{
    m_defaultImageString = text;
    setNeedsDisplay(true);
}

void PLIXImageView::setDefaultImageAttributedString(ObjectValue const& text)
{
    m_defaultImageAttributedString = text.as<NSAttributedString>();
    setNeedsDisplay(true);
}

NSAttributedString* PLIXImageView::defaultImageAttributedString() const
{
    return m_defaultImageAttributedString.get();
}

// MARK: the default image

Ref<NSAttributedString> PLIXImageView::caption() const
{
    if (m_defaultImageAttributedString || !m_defaultImageString)
        return m_defaultImageAttributedString;
    auto const style = make<NSMutableParagraphStyle>();
    style->setAlignment(NSCenterTextAlignment);
    return make<NSAttributedString>(*m_defaultImageString,
        Attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(captionFontSize) },
            { NSParagraphStyleAttributeName, style },
            { NSForegroundColorAttributeName, NSColor::colorWithCalibratedWhite(0.5F, 1) } });
}

Ref<NSImage> PLIXImageView::defaultImage()
{
    if (m_defaultImage)
        return m_defaultImage;
    auto const size = bounds().size();
    auto image = make<NSImage>(size);
    auto const text = caption();
    auto const border = defaultImageBorder();
    FocusLock const focus(*image);
    border->drawInRect(rectWith({}, size), rectWith({}, size), NSCompositeSourceOver, 1);
    if (text) {
        float const width = size.width - captionMargins;
        float const height = PLIXAttributedStringHeightForWidth(*text, width);
        GraphicsState const saved;
        if (auto const context = NSGraphicsContext::currentContext())
            context->setShouldSmoothFonts(false);
        text->drawInRect(PLIXRectCenterOnRect({ 0, 0, width, height }, bounds()));
    }
    return image;
}

Ref<NSImage> PLIXImageView::defaultImageBorder()
{
    auto const plan = dashedBorder(frame().size(), bounds());
    auto const path = bezierPathWithRoundedRect(plan.path, plan.cornerRadius);
    path->setLineWidth(borderWidth);
    auto image = make<NSImage>(bounds().size());
    FocusLock const focus(*image);
    NSColor::lightGrayColor()->set();
    path->stroke();
    NSColor::colorWithCalibratedRed(0, 0, 0, 0)->set();
    for (auto const& gap : plan.gaps)
        NSRectFillUsingOperation(gap, NSCompositeCopy);
    return image;
}

// MARK: drawing

void PLIXImageView::drawRect(Rect dirty)
{
    Ref<PLIXImageView> const protector(this);
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    WithoutFocus const unfocused(*this);
    GraphicsState const saved(*context);
    context->setImageInterpolation(NSImageInterpolationHigh);
    drawContent(dirty);
}

void PLIXImageView::drawContent(Rect dirty)
{
    Ref<NSImage> const shown(image());
    if (auto const stand = !shown && m_drawsDefaultImage ? defaultImage() : nullptr) {
        Base::setImage(stand);
        Base::drawRect(dirty);
        Base::setImage(nullptr);
        return;
    }
    if (!shown || imageScaling() != NSScaleProportionally || !cell()) {
        Base::drawRect(dirty);
        return;
    }
    Base::setImage(nullptr);
    Base::drawRect(dirty);
    Base::setImage(shown);
    auto place = imagePlacement(shown->size(), cell()->drawingRectForBounds(bounds()));
    // Counted from the lower edge; upright in these flipped coordinates.
    place.y = bounds().height - place.y - place.height;
    auto const context = NSGraphicsContext::currentContext();
    GraphicsState const saved(*context);
    if (isFlipped() != shown->isFlipped()) {
        context->translateBy(0, place.y + place.maxY());
        context->scaleBy(1, -1);
    }
    shown->drawInRect(place, rectWith({}, shown->size()), NSCompositeSourceOver, 1);
}

}
