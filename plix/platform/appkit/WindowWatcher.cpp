#include <plix/platform/appkit/WindowWatcher.h>

namespace plix {

constinit WindowWatcher* WindowWatcher::s_current = nullptr;
constinit WindowWatcher::KeyCatcher WindowWatcher::s_keyCatcher = nullptr;

}
