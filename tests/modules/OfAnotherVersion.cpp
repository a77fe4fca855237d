#include <plix/platform/foundation/plugin_module.h>

namespace plix {

extern "C" PLIX_EXPORT PluginModule const plixPluginModule;
PluginModule const plixPluginModule { PluginModule::currentInterface + 1, nullptr, nullptr, 7 };

}
