#include <plix/controls/PLIXChiseledTextPopUpButton.h>

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/window_activity.h>
#include <plix/drawing/image_additions.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

namespace {

constexpr long keepsRightEdge = 1;
constexpr float titleFontSize = 11;
constexpr Rect titleFrameOfNew { 0, 0, 100, 20 };

/// In the library's bundle, for subclasses too.
Ref<NSImage> resource(std::string_view name)
{
    return imageNamed(name, &PLIXChiseledTextPopUpButton::staticClass());
}

Ref<NSImage> slice(std::string_view name)
{
    auto image = resource(name);
    if (image)
        image->setScalesWhenResized(true);
    return image;
}

float widthOf(NSImage const* image)
{
    return image ? image->size().width : 0;
}

void drawSlice(Ref<NSImage> const& image, Rect rect)
{
    if (image)
        image->drawInRect(rect, {}, NSCompositeSourceOver, 1);
}

}

PLIX_DESCRIBE(PLIXChiseledTextPopUpButton)
{
    description.bundle("plix");
}

// MARK: life

PLIXChiseledTextPopUpButton::PLIXChiseledTextPopUpButton() = default;

PLIXChiseledTextPopUpButton::~PLIXChiseledTextPopUpButton()
{
    NSNotificationCenter::defaultCenter().removeObserver(*this);
}

bool PLIXChiseledTextPopUpButton::init()
{
    if (!Base::init())
        return false;
    setUp(titleFrameOfNew);
    composeImages();
    return true;
}

bool PLIXChiseledTextPopUpButton::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    setUp(titleFrameOfNew);
    composeImages();
    return true;
}

bool PLIXChiseledTextPopUpButton::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    setUp(frame());
    setTitle(Base::title());
    composeImages();
    return true;
}

void PLIXChiseledTextPopUpButton::setUp(Rect titleFrame)
{
    m_titleField = make<PLIXChiseledTextField>(titleFrame);
    m_titleField->setFont(NSFont::boldSystemFontOfSize(titleFontSize));
    m_titleField->setAlignment(NSCenterTextAlignment);
    SetFrameAnchorMask(keepsRightEdge);
    setImagePosition(NSImageOnly);
    setBordered(false);
    setButtonType(NSMomentaryChangeButton);
    setBezelStyle(NSRegularSquareBezelStyle);
    InitBackgroundImages();
    m_trackingRectTag = 0;
    m_mouseIsDown = false;
    m_sizeHeightToFit = false;
    m_active = true;
}

void PLIXChiseledTextPopUpButton::InitBackgroundImages()
{
    m_leftCap_MouseDown_Image = slice("chiseledPopUp_LeftCap_MouseDown");
    m_middle_MouseDown_Image = slice("chiseledPopUp_Middle_MouseDown");
    m_rightCap_MouseDown_Image = slice("chiseledPopUp_RightCap_MouseDown");
    m_leftCap_MouseOver_Image = slice("chiseledPopUp_LeftCap_MouseOver");
    m_middle_MouseOver_Image = slice("chiseledPopUp_Middle_MouseOver");
    m_rightCap_MouseOver_Image = slice("chiseledPopUp_RightCap_MouseOver");
}

// MARK: images

// Looked up until it is found, and kept: looking it up reads its file.
NSImage* PLIXChiseledTextPopUpButton::blackArrow()
{
    if (!m_blackArrow)
        m_blackArrow = resource("chiseledPopUp_DownArrow_Black");
    return m_blackArrow.get();
}

NSImage* PLIXChiseledTextPopUpButton::whiteArrow()
{
    if (!m_whiteArrow)
        m_whiteArrow = resource("chiseledPopUp_DownArrow_White");
    return m_whiteArrow.get();
}

Ref<NSColor> PLIXChiseledTextPopUpButton::highlightColor()
{
    return NSColor::colorWithCalibratedRed(1, 1, 1, 1);
}

Ref<NSColor> PLIXChiseledTextPopUpButton::shadow_HighlightColor()
{
    return NSColor::colorWithCalibratedRed(0.1F, 0.1F, 0.1F, 1);
}

