#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXButton.h>
#include <plix/controls/PLIXPopUpButton.h>
#include <plix/controls/PLIXTextAttachmentCell.h>
#include <plix/controls/TQPopUpButtonCell.h>
#include <plix/controls/TQSplitView.h>
#include <plix/controls/classes.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/NSShadow.h>

#include <random>

namespace plix {
namespace {

class CodingTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        registerControlClasses();
        PLIXButton::staticClass();
    }
    /// Written to bytes and read back.
    template <typename T> static Ref<T> coded(Ref<T> const& object)
    {
        auto const data = NSArchiver::archivedDataWithRootObject(object);
        auto const value = NSUnarchiver::unarchiveObjectWithData(*data);
        return value ? value->template as<T>() : nullptr;
    }
};

// MARK: graphics

TEST_F(CodingTest, Colors)
{
    auto const pattern = NSColor::colorWithPatternImage(imageOfColor({ 4, 4 }, colors::red));
    for (auto const& color : { NSColor::redColor(), NSColor::colorWithDeviceWhite(0.25F, 0.5F), NSColor::controlTextColor(),
             NSColor::colorWithCalibratedRed(0.1F, 0.2F, 0.3F, 0.4F), NSColor::clearColor() }) {
        auto const again = coded(color);
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(again->isEqual(color.get())) << color->description();
        EXPECT_EQ(again->colorSpaceName(), color->colorSpaceName());
    }
    auto const again = coded(pattern);
    ASSERT_NE(again, nullptr);
    ASSERT_NE(again->patternImage(), nullptr);
    EXPECT_EQ(again->patternImage()->size(), (Size { 4, 4 }));
}

TEST_F(CodingTest, FontsAreEqualAfterwards)
{
    for (auto const& font : { NSFont::boldSystemFontOfSize(17), NSFont::userFixedPitchFontOfSize(9.5F) }) {
        auto const again = coded(font);
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(again->isEqual(font.get()));
        EXPECT_EQ(again->widthOfString("Hamburg"), font->widthOfString("Hamburg"));
    }
}

TEST_F(CodingTest, ImagesKeepTheirPixels)
{
    auto const image = imageOfDistinctPixels(5, 7);
    image->setFlipped(true);
    auto const again = coded(image);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->size(), image->size());
    EXPECT_TRUE(again->isFlipped());
    Pixels const before(image);
    Pixels const after(again);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(after.at(x, y), before.at(x, y)) << x << ' ' << y;
    }
    EXPECT_EQ(coded(make<NSImage>(Size { 30, 20 }))->size(), (Size { 30, 20 }));
}

TEST_F(CodingTest, ParagraphStylesAndShadows)
{
    auto const style = make<NSMutableParagraphStyle>();
    style->setAlignment(NSCenterTextAlignment);
    style->setLineBreakMode(NSLineBreakByTruncatingMiddle);
    style->setHeadIndent(12.5F);
    style->setTabStops({ { 10, NSLeftTabStopType }, { 90, NSRightTabStopType } });
    auto const styleAgain = coded(style);
    ASSERT_NE(styleAgain, nullptr);
    EXPECT_TRUE(styleAgain->isEqual(style.get()));
    auto const shadow = make<NSShadow>();
    shadow->setShadowOffset({ 1, -2 });
    shadow->setShadowBlurRadius(3);
    shadow->setShadowColor(NSColor::redColor());
    EXPECT_TRUE(coded(shadow)->isEqual(shadow.get()));
}

TEST_F(CodingTest, AttributedStringsKeepTheirRuns)
{
    auto const text = make<NSMutableAttributedString>("plain bold \U0001F600 red");
    text->addAttribute(NSFontAttributeName, NSFont::boldSystemFontOfSize(12), { 6, 4 });
    text->addAttribute(NSForegroundColorAttributeName, NSColor::redColor(), { 14, 3 });
    auto const again = coded(text);
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->isEqualToAttributedString(*text));
    EXPECT_EQ(coded(make<NSAttributedString>(""))->string(), "");
}

TEST_F(CodingTest, DateFormatters)
{
    auto const formatter = make<NSDateFormatter>("%Y-%m-%d", true);
    auto const again = coded(formatter);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->dateFormat(), "%Y-%m-%d");
    EXPECT_TRUE(again->allowsNaturalLanguage());
}

// MARK: cells

