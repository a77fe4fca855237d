#pragma once

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/button_constants.h>

namespace plix {

class NSButtonCell;

/// A button, a check box or a radio button. Pressed by the mouse, by the space bar while it has the keyboard, and by its key
/// equivalent. Radio buttons that share a superview and an action turn each other off.
class PLIX_EXPORT NSButton : public NSControl {
    PLIX_CLASS(NSButton, NSControl);

public:
    NSButton();
    ~NSButton() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    static Class const* cellClass();
    /// For buttons made from now on; a class of button cells.
    static void setCellClass(Class const&);
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell; see NSButtonCell.
    virtual void setButtonType(NSButtonType);
    virtual std::string const& title() const;
    virtual void setTitle(std::string_view);
    std::string const& alternateTitle() const;
    void setAlternateTitle(std::string_view);
    Ref<NSAttributedString> attributedTitle() const;
    void setAttributedTitle(Ref<NSAttributedString> const&);
    NSImage* image() const;
    virtual void setImage(Ref<NSImage> const&);
    NSImage* alternateImage() const;
    void setAlternateImage(Ref<NSImage> const&);
    NSCellImagePosition imagePosition() const;
    void setImagePosition(NSCellImagePosition);
    NSBezelStyle bezelStyle() const;
    void setBezelStyle(NSBezelStyle);
    bool isBordered() const;
    virtual void setBordered(bool);
    bool isTransparent() const;
    void setTransparent(bool);
    bool showsBorderOnlyWhileMouseInside() const;
    void setShowsBorderOnlyWhileMouseInside(bool);
    int state() const;
    virtual void setState(int);
    bool allowsMixedState() const;
    void setAllowsMixedState(bool);
    void setNextState();
    std::string const& keyEquivalent() const;
    void setKeyEquivalent(std::string_view);
    unsigned keyEquivalentModifierMask() const;
    void setKeyEquivalentModifierMask(unsigned mask);
    void setPeriodicDelay(float delay, float interval);
    void getPeriodicDelay(float& delay, float& interval) const;
    virtual void highlight(bool);

    // NSView, NSControl:
    bool performKeyEquivalent(NSEvent&) override;
    bool sendAction(Selector, NSObject* target) override;
    void keyDown(NSEvent&) override;
    void mouseEntered(NSEvent&) override;
    void mouseExited(NSEvent&) override;

protected:
    NSButtonCell* buttonCell() const;

private:
    void turnOtherRadioButtonsOff();
};

}
