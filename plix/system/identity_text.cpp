#include <plix/system/identity_text.h>

#include <algorithm>
#include <cstdio>

namespace plix {

namespace {

constexpr std::uint32_t success = 0;
constexpr std::uint32_t failure = 5;

}

std::optional<std::string> hardwareAddressText(EthernetQuery const& query)
{
    if (!query.hasMatchingDictionary)
        std::printf("IOServiceMatching returned a NULL dictionary.\n");
    else if (!query.hasPropertyDictionary)
        std::printf("CFDictionaryCreateMutable returned a NULL dictionary.\n");
    if (query.servicesStatus != success) {
        std::printf("IOServiceGetMatchingServices returned 0x%08x\n", query.servicesStatus);
        return {};
    }
    std::array<std::uint8_t, 6> address {};
    auto status = failure;
    for (auto const& interface : query.interfaces) {
        status = interface.parentStatus;
        if (status != success) {
            std::printf("IORegistryEntryGetParentEntry returned 0x%08x\n", status);
        } else if (interface.hardwareAddress) {
            auto const& bytes = *interface.hardwareAddress;
            std::copy_n(bytes.begin(), std::min(bytes.size(), address.size()), address.begin());
        }
    }
    if (status != success)
        return {};
    // Not padded, which is meant: it identifies, nobody reads it back.
    char text[13];
    std::snprintf(text, sizeof text, "%X%X%X%X%X%X", address[0], address[1], address[2], address[3], address[4], address[5]);
    return text;
}

std::string quickTimeVersionText(std::uint32_t version)
{
    auto const major = std::to_string(version >> 24);
    auto const rest = version >> 16 & 0xFF;
    if (rest > 9)
        return major + "." + std::to_string(rest >> 4) + "." + std::to_string(rest & 15);
    return major + ".0." + std::to_string(rest);
}

std::string uuidText(std::array<std::uint8_t, 16> bits)
{
    bits[6] = static_cast<std::uint8_t>((bits[6] & 0x0F) | 0x40);
    bits[8] = static_cast<std::uint8_t>((bits[8] & 0x3F) | 0x80);
    constexpr auto digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += digits[bits[i] >> 4];
        text += digits[bits[i] & 15];
    }
    return text;
}

std::string temporaryName(std::string const& address, std::string const& process, std::optional<std::int32_t> counter)
{
    auto name = ".Corvane-Temp-" + address + "-" + process;
    return counter ? name + "-" + std::to_string(*counter) : name;
}

}