TEST_F(CodingTest, TextFieldCells)
{
    auto const cell = make<NSTextFieldCell>("Some text");
    cell->setEditable(true);
    cell->setBezeled(true);
    cell->setFont(NSFont::boldSystemFontOfSize(11));
    cell->setAlignment(NSRightTextAlignment);
    cell->setTextColor(NSColor::redColor());
    cell->setDrawsBackground(true);
    cell->setPlaceholderString("nothing yet");
    cell->setTag(42);
    cell->setAction(Selector("act:"));
    cell->setFormatter(make<NSDateFormatter>("%d", false));
    cell->setRepresentedObject("what it stands for");
    auto const again = coded(cell);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->stringValue(), cell->stringValue());
    EXPECT_TRUE(again->isEditable());
    EXPECT_TRUE(again->isBezeled());
    EXPECT_TRUE(again->font()->isEqual(cell->font()));
    EXPECT_EQ(again->alignment(), NSRightTextAlignment);
    EXPECT_TRUE(again->textColor()->isEqual(cell->textColor()));
    EXPECT_TRUE(again->drawsBackground());
    EXPECT_EQ(again->placeholderString(), "nothing yet");
    EXPECT_EQ(again->tag(), 42);
    EXPECT_EQ(again->action(), Selector("act:"));
    EXPECT_NE(again->formatter(), nullptr);
    EXPECT_EQ(again->representedObject(), ObjectValue("what it stands for"));
    EXPECT_EQ(again->cellSize(), cell->cellSize());
}

TEST_F(CodingTest, ButtonCells)
{
    auto const cell = make<NSButtonCell>("Push");
    cell->setButtonType(NSSwitchButton);
    cell->setAllowsMixedState(true);
    cell->setState(NSMixedState);
    cell->setAlternateTitle("Pull");
    cell->setImage(imageOfColor({ 3, 3 }, colors::blue));
    cell->setKeyEquivalent("p");
    cell->setKeyEquivalentModifierMask(NSAlternateKeyMask);
    cell->setPeriodicDelay(0.5F, 0.25F);
    cell->setEnabled(false);
    auto const again = coded(cell);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->face(), cell->face());
    EXPECT_EQ(again->title(), "Push");
    EXPECT_EQ(again->alternateTitle(), "Pull");
    EXPECT_EQ(again->state(), NSMixedState);
    EXPECT_EQ(again->image()->size(), (Size { 3, 3 }));
    EXPECT_EQ(again->keyEquivalent(), "p");
    EXPECT_EQ(again->keyEquivalentModifierMask(), NSAlternateKeyMask);
    EXPECT_FALSE(again->isEnabled());
    float delay = 0;
    float interval = 0;
    again->getPeriodicDelay(delay, interval);
    EXPECT_EQ(delay, 0.5F);
    EXPECT_EQ(interval, 0.25F);
}

TEST_F(CodingTest, ImageCells)
{
    auto const cell = make<NSImageCell>(imageOfColor({ 9, 4 }, colors::red));
    cell->setImageScaling(NSScaleNone);
    cell->setImageAlignment(NSImageAlignTopRight);
    cell->setImageFrameStyle(NSImageFramePhoto);
    auto const again = coded(cell);
    ASSERT_NE(again, nullptr);
    ASSERT_NE(again->image(), nullptr);
    EXPECT_EQ(again->image()->size(), (Size { 9, 4 }));
    EXPECT_EQ(again->imageScaling(), NSScaleNone);
    EXPECT_EQ(again->imageAlignment(), NSImageAlignTopRight);
    EXPECT_EQ(again->imageFrameStyle(), NSImageFramePhoto);
}

TEST_F(CodingTest, PopUpButtonsAndMenus)
{
    auto const button = make<NSPopUpButton>(Rect { 1, 2, 100, 26 }, false);
    button->addItemsWithTitles({ "Small", "Medium", "Large" });
    button->itemAtIndex(1)->setTag(7);
    button->itemAtIndex(1)->setKeyEquivalent("m");
    button->menu()->insertItem(*NSMenuItem::separatorItem(), 1);
    auto const inside = make<NSMenu>("More");
    inside->addItemWithTitle("Inner", Selector("act:"), "i");
    button->itemAtIndex(3)->setSubmenu(inside);
    button->selectItemAtIndex(2);
    auto const again = coded(button);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->frame(), button->frame());
    ASSERT_EQ(again->numberOfItems(), 4);
    EXPECT_TRUE(again->itemAtIndex(1)->isSeparatorItem());
    EXPECT_EQ(again->titleOfSelectedItem(), "Medium");
    EXPECT_EQ(again->itemAtIndex(2)->state(), NSOnState);
    EXPECT_EQ(again->itemAtIndex(2)->keyEquivalent(), "m");
    auto const* submenu = again->itemAtIndex(3)->submenu();
    ASSERT_NE(submenu, nullptr);
    EXPECT_EQ(submenu->supermenu(), again->menu());
    EXPECT_EQ(submenu->itemAtIndex(0)->action(), Selector("act:"));
}

