#pragma once

#include <plix/platform/foundation/ethernet_query.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace plix {

/// The six bytes of the last interface's address without padding, "0A951B2C3" for 00:0A:95:1B:2C:03; nothing where its controller
/// can't be had or there is no interface. What failed is said on standard output.
std::optional<std::string> hardwareAddressText(EthernetQuery const&);

/// "7.1.3" for 0x07138000.
std::string quickTimeVersionText(std::uint32_t version);

/// 8-4-4-4-12 upper-case digits of 128 bits, marked as a random UUID (RFC 4122 section 4.4).
std::string uuidText(std::array<std::uint8_t, 16> bits);

/// ".Corvane-Temp-<address>-<process>", with "-<counter>" where there is one.
std::string temporaryName(std::string const& address, std::string const& process, std::optional<std::int32_t> counter);

}
