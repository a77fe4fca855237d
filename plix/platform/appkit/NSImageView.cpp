#include <plix/platform/appkit/NSImageView.h>

#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/key_bindings.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

PLIX_DESCRIBE(NSImageView)
{
    description.action("cut:", &NSImageView::cut)
        .action("copy:", &NSImageView::copyImage)
        .action("paste:", &NSImageView::paste)
        .action("delete:", &NSImageView::deleteImage)
        .action("deleteBackward:", &NSImageView::deleteImage)
        .action("deleteForward:", &NSImageView::deleteImage);
}

namespace {

// What a pasteboard holds: an image's bytes, or the name of an image file.
Ref<NSImage> imageOnPasteboard(NSPasteboard const& board)
{
    Ref<NSImage> image;
    if (auto const data = board.dataForType(NSTIFFPboardType)) {
        image = make<NSImage>(*data);
    } else {
        auto const names = board.propertyListForType(NSFilenamesPboardType);
        if (names.array() && !names.array()->empty())
            image = make<NSImage>(std::string_view(names.array()->front().description()));
    }
    return image && image->isValid() ? image : nullptr;
}

}

bool NSImageView::init()
{
    return NSImageView::init(Rect {});
}

bool NSImageView::init(Rect frame)
{
    return Base::init(frame);
}

bool NSImageView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("allowsCutCopyPaste", [&](ObjectValue const& value) { m_allowsCutCopyPaste = value.boolValue(); });
    NSImageView::setEditable(isEditable());
    return true;
}

void NSImageView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(m_allowsCutCopyPaste, "allowsCutCopyPaste");
}

Class const* NSImageView::cellClass()
{
    return &NSImageCell::staticClass();
}

NSImageCell* NSImageView::imageCell() const
{
    return dynamic_cast<NSImageCell*>(cell());
}

NSImage* NSImageView::image() const
{
    return cell() ? cell()->image() : nullptr;
}

void NSImageView::setImage(Ref<NSImage> const& image)
{
    if (auto* cell = imageCell(); cell && cell->image() != image.get()) {
        cell->setImage(image);
        updateCell(*cell);
    }
}

NSImageAlignment NSImageView::imageAlignment() const
{
    auto const* cell = imageCell();
    return cell ? cell->imageAlignment() : NSImageAlignCenter;
}

void NSImageView::setImageAlignment(NSImageAlignment alignment)
{
    if (auto* cell = imageCell()) {
        cell->setImageAlignment(alignment);
        updateCell(*cell);
    }
}

NSImageScaling NSImageView::imageScaling() const
{
    auto const* cell = imageCell();
    return cell ? cell->imageScaling() : NSScaleProportionally;
}

void NSImageView::setImageScaling(NSImageScaling scaling)
{
    if (auto* cell = imageCell()) {
        cell->setImageScaling(scaling);
        updateCell(*cell);
    }
}

NSImageFrameStyle NSImageView::imageFrameStyle() const
{
    auto const* cell = imageCell();
    return cell ? cell->imageFrameStyle() : NSImageFrameNone;
}

void NSImageView::setImageFrameStyle(NSImageFrameStyle style)
{
    if (auto* cell = imageCell()) {
        cell->setImageFrameStyle(style);
        updateCell(*cell);
    }
}

bool NSImageView::isEditable() const
{
    return cell() && cell()->isEditable();
}

void NSImageView::setEditable(bool isEditable)
{
    if (!cell())
        return;
    cell()->setEditable(isEditable);
    if (isEditable)
        registerForDraggedTypes({ NSTIFFPboardType, NSFilenamesPboardType });
    else
        unregisterDraggedTypes();
}

// MARK: editing

void NSImageView::replaceImage(Ref<NSImage> const& image)
{
    Ref<NSImageView> const protector(this);
    setImage(image);
    if (auto* const own = cell())
        own->sendAction(); // also an action that is a function
}

void NSImageView::cut(NSObject* sender)
{
    copyImage(sender);
    if (m_allowsCutCopyPaste)
        deleteImage(sender);
}

void NSImageView::copyImage(NSObject*)
{
    Ref<NSImage> const copied(image());
    if (!m_allowsCutCopyPaste || !copied)
        return;
    auto& board = NSPasteboard::generalPasteboard();
    board.declareTypes({ NSTIFFPboardType });
    board.setData(copied->TIFFRepresentation(), NSTIFFPboardType);
}

void NSImageView::paste(NSObject*)
{
    if (!m_allowsCutCopyPaste || !isEditable() || !isEnabled())
        return;
    if (auto const pasted = imageOnPasteboard(NSPasteboard::generalPasteboard()))
        replaceImage(pasted);
}

void NSImageView::deleteImage(NSObject*)
{
    if (isEditable() && isEnabled() && image())
        replaceImage(nullptr);
}

bool NSImageView::acceptsFirstResponder() const
{
    return isEditable() && Base::acceptsFirstResponder();
}

void NSImageView::mouseDown(NSEvent& event)
{
    if (acceptsFirstResponder() && window())
        window()->makeFirstResponder(this);
    else
        NSView::mouseDown(event);
}

void NSImageView::keyDown(NSEvent& event)
{
    Ref<NSImageView> const protector(this);
    auto const meaning = interpretationOfKey(event.modifierFlags(), event.characterIgnoringModifiers(), event.characters());
    for (auto const command : meaning.commands) {
        if (perform(Selector(command), nullptr))
            return;
    }
    Base::keyDown(event);
}

// MARK: dropping

void NSImageView::setDropTarget(bool isTarget)
{
    if (cell() && cell()->isHighlighted() != isTarget) {
        cell()->setHighlighted(isTarget);
        setNeedsDisplay(true);
    }
}

unsigned NSImageView::draggingEntered(NSDraggingInfo& info)
{
    bool const isTaken
        = isEditable() && isEnabled() && info.draggingSource() != this && imageOnPasteboard(info.draggingPasteboard());
    setDropTarget(isTaken);
    return isTaken ? NSDragOperationCopy & info.draggingSourceOperationMask() : NSDragOperationNone;
}

void NSImageView::draggingExited(NSDraggingInfo*)
{
    setDropTarget(false);
}

bool NSImageView::performDragOperation(NSDraggingInfo& info)
{
    auto const dropped = imageOnPasteboard(info.draggingPasteboard());
    if (dropped)
        replaceImage(dropped);
    return dropped != nullptr;
}

void NSImageView::concludeDragOperation(NSDraggingInfo*)
{
    setDropTarget(false);
}

}
