#pragma once

// Pulse as this folder uses it. Included by this folder's sources only.

#include <plix/platform/base/Handle.h>

#include <pulse/pulseaudio.h>

namespace plix {

/// Loaded when it is first asked for.
struct PulseLibrary {
    decltype(&pa_mainloop_new) newLoop { nullptr };
    decltype(&pa_mainloop_free) freeLoop { nullptr };
    decltype(&pa_mainloop_get_api) loopInterface { nullptr };
    decltype(&pa_mainloop_set_poll_func) setPoll { nullptr };
    decltype(&pa_mainloop_prepare) prepare { nullptr };
    decltype(&pa_mainloop_poll) poll { nullptr };
    decltype(&pa_mainloop_dispatch) dispatch { nullptr };
    decltype(&pa_mainloop_wakeup) wakeUp { nullptr };
    decltype(&pa_context_new) newContext { nullptr };
    decltype(&pa_context_connect) connect { nullptr };
    decltype(&pa_context_disconnect) disconnect { nullptr };
    decltype(&pa_context_unref) releaseContext { nullptr };
    decltype(&pa_context_get_state) state { nullptr };
    decltype(&pa_context_set_state_callback) setStateCallback { nullptr };
    decltype(&pa_context_set_subscribe_callback) setSubscribeCallback { nullptr };
    decltype(&pa_context_subscribe) subscribe { nullptr };
    decltype(&pa_context_get_server_info) serverInfo { nullptr };
    decltype(&pa_context_get_sink_info_by_name) sinkInfo { nullptr };
    decltype(&pa_operation_unref) releaseOperation { nullptr };
    decltype(&pa_stream_new) newStream { nullptr };
    decltype(&pa_stream_connect_playback) connectPlayback { nullptr };
    decltype(&pa_stream_disconnect) disconnectStream { nullptr };
    decltype(&pa_stream_unref) releaseStream { nullptr };
    decltype(&pa_stream_get_state) streamState { nullptr };
    decltype(&pa_stream_set_write_callback) setWriteCallback { nullptr };
    decltype(&pa_stream_begin_write) beginWrite { nullptr };
    decltype(&pa_stream_write) write { nullptr };
    bool isLoaded { false };

    static PulseLibrary const& shared();

private:
    PulseLibrary();
};

template <> struct HandleDeleter<pa_mainloop> {
    void operator()(pa_mainloop* loop) const { PulseLibrary::shared().freeLoop(loop); }
};

template <> struct HandleDeleter<pa_context> {
    void operator()(pa_context* context) const
    {
        PulseLibrary::shared().setStateCallback(context, nullptr, nullptr);
        PulseLibrary::shared().setSubscribeCallback(context, nullptr, nullptr);
        PulseLibrary::shared().disconnect(context);
        PulseLibrary::shared().releaseContext(context);
    }
};

template <> struct HandleDeleter<pa_stream> {
    void operator()(pa_stream* stream) const
    {
        PulseLibrary::shared().setWriteCallback(stream, nullptr, nullptr);
        PulseLibrary::shared().disconnectStream(stream);
        PulseLibrary::shared().releaseStream(stream);
    }
};

}
