#pragma once

#include <plix/platform/host/desktop/SoundDecoder.h>

#include <tests/support/PulseServer.h>
#include <tests/support/SoundHost.h>
#include <tests/support/TestFolder.h>

#include <gtest/gtest.h>

#include <memory>

namespace plix {

/// A sound server of the test's own, and a machine that plays through it. Skipped where the machine has no such service.
class SoundServiceTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!PulseServer::isInstalled())
            GTEST_SKIP() << "no sound server is installed";
        if (SoundDecoder::fileTypes().empty())
            GTEST_SKIP() << "no sound files are read";
        server = std::make_unique<PulseServer>();
        machine = std::make_unique<SoundHost>();
    }

    TestFolder folder;
    std::unique_ptr<PulseServer> server;
    std::unique_ptr<SoundHost> machine;
};

}
