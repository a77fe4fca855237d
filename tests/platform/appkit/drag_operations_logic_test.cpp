#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/drag_operation.h>
#include <plix/platform/appkit/drag_operations.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr unsigned copy = NSDragOperationCopy;
constexpr unsigned move = NSDragOperationMove;
constexpr unsigned link = NSDragOperationLink;
constexpr unsigned generic = NSDragOperationGeneric;

TEST(DragOperations, ModifiersNarrowWhatTheSourceAllows)
{
    struct Row {
        unsigned source;
        unsigned modifiers;
        unsigned expected;
    };
    constexpr Row rows[] = {
        { NSDragOperationEvery, 0, NSDragOperationEvery },
        { copy | move, NSShiftKeyMask, move },
        { copy | move | generic, NSShiftKeyMask, move | generic },
        { copy | move, NSControlKeyMask, copy },
        { copy | move, NSAlternateKeyMask, copy },
        { NSDragOperationEvery, NSShiftKeyMask | NSControlKeyMask, link },
        { move, NSControlKeyMask, NSDragOperationNone },
        { NSDragOperationNone, 0, NSDragOperationNone },
    };
    for (auto const& row : rows)
        EXPECT_EQ(dragOperationMask(row.source, row.modifiers), row.expected) << row.source << " " << row.modifiers;
}

TEST(DragOperations, OneOperationComesOfTheAnswer)
{
    EXPECT_EQ(chosenDragOperation(NSDragOperationEvery, NSDragOperationEvery), move);
    EXPECT_EQ(chosenDragOperation(copy | link, NSDragOperationEvery), copy);
    EXPECT_EQ(chosenDragOperation(generic | copy, generic | copy), generic);
    EXPECT_EQ(chosenDragOperation(copy, move), NSDragOperationNone);
    EXPECT_EQ(chosenDragOperation(NSDragOperationDelete, NSDragOperationEvery), NSDragOperationDelete);
    EXPECT_EQ(chosenDragOperation(NSDragOperationNone, NSDragOperationEvery), NSDragOperationNone);
}

}
}
