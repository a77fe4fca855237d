#include <plix/windows/PLIXProgressWindowNIBLoader.h>

#include <plix/windows/PLIXProgressWindow.h>

namespace plix {

PLIX_DESCRIBE(PLIXProgressWindowNIBLoader)
{
    description.bundle("plix").outlet<PLIXProgressWindow>(
        "progressWindow", [](auto& loader, auto const& window) { loader.m_progressWindow = window; });
}

PLIXProgressWindowNIBLoader::PLIXProgressWindowNIBLoader() = default;
PLIXProgressWindowNIBLoader::~PLIXProgressWindowNIBLoader() = default;

}
