#include <plix/inspector/overlay_plan.h>
#include <plix/inspector/view_fields.h>

#include <plix/platform/appkit/view_geometry.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr Rect everywhere { 0, 0, 400, 300 };

TEST(ViewFields, SayWhatAViewIs)
{
    ViewFacts facts;
    facts.className = "NSView";
    facts.frame = { 20, 30, 80, 24.5F };
    facts.bounds = { 0, -5, 80, 24.5F };
    facts.inWindow = { 40, 60, 80, 24.5F };
    facts.isFlipped = true;
    facts.toolTip = "Says\nmore";
    facts.autoresizingMask = NSViewWidthSizable | NSViewMinYMargin;
    EXPECT_THAT(fieldRows(facts),
        ElementsAre(FieldRow { "Class", "NSView" }, FieldRow { "Frame", "20, 30   80 × 24.5" },
            FieldRow { "Bounds", "0, -5   80 × 24.5" }, FieldRow { "In window", "40, 60   80 × 24.5" }, FieldRow { "Hidden", "No" },
            FieldRow { "Flipped", "Yes" }, FieldRow { "Opaque", "No" }, FieldRow { "First responder", "No" },
            FieldRow { "Tag", "-1" }, FieldRow { "Tool tip", "Says more" }, FieldRow { "Autoresizing", "Width, Min Y Margin" },
            FieldRow { "Next key view", "None" }));
}

TEST(ViewFields, SayWhatACellIs)
{
    ViewFacts facts;
    facts.isHidden = facts.isOpaque = facts.isFirstResponder = true;
    facts.isEnabled = false;
    facts.tag = 7;
    facts.nextKeyView = "NSButton \"OK\"";
    facts.cell = CellFacts { "NSButtonCell", "On", 1, "Inter", 13 };
    auto const rows = fieldRows(facts);
    auto const has = [&](FieldRow const& row) { return std::ranges::find(rows, row) != rows.end(); };
    for (auto const& row : { FieldRow { "Hidden", "Yes" }, FieldRow { "Opaque", "Yes" }, FieldRow { "First responder", "Yes" },
             FieldRow { "Enabled", "No" }, FieldRow { "Tag", "7" }, FieldRow { "Next key view", "NSButton \"OK\"" },
             FieldRow { "Cell", "NSButtonCell" }, FieldRow { "Cell value", "On" }, FieldRow { "Cell state", "On" },
             FieldRow { "Cell font", "Inter 13" } })
        EXPECT_TRUE(has(row)) << row.name;
    facts.cell = CellFacts { "NSCell", "", -1, "", 0 };
    EXPECT_THAT(fieldRows(facts), testing::Contains(FieldRow { "Cell state", "Mixed" }));
    EXPECT_THAT(fieldRows(facts), testing::Contains(FieldRow { "Cell font", "None" }));
}

TEST(ViewFields, NameNothingThatGivesWay)
{
    EXPECT_EQ(autoresizingText(0), "None");
    EXPECT_EQ(autoresizingText(63), "Min X Margin, Width, Max X Margin, Min Y Margin, Height, Max Y Margin");
}

