#include <plix/platform/foundation/plugin_classes.h>

#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/module_file.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/plugin_module.h>

#include <dlfcn.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <unordered_map>

namespace plix {

namespace {

constexpr std::size_t headSize = 65536;

// Kept for the life of the process: a class that was described can't be taken back.
std::unordered_map<Class const*, Ref<NSBundle>>& pluginOfClass()
{
    static auto& s_plugins = *new std::unordered_map<Class const*, Ref<NSBundle>>;
    return s_plugins;
}

std::string_view faultOfFile(std::string const& path, std::uint64_t size)
{
    std::vector<std::uint8_t> head(std::min<std::uint64_t>(size, headSize));
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(head.data()), static_cast<std::streamsize>(head.size())))
        return "it can't be read";
    return faultOfModuleFile(head, size);
}

std::string loaderFault()
{
    auto const* text = ::dlerror();
    auto fault = validUTF8(text ? text : "the loader does not say why");
    std::ranges::replace(fault, '\n', ' ');
    return fault;
}

std::string faultOfEntries(PluginModule const& module)
{
    std::set<std::string_view> names;
    for (auto const& entry : std::span(module.entries, module.count)) {
        if (!entry.name || !entry.describe)
            return "its list of classes is damaged";
        if (NSClassFromString(entry.name) || !names.insert(entry.name).second)
            return "there is a class " + std::string(entry.name) + " already";
    }
    return {};
}

}

NSBundle* pluginThatBrought(Class const& described)
{
    auto const found = pluginOfClass().find(&described);
    return found == pluginOfClass().end() ? nullptr : found->second.get();
}

std::optional<std::string> NSBundle::modulePath(std::string& fault) const
{
    auto const executable = objectForInfoDictionaryKey("CFBundleExecutable");
    if (!executable.isString() || executable.string()->empty()) {
        fault = "it has no Info.plist that names a module";
        return {};
    }
    auto const& name = *executable.string();
    if (name != lastPathComponent(name) || name == ".." || name.find('\0') != std::string::npos) {
        fault = "its module is outside of it";
        return {};
    }
    auto const& files = NSFileManager::defaultManager();
    for (auto const* directory : { "", "Contents" }) {
        for (auto const* extension : { "", ".so" }) {
            auto path = stringByAppendingPathComponent(stringByAppendingPathComponent(m_bundlePath, directory), name + extension);
            auto const attributes = files.fileAttributesAtPath(path, true);
            if (!attributes || attributes->type != NSFileType::Regular)
                continue;
            fault = faultOfFile(path, attributes->size);
            return fault.empty() ? std::optional(path) : std::nullopt;
        }
    }
    fault = "its module " + validUTF8(name) + " is missing";
    return {};
}

bool NSBundle::takeModule(PluginModule const* module, std::string& fault)
{
    if (module && module->interface != PluginModule::currentInterface)
        fault = "it was built for another version";
    else if (!module || !module->entries || module->count == 0)
        fault = "it registers no class";
    else if (!module->root || &module->root() != &NSObject::staticClass())
        fault = "it carries a library of its own";
    else
        fault = faultOfEntries(*module);
    if (!fault.empty())
        return false;
    for (auto const& entry : std::span(module->entries, module->count)) {
        m_classes.push_back(&entry.describe());
        pluginOfClass().emplace(m_classes.back(), this);
    }
    return true;
}

bool NSBundle::load()
{
    if (m_isLoaded)
        return true;
    std::string fault;
    if (auto const path = modulePath(fault)) {
        auto* const module = ::dlopen(path->c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!module) {
            fault = loaderFault();
        } else if (takeModule(static_cast<PluginModule const*>(::dlsym(module, "plixPluginModule")), fault)) {
            m_isLoaded = true;
            return true;
        } else {
            ::dlclose(module);
        }
    }
    m_info.reset();
    NSLog("NSBundle: " + validUTF8(m_bundlePath) + " is not loaded: " + fault);
    return false;
}

Class const* NSBundle::classNamed(std::string_view name)
{
    if (!load())
        return nullptr;
    auto const* found = NSClassFromString(name);
    return found && &bundleForClass(*found) == this ? found : nullptr;
}

Class const* NSBundle::principalClass()
{
    if (!load())
        return nullptr;
    auto const named = objectForInfoDictionaryKey("NSPrincipalClass");
    if (!named.isString())
        return m_classes.empty() ? nullptr : m_classes.front();
    auto const* found = classNamed(*named.string());
    if (!found)
        NSLog("NSBundle: " + validUTF8(m_bundlePath) + " has no class " + validUTF8(*named.string()));
    return found;
}

}
