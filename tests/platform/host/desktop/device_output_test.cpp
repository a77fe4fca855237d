#include <plix/platform/host/desktop/DeviceOutput.h>
#include <tests/support/ChildProcess.h>
#include <tests/support/PulseServer.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>

// As an application has them that uses SDL itself.
extern "C" {
int SDL_InitSubSystem(std::uint32_t);
void SDL_QuitSubSystem(std::uint32_t);
char const* SDL_GetCurrentAudioDriver();
}

namespace plix {
namespace {

constexpr std::uint32_t audioSystem = 0x10;

class DeviceOutputTest : public testing::Test {
protected:
    struct Output {
        Output()
        {
            device.setFetch([this](std::span<float>) { ++fetches; });
            device.setWanted(true);
        }
        bool isFetching()
        {
            auto const before = fetches.load();
            return waitUntil([&] { return fetches > before + 1; });
        }
        std::atomic<long> fetches { 0 };
        DeviceOutput device;
    };

    EnvironmentVariable m_driver { "SDL_AUDIODRIVER", "dummy" };
};

TEST_F(DeviceOutputTest, TwoOfThemDisturbEachOtherNeitherInComingNorInGoing)
{
    Output one;
    EXPECT_TRUE(one.isFetching());
    {
        // This driver has one device only.
        Output two;
        EXPECT_TRUE(waitUntil([&] { return two.device.isMissing(); }));
        EXPECT_TRUE(one.isFetching());
    }
    EXPECT_TRUE(one.isFetching());
}

TEST_F(DeviceOutputTest, LeavesTheApplicationsOwnSoundAlone)
{
    ASSERT_EQ(SDL_InitSubSystem(audioSystem), 0);
    {
        Output one;
        EXPECT_TRUE(one.isFetching());
    }
    EXPECT_STREQ(SDL_GetCurrentAudioDriver(), "dummy");
    SDL_QuitSubSystem(audioSystem);
    EXPECT_EQ(SDL_GetCurrentAudioDriver(), nullptr);
}

TEST_F(DeviceOutputTest, IsClosedSomeSecondsAfterItWasWanted)
{
    Output one;
    EXPECT_TRUE(one.isFetching());
    one.device.setWanted(false);
    // Not at once: the next sound begins without a wait.
    EXPECT_TRUE(one.isFetching());
    EXPECT_TRUE(waitUntil([] { return !SDL_GetCurrentAudioDriver(); }));
    one.device.setWanted(true);
    EXPECT_TRUE(one.isFetching());
}

}
}
