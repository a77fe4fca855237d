#include <plix/bitstream/PLIXBitstream.h>

#include <plix/bitstream/classes.h>

#include <tests/bitstream/reader_program.h>
#include <tests/bitstream/reference_reader.h>

#include <gtest/gtest.h>

#include <random>

namespace plix {
namespace {

using Bytes = std::vector<std::uint8_t>;
using test::ReferenceReader;

Ref<PLIXBitstream> readerOver(Bytes bytes)
{
    return make<PLIXBitstream>(make<NSData>(std::move(bytes)));
}

// "00100 1" to bytes, zeros behind; blanks only separate.
Bytes bytesOf(std::string_view bits)
{
    Bytes bytes;
    int count = 0;
    for (char const c : bits) {
        if (c == ' ')
            continue;
        if (count % 8 == 0)
            bytes.push_back(0);
        bytes.back() = static_cast<std::uint8_t>(bytes.back() | (c == '1') << (7 - count % 8));
        ++count;
    }
    return bytes;
}

Bytes randomBytes(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    Bytes bytes(count);
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

ReferenceReader referenceOver(Bytes const& bytes)
{
    ReferenceReader reference;
    reference.setData(bytes);
    return reference;
}

template <typename Call> std::optional<std::int64_t> outcome(Call call)
{
    try {
        return call();
    } catch (NSRangeException const&) {
        return {};
    }
}

TEST(PLIXBitstream, ReadsFieldsAndStopsAtTheEnd)
{
    auto const reader = readerOver({ 0xA5, 0x0F });
    EXPECT_EQ(reader->readBit(), 1);
    EXPECT_EQ(reader->readBit(), 0);
    EXPECT_EQ(reader->readBit(), 1);
    EXPECT_EQ(reader->readBit(), 0);
    EXPECT_EQ(reader->readBits(8), 0x50U);
    EXPECT_EQ(reader->readBits(8), 0xFU);
    EXPECT_EQ(reader->readBit(), 0);
    EXPECT_EQ(reader->location(), 16);
}

TEST(PLIXBitstream, HasTheWholeDataAsItsLength)
{
    auto const data = make<NSData>(Bytes { 1, 2, 3 });
    auto const reader = PLIXBitstream::bitstreamWithData(data);
    EXPECT_EQ(reader->data(), data);
    EXPECT_EQ(reader->location(), 0);
    EXPECT_EQ(reader->length(), 24);
}

TEST(PLIXBitstream, ReadsEveryWidthAtEveryOffsetAsTheDefinitionDoes)
{
    auto const bytes = randomBytes(23, 1);
    auto const reader = readerOver(bytes);
    auto reference = referenceOver(bytes);
    for (std::int64_t offset = -9; offset <= 23 * 8 + 3; ++offset) {
        for (std::int64_t width = -3; width <= 230; ++width) {
            reader->setLocation(offset);
            reference.setLocation(offset);
            auto const got = outcome([&] { return std::int64_t { reader->readBits(width) }; });
            auto const wanted = outcome([&] { return std::int64_t { reference.readBits(width) }; });
            ASSERT_EQ(got, wanted) << offset << " " << width;
            ASSERT_EQ(reader->location(), reference.location) << offset << " " << width;
        }
    }
}

TEST(PLIXBitstream, ReadsTwoFieldsInARowAsTheDefinitionDoes)
{
    for (std::size_t size = 0; size <= 18; ++size) {
        auto const bytes = randomBytes(size, 2);
        auto const reader = readerOver(bytes);
        auto reference = referenceOver(bytes);
        for (std::int64_t offset = 0; offset <= static_cast<std::int64_t>(size) * 8; ++offset) {
            for (std::int64_t first = 0; first <= 33; ++first) {
                for (std::int64_t second = 0; second <= 33; ++second) {
                    reader->setLocation(offset);
                    reference.setLocation(offset);
                    reader->readBits(first);
                    reference.readBits(first);
                    ASSERT_EQ(reader->readBits(second), reference.readBits(second)) << size << " " << offset << " " << first;
                    ASSERT_EQ(reader->location(), reference.location);
                }
            }
        }
    }
}

TEST(PLIXBitstream, HonoursEveryLengthShorterOrLongerThanTheData)
{
    auto const bytes = randomBytes(11, 3);
    for (std::int64_t length = -2; length <= 11 * 8 + 20; ++length) {
        for (std::int64_t offset = 0; offset <= 11 * 8 + 9; ++offset) {
            for (std::int64_t const width : { 1, 7, 8, 31, 32, 40 }) {
                auto const reader = readerOver(bytes);
                auto reference = referenceOver(bytes);
                reader->readBits(3); // so that a window is there when the length changes
                reader->setLength(length);
                reference.length = length;
                reader->setLocation(offset);
                reference.setLocation(offset);
                auto const got = outcome([&] { return std::int64_t { reader->readBits(width) }; });
                auto const wanted = outcome([&] { return std::int64_t { reference.readBits(width) }; });
                ASSERT_EQ(got, wanted) << length << " " << offset << " " << width;
                ASSERT_EQ(reader->location(), reference.location) << length << " " << offset << " " << width;
            }
        }
    }
}

TEST(PLIXBitstream, ShorteningTheLengthInMidReadTakesEffectAtOnce)
{
    auto const reader = readerOver(Bytes(16, 0xFF));
    EXPECT_EQ(reader->readBits(4), 0xFU);
    reader->setLength(6);
    EXPECT_EQ(reader->readBits(8), 0x3U);
    EXPECT_EQ(reader->readBit(), 0);
    EXPECT_EQ(reader->location(), 6);
    reader->setLength(9);
    EXPECT_EQ(reader->readBits(8), 0x7U);
}

TEST(PLIXBitstream, ReadingOutsideTheRealDataRaises)
{
    auto const reader = readerOver({ 0xFF, 0xFF });
    reader->setLength(100);
    EXPECT_THROW(reader->readBits(20), NSRangeException);
    EXPECT_EQ(reader->location(), 16);
    EXPECT_THROW(reader->readBit(), NSRangeException);
    reader->setLocation(-8);
    EXPECT_THROW(reader->readBit(), NSRangeException);
    EXPECT_EQ(reader->location(), -8);
    auto const empty = readerOver({});
    empty->setLength(1);
    EXPECT_THROW(empty->readBit(), NSRangeException);
}

TEST(PLIXBitstream, BitsBeforeTheFirstReadAsZero)
{
    auto const reader = readerOver({ 0xFF });
    reader->setLocation(-7);
    EXPECT_EQ(reader->readBits(9), 0x3U);
    EXPECT_EQ(reader->location(), 2);
}

TEST(PLIXBitstream, ReadsCodesOfEveryValueUpTo4000)
{
    std::string bits;
    for (unsigned value = 0; value <= 4000; ++value) {
        auto const width = static_cast<unsigned>(std::bit_width(value + 1));
        bits.append(width - 1, '0');
        for (unsigned i = width; i > 0; --i)
            bits += (value + 1) >> (i - 1) & 1 ? '1' : '0';
    }
    auto const reader = readerOver(bytesOf(bits));
    auto const skipping = readerOver(bytesOf(bits));
    for (unsigned value = 0; value <= 4000; ++value) {
        ASSERT_EQ(reader->readExpGolomb(), value);
        skipping->skipExpGolomb();
        ASSERT_EQ(skipping->location(), reader->location());
    }
}

TEST(PLIXBitstream, ReadsCodesOfEveryPrefixAtEveryOffsetAsTheDefinitionDoes)
{
    auto const suffix = randomBytes(24, 4);
    for (std::size_t offset = 0; offset < 9; ++offset) {
        for (std::size_t zeros = 0; zeros <= 140; ++zeros) {
            auto bytes = bytesOf(std::string(offset, '1') + std::string(zeros, '0') + '1');
            bytes.insert(bytes.end(), suffix.begin(), suffix.end());
            auto const reader = readerOver(bytes);
            auto reference = referenceOver(bytes);
            reader->readBits(static_cast<std::int64_t>(offset));
            reference.readBits(static_cast<std::int64_t>(offset));
            ASSERT_EQ(reader->readExpGolomb(), reference.readExpGolomb()) << offset << " " << zeros;
            ASSERT_EQ(reader->location(), reference.location) << offset << " " << zeros;
            reader->setLocation(static_cast<std::int64_t>(offset));
            reference.setLocation(static_cast<std::int64_t>(offset));
            ASSERT_EQ(reader->readSignedExpGolomb(), reference.readSignedExpGolomb()) << offset << " " << zeros;
            reader->setLocation(static_cast<std::int64_t>(offset));
            reference.setLocation(static_cast<std::int64_t>(offset));
            reader->skipExpGolomb();
            reference.skipExpGolomb();
            ASSERT_EQ(reader->location(), reference.location) << offset << " " << zeros;
        }
    }
}

TEST(PLIXBitstream, ReadsTheFirstCodes)
{
    struct Row {
        char const* bits;
        std::uint32_t code;
        std::int32_t signedCode;
    };
    for (auto const& row : {
             Row { "1", 0, 0 },
             Row { "010", 1, 1 },
             Row { "011", 2, -1 },
             Row { "00100", 3, 2 },
             Row { "00101", 4, -2 },
             Row { "00110", 5, 3 },
             Row { "00111", 6, -3 },
             Row { "0001000", 7, 4 },
             Row { "00000000000000000000000000000001 1111111111111111111111111111111", 0xFFFFFFFE, -0x7FFFFFFF },
             // 32 zeros: the shift wraps to 1, the 32 bits behind are the code. Its successor needs 33 bits.
             Row { "000000000000000000000000000000001 11111111111111111111111111111111", 0xFFFFFFFF, INT32_MIN },
             Row { "000000000000000000000000000000001 00000000000000000000000000000101", 5, 3 },
         }) {
        EXPECT_EQ(readerOver(bytesOf(row.bits))->readExpGolomb(), row.code) << row.bits;
        EXPECT_EQ(readerOver(bytesOf(row.bits))->readSignedExpGolomb(), row.signedCode) << row.bits;
    }
}

TEST(PLIXBitstream, ACodeWithoutItsFirstOneRaisesAtTheEnd)
{
    for (std::size_t size = 0; size <= 20; ++size) {
        auto const reader = readerOver(Bytes(size, 0));
        EXPECT_THROW(reader->readExpGolomb(), NSRangeException);
        EXPECT_EQ(reader->location(), static_cast<std::int64_t>(size) * 8);
        EXPECT_THROW(reader->skipExpGolomb(), NSRangeException);
        EXPECT_THROW(reader->readSignedExpGolomb(), NSRangeException);
    }
    auto const beyondData = readerOver({ 0, 0 });
    beyondData->setLength(1000);
    EXPECT_THROW(beyondData->readExpGolomb(), NSRangeException);
    EXPECT_EQ(beyondData->location(), 16);
    auto const shortened = readerOver({ 0, 1 });
    shortened->setLength(15);
    EXPECT_THROW(shortened->readExpGolomb(), NSRangeException);
    EXPECT_EQ(shortened->location(), 15);
}

TEST(PLIXBitstream, ACodeThatEndsEarlyTakesTheBitsThatAreLeft)
{
    auto const reader = readerOver(bytesOf("0000 0001"));
    EXPECT_EQ(reader->readExpGolomb(), 127U);
    EXPECT_EQ(reader->location(), 8);
    auto const skipping = readerOver(bytesOf("0000 0001"));
    skipping->skipExpGolomb();
    EXPECT_EQ(skipping->location(), 7);
}

TEST(PLIXBitstream, SkippingPastTheEndStopsOnTheLastBit)
{
    auto const reader = readerOver({ 0x00, 0x01 });
    reader->skipBits(100);
    EXPECT_EQ(reader->location(), 15);
    EXPECT_EQ(reader->readBit(), 1);
    EXPECT_EQ(reader->location(), 16);
    reader->skipBits(0);
    EXPECT_EQ(reader->location(), 15);
}

TEST(PLIXBitstream, SkipsEveryCountFromEveryLocationAsTheDefinitionDoes)
{
    auto const bytes = randomBytes(13, 5);
    auto const reader = readerOver(bytes);
    auto reference = referenceOver(bytes);
    for (std::int64_t offset = -3; offset <= 13 * 8 + 3; ++offset) {
        for (std::int64_t count = -120; count <= 120; ++count) {
            reader->setLocation(offset);
            reference.setLocation(offset);
            reader->readBit();
            reference.readBit();
            reader->skipBits(count);
            reference.skipBits(count);
            ASSERT_EQ(reader->location(), reference.location) << offset << " " << count;
            auto const got = outcome([&] { return reader->readBit(); });
            auto const wanted = outcome([&] { return reference.readBit(); });
            ASSERT_EQ(got, wanted) << offset << " " << count;
        }
    }
}

TEST(PLIXBitstream, SkipsOfBytesMultiplyIn32Bits)
{
    auto const reader = readerOver(randomBytes(64, 6));
    reader->skipBytes(3);
    EXPECT_EQ(reader->location(), 24);
    reader->skipByte();
    reader->skipBit();
    EXPECT_EQ(reader->location(), 33);
    reader->skipBytes(-5);
    EXPECT_EQ(reader->location(), -7);
    reader->skipBytes(0x20000001);
    EXPECT_EQ(reader->location(), 1);
    reader->skipBytes(0x10000000);
    EXPECT_EQ(reader->location(), 1 - 0x80000000LL);
}

TEST(PLIXBitstream, ReadsTheLastFourOfSeveralBytes)
{
    struct Row {
        std::int32_t count;
        std::uint32_t value;
        std::int64_t location;
    };
    for (auto const& row : {
             Row { 6, 0x03040506, 48 },
             Row { 5, 0x02030405, 40 },
             Row { 4, 0x01020304, 32 },
             Row { 2, 0x01020304, 32 },
             Row { 0, 0x01020304, 32 },
             Row { 8, 0x05060000, 48 },
         }) {
        auto const reader = readerOver({ 1, 2, 3, 4, 5, 6 });
        EXPECT_EQ(reader->readBytes(row.count), row.value) << row.count;
        EXPECT_EQ(reader->location(), row.location) << row.count;
    }
    // Unsigned, -3 is more than 4: it skips 7 bytes backwards.
    auto const reader = readerOver({ 1, 2, 3, 4, 5, 6 });
    EXPECT_THROW(reader->readBytes(-3), NSRangeException);
    EXPECT_EQ(reader->location(), -56);
}

TEST(PLIXBitstream, ReadsBytesAtEveryOffset)
{
    auto const bytes = randomBytes(9, 7);
    for (std::int64_t offset = 0; offset <= 72; ++offset) {
        auto const reader = readerOver(bytes);
        auto reference = referenceOver(bytes);
        reader->setLocation(offset);
        reference.setLocation(offset);
        ASSERT_EQ(reader->readByte(), reference.readByte()) << offset;
        ASSERT_EQ(reader->readBytes(4), reference.readBytes(4)) << offset;
        ASSERT_EQ(reader->location(), reference.location) << offset;
    }
}

TEST(PLIXBitstream, WithoutDataReportsMinusOneAndReadsZero)
{
    for (auto const& reader : { make<PLIXBitstream>(), make<PLIXBitstream>(Ref<NSData>()) }) {
        reader->setLocation(5);
        reader->setLength(64);
        EXPECT_EQ(reader->location(), -1);
        EXPECT_EQ(reader->length(), -1);
        EXPECT_EQ(reader->readBit(), 0);
        EXPECT_EQ(reader->readBits(20), 0U);
        EXPECT_EQ(reader->readBits(INT64_MAX), 0U);
        EXPECT_EQ(reader->readBytes(9), 0U);
        EXPECT_THROW(reader->readExpGolomb(), NSRangeException);
    }
}

TEST(PLIXBitstream, TakingTheDataAwayKeepsWhereItWas)
{
    auto const data = make<NSData>(Bytes { 0xFF, 0x00, 0xFF });
    auto const reader = make<PLIXBitstream>(data);
    reader->readBits(12);
    reader->setData(nullptr);
    EXPECT_EQ(reader->location(), -1);
    EXPECT_EQ(reader->length(), -1);
    EXPECT_EQ(reader->readBits(8), 0U);
    reader->setLocation(3);
    reader->skipBits(2);
    reader->setLength(20);
    reader->setData(data);
    EXPECT_EQ(reader->location(), 0);
    EXPECT_EQ(reader->length(), 24);
    EXPECT_EQ(reader->readBits(9), 0x1FEU);
}

TEST(PLIXBitstream, KeepsItsDataAlive)
{
    auto reader = readerOver({ 0x80 });
    EXPECT_EQ(reader->readBit(), 1);
    auto const copy = reader->copy();
    reader = nullptr;
    EXPECT_EQ(copy->location(), 1);
    EXPECT_EQ(copy->length(), 8);
    copy->setLocation(0);
    EXPECT_EQ(copy->readByte(), 0x80);
}

TEST(PLIXBitstream, ACopyReadsOnItsOwn)
{
    auto const reader = readerOver(randomBytes(16, 8));
    reader->readBits(9);
    reader->setLength(100);
    auto const copy = reader->copy();
    copy->readBits(30);
    EXPECT_EQ(reader->location(), 9);
    EXPECT_EQ(copy->location(), 39);
    EXPECT_EQ(copy->length(), 100);
}

TEST(PLIXBitstream, LengthsWrapIn32Bits)
{
    // 512 MiB are 2^32 bits.
    auto const reader = readerOver(Bytes((512U << 20) + 1));
    EXPECT_EQ(reader->length(), 8);
}

TEST(PLIXBitstream, ExtremeLocationsAndLengthsWrap)
{
    auto const reader = readerOver({ 0xFF });
    reader->setLength(INT64_MIN);
    reader->skipBits(1);
    EXPECT_EQ(reader->location(), INT64_MAX);
    reader->setLength(INT64_MAX);
    reader->setLocation(INT64_MIN);
    EXPECT_EQ(reader->readBits(8), 0U);
    EXPECT_EQ(reader->location(), INT64_MIN);
}

TEST(PLIXBitstream, IsKnownByItsName)
{
    registerBitstreamClasses();
    auto const* described = NSClassFromString("PLIXBitstream");
    ASSERT_TRUE(described);
    EXPECT_TRUE(as<PLIXBitstream>(described->makeObject()));
}

TEST(PLIXBitstream, RunsAnyProgramAsTheDefinitionDoes)
{
    std::mt19937 random(9);
    for (int round = 0; round < 30000; ++round) {
        Bytes input(2 + random() % 160);
        auto const sparse = random() % 3 == 0;
        for (std::size_t i = 0; i < input.size(); ++i)
            input[i] = static_cast<std::uint8_t>(sparse && i < input.size() / 2 && random() % 8 ? 0 : random());
        auto const difference = test::ReaderProgram(input).run();
        ASSERT_EQ(difference, std::nullopt) << "round " << round;
    }
}

}
}