SliceWidths PLIXChiseledTextPopUpButton::pressedWidths() const
{
    return { widthOf(m_leftCap_MouseDown_Image.get()), widthOf(m_middle_MouseDown_Image.get()),
        widthOf(m_rightCap_MouseDown_Image.get()) };
}

SliceWidths PLIXChiseledTextPopUpButton::hoverWidths() const
{
    return { widthOf(m_leftCap_MouseOver_Image.get()), widthOf(m_middle_MouseOver_Image.get()),
        widthOf(m_rightCap_MouseOver_Image.get()) };
}

Ref<NSImage> PLIXChiseledTextPopUpButton::ConstructIdleImage()
{
    return compose({});
}

Ref<NSImage> PLIXChiseledTextPopUpButton::ConstructMouseOverImage()
{
    return compose(PopUpBackground::hover);
}

Ref<NSImage> PLIXChiseledTextPopUpButton::ConstructMouseDownImage()
{
    return compose(PopUpBackground::pressed);
}

void PLIXChiseledTextPopUpButton::composeImages()
{
    SetIdleImage(ConstructIdleImage());
    SetMouseOverImage(ConstructMouseOverImage());
    SetMouseDownImage(ConstructMouseDownImage());
}

Ref<NSImage> PLIXChiseledTextPopUpButton::compose(std::optional<PopUpBackground> background)
{
    // The frame for the idle image and the bounds for the others: that is meant.
    Rect const button = background ? bounds() : frame();
    m_titleField->setFrameOrigin(chiseledTitleOrigin(button, m_titleField->frame().size(), pressedWidths().left));
    auto image = make<NSImage>(button.size());
    FocusLock const focus(image);
    if (background)
        drawSlices(*background, button);
    setTitleColors(background);
    drawTitle(background);
    return image;
}

void PLIXChiseledTextPopUpButton::drawSlices(PopUpBackground background, Rect button) const
{
    bool const isPressed = background == PopUpBackground::pressed;
    auto const slices = popUpSlices(background, button, pressedWidths(), hoverWidths());
    drawSlice(isPressed ? m_leftCap_MouseDown_Image : m_leftCap_MouseOver_Image, slices.left);
    drawSlice(isPressed ? m_rightCap_MouseDown_Image : m_rightCap_MouseOver_Image, slices.right);
    drawSlice(isPressed ? m_middle_MouseDown_Image : m_middle_MouseOver_Image, slices.middle);
}

void PLIXChiseledTextPopUpButton::setTitleColors(std::optional<PopUpBackground> background)
{
    auto& field = *m_titleField;
    if (background) {
        field.setTextColor(highlightColor());
        field.shadow()->setTextColor(shadow_HighlightColor());
    } else {
        field.setTextColor(Ref<NSColor>(m_active ? field.activeColor() : field.inactiveColor()));
        field.shadow()->setTextColor(Ref<NSColor>(m_active ? field.shadowActiveColor() : field.shadowInactiveColor()));
    }
}

void PLIXChiseledTextPopUpButton::drawTitle(std::optional<PopUpBackground> background)
{
    NSGraphicsContext::currentContext()->graphicsPort()->setShouldSmoothFonts(false);
    auto const title = m_titleField->frame();
    auto& view = *NSView::focusView();
    m_titleField->shadow()->cell()->drawWithFrame(NSOffsetRect(title, 0, -1), view);
    m_titleField->cell()->drawWithFrame(title, view);
    if (auto const* arrow = background ? whiteArrow() : blackArrow())
        arrow->compositeToPoint(popUpArrowOrigin(title, arrow->size()), NSCompositeSourceOver);
}

void PLIXChiseledTextPopUpButton::SetIdleImage(Ref<NSImage> const& image)
{
    m_image_Idle = image;
    setImage(image);
}

void PLIXChiseledTextPopUpButton::SetMouseOverImage(Ref<NSImage> const& image)
{
    m_image_MouseOver = image;
}

void PLIXChiseledTextPopUpButton::SetMouseDownImage(Ref<NSImage> const& image)
{
    m_image_MouseDown = image;
    setAlternateImage(image);
}

// MARK: title

