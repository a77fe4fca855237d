#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace plix {
namespace {

/// Shows numbers as "<n>", and takes only that.
class BracketFormatter : public NSFormatter {
public:
    std::optional<std::string> stringForObjectValue(ObjectValue const& value) const override
    {
        return value.isNumber() ? std::optional("<" + std::to_string(value.intValue()) + ">") : std::nullopt;
    }
    bool getObjectValue(ObjectValue& value, std::optional<std::string_view> string, std::string& error) const override
    {
        if (!string || !string->starts_with('<')) {
            error = "no bracket";
            return false;
        }
        value = intValue(string->substr(1));
        return true;
    }
};

/// A cell with a field of its own, to see copies of the right class.
class MarkedCell : public NSTextFieldCell {
    PLIX_CLASS(MarkedCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    int mark { 0 };

private:
    void copyStateTo(NSObject& fresh) const override
    {
        Base::copyStateTo(fresh);
        static_cast<MarkedCell&>(fresh).mark = mark;
    }
};

PLIX_DESCRIBE(MarkedCell)
{
}

TEST(NSCell, BeginsAsTheDocumentationSays)
{
    auto const cell = make<NSCell>("text");
    EXPECT_EQ(cell->type(), NSTextCellType);
    EXPECT_EQ(cell->stringValue(), "text");
    EXPECT_EQ(cell->font(), NSFont::systemFontOfSize(NSFont::systemFontSize()).get());
    EXPECT_TRUE(cell->isEnabled());
    EXPECT_FALSE(cell->isHighlighted());
    EXPECT_EQ(cell->state(), NSOffState);
    EXPECT_FALSE(cell->allowsMixedState());
    EXPECT_FALSE(cell->isEditable());
    EXPECT_FALSE(cell->isSelectable());
    EXPECT_FALSE(cell->isBordered());
    EXPECT_FALSE(cell->isBezeled());
    EXPECT_FALSE(cell->isContinuous());
    EXPECT_EQ(cell->alignment(), NSNaturalTextAlignment);
    EXPECT_TRUE(cell->wraps());
    EXPECT_FALSE(cell->isScrollable());
    EXPECT_EQ(cell->controlSize(), NSRegularControlSize);
    EXPECT_EQ(cell->focusRingType(), NSFocusRingTypeDefault);
    EXPECT_EQ(cell->tag(), -1);
    EXPECT_EQ(cell->target(), nullptr);
    EXPECT_FALSE(cell->action());
    EXPECT_TRUE(cell->representedObject().isNil());
    float delay = 0;
    float interval = 0;
    cell->getPeriodicDelay(delay, interval);
    EXPECT_EQ(delay, 0.2F);
    EXPECT_EQ(interval, 0.025F);
    EXPECT_EQ(make<NSCell>()->type(), NSTextCellType);
    EXPECT_EQ(make<NSCell>(Ref<NSImage>())->type(), NSNullCellType);
}

TEST(NSCell, HasNeitherTargetNorActionNorTag)
{
    auto const cell = make<NSCell>("");
    EXPECT_THROW(cell->setTag(3), std::logic_error);
    EXPECT_THROW(cell->setTarget(make<NSCell>()), std::logic_error);
    EXPECT_THROW(cell->setAction(Selector("go:")), std::logic_error);
}

TEST(NSCell, ReadsItsValueInEveryForm)
{
    struct Row {
        ObjectValue value;
        char const* string;
        int integer;
        double real;
    };
    Row const rows[] = {
        { "12.5 apples", "12.5 apples", 12, 12.5 },
        { "apples", "apples", 0, 0 },
        { 7, "7", 7, 7 },
        { 2.5, "2.5", 2, 2.5 },
        { nullptr, "", 0, 0 },
        { "", "", 0, 0 },
        { "-3", "-3", -3, -3 },
    };
    auto const cell = make<NSCell>("");
    for (auto const& row : rows) {
        cell->setObjectValue(row.value);
        EXPECT_EQ(cell->objectValue(), row.value) << row.string;
        EXPECT_EQ(cell->stringValue(), row.string);
        EXPECT_EQ(cell->intValue(), row.integer) << row.string;
        EXPECT_EQ(cell->doubleValue(), row.real) << row.string;
        EXPECT_EQ(cell->floatValue(), static_cast<float>(row.real)) << row.string;
    }
    cell->setIntValue(4);
    EXPECT_EQ(cell->stringValue(), "4");
    cell->setFloatValue(0.5F);
    EXPECT_EQ(cell->stringValue(), "0.5");
    cell->setDoubleValue(-1e-3);
    EXPECT_EQ(cell->doubleValue(), -1e-3);
    cell->setStringValue("new");
    EXPECT_EQ(cell->objectValue(), ObjectValue("new"));
}

TEST(NSCell, KeepsTextValid)
{
    auto const cell = make<NSCell>("a\xFF");
    EXPECT_EQ(cell->stringValue(), "a\uFFFD");
    cell->setStringValue("\x80"
                         "b");
    EXPECT_EQ(cell->stringValue(),
        "\uFFFD"
        "b");
}

TEST(NSCell, GoesThroughItsFormatterBothWays)
{
    auto const cell = make<NSCell>("");
    cell->setFormatter(make<BracketFormatter>());
    cell->setObjectValue(5);
    EXPECT_EQ(cell->stringValue(), "<5>");
    EXPECT_EQ(cell->intValue(), 5);
    cell->setStringValue("<12>");
    EXPECT_EQ(cell->objectValue(), ObjectValue(12));
    EXPECT_TRUE(cell->hasValidObjectValue());

    cell->setStringValue("twelve");
    EXPECT_FALSE(cell->hasValidObjectValue());
    EXPECT_TRUE(cell->objectValue().isNil());
    EXPECT_EQ(cell->stringValue(), "twelve");
    cell->setIntValue(3);
    EXPECT_TRUE(cell->hasValidObjectValue());
    EXPECT_EQ(cell->stringValue(), "<3>");

    EXPECT_TRUE(cell->isEntryAcceptable("<1>"));
    EXPECT_FALSE(cell->isEntryAcceptable("1"));
    cell->setFormatter(nullptr);
    EXPECT_EQ(cell->stringValue(), "3");
    EXPECT_TRUE(cell->isEntryAcceptable("1"));
}

TEST(NSCell, ReadsItsTextAnewForAFormatterThatCannotShowTheValue)
{
    auto const cell = make<NSCell>("<8>");
    cell->setFormatter(make<BracketFormatter>());
    EXPECT_EQ(cell->objectValue(), ObjectValue(8));
    auto const other = make<NSCell>("eight");
    other->setFormatter(make<BracketFormatter>());
    EXPECT_FALSE(other->hasValidObjectValue());
    EXPECT_EQ(other->stringValue(), "eight");
}

TEST(NSCell, AnswersAnAttributedValueAsItIs)
{
    auto const cell = make<NSCell>("plain");
    auto const plain = cell->attributedStringValue();
    EXPECT_EQ(plain->string(), "plain");
    EXPECT_EQ(plain->attribute(NSFontAttributeName, 0).as<NSFont>(), cell->font());
    auto const text = make<NSAttributedString>("rich", Attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(20) } });
    cell->setAttributedStringValue(text);
    EXPECT_EQ(cell->attributedStringValue(), text);
    EXPECT_EQ(cell->stringValue(), "rich");
    cell->setAttributedStringValue(nullptr);
    EXPECT_EQ(cell->stringValue(), "");
}

