#include "fuzz.h"

#include <plix/controls/classes.h>
#include <plix/platform/appkit/classes.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/archive_bytes.h>

#include <string_view>

using namespace plix;

// Bit by bit, so that it shares no mistake with the table of the code under test.
static std::uint32_t checksum(std::uint8_t const* data, std::size_t size)
{
    std::uint32_t sum = ~0U;
    for (std::size_t i = 0; i < size; ++i) {
        sum ^= data[i];
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

// The input is what follows the header; no fuzzer finds a checksum by itself.
static std::vector<std::uint8_t> archiveWithBody(std::uint8_t const* data, std::size_t size)
{
    constexpr std::string_view magic = "plixarch";
    std::vector<std::uint8_t> bytes(magic.begin(), magic.end());
    auto const append = [&](std::uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    };
    append(1);
    append(checksum(data, size));
    bytes.insert(bytes.end(), data, data + size);
    return bytes;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static auto const s_quiet = installLogSink([](std::string_view) {});
    static bool const s_areClassesKnown = [] {
        registerAppKitClasses();
        registerControlClasses();
        return true;
    }();
    FUZZ_CHECK(s_areClassesKnown);
    auto const bytes = archiveWithBody(data, size);
    std::string problem;
    auto const tree = archiveTree(bytes, problem);
    FUZZ_CHECK(tree.has_value() == problem.empty());
    if (tree) {
        auto const written = archiveBytes(*tree);
        auto const again = archiveTree(written, problem);
        FUZZ_CHECK(again);
        FUZZ_CHECK(archiveBytes(*again) == written);
    }
    auto const object = NSUnarchiver::unarchiveObjectWithData(*make<NSData>(bytes));
    FUZZ_CHECK(tree || !object);
    return 0;
}
