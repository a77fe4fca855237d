#include <tests/support/ChiseledTest.h>
#include <tests/support/images.h>

#include <plix/controls/PLIXTextAttachmentCell.h>
#include <plix/controls/classes.h>
#include <plix/format/color_additions.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using Strings = std::vector<std::string>;

ColorComponents grey(float level, float alpha)
{
    return { level, level, level, alpha };
}

// MARK: default colours

struct DefaultRow {
    char const* name;
    Ref<NSColor> (*ask)();
    Global<NSColor>& global;
    ColorComponents later;
    ColorComponents earlier;
};

std::vector<DefaultRow> defaults()
{
    using Label = PLIXChiseledTextField;
    return {
        { "active", Label::classActiveColor, PLIXChiseledTextField_ActiveColor, grey(0.149F, 1), grey(0.1F, 1) },
        { "shadow active", Label::classShadowActiveColor, PLIXChiseledTextField_ShadowActiveColor, grey(0.8078F, 0.9F),
            grey(0.96F, 0.9F) },
        { "inactive", Label::classInactiveColor, PLIXChiseledTextField_InactiveColor, grey(0.3F, 0.9F), grey(0.3F, 0.9F) },
        { "shadow inactive", Label::classShadowInactiveColor, PLIXChiseledTextField_ShadowInactiveColor, grey(0.8078F, 0.7F),
            grey(0.96F, 0.7F) },
        { "disabled", Label::classDisabledColor, PLIXChiseledTextField_DisabledColor, grey(0.3F, 1), grey(0.7F, 1) },
    };
}

TEST_F(ChiseledTest, TheDefaultColorsAreGreysOfTheSystemsVersion)
{
    for (std::uint32_t const version : { 0x1049U, 0x104FU, 0x1050U, 0x1060U }) {
        SystemVersion const system(version);
        forgetDefaults();
        for (auto const& row : defaults()) {
            EXPECT_FALSE(row.global) << row.name;
            auto const color = row.ask();
            EXPECT_EQ(color->components(), version > 0x104F ? row.later : row.earlier) << row.name << ' ' << version;
            EXPECT_EQ(color->colorSpaceName(), NSCalibratedRGBColorSpace) << row.name;
            EXPECT_EQ(color, row.global.ref()) << row.name;
        }
    }
}

TEST_F(ChiseledTest, ADefaultColorIsMadeOnce)
{
    for (auto const& row : defaults()) {
        auto const first = row.ask();
        SystemVersion const system(0x1050);
        EXPECT_EQ(row.ask(), first) << row.name;
    }
}

TEST_F(ChiseledTest, AGlobalThatTheHostAssignedIsTheDefault)
{
    for (auto const& row : defaults()) {
        row.global = NSColor::redColor();
        EXPECT_EQ(row.ask(), row.global.ref()) << row.name;
        EXPECT_EQ(row.global->components(), NSColor::redColor()->components()) << row.name;
    }
    EXPECT_EQ(label()->inactiveColor(), PLIXChiseledTextField_InactiveColor.get());
}

TEST_F(ChiseledTest, AnAssignmentReachesLabelsThatAreMadeAfterwards)
{
    auto const before = label();
    PLIXChiseledTextField_ActiveColor = NSColor::redColor();
    EXPECT_EQ(before->activeColor()->components(), grey(0.1F, 1));
    EXPECT_EQ(label()->activeColor(), PLIXChiseledTextField_ActiveColor.get());
}

TEST_F(ChiseledTest, NoLabelFreesADefault)
{
    std::vector<std::uint32_t> references;
    for (auto const& row : defaults()) {
        row.ask();
        references.push_back(row.global->retainCount());
    }
    for (int i = 0; i < 3; ++i) {
        auto const made = label();
        colorAll(*made);
        made->setShadowActiveColor(nullptr);
        made->setActiveColor(nullptr);
        made->setShadowActiveColor(nullptr);
        made->setInactiveColor(nullptr);
    }
    std::size_t i = 0;
    for (auto const& row : defaults())
        EXPECT_EQ(row.global->retainCount(), references[i++]) << row.name;
}