TEST(NSCell, TakesStatesByTheirSign)
{
    auto const cell = make<NSCell>("");
    struct Row {
        bool allowsMixed;
        int set;
        int state;
    };
    Row const rows[] = {
        { false, 5, NSOnState },
        { false, 0, NSOffState },
        { false, -1, NSOnState },
        { true, -7, NSMixedState },
        { true, 1, NSOnState },
    };
    for (auto const& row : rows) {
        cell->setAllowsMixedState(row.allowsMixed);
        cell->setState(row.set);
        EXPECT_EQ(cell->state(), row.state) << row.set;
    }
    cell->setState(NSMixedState);
    cell->setAllowsMixedState(false);
    EXPECT_EQ(cell->state(), NSOnState);
}

TEST(NSCell, GoesFromStateToState)
{
    auto const cell = make<NSCell>("");
    cell->setNextState();
    EXPECT_EQ(cell->state(), NSOnState);
    cell->setNextState();
    EXPECT_EQ(cell->state(), NSOffState);
    cell->setAllowsMixedState(true);
    std::vector<int> states;
    for (int step = 0; step < 4; ++step) {
        cell->setNextState();
        states.push_back(cell->state());
    }
    EXPECT_EQ(states, (std::vector<int> { NSMixedState, NSOnState, NSOffState, NSMixedState }));
}

TEST(NSCell, KeepsEditableAndSelectableTogether)
{
    auto const cell = make<NSCell>("");
    cell->setEditable(true);
    EXPECT_TRUE(cell->isSelectable());
    cell->setSelectable(false);
    EXPECT_FALSE(cell->isEditable());
    cell->setSelectable(true);
    EXPECT_FALSE(cell->isEditable());
}

