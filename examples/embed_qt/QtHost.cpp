#include "QtHost.h"

#include <memory>

namespace embed_qt {

QtHost::QtHost()
{
    m_loop.serve(m_events);
    plix::installEventSource(&m_events);
}

QtHost::~QtHost()
{
    if (plix::eventSource() == &m_events)
        plix::installEventSource(nullptr);
}

QtHost& QtHost::shared()
{
    static auto* s_host = [] {
        auto made = std::make_unique<QtHost>();
        auto* const host = made.get();
        plix::installHost(std::move(made));
        return host;
    }();
    return *s_host;
}

}
