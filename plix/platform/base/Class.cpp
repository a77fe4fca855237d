#include <plix/platform/base/Class.h>

#include <plix/platform/base/class_roster.h>

#include <map>
#include <vector>

namespace plix {

namespace {

std::map<std::string, Class const*, std::less<>>& registry()
{
    static auto* const s_registry = new std::map<std::string, Class const*, std::less<>>;
    return *s_registry;
}

/// Those that were not called yet.
std::vector<void (*)()>& rosters()
{
    static auto* const s_rosters = new std::vector<void (*)()>;
    return *s_rosters;
}

}

Class::Class(char const* name, Class const* superclass, std::type_index type)
    : m_name(name)
    , m_superclass(superclass)
    , m_type(type)
{
}

void Class::enterInRegistry() const
{
    registry()[m_name] = this;
}

bool Class::isSubclassOfClass(Class const& other) const
{
    for (auto const* current = this; current; current = current->m_superclass) {
        if (current == &other)
            return true;
    }
    return false;
}

Class::Action const* Class::action(Selector selector) const
{
    for (auto const* current = this; current; current = current->m_superclass) {
        if (auto found = current->m_actions.find(selector); found != current->m_actions.end())
            return &found->second;
    }
    return nullptr;
}

Class::Outlet const* Class::outlet(std::string_view name) const
{
    for (auto const* current = this; current; current = current->m_superclass) {
        if (auto found = current->m_outlets.find(std::string(name)); found != current->m_outlets.end())
            return &found->second;
    }
    return nullptr;
}

Class::Property const* Class::property(std::string_view name) const
{
    for (auto const* current = this; current; current = current->m_superclass) {
        if (auto found = current->m_properties.find(std::string(name)); found != current->m_properties.end())
            return &found->second;
    }
    return nullptr;
}

bool Class::initWindow(NSObject& fresh, WindowPlacement const& placement) const
{
    for (auto const* current = this; current; current = current->m_superclass) {
        if (current->m_initWindow)
            return current->m_initWindow(fresh, placement);
    }
    return false;
}

HookSource Class::hookSource(NSObject& object) const
{
    auto source = HookSource::pack<>(Ref<NSObject>(object));
    for (auto const* current = this; current; current = current->m_superclass) {
        if (current->m_packHooks)
            source.add(current->m_packHooks(object));
    }
    return source;
}

std::string const& Class::bundleName() const
{
    for (auto const* current = this; current->m_superclass; current = current->m_superclass) {
        if (!current->m_bundleName.empty())
            return current->m_bundleName;
    }
    return m_bundleName;
}

Class const* NSClassFromString(std::string_view name)
{
    auto found = registry().find(name);
    while (found == registry().end() && !rosters().empty()) {
        auto const registerClasses = rosters().back();
        rosters().pop_back();
        registerClasses();
        found = registry().find(name);
    }
    return found == registry().end() ? nullptr : found->second;
}

bool addClassRoster(void (*registerClasses)())
{
    rosters().push_back(registerClasses);
    return true;
}

std::string const& NSStringFromClass(Class const& described)
{
    return described.name();
}

}