TEST(NSCell, EitherWrapsOrScrolls)
{
    auto const cell = make<NSCell>("");
    cell->setScrollable(true);
    EXPECT_FALSE(cell->wraps());
    EXPECT_EQ(cell->lineBreakMode(), NSLineBreakByClipping);
    cell->setWraps(true);
    EXPECT_FALSE(cell->isScrollable());
    EXPECT_EQ(cell->lineBreakMode(), NSLineBreakByWordWrapping);
    cell->setLineBreakMode(NSLineBreakByTruncatingTail);
    EXPECT_FALSE(cell->wraps());
    cell->setWraps(false);
    EXPECT_EQ(cell->lineBreakMode(), NSLineBreakByTruncatingTail);
}

TEST(NSCell, HasABorderOrABezel)
{
    auto const cell = make<NSCell>("");
    cell->setBordered(true);
    cell->setBezeled(true);
    EXPECT_FALSE(cell->isBordered());
    cell->setBordered(true);
    EXPECT_FALSE(cell->isBezeled());
}

TEST(NSCell, ComparesTexts)
{
    auto const a = make<NSCell>("a");
    auto const b = make<NSCell>("b");
    EXPECT_EQ(a->compare(*b), -1);
    EXPECT_EQ(b->compare(*a), 1);
    EXPECT_EQ(a->compare(*a), 0);
    EXPECT_THROW(a->compare(*make<NSCell>(Ref<NSImage>())), std::invalid_argument);
}

TEST(NSCell, ShowsAnImageInPlaceOfText)
{
    auto const image = make<NSImage>(Size { 20, 10 });
    auto const cell = make<NSCell>("text");
    cell->setImage(image);
    EXPECT_EQ(cell->type(), NSImageCellType);
    EXPECT_EQ(cell->image(), image.get());
    EXPECT_EQ(cell->stringValue(), "");
    EXPECT_EQ(cell->cellSize(), (Size { 20, 10 }));
    cell->setType(NSTextCellType);
    EXPECT_EQ(cell->image(), nullptr);
    EXPECT_EQ(cell->objectValue(), ObjectValue(""));
}

TEST(NSCell, IsAsLargeAsItsText)
{
    auto const cell = make<NSCell>("");
    auto const font = NSFont::systemFontOfSize(0);
    EXPECT_EQ(cell->cellSize(), (Size { 4, 16 })); // an empty text has the height of its font
    cell->setStringValue("Name");
    float const width = std::ceil(font->widthOfString("Name")) + 4;
    EXPECT_EQ(cell->cellSize(), (Size { width, 16 }));
    cell->setBordered(true);
    EXPECT_EQ(cell->cellSize(), (Size { width + 2, 18 }));
    cell->setBezeled(true);
    EXPECT_EQ(cell->cellSize(), (Size { width + 6, 22 }));
    cell->setControlSize(NSSmallControlSize);
    cell->setFont(NSFont::systemFontOfSize(11));
    EXPECT_EQ(cell->cellSize().height, 19);
}

TEST(NSCell, GrowsInHeightWhereItWraps)
{
    auto const cell = make<NSCell>("several words that need more than one line");
    Size const whole = cell->cellSize();
    Size const narrow = cell->cellSizeForBounds({ 0, 0, 100, 1000 });
    EXPECT_EQ(whole.height, 16);
    EXPECT_LE(narrow.width, 100);
    EXPECT_GE(narrow.height, 48);
    EXPECT_EQ(narrow.height, cell->cellSizeForBounds({ 0, 0, 100, 10 }).height); // the height of the bounds does not matter
    cell->setWraps(false);
    EXPECT_EQ(cell->cellSizeForBounds({ 0, 0, 100, 1000 }), (Size { 100, 16 }));
}

TEST(NSCell, DrawsInsideItsFrame)
{
    auto const cell = make<NSCell>("x");
    Rect const bounds { 10, 10, 100, 30 };
    EXPECT_EQ(cell->drawingRectForBounds(bounds), bounds);
    cell->setBordered(true);
    EXPECT_EQ(cell->drawingRectForBounds(bounds), (Rect { 11, 11, 98, 28 }));
    EXPECT_EQ(cell->titleRectForBounds(bounds), (Rect { 11, 11, 98, 28 }));
    EXPECT_EQ(cell->imageRectForBounds(bounds), bounds); // not an image cell's
    cell->setBezeled(true);
    EXPECT_EQ(cell->drawingRectForBounds(bounds), (Rect { 13, 13, 94, 24 }));
}