TEST_F(ChiseledTest, ALabelTakesTheDefaultsOfItsOwnClass)
{
    class Own : public PLIXChiseledTextField {
    public:
        using PLIXChiseledTextField::init;
        Ref<NSColor> ownActiveColor() const override { return NSColor::redColor(); }
        Ref<NSColor> ownShadowActiveColor() const override { return NSColor::greenColor(); }
        Ref<NSColor> ownInactiveColor() const override { return NSColor::blueColor(); }
        Ref<NSColor> ownShadowInactiveColor() const override { return NSColor::yellowColor(); }
        Ref<NSColor> ownDisabledColor() const override { return NSColor::brownColor(); }
    };
    auto const own = make<Own>(usualFrame);
    auto const expectOwn = [&] {
        EXPECT_EQ(own->activeColor()->components(), NSColor::redColor()->components());
        EXPECT_EQ(own->shadowActiveColor()->components(), NSColor::greenColor()->components());
        EXPECT_EQ(own->inactiveColor()->components(), NSColor::blueColor()->components());
        EXPECT_EQ(own->shadowInactiveColor()->components(), NSColor::yellowColor()->components());
        EXPECT_EQ(own->disabledColor()->components(), NSColor::brownColor()->components());
    };
    expectOwn();
    for (auto const setter : { &Own::setActiveColor, &Own::setShadowActiveColor, &Own::setInactiveColor,
             &Own::setShadowInactiveColor, &Own::setDisabledColor }) {
        ((*own).*setter)(NSColor::whiteColor());
        ((*own).*setter)(nullptr);
    }
    expectOwn();
    for (auto const& row : defaults())
        EXPECT_FALSE(row.global) << row.name;
}

TEST_F(ChiseledTest, SettingTheActiveColorDiscardsTheDisabledOne)
{
    auto const made = label();
    made->setDisabledColor(NSColor::brownColor());
    made->setActiveColor(NSColor::redColor());
    EXPECT_EQ(made->disabledColor(), PLIXChiseledTextField_DisabledColor.get());
    made->setDisabledColor(NSColor::brownColor());
    made->setActiveColor(made->activeColor());
    EXPECT_EQ(made->disabledColor(), PLIXChiseledTextField_DisabledColor.get());
    made->setDisabledColor(NSColor::brownColor());
    EXPECT_EQ(made->disabledColor()->components(), NSColor::brownColor()->components());
}

TEST_F(ChiseledTest, NewColorsShowWhenTheLookChangesNext)
{
    auto const made = label();
    Ref<NSColor> const text(made->textColor());
    Ref<NSColor> const shadow(made->shadow()->textColor());
    colorAll(*made);
    EXPECT_EQ(text, made->textColor());
    EXPECT_EQ(shadow, made->shadow()->textColor());
    made->activate(nullptr);
    EXPECT_EQ(made->textColor(), made->activeColor());
    EXPECT_EQ(made->shadow()->textColor(), made->shadowActiveColor());
}

// MARK: set-up

TEST_F(ChiseledTest, ANewLabelIsABareOneInTheActiveLook)
{
    auto const made = make<PLIXChiseledTextField>(usualFrame);
    EXPECT_FALSE(made->isSelectable());
    EXPECT_FALSE(made->isEditable());
    EXPECT_FALSE(made->drawsBackground());
    EXPECT_FALSE(made->isBezeled());
    EXPECT_FALSE(made->isBordered());
    EXPECT_TRUE(made->isEnabled());
    EXPECT_TRUE(made->isActive());
    EXPECT_EQ(made->frame(), usualFrame);
    EXPECT_EQ(look(*made), "active");
}

