#pragma once

#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/NSParagraphStyle.h>
#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace plix {

class NSAttributedString;
class NSColor;
class NSEvent;
class NSFont;
class NSFormatter;
class NSImage;
class NSMenu;
class NSText;
class NSView;
struct CellInsets;
struct ControlLook;
enum NSFocusRingType : int;

/// Holds a value, knows how large it is and draws it in a rectangle of a view; follows the mouse there. Light enough that one cell
/// serves many places: a table draws all rows of a column with one. Rectangles are in the control view's coordinates; cells count
/// on flipped ones for what is above and below.
class PLIX_EXPORT NSCell : public NSObject {
    PLIX_CLASS(NSCell, NSObject);

public:
    using NSObject::init;
    NSCell();
    ~NSCell() override;

    /// A text cell with the text "".
    bool init();
    /// A text cell in the system font.
    bool init(std::string_view text);
    /// An image cell; null makes a cell of no type.
    bool init(Ref<NSImage> const& image);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // --- kind ---

    virtual NSCellType type() const { return m_type; }
    /// Making a text cell of another kind gives it the system font and an empty text; making an image cell drops the value.
    virtual void setType(NSCellType);
    NSView* controlView() const;
    /// The view that the cell was drawn in last, or belongs to. Held weakly.
    virtual void setControlView(NSView*);

    // --- value ---

    /// Nil where the value is a text that the formatter refuses.
    virtual ObjectValue const& objectValue() const;
    virtual void setObjectValue(ObjectValue);
    bool hasValidObjectValue() const { return m_hasValidObject; }
    /// The value as text, through the formatter. Valid until the value or the formatter changes.
    virtual std::string const& stringValue() const;
    /// Goes through the formatter; a text that it refuses is kept as text, with an invalid object value.
    virtual void setStringValue(std::string_view);
    /// With the cell's font, text colour, alignment and line breaking; a value that is an attributed string is answered as it is.
    virtual Ref<NSAttributedString> attributedStringValue() const;
    virtual void setAttributedStringValue(Ref<NSAttributedString> const&);
    virtual int intValue() const;
    virtual void setIntValue(int);
    virtual float floatValue() const;
    virtual void setFloatValue(float);
    virtual double doubleValue() const;
    virtual void setDoubleValue(double);
    void takeStringValueFrom(NSObject* sender);
    void takeObjectValueFrom(NSObject* sender);
    void takeIntValueFrom(NSObject* sender);
    void takeFloatValueFrom(NSObject* sender);
    void takeDoubleValueFrom(NSObject* sender);

    NSFormatter* formatter() const;
    /// The value is kept where the formatter can show it, else its text is read anew.
    virtual void setFormatter(Ref<NSFormatter> const&);
    /// True for anything, unless the formatter refuses the text.
    bool isEntryAcceptable(std::string_view) const;

    virtual NSImage* image() const;
    /// Makes the cell an image cell; null leaves an image cell empty.
    virtual void setImage(Ref<NSImage> const&);
    ObjectValue const& representedObject() const;
    void setRepresentedObject(ObjectValue);

    /// Ascending, same or descending as the texts of both are; raises std::invalid_argument where either is no text cell.
    virtual int compare(NSCell const& other) const;

    // --- state ---

    // Whether it takes the mouse and the keyboard.
    virtual bool isEnabled() const { return m_flags.enabled; }
    virtual void setEnabled(bool);
    virtual bool isHighlighted() const { return m_flags.highlighted; }
    /// Stores the flag only; highlight() draws too.
    virtual void setHighlighted(bool);
    virtual int state() const { return m_state; }
    /// Above 0 is on, below 0 mixed, or on where mixed is not allowed.
    virtual void setState(int);
    /// Whether the cell looks different under the pointer; its control tells it then.
    virtual bool reactsToPointer() const { return false; }
    bool isHovered() const { return m_flags.hovered; }
    void setHovered(bool);
    bool allowsMixedState() const { return m_flags.allowsMixedState; }
    void setAllowsMixedState(bool);
    /// On, off and, where allowed, mixed follow each other: on, off, mixed, on.
    virtual int nextState() const;
    virtual void setNextState();

    bool isEditable() const { return m_flags.editable; }
    /// Editable cells are selectable.
    virtual void setEditable(bool);
    bool isSelectable() const { return m_flags.selectable || m_flags.editable; }
    /// A cell that is not selectable is not editable either.
    virtual void setSelectable(bool);
    bool allowsEditingTextAttributes() const { return m_flags.allowsEditingTextAttributes; }
    void setAllowsEditingTextAttributes(bool);
    bool sendsActionOnEndEditing() const { return m_flags.sendsActionOnEndEditing; }
    void setSendsActionOnEndEditing(bool);
    bool refusesFirstResponder() const { return m_flags.refusesFirstResponder; }
    void setRefusesFirstResponder(bool);
    virtual bool acceptsFirstResponder() const { return isEnabled() && !refusesFirstResponder(); }
    /// Whether a focus ring is to be drawn: the control has the keyboard.
    bool showsFirstResponder() const { return m_flags.showsFirstResponder; }
    void setShowsFirstResponder(bool);
    NSFocusRingType focusRingType() const { return m_focusRingType; }
    void setFocusRingType(NSFocusRingType);