void PLIXChiseledTextPopUpButton::setTitle(std::string_view title)
{
    Ref<PLIXChiseledTextPopUpButton> const protector(this);
    auto const before = frame();
    m_titleField->setStringValue(title);
    m_titleField->sizeToFit();
    PopUpFrameRequest const request { .frame = before,
        .title = m_titleField->frame().size(),
        .pressed = pressedWidths(),
        .arrowWidth = widthOf(whiteArrow()),
        .sizesHeightToFit = m_sizeHeightToFit,
        .keepsRightEdge = (m_frameAnchorMask & keepsRightEdge) != 0 };
    setFrameSize(popUpSizeForTitle(request));
    setFrameOrigin(popUpOriginForWidth(request, frame().width));
    UpdateTrackingRect();
    composeImages();
    if (Ref<NSView> const parent { superview() })
        parent->displayRect(before);
}

std::string const& PLIXChiseledTextPopUpButton::title() const
{
    return m_titleField->stringValue();
}

void PLIXChiseledTextPopUpButton::setFont(Ref<NSFont> const& font)
{
    if (font && m_titleField)
        m_titleField->setFont(font);
}

// MARK: geometry

void PLIXChiseledTextPopUpButton::UpdateTrackingRect()
{
    if (!superview() || !window())
        return;
    if (m_trackingRectTag)
        removeTrackingRect(m_trackingRectTag);
    m_trackingRectTag = addTrackingRect(bounds(), this, nullptr, false);
}

void PLIXChiseledTextPopUpButton::setFrame(Rect frame)
{
    UpdateTrackingRect();
    Base::setFrame(frame);
}

void PLIXChiseledTextPopUpButton::setFrameSize(Size size)
{
    UpdateTrackingRect();
    Base::setFrameSize(size);
}

void PLIXChiseledTextPopUpButton::setFrameOrigin(Point origin)
{
    UpdateTrackingRect();
    Base::setFrameOrigin(origin);
}

void PLIXChiseledTextPopUpButton::viewDidEndLiveResize()
{
    UpdateTrackingRect();
    Base::viewDidEndLiveResize();
}

void PLIXChiseledTextPopUpButton::viewDidMoveToSuperview()
{
    UpdateTrackingRect();
    Base::viewDidMoveToSuperview();
}

void PLIXChiseledTextPopUpButton::viewDidMoveToWindow()
{
    if (followActivity(*this) == ActivitySource::window)
        NSNotificationCenter::defaultCenter().addObserver(
            *this, &PLIXChiseledTextPopUpButton::UpdateTrackingRect, NSWindowDidResizeNotification, window());
    UpdateTrackingRect();
    Base::viewDidMoveToWindow();
}

// The platform's own area that follows the bounds would tell of the pointer where this one's rectangle does not.
void PLIXChiseledTextPopUpButton::resetCursorRects()
{
}

// MARK: pointer

void PLIXChiseledTextPopUpButton::mouseEntered(NSEvent&)
{
    if (window() && window() == NSApp->keyWindow() && isEnabled() && !m_mouseIsDown)
        setImage(m_image_MouseOver);
}

// Unlike entering, this asks for neither key window nor being enabled, but for activity; that is meant.
void PLIXChiseledTextPopUpButton::mouseExited(NSEvent&)
{
    if (m_active && !m_mouseIsDown)
        setImage(m_image_Idle);
}

void PLIXChiseledTextPopUpButton::mouseDown(NSEvent& event)
{
    m_mouseIsDown = true;
    Base::mouseDown(event);
}

void PLIXChiseledTextPopUpButton::mouseUp(NSEvent& event)
{
    m_mouseIsDown = false;
    Base::mouseUp(event);
}

// MARK: activity

void PLIXChiseledTextPopUpButton::activate(NSNotification const*)
{
    m_active = true;
    SetIdleImage(ConstructIdleImage());
    display();
}

void PLIXChiseledTextPopUpButton::deactivate(NSNotification const*)
{
    m_active = false;
    SetIdleImage(ConstructIdleImage());
    display();
}

void PLIXChiseledTextPopUpButton::blah(NSNotification const& notification)
{
    NSLog(notification.name);
}

}
