#include <plix/tables/PLIXImageAndTextCell.h>
#include <plix/tables/classes.h>

#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

Ref<PLIXImageAndTextCell> cellWith(Ref<NSImage> const& image, std::string_view text = "Name")
{
    auto cell = make<PLIXImageAndTextCell>(text);
    cell->setImage(image);
    cell->setImageSize({ 16, 16 });
    return cell;
}

TEST(PLIXImageAndTextCell, BeginsWithoutImageAndABoxByItsFont)
{
    auto const cell = make<PLIXImageAndTextCell>("Name");
    auto const plain = make<NSTextFieldCell>("Name");
    EXPECT_EQ(cell->stringValue(), "Name");
    EXPECT_EQ(cell->image(), nullptr);
    EXPECT_EQ(cell->imageScaling(), 0);
    float const side = plain->cellSize().height - 4;
    EXPECT_EQ(cell->imageSize(), (Size { side, side }));
    EXPECT_EQ(make<PLIXImageAndTextCell>()->imageSize(), (Size { side, side }));
}

TEST(PLIXImageAndTextCell, IsKnownByName)
{
    registerTableClasses();
    auto const* found = NSClassFromString("PLIXImageAndTextCell");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, PLIXImageAndTextCell::staticClass());
}

TEST(PLIXImageAndTextCell, HoldsImageScalingAndBoxAndStaysATextCell)
{
    auto const cell = make<PLIXImageAndTextCell>("Name");
    auto const image = imageOfColor({ 8, 8 }, colors::red);
    cell->setImage(image);
    EXPECT_EQ(cell->image(), image.get());
    EXPECT_EQ(cell->type(), NSTextCellType);
    EXPECT_EQ(cell->stringValue(), "Name");
    cell->setImageScaling(-7);
    EXPECT_EQ(cell->imageScaling(), -7);
    cell->setImageSize({ 9, 11 });
    EXPECT_EQ(cell->imageSize(), (Size { 9, 11 }));
    cell->setImage(nullptr);
    EXPECT_EQ(cell->image(), nullptr);
}

TEST(PLIXImageAndTextCell, LetsGoOfItsImage)
{
    auto image = imageOfColor({ 8, 8 }, colors::red);
    Weak<NSImage> const watched(image);
    auto cell = cellWith(image);
    image = nullptr;
    EXPECT_TRUE(watched);
    cell->setImage(imageOfColor({ 8, 8 }, colors::blue));
    EXPECT_FALSE(watched);
}

TEST(PLIXImageAndTextCell, MeasuresByTheImagesOwnWidthAndFourPoints)
{
    auto const plain = make<NSTextFieldCell>("Name")->cellSize();
    EXPECT_EQ(make<PLIXImageAndTextCell>("Name")->cellSize(), (Size { plain.width + 4, plain.height }));
    EXPECT_EQ(cellWith(imageOfColor({ 32, 64 }, colors::red))->cellSize(), (Size { plain.width + 36, plain.height }));
}

TEST(PLIXImageAndTextCell, ThereIsABoxOnlyForAnImage)
{
    EXPECT_EQ(cellWith(nullptr)->imageFrameForCellFrame({ 5, 6, 100, 20 }), Rect {});
    EXPECT_EQ(cellWith(imageOfColor({ 32, 32 }, colors::red))->imageFrameForCellFrame({ 5, 6, 100, 20 }), (Rect { 7, 8, 16, 16 }));
}

class WatchingCell : public PLIXImageAndTextCell {
    PLIX_CLASS(WatchingCell, PLIXImageAndTextCell);

public:
    using PLIXImageAndTextCell::init;
    void setImageSize(Size size) override
    {
        ++timesSized;
        PLIXImageAndTextCell::setImageSize(size);
    }
    int timesSized { 0 };
};

PLIX_DESCRIBE(WatchingCell)
{
}

TEST(PLIXImageAndTextCell, ACopySharesTheImageAndKeepsScalingAndBox)
{
    auto const image = imageOfColor({ 8, 8 }, colors::red);
    auto const cell = make<WatchingCell>("Name");
    cell->setImage(image);
    cell->setImageScaling(2);
    cell->setImageSize({ 9, 11 });
    auto const copy = cell->copy();
    EXPECT_EQ(copy->image(), image.get());
    EXPECT_EQ(copy->imageScaling(), 2);
    EXPECT_EQ(copy->imageSize(), (Size { 9, 11 }));
    EXPECT_EQ(copy->timesSized, 1);
    EXPECT_EQ(copy->stringValue(), "Name");
    copy->setImage(nullptr);
    EXPECT_EQ(cell->image(), image.get());
}

