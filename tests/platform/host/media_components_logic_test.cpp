#include <plix/platform/host/media_components.h>

#include <gtest/gtest.h>

#include <set>

namespace plix {
namespace {

TEST(MediaComponents, FourCharactersAreOneNumber)
{
    EXPECT_EQ(fourCharCode("MooV"), 0x4D6F6F56U);
    EXPECT_EQ(fourCharCode("spit"), movieExportType);
    EXPECT_EQ(fourCharCode("ab"), 0x61622020U);
    EXPECT_EQ(fourCharCode(""), 0x20202020U);
    EXPECT_EQ(fourCharCode("toolong"), fourCharCode("tool"));
    EXPECT_EQ(fourCharCode("\xFFxyz"), 0xFF78797AU);
}

TEST(MediaComponents, KindsOfFilesHaveTheirCustomaryCodesOrTheirFirstCharacters)
{
    struct {
        char const* mediaType;
        char const* code;
    } const rows[] = {
        { "video/quicktime", "MooV" },
        { "video/mp4", "mpg4" },
        { "video/x-msvideo", "VfW " },
        { "audio/x-wav", "WAVE" },
        { "audio/x-aiff", "AIFF" },
        { "application/ogg", "OggS" },
        { "video/webm", "webm" },
        { "application/x-yuv4mpeg", "yuv4" },
        { "multipart/x-mixed-replace", "mixe" },
        { "application/mxf", "mxf " },
        { "video/x-ms-asf", "msas" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(fileTypeForMediaType(row.mediaType), fourCharCode(row.code)) << row.mediaType;
    EXPECT_EQ(fileTypeForMediaType("video/quicktime", "apple"), fourCharCode("MooV"));
    EXPECT_EQ(fileTypeForMediaType("video/quicktime", "iso"), fourCharCode("mpg4"));
    EXPECT_EQ(fileTypeForMediaType("video/quicktime", "3gpp"), fourCharCode("3gpp"));
    EXPECT_EQ(fileTypeForMediaType("video/x-msvideo", "iso"), fourCharCode("VfW "));
    for (auto const* none : { "", "video", "video/", "video/x-", "video/---" })
        EXPECT_EQ(fileTypeForMediaType(none), 0U) << none;
}

TEST(MediaComponents, ZeroInWhatIsWantedMatchesAnything)
{
    ComponentDescription const component { 1, 2, 3, 0x13, 0 };
    struct {
        ComponentDescription wanted;
        bool matches;
    } const rows[] = {
        { {}, true },
        { { 1, 0, 0, 0, 0 }, true },
        { { 2, 0, 0, 0, 0 }, false },
        { { 1, 2, 3, 0, 0 }, true },
        { { 1, 1, 3, 0, 0 }, false },
        { { 1, 2, 4, 0, 0 }, false },
        { { 1, 0, 0, 0x10, 0x10 }, true },
        { { 1, 0, 0, 0, 0x10 }, false },
        { { 1, 0, 0, 0x20, 0x20 }, false },
        { { 1, 0, 0, 0x20, 0 }, true },
        { { 1, 0, 0, 0x13, 0xFF }, true },
    };
    for (auto const& row : rows)
        EXPECT_EQ(matchesComponent(row.wanted, component), row.matches);
}

TEST(MediaComponents, ReferencesTellNamesApartAndStayTheSame)
{
    EXPECT_EQ(componentReference(""), 0x811C9DC5U);
    EXPECT_EQ(componentReference("a"), 0xE40C292CU);
    std::set<std::uint32_t> const references { componentReference("qtmux"), componentReference("mp4mux"),
        componentReference("avimux") };
    EXPECT_EQ(references.size(), 3U);
}

}
}
