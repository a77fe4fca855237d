#include "BitWriter.h"

#include <examples/browser/csv_preview.h>
#include <examples/browser/file_facts.h>
#include <examples/browser/video_headers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include <sys/stat.h>

namespace browser {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

TEST(FileFacts, SayWhatIsKnownOfAnyFile)
{
    FolderEntry file;
    file.name = file.shownName = "report.txt";
    file.size = 1'572'864;
    auto const facts = factsOf(file, "/home/me/texts", "/home/me");
    ASSERT_EQ(facts.size(), 4U);
    EXPECT_EQ(facts[0], (FileFact { "Kind", "TXT file" }));
    EXPECT_EQ(facts[1], (FileFact { "Size", "1.5MB (1,572,864 bytes)" }));
    EXPECT_EQ(facts[2], (FileFact { "Where", "~/texts" }));
    EXPECT_EQ(facts[3], (FileFact { "Modified", dateText(file) }));
    file.kind = EntryKind::folder;
    auto const ofFolder = factsOf(file, "/", "/home/me");
    ASSERT_EQ(ofFolder.size(), 3U);
    EXPECT_EQ(ofFolder[0], (FileFact { "Kind", "Folder" }));
}

TEST(FileFacts, WriteSizesShortAndExact)
{
    struct Row {
        std::uint64_t bytes;
        char const* text;
    };
    for (auto const& row : { Row { 0, "0 bytes" }, { 1023, "1023 bytes" }, { 1024, "1.0KB (1,024 bytes)" },
             { 1'048'576, "1.0MB (1,048,576 bytes)" }, { 123'456'789'012, "115.0GB (123,456,789,012 bytes)" } })
        EXPECT_EQ(exactSizeText(row.bytes), row.text);
}

TEST(FileFacts, WriteDurationsAsWordsAndAsAClock)
{
    EXPECT_EQ(durationText(65), "1 minute, 5 seconds (00:01:05)");
    EXPECT_EQ(durationText(3600.9), "1 hour (01:00:00)");
    EXPECT_EQ(durationText(0.4), "less than a second");
    EXPECT_EQ(durationText(-1), "less than a second");
}

/// A sequence parameter set in the way that High profile writes it, of 120 by 68 macroblocks.
struct SequenceSet {
    int profile { 100 };
    int level { 41 };
    int chroma { 1 };
    int separatePlanes { 0 };
    int framesOnly { 1 };
    int mapUnits { 68 };
    int cropBottom { 4 };
    unsigned tick { 1 };
    unsigned timeScale { 50 };

    Bytes bytes() const
    {
        h264::BitWriter bits;
        bits.u(0x67, 8);
        bits.u(profile, 8);
        bits.u(0, 8);
        bits.u(level, 8);
        bits.ue(0);
        if (profile >= 100) {
            bits.ue(chroma);
            if (chroma == 3)
                bits.u(separatePlanes, 1);
            bits.ue(0);
            bits.ue(0);
            bits.u(0, 2);
        }
        bits.ue(0); // log2_max_frame_num_minus4
        bits.ue(2); // pic_order_cnt_type
        bits.ue(4);
        bits.u(0, 1);
        bits.ue(119);
        bits.ue(mapUnits - 1);
        bits.u(framesOnly, 1);
        if (framesOnly == 0)
            bits.u(0, 1);
        bits.u(1, 1);
        bits.u(1, 1);
        for (int const crop : { 0, 0, 0, cropBottom })
            bits.ue(crop);
        bits.u(1, 1); // vui_parameters_present_flag
        bits.u(0, 4);
        bits.u(tick > 0 ? 1 : 0, 1);
        if (tick > 0) {
            bits.u(tick, 32);
            bits.u(timeScale, 32);
            bits.u(1, 1);
        }
        bits.u(0, 4);
        bits.u(1, 1);
        return withEmulationPrevention(bits.bytes());
    }

    static Bytes withEmulationPrevention(Bytes const& plain)
    {
        Bytes bytes;
        for (auto const byte : plain) {
            bool const isCode = bytes.size() > 1 && bytes.back() == 0 && bytes[bytes.size() - 2] == 0 && byte <= 3;
            if (isCode)
                bytes.push_back(3);
            bytes.push_back(byte);
        }
        return bytes;
    }
};

Bytes operator+(Bytes a, Bytes const& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Bytes big(std::uint64_t value, int count)
{
    Bytes bytes;
    while (count-- > 0)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * count)));
    return bytes;
}

Bytes text(std::string_view letters)
{
    return Bytes(letters.begin(), letters.end());
}

Bytes box(std::string_view type, Bytes const& content)
{
    return big(content.size() + 8, 4) + text(type) + content;
}

Bytes const startCode { 0, 0, 0, 1 };

Bytes configuration(Bytes const& set)
{
    return Bytes { 1, 100, 0, 41, 0xFF, 0xE1 } + big(set.size(), 2) + set + Bytes { 1, 0, 2, 0x68, 0xCE };
}

Bytes movie(Bytes const& configurationBox)
{
    auto const entry = box("avc1", Bytes(78) + box("btrt", Bytes(12)) + configurationBox);
    auto const description = box("stsd", Bytes(8) + entry);
    auto const video = box("trak", box("tkhd", Bytes(20)) + box("mdia", box("minf", box("stbl", description))));
    auto const sound = box("trak", box("mdia", box("minf", box("stbl", box("stsd", Bytes(8) + box("mp4a", Bytes(40)))))));
    return box("ftyp", text("isom")) + box("moov", sound + video) + box("mdat", Bytes(100));
}

ReadAt reader(Bytes const& bytes)
{
    return [&bytes](std::uint64_t place, std::span<std::uint8_t> into) {
        auto const count = place < bytes.size() ? std::min(into.size(), bytes.size() - static_cast<std::size_t>(place)) : 0;
        std::copy_n(bytes.begin() + static_cast<long>(place), count, into.begin());
        return count;
    };
}

Bytes headersOf(Bytes const& file)
{
    return videoHeaders(file.size(), reader(file));
}

TEST(VideoHeaders, AreTheBeginningOfAByteStream)
{
    auto const stream = startCode + SequenceSet {}.bytes();
    EXPECT_EQ(headersOf(stream), stream);
    EXPECT_EQ(headersOf(Bytes(stream.begin() + 1, stream.end())), Bytes(stream.begin() + 1, stream.end()));
}

TEST(VideoHeaders, AreFoundInMovies)
{
    auto const set = SequenceSet {}.bytes();
    auto const expected = startCode + set + startCode + Bytes { 0x68, 0xCE };
    EXPECT_EQ(headersOf(movie(box("avcC", configuration(set)))), expected);
    // With the long form of a size, and with one that reaches to the end.
    auto const inner = movie(box("avcC", configuration(set)));
    auto const head = big(1, 4) + text("free") + big(16, 8);
    EXPECT_EQ(headersOf(head + inner), expected);
    auto open = inner;
    open.resize(open.size() - 108);
    std::fill_n(open.begin() + 12, 4, std::uint8_t { 0 });
    EXPECT_EQ(headersOf(open), expected);
}

TEST(VideoHeaders, AreMissingInWhatIsNoVideoOrBroken)
{
    auto const whole = movie(box("avcC", configuration(SequenceSet {}.bytes())));
    EXPECT_THAT(headersOf({}), IsEmpty());
    EXPECT_THAT(headersOf(text("A text that is no film.")), IsEmpty());
    EXPECT_THAT(headersOf(Bytes(100'000)), IsEmpty());
    for (std::size_t size = 0; size < whole.size() - 108; ++size) {
        auto const part = headersOf(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)));
        EXPECT_THAT(part, IsEmpty()) << size;
    }
    EXPECT_THAT(headersOf(movie(box("avcC", Bytes { 1, 100, 0, 41, 0xFF, 0xE1, 0xFF }))), IsEmpty());
    EXPECT_THAT(headersOf(movie(box("avcC", {}))), IsEmpty());
}

TEST(VideoFormat, IsReadFromASequenceParameterSet)
{
    struct Row {
        SequenceSet set;
        char const* video;
        char const* picture;
    };
    Row const rows[] {
        { {}, "H.264, profile High, level 4.1", "1920 × 1080, 25 frames a second" },
        { { .profile = 66, .level = 30, .timeScale = 60 }, "H.264, profile Baseline, level 3", "1920 × 1080, 30 frames a second" },
        { { .profile = 122, .chroma = 2, .cropBottom = 8 }, "H.264, profile High 4:2:2, level 4.1",
            "1920 × 1080, 25 frames a second" },
        { { .profile = 244, .chroma = 3, .separatePlanes = 1, .cropBottom = 8 }, "H.264, profile High 4:4:4 Predictive, level 4.1",
            "1920 × 1080, 25 frames a second" },
        { { .framesOnly = 0, .mapUnits = 34, .cropBottom = 2 }, "H.264, profile High, level 4.1",
            "1920 × 1080, 25 frames a second" },
        { { .profile = 101, .tick = 1001, .timeScale = 60000 }, "H.264, profile 101, level 4.1", nullptr },
        { { .tick = 1001, .timeScale = 48000 }, "H.264, profile High, level 4.1", "1920 × 1080, 23.98 frames a second" },
        { { .tick = 0 }, "H.264, profile High, level 4.1", "1920 × 1080" },
        { { .cropBottom = 1000 }, "H.264, profile High, level 4.1", "1920 × 0, 25 frames a second" },
    };
    for (auto const& row : rows) {
        VideoFormat format;
        bool const isRead = readVideoFormat(startCode + row.set.bytes(), format);
        if (!row.picture) {
            EXPECT_FALSE(isRead && format.width == 1920);
            continue;
        }
        ASSERT_TRUE(isRead) << row.video;
        EXPECT_THAT(videoFacts(format), ElementsAre(FileFact { "Video", row.video }, FileFact { "Picture", row.picture }));
    }
}

TEST(VideoFormat, IsNotReadFromWhatBreaksOff)
{
    VideoFormat format;
    auto const set = SequenceSet {}.bytes();
    EXPECT_FALSE(readVideoFormat({}, format));
    EXPECT_FALSE(readVideoFormat(startCode + Bytes(set.begin(), set.begin() + 7), format));
    EXPECT_FALSE(readVideoFormat(startCode + Bytes { 0x68, 0xCE }, format));
}

TEST(CSVPreview, HasTheFieldsOfEachLine)
{
    struct Row {
        std::string_view text;
        std::vector<std::vector<std::string>> rows;
    };
    Row const rows[] {
        { "", {} },
        { "name,size\na,1\nb,2\n", { { "name", "size" }, { "a", "1" }, { "b", "2" } } },
        { "name,size\r\na,1\r\n", { { "name", "size" }, { "a", "1" } } },
        { "a\n\nb", { { "a" }, { "" }, { "b" } } },
        { "x,\"y, z\"\n", { { "x", "y, z" } } },
        { "\xEF\xBB\xBFname\n\xFF", { { "name" }, { "\xEF\xBF\xBD" } } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(csvRows(row.text, CSVPart::whole), row.rows) << row.text;
}

TEST(CSVPreview, LeavesOutALineThatIsCutOff)
{
    EXPECT_EQ(csvRows("a,b\nc,d", CSVPart::beginning), (std::vector<std::vector<std::string>> { { "a", "b" } }));
    EXPECT_EQ(csvRows("a,b\nc,d\n", CSVPart::beginning), (std::vector<std::vector<std::string>> { { "a", "b" }, { "c", "d" } }));
}

TEST(CSVPreview, EndsAfterManyLinesAndColumns)
{
    std::string text;
    for (int line = 0; line < 5000; ++line)
        text += std::string(300, ',') + '\n';
    auto const rows = csvRows(text, CSVPart::whole);
    EXPECT_EQ(rows.size(), mostCSVRows);
    EXPECT_EQ(rows.front().size(), mostCSVColumns);
}

}
}
