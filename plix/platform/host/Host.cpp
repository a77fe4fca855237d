#include <plix/platform/host/Host.h>

#include <plix/platform/host/headless/HeadlessHost.h>

#ifdef PLIX_DESKTOP_HOST
#include <plix/platform/base/NSLog.h>
#include <plix/platform/host/desktop/DesktopHost.h>
#endif

#include <cstdlib>
#include <string>
#include <utility>

namespace plix {

namespace {

std::unique_ptr<Host>& installedHost()
{
    static auto& s_host = *new std::unique_ptr<Host>;
    return s_host;
}

std::unique_ptr<Host> chooseHost()
{
#ifdef PLIX_DESKTOP_HOST
    char const* const wanted = std::getenv("PLIX_HOST");
    if (!wanted || std::string_view(wanted) != "headless") {
        std::string whyNot;
        if (auto desktop = makeDesktopHost(whyNot))
            return desktop;
        NSLog("No desktop host: " + whyNot + "; windows stay in memory");
    }
#endif
    return std::make_unique<HeadlessHost>();
}

}

Host& host()
{
    auto& installed = installedHost();
    if (!installed)
        installed = chooseHost();
    return *installed;
}

std::unique_ptr<Host> installHost(std::unique_ptr<Host> replacement)
{
    auto before = std::exchange(installedHost(), std::move(replacement));
    return before;
}

}
