#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <string>

namespace plix {

/// The primary Ethernet interface's address as an identifier, or the host's name where it has none. Failures on the way are said on
/// standard output.
PLIX_EXPORT std::string PLIXMACAddressString();
PLIX_EXPORT std::string PLIXProcessIDString();

/// The system's version in binary-coded decimal, 0x1049 for 10.4.9; see MachineIdentity.
PLIX_EXPORT std::uint32_t PLIXSystemVersion();
/// The media layer's version, "7.1.3".
PLIX_EXPORT std::string PLIXQuickTimeVersionString();

}
