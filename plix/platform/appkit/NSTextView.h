#pragma once

#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSTextDelegate.h>
#include <plix/platform/graphics/NSTextContainer.h>
#include <plix/platform/graphics/attribute_names.h>

#include <memory>
#include <optional>
#include <vector>

namespace plix {

class NSAttributedString;
class NSLayoutManager;
class NSTextStorage;
class NSTimer;
class TextLayout;

/// Which key ended an edit, under "NSTextMovement" of its notification.
enum class TextMovement {
    left,
    right,
    backward,
    forward,
    wordLeft,
    wordRight,
    wordBackward,
    wordForward,
    up,
    down,
    lineStart,
    lineEnd,
    paragraphStart,
    paragraphEnd,
    pageUp,
    pageDown,
    documentStart,
    documentEnd,
};

/// What a press selects by, as it was made once, twice or three times.
enum NSSelectionGranularity : int { NSSelectByCharacter = 0, NSSelectByWord = 1, NSSelectByParagraph = 2 };

/// Text that a person edits with keyboard, mouse and input methods. Flipped. As a field editor it is what stands in a window's
/// fields while they are edited; else it is a view of its own, mostly in a scroll view. Only what has changed is laid out and
/// drawn.
class PLIX_EXPORT NSTextView : public NSText, public NSMenuValidation {
    PLIX_CLASS(NSTextView, NSText);

public:
    NSTextView();
    ~NSTextView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // What holds and lays out the text.
    NSTextStorage* textStorage() const { return m_storage.get(); }
    NSLayoutManager* layoutManager() const;
    NSTextContainer* textContainer() const { return m_container.get(); }
    /// Left, right and above, below the text.
    Size textContainerInset() const { return m_inset; }
    void setTextContainerInset(Size);
    Point textContainerOrigin() const { return { m_inset.width, m_inset.height }; }

    /// Whether the view is as wide as its text, without wrapping, or as wide as it was made. Line ends become blanks in a field
    /// editor that does not wrap.
    bool isHorizontallyResizable() const { return m_isHorizontallyResizable; }
    void setHorizontallyResizable(bool);
    bool isVerticallyResizable() const { return m_isVerticallyResizable; }
    void setVerticallyResizable(bool);
    /// The view never becomes smaller, nor larger than its maximum size, by its text.
    Size minSize() const { return m_minSize; }
    void setMinSize(Size);
    Size maxSize() const { return m_maxSize; }
    void setMaxSize(Size);

    /// What is typed gets these.
    Attributes const& typingAttributes() const { return m_typingAttributes; }
    void setTypingAttributes(Attributes);
    Ref<NSColor> insertionPointColor() const;
    /// Null for the text's colour.
    void setInsertionPointColor(Ref<NSColor> const&);
    bool allowsUndo() const { return m_allowsUndo; }
    /// False at first, but for field editors.
    void setAllowsUndo(bool);

    // Selection. One end of it stays when it is extended, the other one moves.
    NSRange selectionRangeForProposedRange(NSRange, NSSelectionGranularity) const;
    NSSelectionGranularity selectionGranularity() const { return m_granularity; }
    /// Where a click at a point of the view puts the caret.
    long characterIndexForInsertionAtPoint(Point) const;
    /// Of the caret, or of the first line of a range, in the view's coordinates.
    Rect firstRectForCharacterRange(NSRange) const;
    Rect caretRect() const;
    /// Whether the caret shows at this moment of its blinking.
    bool isCaretShown() const { return m_isCaretShown; }

    // Changes. A change is asked for by the first of these and told by the second; all that a person does goes through both.
    virtual bool shouldChangeTextInRange(NSRange, std::string_view replacement);
    virtual void didChangeText();
    /// What is typed next is undone by itself.
    void breakUndoCoalescing();

    // Input methods.
    bool hasMarkedText() const { return m_marked.has_value(); }
    NSRange markedRange() const;
    /// Enters what is marked, as if it had been typed.
    void unmarkText();

    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSTextViewDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }

