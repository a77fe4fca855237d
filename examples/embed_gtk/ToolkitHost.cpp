#include "ToolkitHost.h"

#include <memory>

namespace embed_gtk {

ToolkitHost::ToolkitHost()
{
    m_loop.serve(m_events);
    plix::installEventSource(&m_events);
}

ToolkitHost::~ToolkitHost()
{
    if (plix::eventSource() == &m_events)
        plix::installEventSource(nullptr);
}

ToolkitHost& ToolkitHost::shared()
{
    static auto* s_host = [] {
        auto made = std::make_unique<ToolkitHost>();
        auto* const host = made.get();
        plix::installHost(std::move(made));
        return host;
    }();
    return *s_host;
}

}
