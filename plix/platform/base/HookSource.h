#pragma once

#include <plix/platform/base/Weak.h>

#include <functional>
#include <typeindex>
#include <typeinfo>
#include <vector>

namespace plix {

/// A delegate or data source, packed with what fills each set of hooks from it. A set is a struct of Hook members with
/// `template<typename Host> void fillFrom(Host& host)`, which names each of them in a PLIX_FILL_HOOK. Holds the object weakly.
class HookSource {
public:
    HookSource() = default;

    template <typename... Sets, typename T> static HookSource pack(Ref<T> const& object)
    {
        HookSource source;
        if (!object)
            return source;
        source.m_object = Weak<NSObject>(object);
        (source.m_fillers.push_back({ typeid(Sets), &fillSet<Sets, T> }), ...);
        source.m_typedObject = object.get();
        return source;
    }

    NSObject* object() const { return m_object.get(); }

    /// The set filled from the object; an empty one where there is no object or it was packed without this set.
    template <typename Set> Set hooks() const
    {
        Set set;
        if (!m_object)
            return set;
        for (auto const& filler : m_fillers) {
            if (filler.set == typeid(Set))
                filler.fill(&set, m_typedObject);
        }
        return set;
    }

private:
    struct Filler {
        std::type_index set;
        void (*fill)(void* set, void* object);
    };

    template <typename Set, typename T> static void fillSet(void* set, void* object)
    {
        static_cast<Set*>(set)->fillFrom(*static_cast<T*>(object));
    }

    Weak<NSObject> m_object;
    void* m_typedObject { nullptr };
    std::vector<Filler> m_fillers;
};

}
