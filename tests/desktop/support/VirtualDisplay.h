#pragma once

#include <tests/support/ChildProcess.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace plix::desktop {

struct DisplayOptions {
    int width { 1280 };
    int height { 1024 };
    int depth { 24 };
    enum class WindowManager { runs, isMissing };
    WindowManager windowManager { WindowManager::runs };
};

/// A screen in memory on a free number, with a window manager. Throws std::runtime_error where it can't be started.
class VirtualDisplay {
public:
    explicit VirtualDisplay(DisplayOptions const& = {});

    /// As DISPLAY takes it.
    std::string const& name() const { return m_name; }
    /// What programs on it are to be started with.
    std::vector<std::string> environment() const;
    /// Runs a tool on this display and gives what it wrote.
    std::string tool(std::vector<std::string> const& command, std::string_view input = {}) const;
    /// The server goes away at once, as in a crash.
    void crash();
    ChildProcess& windowManager() { return *m_windowManager; }

private:
    std::string m_name;
    std::unique_ptr<ChildProcess> m_server;
    std::unique_ptr<ChildProcess> m_windowManager;
};

}
