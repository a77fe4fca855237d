#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXButton.h>
#include <plix/controls/TQPopUpButtonCell.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace plix {
namespace {

// MARK: PLIXButton

class PressCounter : public NSObject {
    PLIX_CLASS(PressCounter, NSObject);

public:
    void act(NSObject*) { ++presses; }
    int presses { 0 };
};

PLIX_DESCRIBE(PressCounter)
{
    description.action("act:", &PressCounter::act);
}

class PLIXButtonTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow();
        counter = make<PressCounter>();
        button = make<PLIXButton>(Rect { 20, 20, 100, 24 });
        button->setKeyEquivalent("k");
        button->setKeyEquivalentModifierMask(NSCommandKeyMask);
        button->setTarget(Ref<NSObject>(counter));
        button->setAction(Selector("act:"));
        window->contentView()->addSubview(*button);
    }
    Ref<NSEvent> keyEvent(NSEventType type) const
    {
        return NSEvent::keyEventWithType(type, {}, NSCommandKeyMask, 0, window->windowNumber(), nullptr, "k", "k", false, 0);
    }

    Ref<NSWindow> window;
    Ref<PressCounter> counter;
    Ref<PLIXButton> button;
};

TEST_F(PLIXButtonTest, FiresWhenTheKeyGoesDown)
{
    EXPECT_TRUE(button->performKeyEquivalent(*keyEvent(NSKeyDown)));
    pass(1);
    EXPECT_EQ(counter->presses, 1);
}

TEST_F(PLIXButtonTest, DoesNotFireWhenTheKeyComesUp)
{
    EXPECT_FALSE(button->performKeyEquivalent(*keyEvent(NSKeyUp)));
    pass(1);
    EXPECT_EQ(counter->presses, 0);
}

TEST_F(PLIXButtonTest, OneStrokeFiresOnce)
{
    key(U'k', NSCommandKeyMask);
    pass(1);
    EXPECT_EQ(counter->presses, 1);
}

TEST_F(PLIXButtonTest, OtherKeysAreNotItsOwn)
{
    button->setKeyEquivalent("j");
    EXPECT_FALSE(button->performKeyEquivalent(*keyEvent(NSKeyDown)));
    EXPECT_EQ(counter->presses, 0);
}

// MARK: TQPopUpButtonCell

Ref<NSAttributedString> text(std::string_view string)
{
    return make<NSAttributedString>(string,
        Attributes {
            { NSFontAttributeName, NSFont::systemFontOfSize(12) }, { NSForegroundColorAttributeName, NSColor::blackColor() } });
}

class CellView : public NSView {
public:
    using NSView::init;
    void drawRect(Rect) override
    {
        NSColor::redColor()->set();
        NSRectFill(bounds());
        if (drawsTitle)
            titleRect = cell->drawTitle(*text("ignored"), bounds(), *this);
        else
            cell->drawInteriorWithFrame(bounds(), *this);
    }
    Ref<TQPopUpButtonCell> cell;
    bool drawsTitle { false };
    Rect titleRect;
};

class TQPopUpButtonCellTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        view = make<CellView>(Rect { 0, 0, 100, 30 });
        view->cell = make<TQPopUpButtonCell>("Title", false);
    }
    Ref<NSBitmapImageRep> drawn()
    {
        auto const window = showWindowWith(view, { 100, 100, 100, 30 });
        return window->snapshot();
    }
    /// The columns that differ from the ground.
    static std::pair<int, int> inkedColumns(Pixels const& pixels)
    {
        std::pair<int, int> columns { pixels.width(), -1 };
        for (int x = 0; x < pixels.width(); ++x) {
            for (int y = 0; y < pixels.height(); ++y) {
                if (pixels.at(x, y) != pixels.at(pixels.width() - 1, pixels.height() - 1))
                    columns = { std::min(columns.first, x), x };
            }
        }
        return columns;
    }

    Ref<CellView> view;
};

TEST_F(TQPopUpButtonCellTest, StartsWithAnEmptyString)
{
    for (auto const& cell : { make<TQPopUpButtonCell>(), make<TQPopUpButtonCell>("Title", true) }) {
        ASSERT_TRUE(cell->displayAttributedString());
        EXPECT_EQ(cell->displayAttributedString()->string(), "");
    }
    EXPECT_TRUE(make<TQPopUpButtonCell>("Title", true)->pullsDown());
    EXPECT_EQ(make<TQPopUpButtonCell>("Title", false)->titleOfSelectedItem(), "Title");
}

TEST_F(TQPopUpButtonCellTest, DrawsNothingInsideWithoutAString)
{
    EXPECT_EQ(inkedColumns(drawn()).second, -1);
    view->cell->setDisplayAttributedString(nullptr);
    EXPECT_EQ(inkedColumns(drawn()).second, -1);
}

TEST_F(TQPopUpButtonCellTest, LeavesTenPointsAtTheRightFree)
{
    view->cell->setDisplayAttributedString(text("MMMMMMMMMMMMMMMMMMMMMMMMMMMM"));
    auto const columns = inkedColumns(drawn());
    EXPECT_LT(columns.first, 4);
    EXPECT_GT(columns.second, 70);
    EXPECT_LT(columns.second, 90);
}

TEST_F(TQPopUpButtonCellTest, AsksASubclassForTheString)
{
    class Supplying : public TQPopUpButtonCell {
    public:
        Ref<NSAttributedString> displayAttributedString() const override { return text("W"); }
    };
    view->cell = make<Supplying>();
    auto const columns = inkedColumns(drawn());
    EXPECT_GT(columns.second, 2);
    EXPECT_LT(columns.second, 20);
}

TEST_F(TQPopUpButtonCellTest, ACopySharesTheString)
{
    auto const string = text("Shared");
    view->cell->setDisplayAttributedString(string);
    auto const copy = view->cell->copy();
    EXPECT_EQ(static_cast<TQPopUpButtonCell&>(*copy).displayAttributedString(), string);
    view->cell->setDisplayAttributedString(nullptr);
    EXPECT_EQ(static_cast<TQPopUpButtonCell&>(*copy).displayAttributedString(), string);
    auto const empty = view->cell->copy();
    EXPECT_EQ(static_cast<TQPopUpButtonCell&>(*empty).displayAttributedString(), nullptr);
}

TEST_F(TQPopUpButtonCellTest, ItsTitleIsTestInWhiteWhateverIsGiven)
{
    view->drawsTitle = true;
    auto const first = drawn();
    EXPECT_EQ(view->titleRect, (Rect { 0, 0, 100, 30 }));
    auto const columns = inkedColumns(first);
    auto const width = text("")->size().width
        + make<NSAttributedString>("Test", Attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(11) } })->size().width;
    EXPECT_GE(columns.second, 0);
    EXPECT_NEAR(static_cast<float>(columns.second), width, 3);
    // Somewhere inside the glyphs the paper shows nothing but white.
    Pixels const pixels(first);
    float brightest = 0;
    for (int x = 0; x < pixels.width(); ++x) {
        for (int y = 0; y < pixels.height(); ++y)
            brightest = std::max(brightest, pixels.colorAt(x, y).green);
    }
    EXPECT_GT(brightest, 0.9F);
}

}
}