TEST(PLIXImageAndTextCell, IsReadFromAnArchive)
{
    registerTableClasses();
    auto const cell = cellWith(imageOfDistinctPixels(5, 4));
    cell->setImageScaling(2);
    cell->setImageSize({ 9.5F, 11 });
    auto const data = NSArchiver::archivedDataWithRootObject(cell);
    auto const read = NSUnarchiver::unarchiveObjectWithData(*data)->as<PLIXImageAndTextCell>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->stringValue(), "Name");
    EXPECT_EQ(read->imageScaling(), 2);
    EXPECT_EQ(read->imageSize(), (Size { 9.5F, 11 }));
    ASSERT_TRUE(read->image());
    EXPECT_EQ(countDifferences(*read->image(), *cell->image()), 0);
}

class CellView : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return flipped; }
    void drawRect(Rect dirty) override
    {
        NSColor::whiteColor()->set();
        NSRectFill(dirty);
        if (cell)
            cell->drawWithFrame(frameOfCell, *this);
    }
    Ref<NSCell> cell;
    Rect frameOfCell { 0, 0, 100, 20 };
    bool flipped { true };
};

class ImageAndTextCellDrawing : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        view = make<CellView>(Rect { 0, 0, 100, 20 });
        window = showWindowWith(view, { 100, 100, 100, 20 });
    }
    Ref<NSBitmapImageRep> drawn(Ref<NSCell> const& cell)
    {
        view->cell = cell;
        view->setNeedsDisplay(true);
        pump();
        return window->snapshot();
    }
    /// Red above blue.
    static Ref<NSImage> twoColors(int width, int height)
    {
        auto const bitmap = renderBitmap({ static_cast<float>(width), static_cast<float>(height) }, 1, [&] {
            NSColor::redColor()->set();
            NSRectFill({ 0, static_cast<float>(height) / 2, static_cast<float>(width), static_cast<float>(height) / 2 });
            NSColor::blueColor()->set();
            NSRectFill({ 0, 0, static_cast<float>(width), static_cast<float>(height) / 2 });
        });
        auto image = make<NSImage>(Size { static_cast<float>(width), static_cast<float>(height) });
        image->addRepresentation(bitmap);
        return image;
    }

    Ref<CellView> view;
    Ref<NSWindow> window;
};

TEST_F(ImageAndTextCellDrawing, TheImageStandsUprightInFlippedAndUnflippedViews)
{
    for (bool const flipped : { true, false }) {
        view->flipped = flipped;
        auto const shown = drawn(cellWith(twoColors(16, 16), ""));
        EXPECT_TRUE(areaNear(shown, { 2, 2, 16, 8 }, colors::red)) << flipped;
        EXPECT_TRUE(areaNear(shown, { 2, 10, 16, 8 }, colors::blue)) << flipped;
        EXPECT_TRUE(areaNear(shown, { 18, 0, 82, 20 }, colors::white)) << flipped;
        EXPECT_TRUE(areaNear(shown, { 0, 0, 2, 20 }, colors::white)) << flipped;
    }
}

TEST_F(ImageAndTextCellDrawing, ALargeImageIsScaledIntoTheBox)
{
    auto const cell = cellWith(imageOfColor({ 32, 16 }, colors::red), "");
    auto const proportional = drawn(cell);
    EXPECT_TRUE(areaNear(proportional, { 2, 6, 16, 8 }, colors::red));
    EXPECT_TRUE(areaNear(proportional, { 2, 0, 16, 6 }, colors::white));
    cell->setImageScaling(NSScaleToFit);
    EXPECT_TRUE(areaNear(drawn(cell), { 2, 2, 16, 16 }, colors::red));
}

TEST_F(ImageAndTextCellDrawing, WithoutScalingTheMiddleIsShown)
{
    auto const cell = cellWith(imageOfDistinctPixels(24, 32), "");
    cell->setImageScaling(NSScaleNone);
    auto const shown = drawn(cell);
    Pixels const pixels(shown);
    EXPECT_EQ(pixels.at(2, 2), distinctPixel(4, 8));
    EXPECT_EQ(pixels.at(17, 17), distinctPixel(19, 23));
    EXPECT_EQ(pixels.at(18, 10), 0xFFFFFFFFU);
    auto const small = cellWith(imageOfColor({ 8, 6 }, colors::blue), "");
    small->setImageScaling(NSScaleNone);
    EXPECT_EQ(countPixels(drawn(small), { 0, 0, 100, 20 }, colors::blue), 48);
    EXPECT_TRUE(areaNear(drawn(small), { 6, 7, 8, 6 }, colors::blue));
}

TEST_F(ImageAndTextCellDrawing, TheTextBeginsTwoPointsBehindTheBox)
{
    auto const font = NSFont::systemFontOfSize(13);
    auto const plain = make<NSTextFieldCell>("Name");
    plain->setFont(font);
    auto const alone = inkBounds(drawn(plain), colors::white);
    auto const cell = cellWith(imageOfColor({ 64, 64 }, colors::white), "Name");
    cell->setFont(font);
    auto const beside = inkBounds(drawn(cell), colors::white);
    EXPECT_EQ(beside.x, alone.x + 18);
    EXPECT_EQ(beside.y, alone.y);
}

