#include "text_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/PLIXTextAttachmentCell.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextAttachmentCell.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSTextStorage.h>
#include <plix/platform/graphics/attribute_names.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

/// As wide as the page, so many points high, and ready to be typed in.
Ref<NSTextView> textView(float height, std::string_view text)
{
    auto view = make<NSTextView>(Rect { 0, 0, 504, height });
    view->setAllowsUndo(true);
    view->setAutoresizingMask(NSViewWidthSizable);
    view->setTextContainerInset({ 4, 6 });
    view->setFont(NSFont::systemFontOfSize(13));
    view->setString(text);
    view->setSelectedRange({ 0, 0 });
    return view;
}

Attributes plainText()
{
    return { { NSFontAttributeName, NSFont::systemFontOfSize(13) }, { NSForegroundColorAttributeName, NSColor::textColor() } };
}

// MARK: fields

Ref<NSView> makeNSTextFieldPage()
{
    class Listener : public NSObject {
    public:
        void controlTextDidChange(NSNotification const& notification)
        {
            if (form)
                form->setStatus("While typing: “" + static_cast<NSControl*>(notification.object.get())->stringValue() + "”");
        }
        bool didFailToFormatString(NSControl&, std::string_view text, std::string_view)
        {
            if (form)
                form->setStatus("“" + std::string(text) + "” is not a date.");
            return false;
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const listener = form->keep(make<Listener>());
    listener->form = form;
    auto const field = [&](std::string_view text, float width) {
        auto const made = make<NSTextField>(Rect { 0, 0, width, 22 });
        made->cell()->setScrollable(true);
        made->setStringValue(text);
        made->setDelegate(listener);
        return form->told(made);
    };
    auto const name = field("", 240);
    static_cast<NSTextFieldCell*>(name->cell())->setPlaceholderString("Your name");
    form->addRow("To fill in", { name });
    form->addRow("With a text", { field("A longer text scrolls in its field while it is edited", 240) });
    auto const search = field("", 240);
    search->setBezelStyle(NSTextFieldRoundedBezel);
    static_cast<NSTextFieldCell*>(search->cell())->setPlaceholderString("Search");
    form->addRow("Round", { search });
    auto const date = field("", 110);
    date->setFormatter(make<NSDateFormatter>("%Y-%m-%d", false));
    date->setStringValue("2008-07-12");
    form->addRow("A date", { date, hint("It is left only with a date.") });
    auto const notes = field("", 240);
    notes->cell()->setScrollable(false);
    notes->cell()->setWraps(true);
    notes->setFrameSize({ 240, 54 });
    notes->setStringValue("A field that wraps shows as many lines as there is room for.");
    form->addRow("Wraps", { notes });
    auto const disabled = field("Not now", 240);
    disabled->setEnabled(false);
    form->addRow("Disabled", { disabled });
    auto const label = NSTextField::labelWithString("Can be selected and copied");
    label->setSelectable(true);
    label->setFrameSize({ 240, 16 });
    form->addRow("Label", { label });
    form->addStatus("Return sends the action, Tab goes on, Escape restores.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSTextFieldCellPage()
{
    auto const form = Form::page();
    auto const field = [](std::string_view text, float width = 150, float height = 22) {
        auto made = make<NSTextField>(Rect { 0, 0, width, height });
        made->setStringValue(text);
        made->cell()->setScrollable(true);
        return made;
    };
    auto const round = field("Round");
    static_cast<NSTextFieldCell*>(round->cell())->setBezelStyle(NSTextFieldRoundedBezel);
    auto const bordered = field("Bordered");
    bordered->setBezeled(false);
    bordered->setBordered(true);
    bordered->setFrameSize({ 150, 18 });
    form->addRow("Frame", { captioned("square bezel", field("Square", 120)), captioned("round bezel", round) });
    auto const bare = field("Bare");
    bare->setBezeled(false);
    bare->setDrawsBackground(false);
    bare->setFrameSize({ 150, 16 });
    form->addRow("", { captioned("border", bordered, 18), captioned("none", bare, 18) });
    auto const colored = field("On yellow");
    auto* const cell = static_cast<NSTextFieldCell*>(colored->cell());
    cell->setTextColor(NSColor::colorWithCalibratedRed(0.45F, 0.25F, 0, 1));
    cell->setBackgroundColor(NSColor::colorWithCalibratedRed(1, 0.95F, 0.7F, 1));
    auto const pale = field("");
    static_cast<NSTextFieldCell*>(pale->cell())->setPlaceholderString("A placeholder");
    form->addRow("Colours", { colored, pale });
    std::vector<Ref<NSView>> sizes;
    for (auto const& [size, text, height] : { std::tuple { NSRegularControlSize, "Regular", 22.F },
             { NSSmallControlSize, "Small", 19.F }, { NSMiniControlSize, "Mini", 16.F } }) {
        auto const sized = field(text, 100, height);
        sized->cell()->setControlSize(size);
        sized->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
        sizes.push_back(sized);
    }
    form->addRow("Sizes", sizes);
    auto const right = field("1234.50", 100);
    right->setAlignment(NSRightTextAlignment);
    form->addRow("To the right", { right });
    form->sizeToRows();
    return form;
}

// MARK: text views

/// What all text views can: seen through the base class.
Ref<NSView> makeNSTextPage()
{
    class Listener : public NSObject {
    public:
        void textDidChange(NSNotification const& notification)
        {
            if (form)
                form->setStatus(std::to_string(static_cast<NSText*>(notification.object.get())->length()) + " characters");
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const listener = form->keep(make<Listener>());
    listener->form = form;
    auto const view = textView(120, "The score is for two flutes.\nA second line.\nAnd a third one.");
    view->setDelegate(listener);
    Ref<NSText> const text = view;
    form->addView(scrolled(view, { 520, 130 }));
    form->addRow("Selection",
        { pushButton("Select All", [text] { text->selectAll(nullptr); }), pushButton("“score”", [text, page = form.get()] {
             text->setSelectedRange({ 4, 5 });
             page->setStatus("Selected: 4 to 9");
         }) });
    form->addRow("Changes", { pushButton("Replace 4–9", [text, page = form.get()] {
        long const begin = std::min(text->length(), 4L);
        text->replaceCharactersInRange({ begin, std::min(text->length() - begin, 5L) }, "piece");
        page->setStatus("Without asking anybody: " + std::to_string(text->length()) + " characters");
    }) });
    auto const alignment = make<NSSegmentedControl>(Rect { 0, 0, 210, 24 });
    alignment->setSegmentCount(3);
    for (long i = 0; auto const* label : { "Left", "Centre", "Right" })
        alignment->setLabel(label, i++);
    alignment->setSelectedSegment(0);
    alignment->setActionFunction([text](NSObject* sender) {
        constexpr NSTextAlignment alignments[] { NSLeftTextAlignment, NSCenterTextAlignment, NSRightTextAlignment };
        text->setAlignment(alignments[static_cast<NSSegmentedControl*>(sender)->selectedSegment()]);
    });
    form->addRow("Alignment", { alignment });
    auto const editable = checkBox("Can be edited", [text](bool isOn) { text->setEditable(isOn); });
    editable->setState(NSOnState);
    form->addRow("", { editable });
    form->addStatus(std::to_string(text->length()) + " characters");
    form->sizeToRows();
    return form;
}

/// Text with looks, that is edited with undo and asks before each change.
Ref<NSView> makeNSTextViewPage()
{
    class Digits : public NSObject {
    public:
        bool shouldChangeTextInRange(NSTextView&, NSRange, std::string_view replacement)
        {
            bool const hasDigit = replacement.find_first_of("0123456789") != std::string_view::npos;
            if (hasDigit && form)
                form->setStatus("Digits are refused.");
            return !hasDigit;
        }
        void textViewDidChangeSelection(NSNotification const& notification)
        {
            auto const range = static_cast<NSTextView*>(notification.object.get())->selectedRange();
            if (form)
                form->setStatus("Selected: " + std::to_string(range.length) + " characters at " + std::to_string(range.location));
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const digits = form->keep(make<Digits>());
    digits->form = form;
    auto const view = textView(180,
        "Text has fonts, colours and pictures.\nIt wraps at the view’s edge, in every script: "
        "Ελληνικά, \u05E2\u05D1\u05E8\u05D9\u05EA, e\u0301.\nTyping can be undone word by word. ");
    view->textStorage()->addAttribute(NSFontAttributeName, NSFont::boldSystemFontOfSize(18), { 0, 38 });
    view->textStorage()->addAttribute(NSForegroundColorAttributeName, NSColor::redColor(), { 16, 7 });
    auto const note = make<NSTextAttachment>();
    note->attachmentCell()->setImage(icon(Icon::note));
    view->textStorage()->appendAttributedString(*NSTextAttachment::attributedStringWithAttachment(*note));
    view->setDelegate(digits);
    form->addView(scrolled(view, { 520, 190 }));
    auto const dress = [view](char const* name, ObjectValue const& value) {
        return [view, name, value] {
            if (view->shouldChangeTextInRange(view->selectedRange(), "")) {
                view->textStorage()->addAttribute(name, value, view->selectedRange());
                view->didChangeText();
            }
        };
    };
    form->addRow("Selection",
        { pushButton("Bold", dress(NSFontAttributeName, NSFont::boldSystemFontOfSize(13))),
            pushButton("Blue", dress(NSForegroundColorAttributeName, NSColor::blueColor())),
            pushButton("Underline", dress(NSUnderlineStyleAttributeName, NSUnderlineStyleSingle)) });
    form->addRow("Changes", { pushButton("Undo", [view] { view->window()->undo(nullptr); }), pushButton("Redo", [view] {
                                 view->window()->redo(nullptr);
                             }) });
    form->addStatus("Type; digits are refused.");
    form->sizeToRows();
    return form;
}

// MARK: attachments

Ref<NSView> makeNSTextAttachmentPage()
{
    auto const form = Form::page();
    auto const view = textView(130, "");
    auto const storage = view->textStorage();
    auto const insert = [storage](std::string_view text, Icon which, float side) {
        auto const attachment = make<NSTextAttachment>();
        attachment->attachmentCell()->setImage(icon(which, side));
        storage->appendAttributedString(*make<NSAttributedString>(text, plainText()));
        storage->appendAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment));
    };
    insert("A picture stands in the text as one character: ", Icon::star, 16);
    insert(" and makes its line as high as it is: ", Icon::folder, 40);
    insert(" A larger one ", Icon::disc, 64);
    form->addView(scrolled(view, { 520, 150 }));
    form->addRow("Insert",
        { pushButton("Note",
              [insert, page = form.get(), storage] {
                  insert("", Icon::note, 16);
                  page->setStatus("The text has " + std::to_string(storage->length()) + " characters now.");
              }),
            pushButton("Paper", [insert, page = form.get(), storage] {
                insert("", Icon::paper, 24);
                page->setStatus("The text has " + std::to_string(storage->length()) + " characters now.");
            }) });
    form->addStatus("Select, copy and delete pictures like letters.");
    form->sizeToRows();
    return form;
}

/// A cell draws what stands in the text: here a lozenge with a word in it.
Ref<NSView> makeNSTextAttachmentCellPage()
{
    class TokenCell : public NSTextAttachmentCell {
    public:
        Size cellSize() const override { return { 74, 18 }; }
        Point cellBaselineOffset() const override { return { 0, -4 }; }
        void drawWithFrame(Rect frame, NSView&) override
        {
            NSColor::colorWithCalibratedRed(0.35F, 0.55F, 0.9F, 0.35F)->set();
            Theme::roundedRect(NSInsetRect(frame, 1, 1), 8)->fill();
            auto const text = make<NSAttributedString>(stringValue(), plainText());
            text->drawAtPoint({ frame.midX() - text->size().width / 2, frame.midY() - text->size().height / 2 });
        }
    };
    auto const form = Form::page();
    auto const view = textView(70, "To: ");
    auto const add = [storage = Ref<NSTextStorage>(view->textStorage())](std::string_view name) {
        auto const token = make<NSTextAttachment>();
        auto const cell = make<TokenCell>();
        cell->setStringValue(name);
        token->setAttachmentCell(cell);
        storage->appendAttributedString(*NSTextAttachment::attributedStringWithAttachment(*token));
        storage->appendAttributedString(*make<NSAttributedString>(" ", plainText()));
    };
    for (auto const* name : { "Anna", "Bruno", "Clara" })
        add(name);
    form->addView(scrolled(view, { 520, 80 }));
    form->addRow("Add", { pushButton("David", [add] { add("David"); }), pushButton("Eva", [add] { add("Eva"); }) });
    form->addStatus("A subclass says how large it is, where it stands on the line, and draws.");
    form->sizeToRows();
    return form;
}

/// A cell that is told where to stand.
Ref<NSView> makePLIXTextAttachmentCellPage()
{
    auto const form = Form::page();
    auto const view = textView(60, "");
    auto const storage = view->textStorage();
    for (float const offset : { -12.0F, -4.0F, 0.0F, 4.0F, 12.0F }) {
        auto const attachment = make<NSTextAttachment>();
        auto const cell = make<PLIXTextAttachmentCell>(icon(Icon::star));
        cell->plixSetCellBaselineOffset({ 0, offset });
        attachment->setAttachmentCell(cell);
        storage->appendAttributedString(
            *make<NSAttributedString>((offset > 0 ? "+" : "") + std::to_string(static_cast<int>(offset)) + " ", plainText()));
        storage->appendAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment));
        storage->appendAttributedString(*make<NSAttributedString>("     ", plainText()));
    }
    form->addView(scrolled(view, { 520, 72 }));
    form->addNote("plixSetCellBaselineOffset() says how far above the baseline a picture stands; plixSetCenterCellBaselineOffset() "
                  "puts it back without forgetting that.");
    form->sizeToRows();
    return form;
}

// MARK: engraved labels

Ref<NSView> makePLIXChiseledTextFieldPage()
{
    auto const form = Form::page();
    std::vector<Ref<PLIXChiseledTextField>> labels;
    auto const label = [&](std::string_view text, Ref<NSFont> const& font, float height) {
        auto const made = make<PLIXChiseledTextField>(Rect { 0, 0, 370, height });
        made->setFont(font);
        made->setStringValue(text);
        labels.push_back(made);
        return onLightGround(made, 390);
    };
    form->addRow("11 points", { label("1,204 items, 12.4 GB available", NSFont::systemFontOfSize(11), 16) });
    form->addRow("13, bold", { label("Playlists", NSFont::boldSystemFontOfSize(13), 18) });
    form->addRow("24 points", { label("The Well-Tempered Clavier", NSFont::systemFontOfSize(24), 32) });
    auto const colored = label("In colours of its own", NSFont::boldSystemFontOfSize(15), 22);
    auto const& red = labels.back();
    red->setActiveColor(NSColor::colorWithCalibratedRed(0.65F, 0.1F, 0.1F, 1));
    red->setShadowActiveColor(NSColor::colorWithCalibratedRed(1, 0.85F, 0.85F, 1));
    red->activate(nullptr);
    form->addRow("Colours", { colored });
    auto const enabled = checkBox("Enabled", [labels, page = form.get()](bool isOn) {
        for (auto const& one : labels)
            one->setEnabled(isOn);
        page->setStatus(isOn ? "Enabled: a light copy stands one point below the text." : "Disabled: without its light copy.");
    });
    enabled->setState(NSOnState);
    auto const all = [labels](void (PLIXChiseledTextField::*change)(NSNotification const*)) {
        return [labels, change] {
            for (auto const& one : labels)
                (one.get()->*change)(nullptr);
        };
    };
    form->addRow("",
        { enabled, pushButton("Deactivate", all(&PLIXChiseledTextField::deactivate)),
            pushButton("Activate", all(&PLIXChiseledTextField::activate)) });
    form->addStatus("The colours follow the window: active, inactive, disabled.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "text_pages.cpp";
constexpr Page familyPages[] {
    { "NSTextField", "Text field", textSection, source, makeNSTextFieldPage },
    { "NSTextFieldCell", "Text field cell", textSection, source, makeNSTextFieldCellPage },
    { "NSText", "Text", textSection, source, makeNSTextPage },
    { "NSTextView", "Text view", textSection, source, makeNSTextViewPage },
    { "NSTextAttachment", "Attachment", textSection, source, makeNSTextAttachmentPage },
    { "NSTextAttachmentCell", "Attachment cell", textSection, source, makeNSTextAttachmentCellPage },
    { "PLIXTextAttachmentCell", "Attachment cell that is placed", textSection, source, makePLIXTextAttachmentCellPage },
    { "PLIXChiseledTextField", "Engraved label", textSection, source, makePLIXChiseledTextFieldPage },
};

}

std::span<Page const> textPages()
{
    return familyPages;
}

}
