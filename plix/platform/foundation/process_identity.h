#pragma once

#include <map>
#include <string>
#include <vector>

namespace plix {

/// What the machine knows of this process. The host may install its own; tests install one that they set.
class ProcessIdentity {
public:
    virtual ~ProcessIdentity() = default;
    /// The command line, the program first.
    virtual std::vector<std::string> arguments() const = 0;
    virtual std::map<std::string, std::string> environment() const = 0;
    /// The machine's name in its network; "localhost" where it has none.
    virtual std::string hostName() const = 0;
    virtual int processIdentifier() const = 0;
    /// The program's file, links followed.
    virtual std::string executablePath() const = 0;
};

/// The installed identity; the process's own until one is installed.
ProcessIdentity& processIdentity();
/// Installs an identity, which must live until another one is installed; null brings the process's own back.
void installProcessIdentity(ProcessIdentity*);

}