TEST_F(ChiseledTest, AnInitWithoutFrameMakesNoShadow)
{
    auto const made = make<PLIXChiseledTextField>();
    EXPECT_EQ(made->shadow(), nullptr);
    EXPECT_EQ(made->frame(), Rect {});
    EXPECT_FALSE(made->isSelectable());
    EXPECT_FALSE(made->isEditable());
    EXPECT_FALSE(made->drawsBackground());
    EXPECT_FALSE(made->isBezeled());
    EXPECT_FALSE(made->isBordered());
    EXPECT_FALSE(made->isActive());
    EXPECT_EQ(made->textColor(), make<NSTextField>()->textColor());
    EXPECT_EQ(made->activeColor(), PLIXChiseledTextField_ActiveColor.get());
    EXPECT_EQ(made->disabledColor(), PLIXChiseledTextField_DisabledColor.get());
}

TEST_F(ChiseledTest, ALabelWithoutShadowTakesWhatOthersMirror)
{
    auto const made = make<PLIXChiseledTextField>();
    auto const font = NSFont::systemFontOfSize(19);
    made->setFont(font);
    made->setAlignment(NSRightTextAlignment);
    made->setFrameSize({ 90, 30 });
    made->setFrameOrigin({ 4, 5 });
    made->setBoundsOrigin({ 1, 2 });
    made->setNeedsDisplay(true);
    made->setStringValue("Plain");
    EXPECT_EQ(made->stringValue(), "Plain");
    EXPECT_EQ(made->font(), font.get());
    EXPECT_EQ(made->alignment(), NSRightTextAlignment);
    EXPECT_EQ(made->frame(), (Rect { 4, 5, 90, 30 }));
    made->setIntValue(3);
    EXPECT_EQ(made->intValue(), 3);
    made->setAttributedStringValue(make<NSAttributedString>("Rich"));
    EXPECT_EQ(made->stringValue(), "Rich");
    made->activate(nullptr);
    EXPECT_EQ(made->textColor(), made->activeColor());
    made->deactivate(nullptr);
    EXPECT_EQ(made->textColor(), made->inactiveColor());
    made->setEnabled(false);
    EXPECT_EQ(made->textColor(), made->disabledColor());
    made->setAttributedStringValue(nullptr);
    EXPECT_EQ(made->stringValue(), "");
}

/// Says what is done to it, in order.
class TellingLabel : public PLIXChiseledTextField {
public:
    bool init()
    {
        log.clear();
        return PLIXChiseledTextField::init();
    }
    bool init(Rect frame)
    {
        log.clear();
        return PLIXChiseledTextField::init(frame);
    }
    bool init(NSCoder& coder)
    {
        log.clear();
        return PLIXChiseledTextField::init(coder);
    }
    void setActiveColor(Ref<NSColor> const& color) override
    {
        log.emplace_back("active color");
        PLIXChiseledTextField::setActiveColor(color);
    }
    void setShadowActiveColor(Ref<NSColor> const& color) override
    {
        log.emplace_back("shadow active color");
        PLIXChiseledTextField::setShadowActiveColor(color);
    }
    void setInactiveColor(Ref<NSColor> const& color) override
    {
        log.emplace_back("inactive color");
        PLIXChiseledTextField::setInactiveColor(color);
    }
    void setShadowInactiveColor(Ref<NSColor> const& color) override
    {
        log.emplace_back("shadow inactive color");
        PLIXChiseledTextField::setShadowInactiveColor(color);
    }
    void setDisabledColor(Ref<NSColor> const& color) override
    {
        log.emplace_back("disabled color");
        PLIXChiseledTextField::setDisabledColor(color);
    }
    void setEnabled(bool flag) override
    {
        note("enabled", flag);
        EXPECT_FALSE(shadow());
        PLIXChiseledTextField::setEnabled(flag);
        EXPECT_EQ(textColor(), activeColor());
    }
    void setSelectable(bool flag) override { note("selectable", flag); }
    void setEditable(bool flag) override { note("editable", flag); }
    void setDrawsBackground(bool flag) override { note("background", flag); }
    void setBezeled(bool flag) override { note("bezeled", flag); }
    void setBordered(bool flag) override { note("bordered", flag); }
    void activate(NSNotification const* sender) override
    {
        log.emplace_back(sender ? "activate by a sender" : "activate");
        PLIXChiseledTextField::activate(sender);
    }