    // --- looks ---

    NSFont* font() const;
    /// Null is the system font's place: text is drawn in it.
    virtual void setFont(Ref<NSFont> const&);
    NSTextAlignment alignment() const { return m_alignment; }
    virtual void setAlignment(NSTextAlignment);
    NSLineBreakMode lineBreakMode() const { return m_lineBreakMode; }
    virtual void setLineBreakMode(NSLineBreakMode);
    /// Whether lines break at words or characters. Wrapping ends scrolling; not wrapping clips.
    bool wraps() const;
    virtual void setWraps(bool);
    bool isScrollable() const { return m_flags.scrollable; }
    /// Longer text scrolls while it is edited, and so does not wrap.
    virtual void setScrollable(bool);
    /// Border and bezel exclude each other.
    bool isBordered() const { return m_flags.bordered; }
    virtual void setBordered(bool);
    bool isBezeled() const { return m_flags.bezeled; }
    virtual void setBezeled(bool);
    NSControlSize controlSize() const { return m_controlSize; }
    virtual void setControlSize(NSControlSize);
    virtual bool isOpaque() const { return false; }

    // --- geometry ---

    /// The least size that shows the whole value: cellSizeForBounds() without bounds.
    virtual Size cellSize() const;
    virtual Size cellSizeForBounds(Rect bounds) const;
    /// Inside border and bezel.
    virtual Rect drawingRectForBounds(Rect bounds) const;
    virtual Rect titleRectForBounds(Rect bounds) const;
    virtual Rect imageRectForBounds(Rect bounds) const;
    /// Works out anew what depends on the size; told by the control before it draws with changed values.
    virtual void calcDrawInfo(Rect bounds);

    // --- drawing ---

    /// Border or bezel, then the inside.
    virtual void drawWithFrame(Rect frame, NSView& controlView);
    virtual void drawInteriorWithFrame(Rect frame, NSView& controlView);
    /// What a highlighted cell stands on: the selection's colour.
    virtual Ref<NSColor> highlightColorWithFrame(Rect frame, NSView& controlView) const;
    /// Sets the flag, and marks the frame for display where that is a change.
    virtual void highlight(bool flag, Rect frame, NSView& controlView);

    // --- mouse ---

    /// Told by the class: whether a press is followed until release also outside the cell.
    static bool prefersTrackingUntilMouseUp() { return false; }
    virtual bool ownPrefersTrackingUntilMouseUp() const { return prefersTrackingUntilMouseUp(); }
    /// Follows the mouse from a press on. Answers true where it was released inside the frame, or anywhere with untilMouseUp; false
    /// where it left the frame or the cell refused to go on. Sends the action as sendActionOn() and isContinuous() say.
    virtual bool trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool untilMouseUp);
    /// Whether to be told of the mouse's moves; the base answers true for a continuous cell or one that sends on drags.
    virtual bool startTracking(Point start, NSView& controlView);
    virtual bool continueTracking(Point last, Point current, NSView& controlView);
    virtual void stopTracking(Point last, Point stop, NSView& controlView, bool mouseIsUp);
    /// As a click would: highlights for a moment, takes the next state, sends the action.
    virtual void performClick(NSObject* sender);
    /// Which events send the action, as a mask of event types; answers the mask before.
    unsigned sendActionOn(unsigned mask);
    /// Whether the action is sent again and again while the button is held: whether the mask has periodic events in it.
    virtual bool isContinuous() const;
    virtual void setContinuous(bool);
    /// Seconds before a continuous cell repeats its action, and between repeats.
    virtual void getPeriodicDelay(float& delay, float& interval) const;
    /// Of the last press.
    unsigned mouseDownFlags() const { return m_mouseDownFlags; }
    virtual void resetCursorRect(Rect frame, NSView& controlView);

    // --- editing: through the field editor of the control's window, for text cells ---

    /// Puts the editor over the cell's text, gives it the keyboard and has it take the event, a press of the mouse. The delegate
    /// is asked and told by its class's hooks; what it does about the end takes the value over. Nothing for a cell that is
    /// neither editable nor selectable, and where the one who had the keyboard keeps it.
    virtual void editWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, NSEvent&);
    /// The same, with a part of the text selected.
    virtual void selectWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, long start, long length);
    /// Takes the editor away again; its text is the caller's to read before.
    virtual void endEditing(NSText& editor);
    /// Gives the editor the cell's looks before it edits; answers the editor.
    virtual NSText& setUpFieldEditorAttributes(NSText& editor);
    /// While an editor stands in the cell it draws no text of its own. Not copied.
    bool isBeingEdited() const { return m_flags.beingEdited; }
    /// What an editor begins with: the formatter's text for editing.
    std::string editingStringValue() const;

    // --- target and action: NSActionCell has them ---

    /// -1: a plain cell has none, and raises std::logic_error where one is set.
    virtual long tag() const { return -1; }
    virtual void setTag(long);
    virtual NSObject* target() const { return nullptr; }
    virtual void setTarget(Ref<NSObject> const&);
    virtual Selector action() const { return {}; }
    virtual void setAction(Selector);
    using ActionFunction = std::function<void(NSObject* sender)>;
    /// Calls a function in the action's place, as long as the target lives where there is one. Null functions are none.
    virtual void setActionFunction(Ref<NSObject> const& target, ActionFunction);
    /// The same with a member function, which takes the sender or nothing.
    template <typename T, typename Operation>
    requires std::is_member_function_pointer_v<Operation>
    void setTarget(T& target, Operation operation)
    {
        setActionFunction(&target, [&target, operation](NSObject* sender) {
            if constexpr (std::is_invocable_v<Operation, T&, NSObject*>)
                (target.*operation)(sender);
            else
                (target.*operation)();
        });
    }
    /// Sends the action now, through the control that the cell is in.
    virtual void sendAction();
    virtual bool hasAction() const { return false; }

    /// The context menu for an event over the cell, not kept alive by the answer; a plain cell has none.
    virtual NSMenu* menuForEvent(NSEvent&, Rect /*frame*/, NSView& /*controlView*/) { return nullptr; }