    // Commands. In mixed directions left and right go as the text is seen, backward and forward as it is read.
    void moveLeft(NSObject*) { move(TextMovement::left); }
    void moveRight(NSObject*) { move(TextMovement::right); }
    void moveBackward(NSObject*) { move(TextMovement::backward); }
    void moveForward(NSObject*) { move(TextMovement::forward); }
    void moveUp(NSObject*) { move(TextMovement::up); }
    void moveDown(NSObject*) { move(TextMovement::down); }
    void moveWordLeft(NSObject*) { move(TextMovement::wordLeft); }
    void moveWordRight(NSObject*) { move(TextMovement::wordRight); }
    void moveWordBackward(NSObject*) { move(TextMovement::wordBackward); }
    void moveWordForward(NSObject*) { move(TextMovement::wordForward); }
    void moveToBeginningOfLine(NSObject*) { move(TextMovement::lineStart); }
    void moveToEndOfLine(NSObject*) { move(TextMovement::lineEnd); }
    void moveToBeginningOfParagraph(NSObject*) { move(TextMovement::paragraphStart); }
    void moveToEndOfParagraph(NSObject*) { move(TextMovement::paragraphEnd); }
    void moveToBeginningOfDocument(NSObject*) { move(TextMovement::documentStart); }
    void moveToEndOfDocument(NSObject*) { move(TextMovement::documentEnd); }
    void pageUp(NSObject*) { move(TextMovement::pageUp); }
    void pageDown(NSObject*) { move(TextMovement::pageDown); }
    void moveLeftAndModifySelection(NSObject*) { extend(TextMovement::left); }
    void moveRightAndModifySelection(NSObject*) { extend(TextMovement::right); }
    void moveBackwardAndModifySelection(NSObject*) { extend(TextMovement::backward); }
    void moveForwardAndModifySelection(NSObject*) { extend(TextMovement::forward); }
    void moveUpAndModifySelection(NSObject*) { extend(TextMovement::up); }
    void moveDownAndModifySelection(NSObject*) { extend(TextMovement::down); }
    void moveWordLeftAndModifySelection(NSObject*) { extend(TextMovement::wordLeft); }
    void moveWordRightAndModifySelection(NSObject*) { extend(TextMovement::wordRight); }
    void moveWordBackwardAndModifySelection(NSObject*) { extend(TextMovement::wordBackward); }
    void moveWordForwardAndModifySelection(NSObject*) { extend(TextMovement::wordForward); }
    void moveToBeginningOfLineAndModifySelection(NSObject*) { extend(TextMovement::lineStart); }
    void moveToEndOfLineAndModifySelection(NSObject*) { extend(TextMovement::lineEnd); }
    void moveToBeginningOfDocumentAndModifySelection(NSObject*) { extend(TextMovement::documentStart); }
    void moveToEndOfDocumentAndModifySelection(NSObject*) { extend(TextMovement::documentEnd); }
    void pageUpAndModifySelection(NSObject*) { extend(TextMovement::pageUp); }
    void pageDownAndModifySelection(NSObject*) { extend(TextMovement::pageDown); }
    void scrollPageUp(NSObject*) { scrollPages(-1); }
    void scrollPageDown(NSObject*) { scrollPages(1); }
    void selectWord(NSObject*) { selectAround(NSSelectByWord); }
    void selectParagraph(NSObject*) { selectAround(NSSelectByParagraph); }
    void selectLine(NSObject*);
    void deleteBackward(NSObject*) { deleteTo(TextMovement::backward); }
    void deleteForward(NSObject*) { deleteTo(TextMovement::forward); }
    void deleteWordBackward(NSObject*) { deleteTo(TextMovement::wordBackward); }
    void deleteWordForward(NSObject*) { deleteTo(TextMovement::wordForward); }
    void deleteToBeginningOfLine(NSObject*) { deleteTo(TextMovement::lineStart); }
    void deleteToEndOfLine(NSObject*) { deleteTo(TextMovement::lineEnd); }
    void insertNewline(NSObject*);
    void insertNewlineIgnoringFieldEditor(NSObject*);
    void insertLineBreak(NSObject*);
    void insertTab(NSObject*);
    void insertTabIgnoringFieldEditor(NSObject*);
    void insertBacktab(NSObject*);
    /// Drops what is marked; else the key goes on to whoever is around the text.
    void cancelOperation(NSObject*);
    void copy(NSObject*);
    void cut(NSObject*);
    void paste(NSObject*);
    /// Without selection.
    void deleteSelection(NSObject*);
    void undo(NSObject*);
    void redo(NSObject*);

    // The context menu: undo, redo, cut, copy, paste, delete, select all, as far as they make sense now.
    static Ref<NSMenu> defaultMenu();
    NSMenu* menuForEvent(NSEvent&) override;
    void rightMouseDown(NSEvent&) override;
    bool validateMenuItem(NSMenuItem&) override;

