#pragma once

#include <plix/hosting.h>

#include <gtk/gtk.h>

#include <map>

namespace embed_gtk {

/// GLib's main loop, which the library's timers, descriptors and waits share.
class GLibLoop final : public plix::ToolkitLoop {
public:
    GLibLoop();
    ~GLibLoop() override;
    GLibLoop(GLibLoop const&) = delete;
    GLibLoop& operator=(GLibLoop const&) = delete;

    /// From now on GLib wakes for what these events wait for.
    void serve(plix::EmbeddingEvents&);
    /// Runs the loop until the condition holds or the time, in seconds, is over, without turns of the library's.
    template <typename Condition> void runWithoutTurns(double seconds, Condition const& condition)
    {
        auto const end = g_get_monotonic_time() + static_cast<gint64>(seconds * G_USEC_PER_SEC);
        ++m_withoutTurns;
        while (!condition() && g_get_monotonic_time() < end) {
            m_wakeAt = end;
            g_main_context_iteration(nullptr, 1);
        }
        --m_withoutTurns;
    }

    // plix::ToolkitLoop:
    void pass() override;
    int depth() const override;

private:
    /// How GLib sees it.
    struct Source {
        GSource base;
        GLibLoop* loop;
    };

    static gboolean prepare(GSource*, gint* timeout);
    static gboolean dispatch(GSource*, GSourceFunc, gpointer);
    /// True for a turn; otherwise how long GLib may sleep, in milliseconds.
    bool prepareToSleep(gint& timeout);
    void watch(std::vector<pollfd> const&);

    Source* m_source { nullptr };
    plix::EmbeddingEvents* m_events { nullptr };
    struct Watched {
        short events { 0 };
        gpointer tag { nullptr };
    };
    std::map<int, Watched> m_watched;
    gint64 m_wakeAt { 0 };
    int m_withoutTurns { 0 };
    bool m_wantsTurn { false };
};

}
