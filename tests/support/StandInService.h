#pragma once

#include <tests/support/PulseServer.h>
#include <tests/support/TestFolder.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace plix {

/// A program named as the speech service's, first in the path.
class StandInService {
public:
    explicit StandInService(std::string const& script)
    {
        auto const path = m_folder.write("speech-dispatcher", script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    std::string socketPath() const { return m_folder / "socket"; }
    std::string text(std::string_view name) const { return m_folder.read(name); }

private:
    TestFolder m_folder;
    EnvironmentVariable m_path { "PATH", m_folder.path() + ':' + std::getenv("PATH") };
};

}
