#include <plix/format/collection_additions.h>

#include <plix/platform/base/NSData.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

using Array = ObjectValue::Array;

Ref<NSData> dataOf(std::uint8_t byte)
{
    return make<NSData>(std::vector<std::uint8_t> { byte });
}

TEST(ObjectsAtIndexes, GivesThemInAscendingOrder)
{
    Array const array { "a", "b", "c", "d", "e" };
    EXPECT_EQ(objectsAtIndexes(array, NSIndexSet { 4, 0, 2, 3 }), (Array { "a", "c", "d", "e" }));
    EXPECT_EQ(objectsAtIndexes(array, NSIndexSet {}), Array {});
    EXPECT_EQ(objectsAtIndexes(array, std::nullopt), Array {});
    EXPECT_THROW(objectsAtIndexes(array, NSIndexSet { 1, 5 }), NSRangeException);
    EXPECT_THROW(objectsAtIndexes(array, NSIndexSet { NSNotFound }), NSRangeException);
}

TEST(ObjectsAtIndexes, TakesArraysOfReferences)
{
    std::vector<Ref<NSData>> const array { dataOf(1), dataOf(2) };
    EXPECT_EQ(objectsAtIndexes(array, NSIndexSet { 1 }), (std::vector<Ref<NSData>> { array[1] }));
}

TEST(IndexesOfObjects, FindsByEqualityAndAddsNotFoundToo)
{
    auto const data = dataOf(7);
    Array const array { "a", 2, data, "a", ObjectValue() };
    EXPECT_EQ(indexesOfObjects(array, Array { "a", 2.0 }), (NSIndexSet { 0, 1 }));
    EXPECT_EQ(indexesOfObjects(array, Array { dataOf(7), nullptr }), (NSIndexSet { 2, 4 }));
    EXPECT_EQ(indexesOfObjects(array, Array { "z", "a" }), (NSIndexSet { 0, NSNotFound }));
    EXPECT_EQ(indexesOfObjects(array, nullptr), NSIndexSet {});
    EXPECT_EQ(indexesOfObjects(array, "a"), NSIndexSet {});
    EXPECT_EQ(indexesOfObjects(array, Array {}), NSIndexSet {});
}

TEST(IndexSetFromRowNumbers, TakesIntegersOfWhateverIsThere)
{
    EXPECT_EQ(indexSetFromRowNumbers(Array { 3, 1L, 1, 2.9, "5 rows", true, nullptr }), (NSIndexSet { 0, 1, 2, 3, 5 }));
    EXPECT_EQ(indexSetFromRowNumbers(Array { -1, -2147483648LL, 1 }), (NSIndexSet { 1 }));
    EXPECT_EQ(indexSetFromRowNumbers(Array { 1e300 }), (NSIndexSet { NSNotFound }));
    EXPECT_EQ(indexSetFromRowNumbers(Array {}), NSIndexSet {});
    EXPECT_EQ(indexSetFromRowNumbers(std::nullopt), NSIndexSet {});
}

TEST(InsertObjects, PutsAllOfThemInOrder)
{
    struct Row {
        std::optional<Array> objects;
        long index;
        Array result;
    };
    for (auto const& row : {
             Row { Array { "x", "y" }, 0, { "x", "y", "a", "b" } },
             Row { Array { "x", "y" }, 1, { "a", "x", "y", "b" } },
             Row { Array { "x", "y" }, 2, { "a", "b", "x", "y" } },
             Row { Array { "x", "y" }, 3, { "a", "b" } },
             Row { Array { "x", "y" }, -1, { "a", "b" } },
             Row { Array { "x", "y" }, NSNotFound, { "a", "b" } },
             Row { Array {}, 1, { "a", "b" } },
             Row { std::nullopt, 0, { "a", "b" } },
         }) {
        Array array { "a", "b" };
        insertObjects(array, row.objects, row.index);
        EXPECT_EQ(array, row.result) << row.index;
    }
}

TEST(RemoveObjectsInArray, GoesByIdentity)
{
    auto const one = dataOf(1);
    auto const twin = dataOf(1);
    auto const two = dataOf(2);
    std::vector<Ref<NSData>> array { one, twin, two, one, two, nullptr };
    removeObjectsInArray_Optimized(array, std::vector<Ref<NSData>> { one, two });
    EXPECT_EQ(array, (std::vector<Ref<NSData>> { twin, nullptr }));

    Array values { one, twin, "a", one };
    removeObjectsInArray_Optimized(values, Array { one });
    ASSERT_EQ(values.size(), 2U);
    EXPECT_EQ(values[0].object(), twin.get());
    EXPECT_EQ(values[1], "a");
}

TEST(RemoveObjectsInArray, LeavesTheRestAlone)
{
    Array array { "a", "b" };
    removeObjectsInArray_Optimized(array, std::nullopt);
    removeObjectsInArray_Optimized(array, Array {});
    removeObjectsInArray_Optimized(array, Array { "c" });
    EXPECT_EQ(array, (Array { "a", "b" }));
    auto const copy = array;
    removeObjectsInArray_Optimized(array, copy);
    EXPECT_EQ(array, Array {});
}

TEST(ReplaceObject, ReplacesTheFirstEqualOne)
{
    Array array { "a", "b", "a" };
    replaceObject(array, "a", "c");
    EXPECT_EQ(array, (Array { "c", "b", "a" }));
    std::vector<Ref<NSData>> references { dataOf(1), dataOf(2) };
    auto const fresh = dataOf(3);
    replaceObject(references, dataOf(2), fresh);
    EXPECT_EQ(references[1], fresh);
}

TEST(ReplaceObject, RaisesForAnObjectThatIsNotThere)
{
    Array array { "a" };
    EXPECT_THROW(replaceObject(array, "z", "c"), NSRangeException);
    EXPECT_EQ(array, (Array { "a" }));
}

}
}
