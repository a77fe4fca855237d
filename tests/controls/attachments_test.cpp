#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXTextAttachmentCell.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

namespace plix {
namespace {

TEST(PLIXTextAttachmentCell, BeginsWithoutOffset)
{
    for (auto const& cell : { make<PLIXTextAttachmentCell>(), make<PLIXTextAttachmentCell>(std::string_view("text")),
             make<PLIXTextAttachmentCell>(imageOfColor({ 4, 4 }, colors::red)), make<PLIXTextAttachmentCell>(Ref<NSImage>()) }) {
        ASSERT_NE(cell, nullptr);
        EXPECT_EQ(cell->cellBaselineOffset(), (Point { 0, 0 }));
    }
}

TEST(PLIXTextAttachmentCell, ReportsTheOffsetUnlessItCentres)
{
    auto const cell = make<PLIXTextAttachmentCell>();
    cell->plixSetCellBaselineOffset({ 0, -3 });
    EXPECT_EQ(cell->cellBaselineOffset(), (Point { 0, -3 }));
    cell->plixSetCenterCellBaselineOffset(true);
    EXPECT_EQ(cell->cellBaselineOffset(), (Point { 0, 0 }));
    cell->plixSetCenterCellBaselineOffset(false);
    EXPECT_EQ(cell->cellBaselineOffset(), (Point { 0, -3 }));
}

TEST(NSTextAttachment, KnowsItsCellAndTheCellIt)
{
    auto const attachment = make<NSTextAttachment>();
    auto const first = Ref<NSTextAttachmentCell>(attachment->attachmentCell());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->attachment(), attachment.get());
    auto const second = make<NSTextAttachmentCell>(imageOfColor({ 4, 4 }, colors::red));
    attachment->setAttachmentCell(second);
    EXPECT_EQ(first->attachment(), nullptr);
    EXPECT_EQ(second->attachment(), attachment.get());
    attachment->setAttachmentCell(nullptr);
    EXPECT_EQ(attachment->inlineSize(), (Size { 0, 0 }));
}

TEST(NSTextAttachment, MayGoBeforeItsCell)
{
    auto const cell = make<NSTextAttachmentCell>(imageOfColor({ 4, 4 }, colors::red));
    make<NSTextAttachment>()->setAttachmentCell(cell);
    EXPECT_EQ(cell->attachment(), nullptr);
}

class TextWithAttachment : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    void drawRect(Rect) override { text->drawAtPoint({ 10, 10 }); }
    Ref<NSAttributedString> text;
};

class AttachmentTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        cell = make<PLIXTextAttachmentCell>(imageOfColor({ 12, 8 }, colors::red));
        attachment = make<NSTextAttachment>();
        attachment->setAttachmentCell(cell);
        auto const font = NSFont::systemFontOfSize(20);
        text = make<NSMutableAttributedString>("xx", Attributes { { NSFontAttributeName, font } });
        text->insertAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment), 1);
    }
    /// The rows that show the red image, first and last.
    std::pair<int, int> redRows()
    {
        auto const view = make<TextWithAttachment>(Rect { 0, 0, 100, 80 });
        view->text = make<NSAttributedString>(*text);
        Pixels const pixels(showWindowWith(view, { 100, 100, 100, 80 })->snapshot());
        std::pair<int, int> rows { 1000, -1 };
        for (int y = 0; y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x) {
                if (auto const color = pixels.colorAt(x, y); color.red > 0.98F && color.green < 0.02F)
                    rows = { std::min(rows.first, y), y };
            }
        }
        return rows;
    }

    Ref<PLIXTextAttachmentCell> cell;
    Ref<NSTextAttachment> attachment;
    Ref<NSMutableAttributedString> text;
};

TEST_F(AttachmentTest, TakesTheRoomOfItsImage)
{
    auto const font = NSFont::systemFontOfSize(20);
    auto const plain = make<NSAttributedString>("xx", Attributes { { NSFontAttributeName, font } });
    EXPECT_NEAR(text->size().width, plain->size().width + 12, 1);
}

TEST_F(AttachmentTest, StandsOnTheBaselineAndMovesAsTheHostSays)
{
    auto const standing = redRows();
    EXPECT_EQ(standing.second - standing.first + 1, 8);
    cell->plixSetCellBaselineOffset({ 0, -3 });
    auto const lower = redRows();
    EXPECT_EQ(lower.first, standing.first + 3);
    cell->plixSetCellBaselineOffset({ 0, 2 });
    EXPECT_EQ(redRows().first, standing.first - 2);
    cell->plixSetCenterCellBaselineOffset(true);
    EXPECT_EQ(redRows(), standing);
}

}
}
