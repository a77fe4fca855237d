#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace plix {

/// One Ethernet interface as the machine's registry of devices knows it.
struct EthernetInterface {
    /// 0, or the error with which the interface's controller can't be had.
    std::uint32_t parentStatus { 0 };
    /// The controller's hardware address; nothing where it has none.
    std::optional<std::vector<std::uint8_t>> hardwareAddress {};
};

/// What the machine answers when it is asked for its primary Ethernet interface, step by step.
struct EthernetQuery {
    /// False where the machine can't be asked for such a class of devices, or for those of some property.
    bool hasMatchingDictionary { true };
    bool hasPropertyDictionary { true };
    /// 0, or the error with which there is no list of interfaces.
    std::uint32_t servicesStatus { 0 };
    std::vector<EthernetInterface> interfaces {};
};

}
