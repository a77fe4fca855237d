#include <plix/platform/foundation/NSProcessInfo.h>

#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/process_identity.h>

namespace plix {

PLIX_DESCRIBE(NSProcessInfo)
{
}

NSProcessInfo& NSProcessInfo::processInfo()
{
    static auto* const s_info = make<NSProcessInfo>().leak();
    return *s_info;
}

std::vector<std::string> NSProcessInfo::arguments() const
{
    return processIdentity().arguments();
}

std::map<std::string, std::string> NSProcessInfo::environment() const
{
    return processIdentity().environment();
}

std::string NSProcessInfo::hostName() const
{
    return processIdentity().hostName();
}

int NSProcessInfo::processIdentifier() const
{
    return processIdentity().processIdentifier();
}

std::string NSProcessInfo::processName() const
{
    if (m_processName)
        return *m_processName;
    auto const arguments = this->arguments();
    return arguments.empty() ? std::string() : lastPathComponent(arguments.front());
}

void NSProcessInfo::setProcessName(std::string name)
{
    m_processName = std::move(name);
}

}