    static inline Strings log;

protected:
    void initShadow() override
    {
        log.emplace_back("shadow");
        PLIXChiseledTextField::initShadow();
    }
    void initColors() override
    {
        log.emplace_back("colors");
        PLIXChiseledTextField::initColors();
    }

private:
    static void note(std::string const& what, bool flag) { log.push_back(what + (flag ? " YES" : " NO")); }
};

Strings const baseSteps { "bezeled YES", "background YES", "editable YES" };
Strings const colorSteps { "colors", "active color", "disabled color", "inactive color", "shadow active color",
    "shadow inactive color", "disabled color" };
Strings const shapeSteps { "selectable NO", "editable NO", "background NO", "bezeled NO", "bordered NO" };

Strings joined(std::initializer_list<Strings> parts)
{
    Strings all;
    for (auto const& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST_F(ChiseledTest, AnInitWithFrameTakesItsStepsInOrder)
{
    make<TellingLabel>(usualFrame);
    EXPECT_EQ(TellingLabel::log, joined({ baseSteps, colorSteps, { "enabled YES" }, shapeSteps, { "shadow", "activate" } }));
}

TEST_F(ChiseledTest, AnInitWithoutFrameTakesFewerSteps)
{
    make<TellingLabel>();
    EXPECT_EQ(TellingLabel::log, joined({ baseSteps, colorSteps, shapeSteps }));
}

/// Notes what labels and shadows do to their cells; the first cell since begin() is 0, the next 1.
class TellingCell : public NSTextFieldCell {
    PLIX_CLASS(TellingCell, NSTextFieldCell);

public:
    bool init()
    {
        m_number = count++;
        return NSTextFieldCell::init();
    }
    void setStringValue(std::string_view text) override
    {
        note("string " + std::string(text));
        NSTextFieldCell::setStringValue(text);
    }
    void setAttributedStringValue(Ref<NSAttributedString> const& text) override
    {
        note(text ? "attributed" : "attributed nil");
        NSTextFieldCell::setAttributedStringValue(text);
    }
    void setIntValue(int value) override
    {
        note("int " + std::to_string(value));
        NSTextFieldCell::setIntValue(value);
    }
    void setFloatValue(float value) override
    {
        note("float");
        NSTextFieldCell::setFloatValue(value);
    }
    void setDoubleValue(double value) override
    {
        note("double");
        NSTextFieldCell::setDoubleValue(value);
    }
    void setFormatter(Ref<NSFormatter> const& formatter) override
    {
        note("formatter");
        NSTextFieldCell::setFormatter(formatter);
    }
    void setSelectable(bool flag) override { noteFlag("selectable", flag), NSTextFieldCell::setSelectable(flag); }
    void setEditable(bool flag) override { noteFlag("editable", flag), NSTextFieldCell::setEditable(flag); }
    void setDrawsBackground(bool flag) override { noteFlag("background", flag), NSTextFieldCell::setDrawsBackground(flag); }
    void setBezeled(bool flag) override { noteFlag("bezeled", flag), NSTextFieldCell::setBezeled(flag); }
    void setBordered(bool flag) override { noteFlag("bordered", flag), NSTextFieldCell::setBordered(flag); }
    void setBackgroundColor(Ref<NSColor> const& color) override
    {
        note("background color");
        NSTextFieldCell::setBackgroundColor(color);
    }
    void setTextColor(Ref<NSColor> const& color) override
    {
        note("text color");
        NSTextFieldCell::setTextColor(color);
    }
    void setFont(Ref<NSFont> const& font) override
    {
        note("font");
        NSTextFieldCell::setFont(font);
    }
    void setAlignment(NSTextAlignment alignment) override
    {
        note("alignment " + std::to_string(alignment));
        NSTextFieldCell::setAlignment(alignment);
    }
    void setLineBreakMode(NSLineBreakMode mode) override
    {
        note("line breaks");
        NSTextFieldCell::setLineBreakMode(mode);
    }

    static void begin()
    {
        log.clear();
        count = 0;
    }
    static inline Strings log;
    static inline int count { 0 };

private:
    void note(std::string const& what) const { log.push_back(std::to_string(m_number) + ' ' + what); }
    void noteFlag(std::string const& what, bool flag) const { note(what + (flag ? " YES" : " NO")); }
    int m_number { 0 };
};

PLIX_DESCRIBE(TellingCell)
{
}

class ChiseledCellTest : public ChiseledTest {
protected:
    void SetUp() override
    {
        ChiseledTest::SetUp();
        NSTextField::setCellClass(TellingCell::staticClass());
        TellingCell::begin();
        made = make<PLIXChiseledTextField>(usualFrame);
        initLog = std::exchange(TellingCell::log, {});
    }
    void TearDown() override
    {
        NSTextField::setCellClass(NSTextFieldCell::staticClass());
        ChiseledTest::TearDown();
    }

    Ref<PLIXChiseledTextField> made;
    Strings initLog;
};

TEST_F(ChiseledCellTest, TheShadowTakesTheLabelsLookInOrder)
{
    EXPECT_EQ(initLog,
        (Strings { "0 bezeled YES", "0 background YES", "0 editable YES", "0 text color", "0 selectable NO", "0 editable NO",
            "0 background NO", "0 bezeled NO", "0 bordered NO", "1 bezeled YES", "1 background YES", "1 editable YES", "1 string ",
            "1 selectable NO", "1 editable NO", "1 background NO", "1 background color", "1 text color", "1 bezeled NO",
            "1 bordered NO", "1 font", "1 alignment 4", "1 line breaks", "0 text color", "1 text color" }));
}

TEST_F(ChiseledCellTest, ValuesAndLooksReachTheShadowFirst)
{
    made->setStringValue("Text");
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 string Text", "0 string Text"));
    made->setIntValue(-7);
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 int -7", "0 int -7"));
    made->setFloatValue(0.5F);
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 float", "0 float"));
    EXPECT_EQ(made->shadow()->floatValue(), 0.5F);
    made->setDoubleValue(2.25);
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 double", "0 double"));
    EXPECT_EQ(made->shadow()->doubleValue(), 2.25);
    EXPECT_EQ(made->doubleValue(), 2.25);
    made->setFont(NSFont::boldSystemFontOfSize(15));
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 font", "0 font"));
    EXPECT_EQ(made->shadow()->font(), made->font());
    made->setAlignment(NSCenterTextAlignment);
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 alignment 2", "0 alignment 2"));
    made->setFormatter(make<NSDateFormatter>("%Y", false));
    EXPECT_EQ(TellingCell::log.front(), "1 formatter");
    EXPECT_TRUE(made->formatter());
    EXPECT_EQ(made->shadow()->formatter(), made->formatter());
}

TEST_F(ChiseledCellTest, AnAttributedValueReachesTheShadowFirst)
{
    made->setAttributedStringValue(make<NSAttributedString>("Rich"));
    EXPECT_THAT(std::exchange(TellingCell::log, {}), ElementsAre("1 attributed", "0 attributed"));
    made->setAttributedStringValue(nullptr);
    EXPECT_THAT(TellingCell::log, ElementsAre("1 attributed nil", "0 attributed nil"));
    EXPECT_EQ(made->stringValue(), "");
    EXPECT_EQ(made->shadow()->stringValue(), "");
}

TEST_F(ChiseledCellTest, TheShadowBreaksLinesAsTheLabelDoes)
{
    class Truncating : public PLIXChiseledTextField {
    public:
        using PLIXChiseledTextField::init;
        void setSelectable(bool flag) override
        {
            cell()->setLineBreakMode(NSLineBreakByTruncatingMiddle);
            PLIXChiseledTextField::setSelectable(flag);
        }
    };
    EXPECT_EQ(made->shadow()->cell()->lineBreakMode(), made->cell()->lineBreakMode());
    EXPECT_EQ(make<Truncating>(usualFrame)->shadow()->cell()->lineBreakMode(), NSLineBreakByTruncatingMiddle);
}

TEST_F(ChiseledTest, TheShadowIsInNoView)
{
    auto const made = label();
    auto const window = showWindow();
    window->contentView()->addSubview(*made);
    EXPECT_EQ(made->shadow()->superview(), nullptr);
    EXPECT_TRUE(made->subviews().empty());
    EXPECT_EQ(made->shadow()->frame(), usualFrame);
    auto const& plain = *made->shadow();
    EXPECT_EQ(typeid(plain), typeid(NSTextField));
}

TEST_F(ChiseledTest, SizeAndBoundsReachTheShadowAndTheOriginDoesNot)
{
    auto const made = label();
    made->setFrameOrigin({ 40, 50 });
    EXPECT_EQ(made->frame(), (Rect { 40, 50, 120, 20 }));
    EXPECT_EQ(made->shadow()->frame(), usualFrame);
    made->setFrame({ 60, 70, 200, 30 });
    EXPECT_EQ(made->frame(), (Rect { 60, 70, 200, 30 }));
    EXPECT_EQ(made->shadow()->frame(), (Rect { 10, 12, 200, 30 }));
    made->setBoundsOrigin({ 3, 4 });
    EXPECT_EQ(made->bounds().origin(), (Point { 3, 4 }));
    EXPECT_EQ(made->shadow()->bounds().origin(), (Point { 3, 4 }));
    made->setBoundsOrigin({});
    made->setStringValue("A longer text than before");
    made->sizeToFit();
    EXPECT_EQ(made->shadow()->frame().size(), made->frame().size());
}

TEST_F(ChiseledTest, MarkingForDisplayReachesTheShadow)
{
    auto const made = label();
    made->setNeedsDisplay(false);
    EXPECT_FALSE(made->needsDisplay());
    EXPECT_FALSE(made->shadow()->needsDisplay());
    made->setNeedsDisplay(true);
    EXPECT_TRUE(made->needsDisplay());
    EXPECT_TRUE(made->shadow()->needsDisplay());
}

// MARK: attributed values

Ref<NSMutableAttributedString> coloredText(std::string_view text)
{
    return make<NSMutableAttributedString>(text, Attributes { { NSForegroundColorAttributeName, NSColor::redColor() } });
}

Ref<NSColor> colorAt(NSAttributedString const& text, long index)
{
    return text.attribute(NSForegroundColorAttributeName, index).as<NSColor>();
}

TEST_F(ChiseledTest, AnAttributedValueTakesTheColorsOfTheMoment)
{
    auto const made = label();
    auto const value = coloredText("Rich text");
    value->addAttribute(NSFontAttributeName, NSFont::boldSystemFontOfSize(13), { 0, 4 });
    made->deactivate(nullptr);
    made->setAttributedStringValue(value);
    for (long const index : { 0L, 8L }) {
        EXPECT_EQ(colorAt(*made->attributedStringValue(), index), made->inactiveColor());
        EXPECT_EQ(colorAt(*made->shadow()->attributedStringValue(), index), made->shadowInactiveColor());
        EXPECT_EQ(colorAt(*value, index)->components(), NSColor::redColor()->components());
    }
    EXPECT_EQ(made->shadow()->attributedStringValue()->attribute(NSFontAttributeName, 0),
        made->attributedStringValue()->attribute(NSFontAttributeName, 0));
}

/// An attachment and a cell of classes of their own.
class OwnAttachment : public NSTextAttachment {
    PLIX_CLASS(OwnAttachment, NSTextAttachment);
};
PLIX_DESCRIBE(OwnAttachment)
{
}

Ref<NSTextAttachment> attachmentAt(NSTextField const& field, long index)
{
    return field.attributedStringValue()->attribute(NSAttachmentAttributeName, index).as<NSTextAttachment>();
}

TEST_F(ChiseledTest, TheShadowHoldsABlankImageOfTheSameSize)
{
    auto const made = label();
    auto const cell = make<PLIXTextAttachmentCell>(imageOfColor({ 12, 8 }, { 1, 0, 0, 1 }));
    cell->plixSetCellBaselineOffset({ 0, -3 });
    auto const attachment = make<OwnAttachment>();
    attachment->setAttachmentCell(cell);
    auto const value = coloredText("ab");
    value->insertAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment), 1);
    value->addAttribute("mark", "kept", { 1, 1 });
    made->setAttributedStringValue(value);

    EXPECT_EQ(attachmentAt(*made, 1), attachment);
    auto const blank = attachmentAt(*made->shadow(), 1);
    ASSERT_TRUE(blank);
    auto const& ownBlank = *blank;
    EXPECT_EQ(typeid(ownBlank), typeid(OwnAttachment));
    auto const* blankCell = dynamic_cast<PLIXTextAttachmentCell*>(blank->attachmentCell());
    ASSERT_TRUE(blankCell);
    EXPECT_EQ(blankCell->cellBaselineOffset(), Point {});
    ASSERT_TRUE(blankCell->image());
    EXPECT_NE(blankCell->image(), cell->image());
    EXPECT_EQ(blankCell->image()->size(), (Size { 12, 8 }));
    EXPECT_EQ(made->shadow()->attributedStringValue()->attribute("mark", 1), ObjectValue("kept"));
    EXPECT_EQ(colorAt(*made->shadow()->attributedStringValue(), 1), made->shadowActiveColor());
    EXPECT_EQ(made->shadow()->stringValue(), made->stringValue());
}

