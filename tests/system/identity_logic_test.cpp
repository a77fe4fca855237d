#include <plix/system/identity_text.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

using Bytes = std::vector<std::uint8_t>;

EthernetInterface interfaceWith(std::optional<Bytes> address)
{
    return { .hardwareAddress = std::move(address) };
}

TEST(HardwareAddressText, FollowsTheQueryStepByStep)
{
    struct Row {
        char const* name;
        EthernetQuery query;
        std::optional<std::string> text;
        char const* printed;
    };
    Bytes const address { 0x00, 0x0A, 0x95, 0x1B, 0x2C, 0x03 };
    Bytes const other { 0x10, 0xFF, 0, 0, 0, 0x01 };
    EthernetInterface const lost { .parentStatus = 0xE00002C2, .hardwareAddress = address };
    for (auto const& row :
        {
            Row { "one", { .interfaces = { interfaceWith(address) } }, "0A951B2C3", "" },
            Row { "none", {}, std::nullopt, "" },
            Row { "the last wins", { .interfaces = { interfaceWith(address), interfaceWith(other) } }, "10FF0001", "" },
            Row { "no property", { .interfaces = { interfaceWith({}) } }, "000000", "" },
            Row { "the earlier's address stays", { .interfaces = { interfaceWith(address), interfaceWith({}) } }, "0A951B2C3", "" },
            Row { "short", { .interfaces = { interfaceWith(Bytes { 0xAB, 0x0C }) } }, "ABC0000", "" },
            Row { "long", { .interfaces = { interfaceWith(Bytes(9, 0x11)) } }, "111111111111", "" },
            Row { "lost", { .interfaces = { lost } }, std::nullopt, "IORegistryEntryGetParentEntry returned 0xe00002c2\n" },
            Row { "lost, then one", { .interfaces = { lost, interfaceWith(other) } }, "10FF0001",
                "IORegistryEntryGetParentEntry returned 0xe00002c2\n" },
            Row { "one, then lost", { .interfaces = { interfaceWith(other), lost } }, std::nullopt,
                "IORegistryEntryGetParentEntry returned 0xe00002c2\n" },
            Row { "no list", { .servicesStatus = 0x2BC, .interfaces = { interfaceWith(address) } }, std::nullopt,
                "IOServiceGetMatchingServices returned 0x000002bc\n" },
            Row { "no matching", { .hasMatchingDictionary = false, .interfaces = { interfaceWith(address) } }, "0A951B2C3",
                "IOServiceMatching returned a NULL dictionary.\n" },
            Row { "no property dictionary", { .hasPropertyDictionary = false, .interfaces = { interfaceWith(address) } },
                "0A951B2C3", "CFDictionaryCreateMutable returned a NULL dictionary.\n" },
            Row { "neither", { .hasMatchingDictionary = false, .hasPropertyDictionary = false }, std::nullopt,
                "IOServiceMatching returned a NULL dictionary.\n" },
            Row { "all goes wrong", { .hasPropertyDictionary = false, .servicesStatus = 1 }, std::nullopt,
                "CFDictionaryCreateMutable returned a NULL dictionary.\nIOServiceGetMatchingServices returned 0x00000001\n" },
        }) {
        testing::internal::CaptureStdout();
        auto const text = hardwareAddressText(row.query);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed) << row.name;
        EXPECT_EQ(text, row.text) << row.name;
    }
}

TEST(QuickTimeVersionText, GivesTheStatedTexts)
{
    struct Row {
        std::uint32_t version;
        char const* text;
    };
    for (auto const& row : {
             Row { 0x07138000, "7.1.3" },
             Row { 0x06028000, "6.0.2" },
             Row { 0x06098000, "6.0.9" },
             Row { 0x060A8000, "6.0.10" },
             Row { 0x06100000, "6.1.0" },
             Row { 0, "0.0.0" },
             Row { 0xFFFFFFFF, "255.15.15" },
         })
        EXPECT_EQ(quickTimeVersionText(row.version), row.text);
}

TEST(UUIDText, MarksTheBitsAsARandomUUID)
{
    EXPECT_EQ(uuidText({}), "00000000-0000-4000-8000-000000000000");
    std::array<std::uint8_t, 16> bits;
    bits.fill(0xFF);
    EXPECT_EQ(uuidText(bits), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
    for (std::size_t i = 0; i < bits.size(); ++i)
        bits[i] = static_cast<std::uint8_t>(i * 16 + i);
    EXPECT_EQ(uuidText(bits), "00112233-4455-4677-8899-AABBCCDDEEFF");
}

TEST(TemporaryName, HasTheCounterLast)
{
    EXPECT_EQ(temporaryName("0A951B2C3", "42", {}), ".Corvane-Temp-0A951B2C3-42");
    EXPECT_EQ(temporaryName("host", "42", 7), ".Corvane-Temp-host-42-7");
    EXPECT_EQ(temporaryName("host", "42", -7), ".Corvane-Temp-host-42--7");
}

}
}
