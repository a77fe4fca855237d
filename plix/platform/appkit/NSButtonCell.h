#pragma once

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/button_layout.h>

#include <string>

namespace plix {

/// A button in a rectangle: a title, an image or both, perhaps on a bezel, or a check box or radio button beside its title. Its
/// value is its state.
class PLIX_EXPORT NSButtonCell : public NSActionCell {
    PLIX_CLASS(NSButtonCell, NSActionCell);

public:
    NSButtonCell();
    ~NSButtonCell() override;
    bool init();
    /// A momentary push button on a rounded bezel.
    bool init(std::string_view title);
    /// The same with an image only.
    bool init(Ref<NSImage> const& image);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// Sets what the type stands for: how the button shows that it is pressed and on, and the check box or radio button.
    virtual void setButtonType(NSButtonType);
    ButtonFace face() const;

    // Title and image.
    std::string const& title() const { return m_title; }
    virtual void setTitle(std::string_view);
    std::string const& alternateTitle() const { return m_alternateTitle; }
    /// Shown while pressed or on, where showsStateBy() or highlightsBy() say so.
    void setAlternateTitle(std::string_view);
    /// The title as it is drawn.
    Ref<NSAttributedString> attributedTitle() const;
    /// Null takes the own look of the title away.
    virtual void setAttributedTitle(Ref<NSAttributedString> const&);
    NSImage* image() const override { return m_image.get(); }
    void setImage(Ref<NSImage> const&) override;
    NSImage* alternateImage() const { return m_alternateImage.get(); }
    void setAlternateImage(Ref<NSImage> const&);
    NSCellImagePosition imagePosition() const { return m_imagePosition; }
    void setImagePosition(NSCellImagePosition);

    // Looks.
    NSBezelStyle bezelStyle() const { return m_bezelStyle; }
    void setBezelStyle(NSBezelStyle);
    unsigned highlightsBy() const { return m_highlightsBy; }
    void setHighlightsBy(unsigned mask);
    unsigned showsStateBy() const { return m_showsStateBy; }
    void setShowsStateBy(unsigned mask);
    /// A transparent button draws nothing and can be pressed.
    bool isTransparent() const { return m_isTransparent; }
    void setTransparent(bool);
    bool showsBorderOnlyWhileMouseInside() const { return m_showsBorderOnlyWhileMouseInside; }
    void setShowsBorderOnlyWhileMouseInside(bool);
    bool imageDimsWhenDisabled() const { return m_imageDimsWhenDisabled; }
    void setImageDimsWhenDisabled(bool);
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    /// Behind a button without a bezel; null for none.
    void setBackgroundColor(Ref<NSColor> const&);

    // Keys.
    std::string const& keyEquivalent() const { return m_keyEquivalent; }
    /// One character as it is typed; "\r" makes the button its window's default one. Empty for none.
    void setKeyEquivalent(std::string_view);
    unsigned keyEquivalentModifierMask() const { return m_keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(unsigned mask);

    // Seconds before a held continuous button sends its action again, and between one time and the next.
    void setPeriodicDelay(float delay, float interval);

    // Hovering, told by the control.
    bool reactsToPointer() const override { return true; }
    virtual void mouseEntered(NSEvent&);
    virtual void mouseExited(NSEvent&);

    // Drawing, part by part.
    virtual void drawBezelWithFrame(Rect frame, NSView& controlView);
    virtual void drawImage(NSImage&, Rect frame, NSView& controlView);
    /// Answers where the title was drawn.
    virtual Rect drawTitle(NSAttributedString const&, Rect frame, NSView& controlView);

    // NSCell:
    NSCellType type() const override { return m_imagePosition == NSImageOnly ? NSImageCellType : NSTextCellType; }
    ObjectValue const& objectValue() const override;
    /// The number is the new state.
    void setObjectValue(ObjectValue) override;
    std::string const& stringValue() const override;
    void setStringValue(std::string_view) override;
    Ref<NSAttributedString> attributedStringValue() const override;
    int intValue() const override { return state(); }
    void setIntValue(int value) override { setState(value); }
    float floatValue() const override { return static_cast<float>(state()); }
    void setFloatValue(float value) override { setState(value > 0 ? NSOnState : value < 0 ? NSMixedState : NSOffState); }
    double doubleValue() const override { return state(); }
    void setDoubleValue(double value) override { setFloatValue(static_cast<float>(value)); }
    void setFont(Ref<NSFont> const&) override;
    bool isOpaque() const override { return false; }
    Size cellSizeForBounds(Rect bounds) const override;
    Rect drawingRectForBounds(Rect bounds) const override;
    Rect titleRectForBounds(Rect bounds) const override;
    Rect imageRectForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;
    void setNextState() override;
    void getPeriodicDelay(float& delay, float& interval) const override;
    static bool prefersTrackingUntilMouseUp() { return false; }

protected:
    /// Whether it shows the alternate title and image, or is lit or pushed in.
    bool shows(unsigned mask) const;
    /// How the face is drawn now.
    virtual ControlLook buttonLook(NSView&) const;
    virtual Ref<NSColor> titleColor() const;
    /// Room at the right end that belongs to a subclass: a pop-up's arrows.
    virtual CellInsets contentInsets() const;
    bool isDefaultButton() const;
    void copyStateTo(NSObject& fresh) const override;

private:
    ButtonContent content() const;
    std::string const& shownTitle() const;
    NSImage* shownImage() const;
    ButtonContentPlan planInBounds(Rect bounds) const;

    std::string m_title;
    std::string m_alternateTitle;
    Ref<NSAttributedString> m_attributedTitle;
    Ref<NSImage> m_image;
    Ref<NSImage> m_alternateImage;
    Ref<NSColor> m_backgroundColor;
    std::string m_keyEquivalent;
    mutable ObjectValue m_stateValue;
    unsigned m_keyEquivalentModifierMask { 0 };
    unsigned m_highlightsBy { NSPushInCellMask | NSChangeGrayCellMask };
    unsigned m_showsStateBy { NSNoCellMask };
    NSBezelStyle m_bezelStyle { NSRoundedBezelStyle };
    NSCellImagePosition m_imagePosition { NSNoImage };
    ButtonFace m_indicator { ButtonFace::plain };
    float m_periodicDelay { 0.4F };
    float m_periodicInterval { 0.075F };
    bool m_isTransparent { false };
    bool m_showsBorderOnlyWhileMouseInside { false };
    bool m_imageDimsWhenDisabled { true };
};

}
