#include <plix/platform/foundation/plugin_module.h>

namespace plix {

extern "C" PluginModule const plixPluginModule;
PluginModule const plixPluginModule { PluginModule::currentInterface + 1, nullptr, nullptr, 7 };

}