TEST_F(ImageAndTextCellDrawing, WithoutImageItIsAPlainTextCell)
{
    auto const plain = make<NSTextFieldCell>("Name");
    EXPECT_EQ(countDifferences(drawn(cellWith(nullptr)), drawn(plain)), 0);
}

TEST_F(ImageAndTextCellDrawing, TheBackgroundIsFilledBehindTheBoxAndTheTextOnly)
{
    auto const cell = cellWith(imageOfColor({ 4, 4 }, colors::clear), "");
    cell->setDrawsBackground(true);
    cell->setBackgroundColor(NSColor::greenColor());
    auto const shown = drawn(cell);
    EXPECT_TRUE(areaNear(shown, { 2, 2, 16, 16 }, colors::green));
    EXPECT_TRUE(areaNear(shown, { 0, 0, 2, 20 }, colors::white));
    EXPECT_TRUE(areaNear(shown, { 2, 0, 16, 2 }, colors::white));
    EXPECT_TRUE(areaNear(shown, { 18, 0, 82, 20 }, colors::green));
    cell->setDrawsBackground(false);
    EXPECT_TRUE(areaNear(drawn(cell), { 0, 0, 100, 20 }, colors::white));
}

TEST_F(ImageAndTextCellDrawing, TheEditorStandsThreePointsBehindTheImagesOwnWidth)
{
    auto& editor = dynamic_cast<NSTextView&>(*window->fieldEditor(true, nullptr));
    auto const left = [&](Ref<NSImage> const& image, bool selects) {
        auto const cell = cellWith(image, "Name");
        cell->setEditable(true);
        if (selects) {
            cell->selectWithFrame({ 10, 0, 80, 20 }, *view, editor, nullptr, 1, 2);
            EXPECT_EQ(editor.selectedRange(), (NSRange { 1, 2 }));
        } else {
            auto const press = mouseEvent(NSLeftMouseDown, *view, { 50, 10 });
            person().release(onScreen(*view, { 50, 10 }));
            cell->editWithFrame({ 10, 0, 80, 20 }, *view, editor, nullptr, *press);
        }
        auto const place = editor.superview() ? editor.superview()->frame() : Rect {};
        cell->endEditing(editor);
        return place.x;
    };
    for (bool const selects : { true, false }) {
        EXPECT_EQ(left(imageOfColor({ 24, 8 }, colors::red), selects), 37);
        EXPECT_EQ(left(nullptr, selects), 13);
    }
}

class ImageAndTextCellSheet : public HeadlessTest, public testing::WithParamInterface<float> {
protected:
    ImageAndTextCellSheet()
        : HeadlessTest(GetParam())
    {
    }
};

class SheetView : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::whiteColor()->set();
        NSRectFill(dirty);
        float y = 4;
        for (auto const& cell : cells) {
            cell->drawWithFrame({ 4, y, 152, 20 }, *this);
            y += 24;
        }
    }
    std::vector<Ref<NSCell>> cells;
};

TEST_P(ImageAndTextCellSheet, LooksAsItsReferenceShows)
{
    auto const picture = NSImage::imageNamed("popupknob_small");
    auto const wide = imageOfDistinctPixels(32, 20);
    ASSERT_TRUE(picture);
    auto const view = make<SheetView>(Rect { 0, 0, 160, 148 });
    int scaling = 0;
    for (auto const* text : { "In proportion", "To fit", "Not scaled" }) {
        auto const cell = cellWith(wide, text);
        cell->setImageScaling(scaling++);
        cell->setFont(NSFont::systemFontOfSize(13));
        view->cells.push_back(cell);
    }
    auto const small = cellWith(picture, "Scaled up, and a name too long for it");
    small->setFont(NSFont::systemFontOfSize(13));
    small->setLineBreakMode(NSLineBreakByTruncatingTail);
    view->cells.push_back(small);
    auto const filled = cellWith(wide, "Background");
    filled->setFont(NSFont::systemFontOfSize(13));
    filled->setDrawsBackground(true);
    filled->setBackgroundColor(NSColor::colorWithCalibratedRed(1, 0.95F, 0.8F, 1));
    view->cells.push_back(filled);
    auto const disabled = cellWith(wide, "Disabled");
    disabled->setFont(NSFont::systemFontOfSize(13));
    disabled->setEnabled(false);
    view->cells.push_back(disabled);
    auto const window = showWindowWith(view, { 100, 100, 160, 148 });
    EXPECT_TRUE(
        matchesReference(window->snapshot(), GetParam() == 2 ? "tables/image_and_text_cell@2x" : "tables/image_and_text_cell"));
}

INSTANTIATE_TEST_SUITE_P(Scales, ImageAndTextCellSheet, testing::Values(1.F, 2.F),
    [](auto const& scale) { return scale.param == 2 ? "Twice" : "Once"; });

}
}
