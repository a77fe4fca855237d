#pragma once

#include <plix/platform/base/Weak.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <typeindex>
#include <typeinfo>
#include <vector>

namespace plix {

/// A delegate or data source, packed with what fills each set of hooks from it. A set is a struct of Hook members with
/// `template<typename Host> void fillFrom(Host& host)`, which names each of them in a PLIX_FILL_HOOK. Holds the object weakly.
class PLIX_EXPORT HookSource {
public:
    HookSource() = default;

    /// An object with what fills these sets of hooks from it.
    template <typename... Sets, typename T> static HookSource pack(Ref<T> const& object)
    {
        HookSource source;
        if (!object)
            return source;
        source.m_object = Weak<NSObject>(object);
        (source.m_fillers.push_back({ typeid(Sets), &fillSet<Sets, T>, object.get() }), ...);
        return source;
    }
    /// With the sets of another source for the same object, those that it has already excepted.
    void add(HookSource const& other)
    {
        auto const isMissing = [this](Filler const& filler) {
            return std::none_of(m_fillers.begin(), m_fillers.end(), [&](Filler const& own) { return own.set == filler.set; });
        };
        std::copy_if(other.m_fillers.begin(), other.m_fillers.end(), std::back_inserter(m_fillers), isMissing);
    }

    /// Null when it is gone.
    NSObject* object() const { return m_object.get(); }

    /// The set filled from the object; an empty one where there is no object or it was packed without this set.
    template <typename Set> Set hooks() const
    {
        Set set;
        if (!m_object)
            return set;
        for (auto const& filler : m_fillers) {
            if (filler.set == typeid(Set))
                filler.fill(&set, filler.typedObject);
        }
        return set;
    }

private:
    struct Filler {
        std::type_index set;
        void (*fill)(void* set, void* object);
        void* typedObject;
    };

    template <typename Set, typename T> static void fillSet(void* set, void* object)
    {
        static_cast<Set*>(set)->fillFrom(*static_cast<T*>(object));
    }

    Weak<NSObject> m_object;
    std::vector<Filler> m_fillers;
};

}
