#pragma once

#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

struct NSNotification;

// The default colours; see PLIXChiseledTextField::classActiveColor(). What a host assigns before they are first asked for is taken.
PLIX_EXPORT extern Global<NSColor> PLIXChiseledTextField_ActiveColor;
PLIX_EXPORT extern Global<NSColor> PLIXChiseledTextField_ShadowActiveColor;
PLIX_EXPORT extern Global<NSColor> PLIXChiseledTextField_InactiveColor;
PLIX_EXPORT extern Global<NSColor> PLIXChiseledTextField_ShadowInactiveColor;
PLIX_EXPORT extern Global<NSColor> PLIXChiseledTextField_DisabledColor;

/// A label that looks engraved: the same text stands one point below in a light colour. The colours follow the window: one pair is
/// for a window with the keyboard, or an active application where the window is of a class of the host's own; another pair is for
/// the others, and a disabled label has one colour and no shadow.
///
/// The look changes with activate(), deactivate() and setEnabled() only: a new colour shows with the next of these. An attributed
/// value is coloured when it is set.
class PLIX_EXPORT PLIXChiseledTextField : public NSTextField {
    PLIX_CLASS(PLIXChiseledTextField, NSTextField);

public:
    PLIXChiseledTextField();
    ~PLIXChiseledTextField() override;
    /// A label without shadow, in the text colour of a plain field.
    bool init();
    /// Enabled, in the active look.
    bool init(Rect frame);
    /// The same with what was archived; colours and enabledness are those of a new label.
    bool init(NSCoder&);
    /// Behind the base's data five colours as text, in sequence: active, inactive, shadow active, shadow inactive, disabled.
    void encodeWithCoder(NSCoder&) const override;

    // The defaults: the globals, each made of a grey for the system's version where it is nil.
    static Ref<NSColor> classActiveColor();
    static Ref<NSColor> classShadowActiveColor();
    static Ref<NSColor> classInactiveColor();
    static Ref<NSColor> classShadowInactiveColor();
    static Ref<NSColor> classDisabledColor();
    // Those that a label takes; a subclass overrides them to have its own.
    virtual Ref<NSColor> ownActiveColor() const;
    virtual Ref<NSColor> ownShadowActiveColor() const;
    virtual Ref<NSColor> ownInactiveColor() const;
    virtual Ref<NSColor> ownShadowInactiveColor() const;
    virtual Ref<NSColor> ownDisabledColor() const;

    // The label's colours; nil restores the default of its class.
    NSColor* activeColor() const { return m_activeColor.get(); }
    /// Also puts the disabled colour back to its default; whoever wants both sets this one first.
    virtual void setActiveColor(Ref<NSColor> const&);
    NSColor* shadowActiveColor() const { return m_shadowActiveColor.get(); }
    virtual void setShadowActiveColor(Ref<NSColor> const&);
    NSColor* inactiveColor() const { return m_inactiveColor.get(); }
    virtual void setInactiveColor(Ref<NSColor> const&);
    /// Also the shadow's while the label is disabled, when it is not drawn.
    NSColor* shadowInactiveColor() const { return m_shadowInactiveColor.get(); }
    virtual void setShadowInactiveColor(Ref<NSColor> const&);
    NSColor* disabledColor() const { return m_disabledColor.get(); }
    virtual void setDisabledColor(Ref<NSColor> const&);

    // The look of an enabled label. The sender, a notification or nil, doesn't matter.
    virtual void activate(NSNotification const* sender);
    virtual void deactivate(NSNotification const* sender);
    /// What was said last, also to a disabled label.
    bool isActive() const { return m_isActive; }
    /// Enabling gives the active look, whatever the window's state.
    void setEnabled(bool) override;

    /// What draws the shadow: a field with the same text, in no view. Null in a label that init() made.
    NSTextField* shadow() const { return m_shadow.get(); }

    // NSView, NSControl; setters reach the shadow first.
    void setAlignment(NSTextAlignment) override;
    void setFont(Ref<NSFont> const&) override;
    void setNeedsDisplay(bool) override;
    void setStringValue(std::string_view) override;
    /// Images in the text are drawn once: in the shadow a blank one stands for each.
    void setAttributedStringValue(Ref<NSAttributedString> const&) override;
    void setFloatValue(float) override;
    void setIntValue(int) override;
    void setDoubleValue(double) override;
    void setFormatter(Ref<NSFormatter> const&) override;
    void setBoundsOrigin(Point) override;
    void setFrameSize(Size) override;
    void setFrameOrigin(Point) override;
    void drawRect(Rect) override;
    void display() override;
    /// From now on follows the window, besides those that it followed already.
    void viewDidMoveToWindow() override;
    void awakeFromNib() override;

protected:
    virtual void initShadow();
    virtual void initColors();

private:
    void initLabel();
    void initShape();
    void wear(Ref<NSColor> const& color, Ref<NSColor> const& shadowColor);

    Ref<NSTextField> m_shadow;
    Ref<NSColor> m_activeColor;
    Ref<NSColor> m_shadowActiveColor;
    Ref<NSColor> m_inactiveColor;
    Ref<NSColor> m_shadowInactiveColor;
    Ref<NSColor> m_disabledColor;
    bool m_isActive { false };
};

}
