#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/foundation/ethernet_query.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plix {

/// What the machine knows of itself. The host may install its own; tests install one that they set.
class MachineIdentity {
public:
    virtual ~MachineIdentity() = default;
    /// The hardware address; nothing where there is none.
    virtual EthernetQuery primaryEthernetInterface() const = 0;

    /// The system's version in binary-coded decimal, 0x1049 for 10.4.9: what looks and behaviours that changed from version to
    /// version are chosen by. An application may set another one, before it makes windows.
    std::uint32_t systemVersion() const { return m_systemVersion; }
    void setSystemVersion(std::uint32_t version) { m_systemVersion = version; }
    /// Likewise of the media layer, 0x07138000 for 7.1.3.
    std::uint32_t quickTimeVersion() const { return m_quickTimeVersion; }
    void setQuickTimeVersion(std::uint32_t version) { m_quickTimeVersion = version; }

private:
    std::uint32_t m_systemVersion { 0x1049 };
    std::uint32_t m_quickTimeVersion { 0x07138000 };
};

/// The installed identity; the machine's own until one is installed. That one's system version is the environment's
/// PLIX_SYSTEM_VERSION ("0x1030") where it is a number.
PLIX_EXPORT MachineIdentity& machineIdentity();
/// Installs an identity, which must live until another one is installed; null brings the machine's own back.
PLIX_EXPORT void installMachineIdentity(MachineIdentity*);

/// The number that a version code's text says, in C's notation; nothing where it is none, or not of 32 bits.
PLIX_EXPORT std::optional<std::uint32_t> systemVersionFromText(std::string const& text);

/// The hardware address of the machine's primary Ethernet interface, as the kernel's files below a root folder ("/", or a copy's)
/// tell it: the interface of the default route with the least metric; without one, the first by these: it has a device, it is up,
/// its index is the least. Nothing where there is none.
PLIX_EXPORT std::optional<std::vector<std::uint8_t>> primaryHardwareAddress(std::string const& root);

}