TEST_F(ChiseledTest, EveryImageIsBlankedAndWhatIsNoneIsLeft)
{
    auto const made = label();
    auto const value = make<NSMutableAttributedString>();
    std::vector<Ref<NSTextAttachment>> attachments;
    for (float const width : { 3.F, 5.F, 0.F, 7.F }) {
        auto const attachment = make<NSTextAttachment>();
        if (width > 0)
            attachment->attachmentCell()->setImage(imageOfColor({ width, 4 }, { 1, 0, 0, 1 }));
        attachments.push_back(attachment);
        value->appendAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment));
    }
    attachments.push_back(make<NSTextAttachment>());
    attachments.back()->setAttachmentCell(nullptr);
    value->appendAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachments.back()));
    made->setAttributedStringValue(value);
    ASSERT_EQ(made->shadow()->attributedStringValue()->length(), 5);
    for (long const index : { 0L, 1L, 3L }) {
        auto const blank = attachmentAt(*made->shadow(), index);
        auto const original = attachments[static_cast<std::size_t>(index)];
        EXPECT_NE(blank, original) << index;
        EXPECT_EQ(blank->attachmentCell()->image()->size(), original->attachmentCell()->image()->size()) << index;
        EXPECT_EQ(attachmentAt(*made, index), original) << index;
    }
    EXPECT_EQ(attachmentAt(*made->shadow(), 2), attachments[2]);
    EXPECT_EQ(attachmentAt(*made->shadow(), 4), attachments[4]);
}

