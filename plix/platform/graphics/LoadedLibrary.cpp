#include <plix/platform/graphics/LoadedLibrary.h>

#include <dlfcn.h>

namespace plix {

LoadedLibrary::LoadedLibrary(char const* name)
    : m_library(dlopen(name, RTLD_LAZY | RTLD_LOCAL))
{
}

void* LoadedLibrary::symbol(char const* name) const
{
    return m_library ? dlsym(m_library, name) : nullptr;
}

}
