#include "GLibLoop.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace embed_gtk {

namespace {

/// After what a person does, before windows are painted.
constexpr int s_priority = 50;

GIOCondition conditionOf(short events)
{
    unsigned condition = 0;
    condition |= (events & POLLIN) != 0 ? static_cast<unsigned>(G_IO_IN) : 0U;
    condition |= (events & POLLOUT) != 0 ? static_cast<unsigned>(G_IO_OUT) : 0U;
    return static_cast<GIOCondition>(condition);
}

}

GLibLoop::GLibLoop()
{
    static GSourceFuncs s_functions { prepare, nullptr, dispatch, nullptr, nullptr, nullptr };
    auto* const source = g_source_new(&s_functions, sizeof(Source));
    m_source = reinterpret_cast<Source*>(source);
    m_source->loop = this;
    g_source_set_priority(source, s_priority);
    // In a turn an operation may wait, and then the loop runs inside itself.
    g_source_set_can_recurse(source, 1);
}

GLibLoop::~GLibLoop()
{
    g_source_destroy(&m_source->base);
    g_source_unref(&m_source->base);
}

void GLibLoop::serve(plix::EmbeddingEvents& events)
{
    m_events = &events;
    g_source_attach(&m_source->base, nullptr);
}

void GLibLoop::pass()
{
    g_main_context_iteration(nullptr, 1);
}

int GLibLoop::depth() const
{
    return g_main_depth();
}

gboolean GLibLoop::prepare(GSource* source, gint* timeout)
{
    return reinterpret_cast<Source*>(source)->loop->prepareToSleep(*timeout) ? 1 : 0;
}

gboolean GLibLoop::dispatch(GSource* source, GSourceFunc, gpointer)
{
    auto& loop = *reinterpret_cast<Source*>(source)->loop;
    // Also called for a descriptor that is ready: the next time that GLib would sleep, there is a turn.
    if (std::exchange(loop.m_wantsTurn, false))
        plix::takeTurn(*loop.m_events);
    return G_SOURCE_CONTINUE;
}

bool GLibLoop::prepareToSleep(gint& timeout)
{
    constexpr double longest = 1e6;
    if (m_withoutTurns > 0) {
        timeout = static_cast<gint>(std::max<gint64>(0, m_wakeAt - g_get_monotonic_time()) / 1000 + 1);
        return false;
    }
    m_wantsTurn = m_events->toolkitWillSleep();
    timeout = m_wantsTurn ? 0 : -1;
    if (m_wantsTurn)
        return true;
    watch(m_events->watched());
    if (auto const deadline = m_events->deadline())
        timeout = static_cast<gint>(std::ceil(std::clamp(*deadline - plix::clock().uptime(), 0.0, longest) * 1000));
    return false;
}

void GLibLoop::watch(std::vector<pollfd> const& descriptors)
{
    std::erase_if(m_watched, [&](auto const& entry) {
        auto const isMeant = [&](pollfd const& wanted) { return wanted.fd == entry.first && wanted.events == entry.second.events; };
        if (std::ranges::any_of(descriptors, isMeant))
            return false;
        g_source_remove_unix_fd(&m_source->base, entry.second.tag);
        return true;
    });
    for (auto const& wanted : descriptors) {
        auto& watched = m_watched[wanted.fd];
        if (watched.tag)
            continue;
        watched = { wanted.events, g_source_add_unix_fd(&m_source->base, wanted.fd, conditionOf(wanted.events)) };
    }
}

}