TEST_F(ChiseledTest, AnEmptyAttributedValueIsTaken)
{
    auto const made = label();
    made->setAttributedStringValue(make<NSAttributedString>());
    EXPECT_EQ(made->stringValue(), "");
    EXPECT_EQ(made->shadow()->stringValue(), "");
}

// MARK: archives

/// Notes keys as they come, and values that come without.
class TellingCoder : public NSCoder {
public:
    void encodeObject(ObjectValue const& value) override { log.push_back("value " + value.description()); }
    ObjectValue decodeObject() override
    {
        ++sequentialReads;
        return {};
    }
    void encodeObject(ObjectValue const&, std::string_view key) override { log.push_back("key " + std::string(key)); }
    ObjectValue decodeObjectForKey(std::string_view) override { return {}; }
    bool containsValueForKey(std::string_view) const override { return false; }

    Strings log;
    int sequentialReads { 0 };
};

TEST_F(ChiseledTest, AnArchiveHasFiveColorsBehindTheBasesData)
{
    auto const made = label();
    colorAll(*made);
    TellingCoder base;
    make<NSTextField>(usualFrame)->encodeWithCoder(base);
    TellingCoder coder;
    made->encodeWithCoder(coder);
    ASSERT_EQ(coder.log.size(), base.log.size() + 5);
    EXPECT_EQ(Strings(coder.log.begin(), coder.log.end() - 5), base.log);
    EXPECT_EQ(Strings(coder.log.end() - 5, coder.log.end()),
        (Strings { "value 1.00000,0.00000,0.00000,1.00000", "value 0.00000,0.00000,1.00000,1.00000",
            "value 0.00000,1.00000,0.00000,1.00000", "value 1.00000,1.00000,0.00000,1.00000",
            "value " + asCalibratedRGBString(*NSColor::brownColor()) }));
}

