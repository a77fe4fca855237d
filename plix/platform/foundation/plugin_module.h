#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/export.h>

#include <cstddef>

namespace plix {

/// What the module of a plug-in bundle tells NSBundle::load(): the classes that it adds. PLIX_PLUGIN_MODULE writes it.
struct PluginModule {
    /// A class of the module.
    struct Entry {
        char const* name;
        Class const& (*describe)();
    };

    /// Another one with each change that makes modules built before unfit.
    static constexpr unsigned currentInterface = 1;

    unsigned interface {
        0
    };
    /// The root of all classes as the module sees it. A module uses its host's library and brings none of its own.
    Class const& (*root)() { nullptr };
    Entry const* entries { nullptr };
    std::size_t count { 0 };
};

}

#define PLIX_PLUGIN_CLASS(Type)                                                                                                    \
    ::plix::PluginModule::Entry                                                                                                    \
    {                                                                                                                              \
#Type, &Type::staticClass                                                                                                  \
    }

/// Once in a module's source, in namespace plix: PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(OneClass), PLIX_PLUGIN_CLASS(AnotherClass));
#define PLIX_PLUGIN_MODULE(...)                                                                                                    \
    namespace {                                                                                                                    \
    constexpr ::plix::PluginModule::Entry pluginEntries[] = { __VA_ARGS__ };                                                       \
    }                                                                                                                              \
    extern "C" PLIX_EXPORT ::plix::PluginModule const plixPluginModule;                                                            \
    ::plix::PluginModule const plixPluginModule                                                                                    \
    {                                                                                                                              \
        ::plix::PluginModule::currentInterface, &::plix::NSObject::staticClass, pluginEntries,                                     \
            sizeof(pluginEntries) / sizeof(pluginEntries[0])                                                                       \
    }
