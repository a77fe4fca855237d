#include <plix/platform/foundation/machine_identity.h>

#include <charconv>
#include <cstdlib>

namespace plix {

namespace {

class OwnMachine final : public MachineIdentity {
public:
    OwnMachine()
    {
        auto const* text = std::getenv("PLIX_SYSTEM_VERSION");
        if (auto const version = systemVersionFromText(text ? text : ""))
            setSystemVersion(*version);
    }
    EthernetQuery primaryEthernetInterface() const override
    {
        EthernetQuery query;
        if (auto address = primaryHardwareAddress("/"))
            query.interfaces.push_back({ .hardwareAddress = std::move(address) });
        return query;
    }
};

MachineIdentity* s_installed = nullptr;

}

MachineIdentity& machineIdentity()
{
    static OwnMachine s_own;
    return s_installed ? *s_installed : s_own;
}

void installMachineIdentity(MachineIdentity* installed)
{
    s_installed = installed;
}

std::optional<std::uint32_t> systemVersionFromText(std::string const& text)
{
    bool const isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    auto const* begin = text.data() + (isHexadecimal ? 2 : 0);
    auto const* end = text.data() + text.size();
    std::uint32_t version = 0;
    auto const result = std::from_chars(begin, end, version, isHexadecimal ? 16 : 10);
    if (result.ec != std::errc {} || result.ptr != end)
        return {};
    return version;
}

}
