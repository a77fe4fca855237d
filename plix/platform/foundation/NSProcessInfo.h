#pragma once

#include <plix/platform/base/Class.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace plix {

/// This process, through the ProcessIdentity door.
class PLIX_EXPORT NSProcessInfo : public NSObject {
    PLIX_CLASS(NSProcessInfo, NSObject);

public:
    /// Of this process.
    static NSProcessInfo& processInfo();

    // What the machine told the process.
    std::vector<std::string> arguments() const;
    std::map<std::string, std::string> environment() const;
    std::string hostName() const;
    int processIdentifier() const;
    /// The program's file name until another name is set. Defaults and bundles go by it.
    std::string processName() const;
    void setProcessName(std::string);

private:
    std::optional<std::string> m_processName;
};

}