    // NSText:
    std::string const& string() const override;
    void setString(std::string_view) override;
    void replaceCharactersInRange(NSRange, std::string_view) override;
    long length() const override;
    NSRange selectedRange() const override;
    void setSelectedRange(NSRange) override;
    void scrollRangeToVisible(NSRange) override;
    void selectAll(NSObject* sender) override;
    void setEditable(bool) override;
    void setSelectable(bool) override;
    void setFieldEditor(bool) override;
    NSFont* font() const override;
    void setFont(Ref<NSFont> const&) override;
    NSColor* textColor() const override;
    void setTextColor(Ref<NSColor> const&) override;
    NSTextAlignment alignment() const override;
    void setAlignment(NSTextAlignment) override;
    void takeHooks(HookSource const&) override;

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override;
    void drawRect(Rect) override;
    void setFrameSize(Size) override;
    /// Makes the view as large as its text, where it may change its size.
    void sizeToFit() override;
    void resetCursorRects() override;
    void viewWillMoveToWindow(NSWindow*) override;
    void viewDidMoveToWindow() override;
    bool canBecomeKeyView() const override;
    bool mouseDownCanMoveWindow() const override { return false; }
    bool needsPanelToBecomeKey() const override { return isEditable(); }

    // NSResponder:
    bool acceptsFirstResponder() const override { return isSelectable(); }
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    void mouseDown(NSEvent&) override;
    void keyDown(NSEvent&) override;
    void doCommandBySelector(Selector) override;
    void insertText(std::string_view) override;
    bool setMarkedText(std::string_view, NSRange selected) override;
    NSUndoManager* undoManager() const override;

private:
    class Layout;
    struct Change;
    struct Marked {
        NSRange range;
        Ref<NSAttributedString> replaced;
    };
    enum class Kind { typing, deleting, other };
    enum class Questions { asked, skipped };

    TextLayout& layout() const;
    Rect bodyRect(Rect) const;

    // Selection.
    void move(TextMovement);
    void extend(TextMovement);
    void moveSelection(long anchor, long end, bool keepsGoal = false);
    long target(TextMovement, long from);
    long targetVertically(long from, float distance);
    long targetInLine(TextMovement, long from) const;
    long wordTarget(long from, int direction) const;
    bool readsRightToLeftAt(long index) const;
    NSRange lineRange(long index) const;
    NSRange paragraphRange(long index) const;
    void selectAround(NSSelectionGranularity);
    void scrollPages(int pages);
    void followMouse(NSEvent&, NSRange anchor);
    void selectFromTo(NSRange anchor, long index);
    long roundedIndex(long) const;

    // Changes.
    bool change(NSRange, std::string_view, Kind, char const* actionName);
    void replace(NSRange, NSAttributedString const&, NSRange selectionAfter);
    bool beginEditingIfNeeded();
    void recordUndo(NSRange, long newLength, Kind, char const* actionName);
    bool coalesce(NSRange, long newLength, Kind);
    void takeBack(Change const&);
    void forgetUndo();
    std::string acceptedText(std::string_view) const;
    void deleteTo(TextMovement);
    void endFieldEditing(NSTextMovement);
    void removeMarkedText();
    void setAttribute(std::string_view name, ObjectValue const&);
    void textEdited(NSRange, long changeInLength);
    void post(char const* name, Hook<void(NSNotification const&)> const&, ObjectValue::Dictionary = {});

    // Looks.
    bool hasKeyboard() const;
    void keyboardChanged();
    void restartCaret();
    void blink();
    void setCaretShown(bool);
    void markRangeDirty(NSRange);
    void markFromDirty(long index);
    void fitContainer();
    void updateTextInput();
    void drawSelection(Rect dirty) const;

    Ref<NSTextStorage> m_storage;
    Ref<Layout> m_layoutManager;
    Ref<NSTextContainer> m_container;
    Attributes m_typingAttributes;
    NSTextViewDelegate m_hooks;
    Ref<NSColor> m_caretColor;
    Ref<NSTimer> m_blinkTimer;
    std::shared_ptr<Change> m_coalescing;
    Weak<NSUndoManager> m_observedManager;
    std::optional<Marked> m_marked;
    std::optional<float> m_goalX;
    Size m_inset;
    Size m_minSize;
    Size m_maxSize { 1e7F, 1e7F };
    Size m_usedSize;
    long m_anchor { 0 };
    long m_end { 0 };
    NSRange m_toldSelection;
    NSSelectionGranularity m_granularity { NSSelectByCharacter };
    NSTextMovement m_movement { NSOtherTextMovement };
    bool m_isHorizontallyResizable { false };
    bool m_isVerticallyResizable { true };
    Ref<NSMenu> m_menu;
    bool m_allowsUndo { false };
    bool m_hasBegun { false };
    bool m_isResigning { false };
    bool m_isAskedToEnd { false };
    bool m_isFirstResponder { false };
    bool m_isCaretShown { false };
    bool m_takesTextInput { false };
};

/// With the range before under "NSOldSelectedCharacterRange", as text.
inline constexpr char const* NSTextViewDidChangeSelectionNotification = "NSTextViewDidChangeSelectionNotification";

}
