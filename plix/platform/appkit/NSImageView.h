#pragma once

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/image_layout.h>

namespace plix {

class NSImageCell;

/// Shows an image. An editable one takes the keyboard: the image can be cut, copied and deleted, and another pasted or dropped on
/// it, which sends the action.
class PLIX_EXPORT NSImageView : public NSControl {
    PLIX_CLASS(NSImageView, NSControl);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell; see NSImageCell.
    virtual NSImage* image() const;
    virtual void setImage(Ref<NSImage> const&);
    NSImageAlignment imageAlignment() const;
    void setImageAlignment(NSImageAlignment);
    NSImageScaling imageScaling() const;
    void setImageScaling(NSImageScaling);
    NSImageFrameStyle imageFrameStyle() const;
    void setImageFrameStyle(NSImageFrameStyle);
    bool isEditable() const;
    void setEditable(bool);
    /// True at first.
    bool allowsCutCopyPaste() const { return m_allowsCutCopyPaste; }
    void setAllowsCutCopyPaste(bool allows) { m_allowsCutCopyPaste = allows; }

    // From the Edit menu and the keyboard.
    void cut(NSObject* sender);
    void copyImage(NSObject* sender);
    void paste(NSObject* sender);
    void deleteImage(NSObject* sender);

    // NSView, NSControl:
    bool isOpaque() const override { return false; }
    bool acceptsFirstResponder() const override;
    void mouseDown(NSEvent&) override;
    void keyDown(NSEvent&) override;
    bool mouseDownCanMoveWindow() const override { return !isEditable(); }
    unsigned draggingEntered(NSDraggingInfo&) override;
    void draggingExited(NSDraggingInfo*) override;
    bool performDragOperation(NSDraggingInfo&) override;
    void concludeDragOperation(NSDraggingInfo*) override;

private:
    NSImageCell* imageCell() const;
    void replaceImage(Ref<NSImage> const&);
    void setDropTarget(bool);

    bool m_allowsCutCopyPaste { true };
};

}
