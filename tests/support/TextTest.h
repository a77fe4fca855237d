#pragma once

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/graphics/NSFont.h>
#include <tests/support/HeadlessTest.h>

#include <string>
#include <string_view>

namespace plix {

/// A window with fields to type in, one below the other, and what a person does to them.
class TextTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 200, 400, 300 });
        field = addField({ 20, 240, 200, 22 });
    }

    Ref<NSTextField> addField(Rect frame, std::string_view text = {})
    {
        auto added = make<NSTextField>(frame);
        added->cell()->setScrollable(true);
        added->setStringValue(text);
        window->contentView()->addSubview(*added);
        return added;
    }
    Ref<NSTextView> addTextView(Rect frame, std::string_view text)
    {
        auto added = make<NSTextView>(frame);
        added->setAllowsUndo(true);
        added->setString(text);
        window->contentView()->addSubview(*added);
        window->makeFirstResponder(added.get());
        pump();
        return added;
    }

    /// The field with that text, edited, with a selection in it.
    NSTextView& edit(std::string_view text, NSRange selected = { NSNotFound, 0 })
    {
        field->setStringValue(text);
        window->makeFirstResponder(field.get());
        editor().setSelectedRange(selected);
        pump();
        return editor();
    }
    NSTextView& editor() const { return dynamic_cast<NSTextView&>(*window->fieldEditor(true, nullptr)); }
    struct Marked {
        std::string text;
        NSRange selection;
    };
    /// The other way round.
    static Marked parse(std::string_view marked);
    NSTextView& editMarked(std::string_view marked)
    {
        auto const wanted = parse(marked);
        return edit(wanted.text, wanted.selection);
    }
    /// The text with [ and ] around the selection, or a | for the caret.
    static std::string marked(NSTextView const& view)
    {
        auto const selected = view.selectedRange();
        auto const& text = view.string();
        auto const first = byteOf(text, selected.location);
        auto const end = byteOf(text, selected.end());
        if (selected.length == 0)
            return text.substr(0, first) + "|" + text.substr(first);
        return text.substr(0, first) + "[" + text.substr(first, end - first) + "]" + text.substr(end);
    }
    std::string marked() const { return marked(editor()); }
    /// A point of the view in the middle of a line's height, just before the character.
    static Point before(NSTextView const& view, long index)
    {
        auto const rect = view.firstRectForCharacterRange({ index, 1 });
        return { rect.x + 0.5F, rect.midY() };
    }
    static void setClipboard(std::string_view text)
    {
        auto& pasteboard = NSPasteboard::generalPasteboard();
        pasteboard.declareTypes({ NSStringPboardType });
        pasteboard.setString(text, NSStringPboardType);
    }
    static std::string clipboard()
    {
        return NSPasteboard::generalPasteboard().stringForType(NSStringPboardType).value_or("nothing");
    }
    bool isEditing(NSTextField const& edited) const
    {
        return edited.currentEditor() && window->firstResponder() == edited.currentEditor();
    }

    Ref<NSWindow> window;
    Ref<NSTextField> field;

private:
    static std::size_t byteOf(std::string const& text, long unit);
};

}
