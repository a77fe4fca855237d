#include <plix/platform/host/sound_kind.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

namespace plix {
namespace {

using namespace std::string_view_literals;

std::optional<SoundKind> kindOf(std::string_view text)
{
    return soundKind(std::vector<std::uint8_t>(text.begin(), text.end()));
}

TEST(SoundKind, IsToldByTheFirstBytes)
{
    struct {
        std::string_view bytes;
        std::optional<SoundKind> kind;
    } const rows[] = {
        { "RIFF\1\0\0\0WAVE"sv, SoundKind::WAV },
        { "RIFX\0\0\0\1WAVE"sv, SoundKind::WAV },
        { "RF64\377\377\377\377WAVE"sv, SoundKind::WAV },
        { "RIFF\1\0\0\0AVI "sv, {} },
        { "RIFF\1\0\0\0WAV"sv, {} },
        { "FORM\0\0\0\1AIFF"sv, SoundKind::AIFF },
        { "FORM\0\0\0\1AIFC"sv, SoundKind::AIFF },
        { "FORM\0\0\0\1ILBM"sv, {} },
        { ".snd"sv, SoundKind::AU },
        { "caff\0\1"sv, SoundKind::CAF },
        { "fLaC"sv, SoundKind::FLAC },
        { "OggS"sv, SoundKind::Ogg },
        { "ID3\4"sv, SoundKind::MP3 },
        { "\xFF\xFB\x90\x64"sv, SoundKind::MP3 },
        { "\xFF\xF3\x40\xC4"sv, SoundKind::MP3 },
        // Layers I and II, a version, a bit rate and a sample rate that there are not, and one byte too few.
        { "\xFF\xFF\x90\x64"sv, {} },
        { "\xFF\xFD\x90\x64"sv, {} },
        { "\xFF\xEB\x90\x64"sv, {} },
        { "\xFF\xFB\xF0\x64"sv, {} },
        { "\xFF\xFB\x9C\x64"sv, {} },
        { "\xFF\xFB\x90"sv, {} },
        { "\xFE\xFB\x90\x64"sv, {} },
        { ""sv, {} },
        { "RIF"sv, {} },
        { "hello, world"sv, {} },
        { "\x89PNG\r\n\x1A\n"sv, {} },
        { " OggS"sv, {} },
    };
    for (auto const& row : rows)
        EXPECT_EQ(kindOf(row.bytes), row.kind) << testing::PrintToString(row.bytes);
}

TEST(SoundKind, ExtensionsAreInLowerCaseWithoutADot)
{
    EXPECT_THAT(soundFileTypes(), testing::IsSupersetOf({ "wav", "aiff", "aif", "ogg", "oga", "flac", "mp3" }));
    EXPECT_THAT(soundFileTypes(), testing::Each(testing::MatchesRegex("[a-z0-9]+")));
}

}
}
