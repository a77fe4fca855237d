#include <tests/support/TestFolder.h>
#include <tests/support/sound_files.h>

#include <plix/platform/host/desktop/SoundReader.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <numbers>

#include <sys/stat.h>

namespace plix {
namespace {

class SoundDecoderTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (SoundDecoder::fileTypes().empty())
            GTEST_SKIP() << "no sound files are read";
    }
    static std::unique_ptr<SoundDecoder> open(std::string const& path) { return SoundDecoder::open(SoundFileBytes::open(path)); }
    static std::unique_ptr<SoundDecoder> decode(std::string const& bytes)
    {
        return SoundDecoder::open(std::make_unique<SoundFileBytes>(bytesOf(bytes)));
    }
    static std::vector<float> readAll(SoundDecoder& decoder)
    {
        std::vector<float> all;
        std::vector<float> some(1000 * static_cast<std::size_t>(decoder.channels()));
        while (auto const count = decoder.read(some))
            all.insert(all.end(), some.begin(), some.begin() + static_cast<std::ptrdiff_t>(count));
        return all;
    }
    static std::vector<float> readAll(SoundReader& reader)
    {
        std::vector<float> all(10 * SoundReader::rate);
        all.resize(reader.read(all));
        return all;
    }
    static double loudnessOf(std::vector<float> const& samples)
    {
        double sum = 0;
        for (auto const sample : samples)
            sum += static_cast<double>(sample) * static_cast<double>(sample);
        return std::sqrt(sum / static_cast<double>(samples.size()));
    }

    TestFolder folder;
};

TEST_F(SoundDecoderTest, SamplesComeOutAsTheyWentIn)
{
    Tone const tone { .seconds = 0.25, .frequency = 100, .rate = 8000, .channels = 1 };
    for (auto const& file : { wavFile(tone), aiffFile(tone) }) {
        auto const decoder = decode(file);
        ASSERT_NE(decoder, nullptr);
        EXPECT_EQ(decoder->rate(), 8000);
        EXPECT_EQ(decoder->channels(), 1);
        EXPECT_EQ(decoder->frames(), 2000);
        auto const samples = readAll(*decoder);
        ASSERT_EQ(samples.size(), 2000U);
        for (std::size_t place : { 0U, 20U, 40U, 1999U }) {
            auto const phase = 2 * std::numbers::pi * 100 * static_cast<double>(place) / 8000;
            EXPECT_NEAR(samples[place], 0.5 * std::sin(phase), 0.0001) << place;
        }
        EXPECT_TRUE(decoder->rewind());
        EXPECT_EQ(readAll(*decoder), samples);
    }
}

TEST_F(SoundDecoderTest, AnyRateIsReadAtTheOutputs)
{
    for (int const rate : { 8000, 22050, 44100, 48000, 96000 }) {
        SoundReader reader(decode(wavFile({ .seconds = 0.5, .rate = rate, .channels = 1 })));
        EXPECT_NEAR(reader.duration(), 0.5, 0.001);
        auto const samples = readAll(reader);
        EXPECT_EQ(samples.size(), static_cast<std::size_t>(SoundReader::rate)) << rate;
        // To the very end.
        EXPECT_NEAR(loudnessOf({ samples.end() - 1000, samples.end() }), 0.5 / std::numbers::sqrt2, 0.05) << rate;
        EXPECT_NEAR(loudnessOf(samples), 0.5 / std::numbers::sqrt2, 0.01) << rate;
        EXPECT_EQ(samples[2000], samples[2001]);
        EXPECT_TRUE(reader.rewind());
        EXPECT_EQ(readAll(reader), samples) << rate;
    }
}

TEST_F(SoundDecoderTest, WhatIsNoSoundIsRefused)
{
    auto const fifo = folder / "fifo.wav";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "folder.wav");
    auto const wav = wavFile({ .seconds = 0.01 });
    for (auto const& path : { folder / "none.wav", folder.write("empty.wav"), folder.write("text.wav", "This is no sound."),
             folder.write("header.wav", wav.substr(0, 12)), folder.write("half.wav", wav.substr(0, 30)),
             folder.write("list.wav", "RIFF\4\0\0\0WAVE"), folder.write("short.ogg", "OggS"), folder.write("short.flac", "fLaC"),
             folder.write("picture.mp3", "\x89PNG\r\n\x1A\n and more"), folder / "folder.wav", fifo, std::string("/dev/zero") })
        EXPECT_EQ(open(path), nullptr) << path;
}

