#pragma once

#include <plix/platform/base/Ref.h>

#include <map>
#include <string>
#include <string_view>

namespace plix {

/// Objects of one kind that are asked for by name, such as images. Each has one name at most, which it keeps itself and answers as
/// name(); setName() gives it. What has a name is held.
template <typename T> class NamedObjects {
public:
    /// The object that has the name; else what `find(name)` answers, which gets the name. Null for the empty name, and where
    /// nothing is found.
    template <typename Find> Ref<T> named(std::string_view name, Find const& find)
    {
        if (name.empty())
            return nullptr;
        if (auto const known = m_objects.find(name); known != m_objects.end())
            return known->second;
        Ref<T> found = find(name);
        if (found)
            found->setName(name);
        return found;
    }
    /// Puts another name in the place of the object's present one; the empty name for none. False, and nothing changes, where
    /// another object has it.
    bool rename(T& object, std::string& present, std::string_view name)
    {
        if (name == present)
            return true;
        if (m_objects.contains(name))
            return false;
        Ref<T> const protector(object);
        if (!present.empty())
            m_objects.erase(present);
        present = name;
        if (!present.empty())
            m_objects.emplace(present, protector);
        return true;
    }

private:
    std::map<std::string, Ref<T>, std::less<>> m_objects;
};

}