TEST(ViewFields, NameTypesShortly)
{
    struct {
        char const* full;
        char const* shown;
    } const rows[] {
        { "plix::NSView", "NSView" },
        { "NSView", "NSView" },
        { "(anonymous namespace)::Form", "Form" },
        { "plix::(anonymous namespace)::Fixed<plix::NSTableView>", "Fixed<NSTableView>" },
        { "a::Pair<b::One, c::Two<d::Three> >", "Pair<One, Two<Three> >" },
        { "a::Outer<b::One>::Inner", "Inner" },
        { "plix::test::body(int, std::vector<int>)::Local", "Local" },
        { "plix::Test::body() const::Local", "Local" },
        { "plix::Test::body()::{lambda(int)#1}::operator()(int) const::Local", "Local" },
        { "", "" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(shortTypeName(row.full), row.shown) << row.full;
}

TEST(ViewNode, IsCalledByClassAndTitle)
{
    ViewNode node { 1, "NSButton", "", {}, false, {} };
    EXPECT_EQ(nodeTitle(node), "NSButton");
    node.title = "OK\tthen";
    EXPECT_EQ(nodeTitle(node), "NSButton \"OK then\"");
    node.title = std::string(39, 'x') + "ää";
    EXPECT_EQ(nodeTitle(node), "NSButton \"" + std::string(39, 'x') + "ä…\"");
}

TEST(ViewNode, IsFoundByTheWayToIt)
{
    ViewNode const top { 1, "a", "", {}, false,
        { { 2, "b", "", {}, false, {} }, { 3, "c", "", {}, false, { { 4, "d", "", {}, false, {} } } } } };
    auto const path = pathToView(top, 4);
    ASSERT_THAT(path, SizeIs(3));
    EXPECT_EQ(path[0]->className + path[1]->className + path[2]->className, "acd");
    EXPECT_THAT(pathToView(top, 5), IsEmpty());
}

TEST(OverlayPlan, OutlinesInsideTheRectangle)
{
    EXPECT_THAT(outlineEdges({ 10, 20, 30, 40 }, everywhere),
        ElementsAre(Rect { 10, 20, 30, 1 }, Rect { 10, 21, 1, 38 }, Rect { 39, 21, 1, 38 }, Rect { 10, 59, 30, 1 }));
    EXPECT_THAT(outlineEdges({ 10, 20, 30, 40 }, { 0, 0, 20, 300 }),
        ElementsAre(Rect { 10, 20, 10, 1 }, Rect { 10, 21, 1, 38 }, Rect { 10, 59, 10, 1 }));
    EXPECT_THAT(outlineEdges({ 10, 20, 1, 1 }, everywhere), ElementsAre(Rect { 10, 20, 1, 1 }));
    EXPECT_THAT(outlineEdges({ 10, 20, 30, 0.5F }, everywhere), ElementsAre(Rect { 10, 20, 30, 0.5F }));
    EXPECT_THAT(outlineEdges({ 10, 20, 0, 0 }, everywhere), IsEmpty());
}

TEST(OverlayPlan, CoversTheInsideOfWhatIsTintedOnly)
{
    OverlayShape shape { OverlayRole::selection, { 10, 20, 100, 100 }, everywhere };
    EXPECT_TRUE(overlayArea({ &shape, 1 }).contains(shape.rect));
    shape.role = OverlayRole::hover;
    EXPECT_TRUE(overlayArea({ &shape, 1 }).contains(shape.rect));
    shape.role = OverlayRole::frame;
    EXPECT_FALSE(overlayArea({ &shape, 1 }).intersects({ 40, 50, 10, 10 }));
    EXPECT_TRUE(overlayArea({ &shape, 1 }).contains({ 10, 20, 100, 1 }));
    shape.role = OverlayRole::ancestor;
    EXPECT_FALSE(overlayArea({ &shape, 1 }).intersects({ 40, 50, 10, 10 }));
}

TEST(DirtyFlashes, LastAThirdOfASecondEach)
{
    DirtyFlashes flashes;
    Region first;
    first.add({ 0, 0, 10, 10 });
    Region second;
    second.add({ 100, 0, 10, 10 });
    flashes.add(first, 5);
    flashes.add(second, 5.2);
    flashes.add({}, 5.2);
    EXPECT_DOUBLE_EQ(flashes.nextExpiry(), 5 + 1.0 / 3);
    EXPECT_TRUE(flashes.area().contains({ 0, 0, 10, 10 }));
    EXPECT_TRUE(flashes.takeExpired(5.3).isEmpty());
    EXPECT_EQ(flashes.takeExpired(5 + 1.0 / 3), first);
    EXPECT_EQ(flashes.area(), second);
    EXPECT_DOUBLE_EQ(flashes.nextExpiry(), 5.2 + 1.0 / 3);
    EXPECT_EQ(flashes.takeExpired(6), second);
    EXPECT_TRUE(flashes.isEmpty());
}

TEST(OverlayPlan, KnowsWhatIsStaleBehindAMove)
{
    Region drawn;
    drawn.add({ 10, 10, 10, 10 });
    auto const stale = staleAfterMove(drawn, { 0, 0, 100, 100 }, { 0, 40 });
    EXPECT_TRUE(stale.contains({ 10, 10, 10, 10 }));
    EXPECT_TRUE(stale.contains({ 10, 50, 10, 10 }));
    EXPECT_FALSE(stale.intersects({ 0, 70, 100, 30 }));
    // What would go outside stays behind.
    EXPECT_FALSE(staleAfterMove(drawn, { 0, 0, 100, 40 }, { 0, 35 }).intersects({ 0, 40, 100, 60 }));
    EXPECT_TRUE(staleAfterMove(drawn, { 50, 0, 50, 100 }, { 0, 40 }).isEmpty());
}

}
}
