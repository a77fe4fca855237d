#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/archive_bytes.h>

#include <gtest/gtest.h>

#include <random>

namespace plix {
namespace {

class Shape : public NSObject {
    PLIX_CLASS(Shape, NSObject);

public:
    bool init() { return true; }
    bool init(NSCoder& coder)
    {
        sides = coder.decodeIntForKey("sides");
        name = coder.decodeStringForKey("name");
        first = coder.decodeObject().intValue();
        other = coder.decodeForKey<Shape>("other");
        return name != "refused";
    }
    void encodeWithCoder(NSCoder& coder) const override
    {
        Base::encodeWithCoder(coder);
        coder.encodeObject(first);
        coder.encodeObject("left unread");
        coder.encodeInt(sides, "sides");
        coder.encodeObject(name, "name");
        coder.encodeObject(other, "other");
    }

    int sides { 0 };
    int first { 0 };
    std::string name;
    Ref<Shape> other;
};

PLIX_DESCRIBE(Shape)
{
}

class Tinted final : public Shape {
    PLIX_CLASS(Tinted, Shape);

public:
    using Shape::init;
    bool init(NSCoder& coder)
    {
        if (!Base::init(coder))
            return false;
        for (auto& part : parts)
            part = coder.decodeObject().description();
        return true;
    }
    void encodeWithCoder(NSCoder& coder) const override
    {
        Base::encodeWithCoder(coder);
        for (auto const& part : parts)
            coder.encodeObject(part);
    }
    std::string parts[2];
};

PLIX_DESCRIBE(Tinted)
{
}

class Undescribed final : public NSObject { };

class NSArchiverTest : public testing::Test {
protected:
    NSArchiverTest()
    {
        Shape::staticClass();
        Tinted::staticClass();
        m_sink = installLogSink([this](std::string_view line) { m_lines.emplace_back(line); });
    }
    ~NSArchiverTest() override { installLogSink(m_sink); }

    static std::optional<ObjectValue> roundTrip(ObjectValue const& value)
    {
        return NSUnarchiver::unarchiveObjectWithData(*NSArchiver::archivedDataWithRootObject(value));
    }

    LogSink m_sink;
    std::vector<std::string> m_lines;
};

TEST_F(NSArchiverTest, EveryKindOfValueComesBack)
{
    ObjectValue const value(ObjectValue::Dictionary {
        { "nil", {} },
        { "truth", true },
        { "integer", -5 },
        { "large", 0x123456789ABCDEFL },
        { "double", 0.1 },
        { "text", "h\xC3\xA9llo" },
        { "date", NSDate { 12.5 } },
        { "bytes", make<NSData>(std::vector<std::uint8_t> { 0, 255 }) },
        { "array", ObjectValue::Array { 1, "two", ObjectValue::Array {} } },
    });
    auto const back = roundTrip(value);
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, value);
    EXPECT_TRUE(back->dictionary()->at("truth").isBool());
}

TEST_F(NSArchiverTest, ObjectsKeepTheirClassKeysAndSequence)
{
    auto const shape = make<Tinted>();
    shape->sides = 3;
    shape->first = 9;
    shape->name = "triangle";
    auto const back = roundTrip(shape);
    ASSERT_TRUE(back);
    auto const tinted = back->as<Tinted>();
    ASSERT_TRUE(tinted);
    EXPECT_EQ(tinted->sides, 3);
    EXPECT_EQ(tinted->first, 9);
    EXPECT_EQ(tinted->name, "triangle");
}

TEST_F(NSArchiverTest, ASubclassReadsItsSequenceBehindWhatItsBaseRead)
{
    auto const shape = make<Tinted>();
    shape->parts[0] = "a";
    shape->parts[1] = "b";
    auto const tinted = roundTrip(shape)->as<Tinted>();
    EXPECT_EQ(tinted->parts[0], "left unread"); // one sequence an object: the base leaves its second value to whoever reads next
    EXPECT_EQ(tinted->parts[1], "a");
}

TEST_F(NSArchiverTest, AnObjectMetTwiceStaysOneAndCirclesClose)
{
    auto const first = make<Shape>();
    auto const second = make<Shape>();
    first->other = second;
    second->other = first;
    auto const back = roundTrip(ObjectValue::Array { first, second, first });
    ASSERT_TRUE(back);
    auto const& array = *back->array();
    EXPECT_EQ(array[0].object(), array[2].object());
    EXPECT_EQ(array[0].as<Shape>()->other.get(), array[1].object());
    EXPECT_EQ(array[1].as<Shape>()->other.get(), array[0].object());
    first->other = nullptr;
    array[0].as<Shape>()->other = nullptr;
}

TEST_F(NSArchiverTest, AnObjectThatCannotBeReadIsWrittenAsNil)
{
    auto const back = roundTrip(ObjectValue::Array { make<Undescribed>(), 1 });
    ASSERT_TRUE(back);
    EXPECT_TRUE((*back->array())[0].isNil());
    EXPECT_EQ((*back->array())[1], 1);
}

TEST_F(NSArchiverTest, AnInitThatAnswersNilLeavesNil)
{
    auto const shape = make<Shape>();
    shape->name = "refused";
    auto const back = roundTrip(ObjectValue::Array { shape });
    ASSERT_TRUE(back);
    EXPECT_TRUE((*back->array())[0].isNil());
}

TEST_F(NSArchiverTest, AnUnknownClassIsRefusedWithOneLine)
{
    ArchiveTree tree;
    tree.objects.push_back({ "NoSuchClass", {}, {} });
    tree.root = { ArchiveReference { 0 } };
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(*make<NSData>(archiveBytes(tree))));
    EXPECT_EQ(m_lines, std::vector<std::string> { "archive refused: unknown class 'NoSuchClass'" });
}

TEST_F(NSArchiverTest, EveryFlippedBitAndEveryCutIsRefused)
{
    auto const shape = make<Shape>();
    shape->name = "square";
    auto const archive = NSArchiver::archivedDataWithRootObject(shape);
    auto const bytes = archive->bytes();
    for (std::size_t i = 0; i < bytes.size() * 8; ++i) {
        std::vector<std::uint8_t> damaged(bytes.begin(), bytes.end());
        damaged[i / 8] ^= static_cast<std::uint8_t>(1U << i % 8);
        ASSERT_FALSE(NSUnarchiver::unarchiveObjectWithData(*make<NSData>(damaged))) << i;
    }
    for (std::size_t length = 0; length < bytes.size(); ++length)
        ASSERT_FALSE(NSUnarchiver::unarchiveObjectWithData(*make<NSData>(bytes.first(length)))) << length;
}

TEST_F(NSArchiverTest, DeepNestingIsRefused)
{
    ArchiveTree tree;
    for (int i = 0; i < 100; ++i)
        tree.root = { ArchiveNode::Array { tree.root } };
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(*make<NSData>(archiveBytes(tree))));
    EXPECT_EQ(m_lines, std::vector<std::string> { "archive refused: damaged" });
}

TEST_F(NSArchiverTest, AChainOfObjectsBeyondTheBoundIsRefused)
{
    auto head = make<Shape>();
    for (int i = 0; i < 2000; ++i) {
        auto const next = make<Shape>();
        next->other = head;
        head = next;
    }
    EXPECT_FALSE(roundTrip(head));
    EXPECT_EQ(m_lines, std::vector<std::string> { "archive refused: objects nested too deeply" });
}

}
}
