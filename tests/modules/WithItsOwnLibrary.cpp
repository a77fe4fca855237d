#include <plix/platform/foundation/plugin_module.h>

namespace plix {
namespace {

Class const& otherRoot()
{
    return *NSClassFromString("NSBundle");
}

constexpr PluginModule::Entry entries[] = { { "OtherRoot", &otherRoot } };

}

extern "C" PLIX_EXPORT PluginModule const plixPluginModule;
PluginModule const plixPluginModule { PluginModule::currentInterface, &otherRoot, entries, 1 };

}
