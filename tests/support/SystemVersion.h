#pragma once

#include <plix/platform/foundation/machine_identity.h>

#include <cstdint>

namespace plix {

/// The machine is of another version as long as this lives.
class SystemVersion {
public:
    explicit SystemVersion(std::uint32_t version) { machineIdentity().setSystemVersion(version); }
    ~SystemVersion() { machineIdentity().setSystemVersion(m_before); }
    SystemVersion(SystemVersion const&) = delete;
    SystemVersion& operator=(SystemVersion const&) = delete;

private:
    std::uint32_t m_before { machineIdentity().systemVersion() };
};

}
