#include <plix/platform/host/desktop/sdl_handles.h>

#include <SDL_syswm.h>

namespace plix {

NativeWindow nativeWindow(SDL_Window* window)
{
    SDL_SysWMinfo info {};
    SDL_VERSION(&info.version);
    if (!window || !SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11)
        return {};
    return { info.info.x11.display, info.info.x11.window };
}

}