// MARK: views

TEST_F(CodingTest, ATreeOfViews)
{
    auto const view = make<NSView>(Rect { 10, 20, 300, 200 });
    auto const field = make<NSTextField>(Rect { 5, 5, 100, 22 });
    field->setStringValue("typed");
    field->setAutoresizingMask(NSViewWidthSizable | NSViewMinYMargin);
    auto const label = NSTextField::labelWithString("label");
    label->setHidden(true);
    label->setToolTip("a tip");
    view->addSubview(*field);
    view->addSubview(*label);
    auto const again = coded(view);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->frame(), view->frame());
    ASSERT_EQ(again->subviews().size(), 2U);
    auto const* fieldAgain = dynamic_cast<NSTextField*>(again->subviews()[0].get());
    auto const* labelAgain = dynamic_cast<NSTextField*>(again->subviews()[1].get());
    ASSERT_TRUE(fieldAgain && labelAgain);
    EXPECT_EQ(fieldAgain->frame(), field->frame());
    EXPECT_EQ(fieldAgain->stringValue(), "typed");
    EXPECT_TRUE(fieldAgain->isEditable());
    EXPECT_EQ(fieldAgain->autoresizingMask(), field->autoresizingMask());
    EXPECT_EQ(fieldAgain->superview(), again.get());
    EXPECT_EQ(fieldAgain->cell()->controlView(), fieldAgain);
    EXPECT_TRUE(labelAgain->isHidden());
    EXPECT_EQ(labelAgain->toolTip(), "a tip");
    EXPECT_FALSE(labelAgain->isBezeled());
}

TEST_F(CodingTest, Boxes)
{
    auto const box = make<NSBox>(Rect { 0, 0, 200, 100 });
    box->setTitle("A box");
    box->setTitlePosition(NSAboveTop);
    box->addSubview(*make<NSImageView>(Rect { 1, 2, 30, 40 }));
    auto const again = coded(box);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->title(), "A box");
    EXPECT_EQ(again->titlePosition(), NSAboveTop);
    ASSERT_EQ(again->subviews().size(), 1U);
    EXPECT_EQ(again->contentView()->frame(), box->contentView()->frame());
    ASSERT_EQ(again->contentView()->subviews().size(), 1U);
    EXPECT_EQ(again->contentView()->subviews()[0]->frame(), (Rect { 1, 2, 30, 40 }));
}

TEST_F(CodingTest, ScrollViewsWithATextView)
{
    auto const scroll = make<NSScrollView>(Rect { 0, 0, 200, 100 });
    scroll->setBorderType(NSBezelBorder);
    scroll->setHasVerticalScroller(true);
    auto const text = make<NSTextView>(Rect { 0, 0, 180, 100 });
    text->setString("one\ntwo");
    text->setEditable(false);
    scroll->setDocumentView(text);
    auto const again = coded(scroll);
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->hasVerticalScroller());
    EXPECT_EQ(again->borderType(), NSBezelBorder);
    EXPECT_EQ(again->contentView()->frame(), scroll->contentView()->frame());
    EXPECT_EQ(again->subviews().size(), scroll->subviews().size());
    auto const* textAgain = dynamic_cast<NSTextView*>(again->documentView());
    ASSERT_NE(textAgain, nullptr);
    EXPECT_EQ(textAgain->string(), "one\ntwo");
    EXPECT_FALSE(textAgain->isEditable());
}

TEST_F(CodingTest, ProgressIndicators)
{
    auto const bar = make<NSProgressIndicator>(Rect { 0, 0, 100, 14 });
    bar->setIndeterminate(false);
    bar->setMaxValue(7);
    bar->setDoubleValue(3);
    auto const again = coded(bar);
    ASSERT_NE(again, nullptr);
    EXPECT_FALSE(again->isIndeterminate());
    EXPECT_EQ(again->maxValue(), 7);
    EXPECT_EQ(again->doubleValue(), 3);
}

