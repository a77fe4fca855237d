#include <plix/platform/host/SampleQueue.h>
#include <plix/platform/host/sound_mixing.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <limits>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::FloatNear;
using testing::Pointwise;
using Samples = std::vector<float>;

TEST(SoundMixing, ChannelsAreFoldedToTwo)
{
    constexpr float low = 0.70710678F;
    struct {
        int channels;
        Samples samples;
        Samples stereo;
    } const rows[] = {
        { 1, { 0.25F, -0.5F }, { 0.25F, 0.25F, -0.5F, -0.5F } },
        { 2, { 0.1F, 0.2F, 0.3F, 0.4F }, { 0.1F, 0.2F, 0.3F, 0.4F } },
        { 3, { 1, 0, 0 }, { 1, 0 } },
        { 3, { 0, 0, 1 }, { low, low } },
        { 4, { 0, 0, 1, 0 }, { low, 0 } },
        { 4, { 0, 0, 0, 1 }, { 0, low } },
        { 5, { 0, 0, 1, 0, 0 }, { low, low } },
        { 5, { 0, 0, 0, 1, 0 }, { low, 0 } },
        { 5, { 0, 0, 0, 0, 1 }, { 0, low } },
        { 6, { 0, 1, 0, 0, 0, 0 }, { 0, 1 } },
        { 6, { 0, 0, 0, 1, 0, 0 }, { 0, 0 } },
        { 6, { 0, 0, 0, 0, 1, 0 }, { low, 0 } },
        { 6, { 0, 0, 0, 0, 0, 1 }, { 0, low } },
        { 8, { 0, 0, 0, 0, 0, 0, 1, 0 }, { low, 0 } },
        { 3, { 1, 0, 0, 1, 0 }, { 1, 0 } },
        { 6, {}, {} },
    };
    for (auto const& row : rows)
        EXPECT_THAT(stereoSamples(row.samples, row.channels), Pointwise(FloatNear(1e-6F), row.stereo)) << row.channels;
}

TEST(SoundMixing, AChangeOfGainIsSpreadEvenly)
{
    Samples sum { 0.5F, 0.5F, 0.5F, 0.5F, 0.5F };
    addSamples(sum, Samples { 1, 1, 1, 1 }, 0, 1);
    EXPECT_THAT(sum, ElementsAre(0.5F, 0.75F, 1.0F, 1.25F, 0.5F));
    addSamples(sum, Samples(9, 0.5F), 1, 1);
    EXPECT_THAT(sum, ElementsAre(1.0F, 1.25F, 1.5F, 1.75F, 1.0F));
    addSamples(sum, {}, 1, 0);
    EXPECT_EQ(sum[0], 1.0F);
}

TEST(SoundMixing, WhatIsNoNumberSilencesNobodyElse)
{
    constexpr auto infinity = std::numeric_limits<float>::infinity();
    constexpr auto nothing = std::numeric_limits<float>::quiet_NaN();
    for (float const gain : { 1.0F, 0.0F }) {
        Samples sum { 0.5F, 0.5F, 0.5F, 0.5F };
        addSamples(sum, Samples { nothing, infinity, -infinity, 0.25F * gain }, gain, gain);
        EXPECT_THAT(sum, ElementsAre(0.5F, 0.5F, 0.5F, 0.5F + 0.25F * gain));
    }
}

TEST(SoundMixing, WhatIsTooLoudIsCutOff)
{
    constexpr auto infinity = std::numeric_limits<float>::infinity();
    Samples samples { 0.5F, 1.5F, -2, infinity, -infinity, std::numeric_limits<float>::quiet_NaN() };
    limitSamples(samples);
    EXPECT_THAT(samples, ElementsAre(0.5F, 1, -1, 1, -1, 0));
}

TEST(SampleQueue, GivesBackInOrderWhatItHasSpaceFor)
{
    constexpr std::size_t capacity = 7;
    SampleQueue queue(capacity);
    std::deque<float> model;
    float next = 0;
    for (std::size_t round = 0; round < 200; ++round) {
        Samples pushed(round * 5 % 9);
        for (auto& sample : pushed)
            sample = ++next;
        queue.push(pushed);
        for (std::size_t i = 0; i < pushed.size() && model.size() < capacity; ++i)
            model.push_back(pushed[i]);
        ASSERT_EQ(queue.size(), model.size());
        ASSERT_EQ(queue.space(), capacity - model.size());
        Samples popped(round * 3 % 8);
        auto const count = queue.pop(popped);
        ASSERT_EQ(count, std::min(popped.size(), model.size()));
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(popped[i], model.front());
            model.pop_front();
        }
    }
}

}
}