TEST_F(ChiseledTest, DecodingReadsNoColors)
{
    TellingCoder coder;
    auto const read = make<PLIXChiseledTextField>(coder);
    EXPECT_EQ(coder.sequentialReads, 0);
    EXPECT_EQ(look(*read), "active");
    make<TellingLabel>(coder);
    EXPECT_EQ(TellingLabel::log, joined({ baseSteps, colorSteps, { "enabled YES" }, shapeSteps, { "shadow", "activate" } }));
}

TEST_F(ChiseledTest, ComesBackFromAnArchiveAsANewLabel)
{
    registerControlClasses();
    auto const made = label("Archived");
    colorAll(*made);
    made->setFont(NSFont::boldSystemFontOfSize(15));
    made->setAlignment(NSRightTextAlignment);
    made->setSelectable(true);
    made->setDrawsBackground(true);
    made->setEnabled(false);
    auto const data = NSArchiver::archivedDataWithRootObject(made);
    auto const value = NSUnarchiver::unarchiveObjectWithData(*data);
    ASSERT_TRUE(value);
    auto const read = value->as<PLIXChiseledTextField>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->stringValue(), "Archived");
    EXPECT_EQ(read->frame(), usualFrame);
    EXPECT_TRUE(read->isEnabled());
    EXPECT_FALSE(read->isSelectable());
    EXPECT_FALSE(read->drawsBackground());
    EXPECT_EQ(read->activeColor(), PLIXChiseledTextField_ActiveColor.get());
    EXPECT_EQ(read->shadowActiveColor(), PLIXChiseledTextField_ShadowActiveColor.get());
    EXPECT_EQ(read->inactiveColor(), PLIXChiseledTextField_InactiveColor.get());
    EXPECT_EQ(read->shadowInactiveColor(), PLIXChiseledTextField_ShadowInactiveColor.get());
    EXPECT_EQ(read->disabledColor(), PLIXChiseledTextField_DisabledColor.get());
    EXPECT_EQ(look(*read), "active");
    ASSERT_TRUE(read->shadow());
    EXPECT_EQ(read->shadow()->stringValue(), "Archived");
    EXPECT_EQ(read->shadow()->font(), read->font());
    EXPECT_EQ(read->shadow()->alignment(), NSRightTextAlignment);
    EXPECT_EQ(read->shadow()->frame(), usualFrame);
    EXPECT_TRUE(read->shadow()->isEnabled());
}

}
}