protected:
    /// Told after each change of what the cell shows.
    virtual void looksChanged() { }
    /// Looks changed in a way that concerns how plain text is drawn: forgets textAttributes().
    void textLookChanged();
    /// Told after a new value: an editor in the cell takes it up.
    virtual void didSetValue() { }
    /// What plain text is drawn in.
    virtual Ref<NSColor> colorForText() const;
    /// Font, colour and paragraph style of plain text. Valid until the look changes.
    Attributes const& textAttributes() const;
    /// The same in another colour.
    Attributes textAttributesWithColor(Ref<NSColor> const&) const;
    /// What border or bezel take on each side.
    virtual CellInsets frameInsets() const;
    /// How the cell's frame looks now in this view.
    ControlLook lookInView(NSView&) const;
    /// Whether the control has the keyboard, its window too, and it shows that.
    bool drawsFocusRing(NSView& controlView) const;
    /// Draws plain or attributed text inside a title rectangle, or what stands in for an empty one.
    virtual void drawText(Rect) const;
    void copyStateTo(NSObject& fresh) const override;

private:
    struct Flags {
        bool enabled : 1 = true;
        bool highlighted : 1 = false;
        bool allowsMixedState : 1 = false;
        bool editable : 1 = false;
        bool selectable : 1 = false;
        bool allowsEditingTextAttributes : 1 = false;
        bool sendsActionOnEndEditing : 1 = false;
        bool refusesFirstResponder : 1 = false;
        bool showsFirstResponder : 1 = false;
        bool scrollable : 1 = false;
        bool bordered : 1 = false;
        bool bezeled : 1 = false;
        bool beingEdited : 1 = false;
        bool hovered : 1 = false;
    };

    void takeValue(ObjectValue, bool isValid);
    void sendActionOnEvent(unsigned eventMask);
    NSAttributedString* attributedValue() const;
    Size contentSize(float width) const;
    bool beginEditing(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate);
    float lineHeight() const;

    ObjectValue m_value;
    mutable std::string m_text;
    mutable std::shared_ptr<Attributes const> m_attributes;
    Ref<NSFormatter> m_formatter;
    Ref<NSFont> m_font;
    ObjectValue m_representedObject;
    Weak<NSView> m_controlView;
    NSCellType m_type { NSNullCellType };
    int m_state { NSOffState };
    unsigned m_actionMask;
    unsigned m_mouseDownFlags { 0 };
    NSTextAlignment m_alignment { NSNaturalTextAlignment };
    NSLineBreakMode m_lineBreakMode { NSLineBreakByWordWrapping };
    NSControlSize m_controlSize { NSRegularControlSize };
    NSFocusRingType m_focusRingType {};
    Flags m_flags;
    bool m_hasValidObject { true };
    mutable bool m_textIsCurrent { false };
};

}