TEST(NSCell, CopiesAllOfItsState)
{
    auto const target = make<NSCell>();
    auto const cell = make<MarkedCell>("<4>");
    cell->mark = 9;
    cell->setFormatter(make<BracketFormatter>());
    cell->setTag(12);
    cell->setTarget(target);
    cell->setAction(Selector("go:"));
    cell->setAlignment(NSRightTextAlignment);
    cell->setBezeled(true);
    cell->setEnabled(false);
    cell->setTextColor(NSColor::redColor());
    cell->setRepresentedObject("thing");
    cell->setContinuous(true);
    auto const copy = cell->copy();
    EXPECT_EQ(&copy->isa(), &MarkedCell::staticClass());
    EXPECT_EQ(copy->mark, 9);
    EXPECT_EQ(copy->objectValue(), ObjectValue(4));
    EXPECT_EQ(copy->stringValue(), "<4>");
    EXPECT_EQ(copy->tag(), 12);
    EXPECT_EQ(copy->target(), target.get());
    EXPECT_EQ(copy->action(), Selector("go:"));
    EXPECT_EQ(copy->alignment(), NSRightTextAlignment);
    EXPECT_TRUE(copy->isBezeled());
    EXPECT_FALSE(copy->isEnabled());
    EXPECT_EQ(copy->textColor(), NSColor::redColor().get());
    EXPECT_EQ(copy->representedObject(), ObjectValue("thing"));
    EXPECT_TRUE(copy->isContinuous());
    copy->setStringValue("<5>");
    EXPECT_EQ(cell->intValue(), 4);
}

TEST(NSCell, SaysBeforeWhichEventsSentItsAction)
{
    auto const cell = make<NSActionCell>("");
    unsigned const before = cell->sendActionOn(1U << 1);
    EXPECT_EQ(before, 1U << 2); // the release of the left button
    EXPECT_EQ(cell->sendActionOn(before), 1U << 1);
    cell->setContinuous(true);
    EXPECT_TRUE(cell->isContinuous());
    EXPECT_EQ(cell->sendActionOn(before), before | 1U << 16);
    EXPECT_FALSE(cell->isContinuous());
}

TEST(NSActionCell, HoldsItsTargetWeakly)
{
    auto const cell = make<NSActionCell>("");
    {
        auto const target = make<NSCell>();
        cell->setTarget(target);
        EXPECT_EQ(cell->target(), target.get());
    }
    EXPECT_EQ(cell->target(), nullptr);
}

TEST(NSActionCell, CallsAFunctionAsLongAsItsTargetLives)
{
    class Receiver : public NSObject {
    public:
        int calls { 0 };
        void act() { ++calls; }
    };
    auto const cell = make<NSActionCell>("");
    auto receiver = make<Receiver>();
    cell->setTarget(*receiver, &Receiver::act);
    cell->sendAction();
    EXPECT_EQ(receiver->calls, 1);

    int calls = 0;
    cell->setActionFunction(receiver, [&](NSObject*) { ++calls; });
    cell->sendAction();
    EXPECT_EQ(calls, 1);
    receiver = nullptr;
    cell->sendAction();
    EXPECT_EQ(calls, 1);
    cell->setActionFunction(nullptr, [&](NSObject*) { ++calls; });
    cell->sendAction();
    EXPECT_EQ(calls, 2);
}

TEST(NSTextFieldCell, ShowsDisabledTextPalerUnlessTheHostMixedItsColour)
{
    auto colorOf = [](NSTextFieldCell const& cell) {
        return cell.attributedStringValue()->attribute(NSForegroundColorAttributeName, 0).as<NSColor>();
    };
    auto const cell = make<NSTextFieldCell>("x");
    EXPECT_EQ(colorOf(*cell), NSColor::controlTextColor());
    cell->setEnabled(false);
    EXPECT_EQ(colorOf(*cell), NSColor::disabledControlTextColor());
    cell->setTextColor(NSColor::redColor());
    EXPECT_EQ(colorOf(*cell), NSColor::redColor());
    cell->setEnabled(true);
    EXPECT_EQ(colorOf(*cell), NSColor::redColor());
}

TEST(NSTextFieldCell, IsOpaqueWithAnOpaqueBackgroundOnly)
{
    auto const cell = make<NSTextFieldCell>("");
    EXPECT_FALSE(cell->isOpaque());
    cell->setDrawsBackground(true);
    EXPECT_TRUE(cell->isOpaque());
    cell->setBackgroundColor(NSColor::clearColor());
    EXPECT_FALSE(cell->isOpaque());
}

}
}
