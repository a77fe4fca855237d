#include <plix/platform/foundation/process_identity.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace plix {

namespace {

class OwnIdentity final : public ProcessIdentity {
public:
    std::vector<std::string> arguments() const override
    {
        std::ifstream file("/proc/self/cmdline", std::ios::binary);
        std::vector<std::string> arguments;
        for (std::string argument; std::getline(file, argument, '\0');)
            arguments.push_back(argument);
        return arguments;
    }
    std::map<std::string, std::string> environment() const override
    {
        std::map<std::string, std::string> environment;
        for (char** entry = ::environ; entry && *entry; ++entry) {
            std::string const text(*entry);
            if (auto const equals = text.find('='); equals != std::string::npos)
                environment.emplace(text.substr(0, equals), text.substr(equals + 1));
        }
        return environment;
    }
    std::string hostName() const override
    {
        char name[256] = {};
        bool const isKnown = ::gethostname(name, sizeof name - 1) == 0 && name[0];
        return isKnown ? name : "localhost";
    }
    int processIdentifier() const override { return ::getpid(); }
    std::string executablePath() const override
    {
        std::error_code error;
        return std::filesystem::read_symlink("/proc/self/exe", error).string();
    }
};

ProcessIdentity* s_installed = nullptr;

}

ProcessIdentity& processIdentity()
{
    static OwnIdentity s_own;
    return s_installed ? *s_installed : s_own;
}

void installProcessIdentity(ProcessIdentity* installed)
{
    s_installed = installed;
}

}
