#include <plix/platform/host/Host.h>

#include <plix/platform/host/headless/HeadlessHost.h>

#if __has_include(<plix/platform/host/desktop/DesktopHost.h>)
#include <plix/platform/host/desktop/DesktopHost.h>
#define PLIX_HAS_DESKTOP_HOST
#endif

#include <cstdlib>
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
#ifdef PLIX_HAS_DESKTOP_HOST
    char const* const wanted = std::getenv("PLIX_HOST");
    if (!wanted || std::string_view(wanted) != "headless") {
        if (auto desktop = makeDesktopHost())
            return desktop;
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
