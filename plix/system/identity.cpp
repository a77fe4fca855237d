#include <plix/system/identity.h>

#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/foundation/machine_identity.h>
#include <plix/system/identity_text.h>

namespace plix {

std::string PLIXMACAddressString()
{
    auto const address = hardwareAddressText(machineIdentity().primaryEthernetInterface());
    return address ? *address : NSProcessInfo::processInfo().hostName();
}

std::string PLIXProcessIDString()
{
    return std::to_string(NSProcessInfo::processInfo().processIdentifier());
}

std::uint32_t PLIXSystemVersion()
{
    return machineIdentity().systemVersion();
}

std::string PLIXQuickTimeVersionString()
{
    return quickTimeVersionText(machineIdentity().quickTimeVersion());
}

}
