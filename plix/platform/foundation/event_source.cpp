#include <plix/platform/foundation/event_source.h>

namespace plix {

namespace {

EventSource* s_installed = nullptr;

}

EventSource* eventSource()
{
    return s_installed;
}

void installEventSource(EventSource* source)
{
    s_installed = source;
}

}
