#ifdef PLIX_PULSE

#include <plix/platform/host/desktop/pulse_library.h>

#include <plix/platform/graphics/LoadedLibrary.h>

namespace plix {

PulseLibrary const& PulseLibrary::shared()
{
    static PulseLibrary const s_library;
    return s_library;
}

PulseLibrary::PulseLibrary()
{
    LoadedLibrary library("libpulse.so.0");
    library.find(newLoop, "pa_mainloop_new");
    library.find(freeLoop, "pa_mainloop_free");
    library.find(loopInterface, "pa_mainloop_get_api");
    library.find(setPoll, "pa_mainloop_set_poll_func");
    library.find(prepare, "pa_mainloop_prepare");
    library.find(poll, "pa_mainloop_poll");
    library.find(dispatch, "pa_mainloop_dispatch");
    library.find(wakeUp, "pa_mainloop_wakeup");
    library.find(newContext, "pa_context_new");
    library.find(connect, "pa_context_connect");
    library.find(disconnect, "pa_context_disconnect");
    library.find(releaseContext, "pa_context_unref");
    library.find(state, "pa_context_get_state");
    library.find(setStateCallback, "pa_context_set_state_callback");
    library.find(setSubscribeCallback, "pa_context_set_subscribe_callback");
    library.find(subscribe, "pa_context_subscribe");
    library.find(serverInfo, "pa_context_get_server_info");
    library.find(sinkInfo, "pa_context_get_sink_info_by_name");
    library.find(releaseOperation, "pa_operation_unref");
    library.find(newStream, "pa_stream_new");
    library.find(connectPlayback, "pa_stream_connect_playback");
    library.find(disconnectStream, "pa_stream_disconnect");
    library.find(releaseStream, "pa_stream_unref");
    library.find(streamState, "pa_stream_get_state");
    library.find(setWriteCallback, "pa_stream_set_write_callback");
    library.find(beginWrite, "pa_stream_begin_write");
    library.find(write, "pa_stream_write");
    isLoaded = library.isComplete();
}

}

#endif