// MARK: the library's own

TEST_F(CodingTest, ASplitViewsThicknessIsNotArchived)
{
    auto const split = make<TQSplitView>(Rect { 0, 0, 207, 100 });
    split->setVertical(true);
    split->addSubview(*make<NSView>(Rect { 0, 0, 50, 10 }));
    split->addSubview(*make<NSView>(Rect { 0, 0, 150, 10 }));
    split->setDividerThickness(1);
    auto const again = coded(split);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->dividerThickness(), 7);
    EXPECT_TRUE(again->isVertical());
    ASSERT_EQ(again->subviews().size(), 2U);
    EXPECT_EQ(again->subviews()[0]->frame().width, 50);
    EXPECT_EQ(again->subviews()[1]->frame(), (Rect { 57, 0, 150, 100 }));
}

TEST_F(CodingTest, APopUpButtonBeginsWithAnEmptyMenu)
{
    auto const button = make<PLIXPopUpButton>(Rect { 0, 0, 90, 20 });
    button->addItemWithTitle("Day");
    button->addItemWithTitle("Week");
    button->selectItemAtIndex(1);
    auto const again = coded(button);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->title(), "Week");
    EXPECT_EQ(again->menu()->title(), "Untitled");
    EXPECT_EQ(again->menu()->numberOfItems(), 0);
    EXPECT_FALSE(again->menu()->autoenablesItems());
    EXPECT_EQ(again->selectedItemIndex(), 0);
}

TEST_F(CodingTest, ADisplayStringIsNotArchived)
{
    auto const cell = make<TQPopUpButtonCell>("One", false);
    cell->setDisplayAttributedString(make<NSAttributedString>("shown"));
    auto const again = coded(cell);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->titleOfSelectedItem(), "One");
    ASSERT_NE(again->displayAttributedString(), nullptr);
    EXPECT_EQ(again->displayAttributedString()->string(), "");
}

// MARK: attachments

TEST_F(CodingTest, AttachmentsAndTheirCells)
{
    auto const attachment = make<NSTextAttachment>();
    auto const cell = make<PLIXTextAttachmentCell>(imageOfColor({ 8, 6 }, colors::red));
    cell->plixSetCellBaselineOffset({ 0, -3 });
    attachment->setAttachmentCell(cell);
    auto const text = NSTextAttachment::attributedStringWithAttachment(*attachment);
    auto const again = coded(text);
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->containsAttachments());
    EXPECT_EQ(again->size().width, text->size().width);
    auto const decoded = again->attribute(NSAttachmentAttributeName, 0).as<NSTextAttachment>();
    ASSERT_NE(decoded, nullptr);
    auto const* decodedCell = dynamic_cast<PLIXTextAttachmentCell*>(decoded->attachmentCell());
    ASSERT_NE(decodedCell, nullptr);
    EXPECT_EQ(decodedCell->attachment(), decoded.get());
    EXPECT_EQ(decodedCell->image()->size(), (Size { 8, 6 }));
    EXPECT_EQ(decodedCell->cellBaselineOffset(), (Point { 0, 0 }));
}

// MARK: hostile

// Every byte of a real archive changed: whatever comes out, nothing breaks.
TEST_F(CodingTest, DamagedArchivesAreRefused)
{
    auto const view = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const button = make<NSPopUpButton>(Rect { 0, 0, 80, 20 }, false);
    button->addItemWithTitle("One");
    view->addSubview(*button);
    auto const data = NSArchiver::archivedDataWithRootObject(view);
    std::vector<std::uint8_t> bytes(data->bytes().begin(), data->bytes().end());
    std::mt19937 random(7);
    int refused = 0;
    auto const quiet = installLogSink([](std::string_view) {});
    constexpr int rounds = 400;
    for (int i = 0; i < rounds; ++i) {
        auto damaged = bytes;
        damaged[random() % damaged.size()] ^= static_cast<std::uint8_t>(1 + random() % 255);
        if (!NSUnarchiver::unarchiveObjectWithData(*make<NSData>(damaged)))
            ++refused;
    }
    EXPECT_EQ(refused, rounds);
    bytes.resize(bytes.size() / 2);
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(*make<NSData>(bytes)));
}

}
}
