#include <plix/platform/base/Selector.h>

#include <unordered_set>

namespace plix {

namespace {

std::unordered_set<std::string>& internedNames()
{
    static auto* const s_names = new std::unordered_set<std::string>;
    return *s_names;
}

}

Selector::Selector(std::string_view name)
    : m_name(&*internedNames().emplace(name).first)
{
}

std::string const& Selector::name() const
{
    static std::string const s_none;
    return m_name ? *m_name : s_none;
}

}
