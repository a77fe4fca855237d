#include <plix/inspector/inspector.h>

#ifdef PLIX_INSPECTOR
#include <plix/inspector/InspectorSession.h>
#include <plix/platform/appkit/WindowWatcher.h>
#endif

namespace plix {

#ifdef PLIX_INSPECTOR

bool installInspector()
{
    WindowWatcher::setKeyCatcher([](NSWindow&, HostEvent const& event) {
        if (!InspectorSession::isOpeningKey(event))
            return false;
        InspectorSession::open(InspectorSession::OpenedBy::keys);
        return true;
    });
    return true;
}

void openInspector()
{
    InspectorSession::open(InspectorSession::OpenedBy::program);
}

void closeInspector()
{
    InspectorSession::close();
}

bool isInspectorOpen()
{
    return InspectorSession::current() != nullptr;
}

#else

bool installInspector()
{
    return false;
}

void openInspector()
{
}

void closeInspector()
{
}

bool isInspectorOpen()
{
    return false;
}

#endif

}