TEST_F(SoundDecoderTest, WhatNoMachineCouldPlayIsRefused)
{
    EXPECT_EQ(decode(wavFile({ .seconds = 0.001, .channels = 33 })), nullptr);
    EXPECT_EQ(decode(wavFile({ .seconds = 0.001, .rate = 1000000 })), nullptr);
    EXPECT_EQ(decode(wavFile({ .seconds = 0.5, .rate = 100 })), nullptr);
    EXPECT_NE(decode(wavFile({ .seconds = 0.001, .channels = 32 })), nullptr);
}

TEST_F(SoundDecoderTest, AStreamThatDoesNotSayHowLongItIsIsRefused)
{
    // 44100 Hz, one channel of 16 bits, and 0 frames, which stands for unknown.
    auto const zeros = [](std::size_t count) { return std::string(count, '\0'); };
    auto const description = std::string("\x10\0\x10\0", 4) + zeros(6) + "\x0A\xC4\x40\xF0" + zeros(4) + zeros(16);
    ASSERT_EQ(description.size(), 0x22U);
    EXPECT_EQ(decode("fLaC\x80" + zeros(2) + "\x22" + description), nullptr);
}

TEST_F(SoundDecoderTest, OfATruncatedFileWhatIsThereIsPlayed)
{
    auto const wav = wavFile({ .seconds = 1, .channels = 1 });
    auto const decoder = decode(wav.substr(0, 44 + 2 * 1000));
    ASSERT_NE(decoder, nullptr);
    EXPECT_EQ(readAll(*decoder).size(), 1000U);
    EXPECT_LE(decoder->frames(), 48000);
    auto const withoutSamples = decode(wav.substr(0, 44));
    EXPECT_TRUE(!withoutSamples || readAll(*withoutSamples).empty());
}

TEST_F(SoundDecoderTest, AFileThatShrinksWhileItPlaysEnds)
{
    auto const path = folder.write("tone.wav", wavFile({ .seconds = 2, .channels = 1 }));
    auto const decoder = open(path);
    std::vector<float> samples(4096);
    EXPECT_EQ(decoder->read(samples), 4096U);
    std::filesystem::resize_file(path, 44 + 2 * 5000);
    EXPECT_EQ(readAll(*decoder).size(), 5000U - 4096U);
}

TEST_F(SoundDecoderTest, HugeFilesAreReadWhereTheyAreWanted)
{
    auto const begun = std::chrono::steady_clock::now();
    constexpr std::uintmax_t huge = 2U * 1024 * 1024 * 1024;
    // Zeros without a header, a header that says less than there is, and the start of a stream that never goes on.
    auto const zeros = folder.write("zeros.wav");
    std::filesystem::resize_file(zeros, huge);
    EXPECT_EQ(open(zeros), nullptr);
    auto header = wavFile({ .seconds = 0.01, .channels = 1 }).substr(0, 44);
    header.replace(4, 4, "\x24\xFF\xFF\x7F");
    header.replace(40, 4, std::string("\x00\xFF\xFF\x7F", 4));
    auto const sound = folder.write("sound.wav", header);
    std::filesystem::resize_file(sound, huge);
    auto const decoder = open(sound);
    ASSERT_NE(decoder, nullptr);
    EXPECT_EQ(decoder->frames(), 0x7FFFFF00 / 2);
    std::vector<float> samples(4096, 1.0F);
    EXPECT_EQ(decoder->read(samples), 4096U);
    EXPECT_THAT(samples, testing::Each(0.0F));
    for (auto const* start : { "ID3\4", "OggS", "fLaC" }) {
        auto const stream = folder.write("stream", start);
        std::filesystem::resize_file(stream, huge);
        if (auto const opened = open(stream))
            opened->read(samples);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(30));
}

}
}
